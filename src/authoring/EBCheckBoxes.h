#pragma once

#include "foundation/BulwarkSupport.h"
#include "widgets/CheckBox.h"
#include "widgets/Container.h"
#include "widgets/ExplorerBar.h"

#include <functional>
#include <string>
#include <vector>

namespace paperkite {

/// The check boxes of flags inside one item of an explorer bar, which has none of its own.
///
/// The boxes stand on the frame that the item hosts, one below the other, and are counted from 1.
class EBCheckBoxes {
public:
    using ClickHandler = std::function<void(std::size_t)>;

    /// Called with a box's position whenever its value changes, by the author or by code.
    void SetClickHandler(ClickHandler handler) { mClick = std::move(handler); }

    /// Adds a box to the frame of an item, opening the item's group.
    Ref<CheckBox> AddCheckbox(ExplorerBar& bar, GroupItem& item, const std::string& Caption,
                              const std::string& Tag, const std::string& ToolTipText);
    /// Takes all boxes off their frame.
    void Clear();

    std::size_t Count() const { return mCheckBoxes.size(); }
    /// By position from 1; error 9 outside.
    const Ref<CheckBox>& Item(std::size_t position) const;

private:
    InstanceCount mInstanceCount{"EBCheckBoxes", ComponentType::Class};
    std::vector<Ref<CheckBox>> mCheckBoxes;
    std::vector<Connection> mConnections;
    Ref<Container> mFrame;
    ClickHandler mClick;
};

} // namespace paperkite
