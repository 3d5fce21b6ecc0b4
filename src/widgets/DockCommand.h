#pragma once

#include "foundation/Ref.h"
#include "widgets/Changing.h"

#include <memory>
#include <string>

namespace paperkite {

class DockCommands;
class DockHost;

/// One command of a DockHost: what its buttons and menu entries show and do. A removed command
/// keeps its fields and is heard no more.
class DockCommand : public Changing {
public:
    explicit DockCommand(std::string name);
    DockCommand(const DockCommand&) = delete;
    DockCommand& operator=(const DockCommand&) = delete;
    ~DockCommand() override;

    const std::string& GetName() const { return mName; }

    const std::string& GetCaption() const { return mCaption; }

    void SetCaption(const std::string& value) { Assign(mCaption, value); }

    const std::string& GetToolTipText() const { return mToolTipText; }

    void SetToolTipText(const std::string& value) { Assign(mToolTipText, value); }

    const std::string& GetStatusText() const { return mStatusText; }

    void SetStatusText(const std::string& value) { Assign(mStatusText, value); }

    bool GetEnabled() const { return mEnabled; }

    void SetEnabled(bool value) { Assign(mEnabled, value); }

    bool GetVisible() const { return mVisible; }

    void SetVisible(bool value) { Assign(mVisible, value); }

    /// Key into the host's image list; empty for the one that goes by the command's name.
    const std::string& GetImage() const { return mImage; }

    void SetImage(const std::string& value) { Assign(mImage, value); }

    /// Anything that the component wants to keep with the command.
    const std::string& GetTag() const { return mTag; }

    void SetTag(const std::string& value) { mTag = value; }

    /// Whether the command opens a list of other commands.
    bool GetIsPopup() const { return mIsPopup; }

    /// The commands that a pop-up opens, made on first use, which makes it a pop-up.
    DockCommands& GetPopupCommands();

protected:
    DockHost* Host() const { return mHost; }

private:
    friend class DockCommands;
    void TellChanged() override;
    void SetHost(DockHost* host);

    DockHost* mHost = nullptr;
    std::string mName;
    std::string mCaption;
    std::string mToolTipText;
    std::string mStatusText;
    std::string mImage;
    std::string mTag;
    bool mEnabled = true;
    bool mVisible = true;
    bool mIsPopup = false;
    std::unique_ptr<DockCommands> mPopupCommands;
};

/// A command with an on and an off state. A click does not turn it: the handler of CommandClick
/// decides.
class DockCheckCommand : public DockCommand {
public:
    explicit DockCheckCommand(std::string name) : DockCommand(std::move(name)) {}

    /// 0 off, 1 on.
    int GetChecked() const { return mChecked; }

    /// A new state raises the host's CommandCheck; anything but 0 and 1 raises error 5.
    void SetChecked(int value);

private:
    int mChecked = 0;
};

} // namespace paperkite
