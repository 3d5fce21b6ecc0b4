#pragma once

#include "foundation/Collection.h"
#include "foundation/Ref.h"
#include "widgets/DockCommand.h"

#include <string>
#include <vector>

namespace paperkite {

class Control;
class DockHost;

/// One thing on a toolbar: a command's button, or a control of its own (a field, say).
struct DockToolbarControl {
    Ref<DockCommand> Command;
    /// Instead of a command; nothing for a button.
    Ref<Control> Hosted;
    /// Whether a separator stands before it.
    bool BeginGroup = false;
};

/// A row of buttons of a DockHost.
class DockToolbar {
public:
    DockToolbar(DockHost* host, std::string name) : mHost(host), mName(std::move(name)) {}

    DockToolbar(const DockToolbar&) = delete;
    DockToolbar& operator=(const DockToolbar&) = delete;

    const std::string& GetName() const { return mName; }

    bool GetVisible() const { return mVisible; }

    void SetVisible(bool value);

    /// Adds a button at the end.
    void Add(const Ref<DockCommand>& command, bool beginGroup = false);
    void AddControl(const Ref<Control>& control, bool beginGroup = false);

    std::size_t Count() const { return mControls.size(); }

    /// From 1, separators not counted; error 9 outside.
    const DockToolbarControl& Item(std::size_t position) const;
    void Remove(std::size_t position);
    /// Takes every button of the command off.
    void Remove(const Ref<DockCommand>& command);
    void Clear();

    auto begin() const { return mControls.begin(); }

    auto end() const { return mControls.end(); }

private:
    friend class DockHost;
    void TellChanged();

    DockHost* mHost;
    std::string mName;
    bool mVisible = true;
    std::vector<DockToolbarControl> mControls;
};

} // namespace paperkite
