#pragma once

#include "foundation/BulwarkSupport.h"
#include "foundation/Procedure.h"
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
/// Their places are in twips. Captions that do not fit are shortened and come back when there is
/// room.
class EBCheckBoxes : public Shielded {
public:
    using ClickHandler = std::function<void(std::size_t)>;

    const char* ModuleName() const override { return "EBCheckBoxes"; }
    void DumpVariables(VariableDump& dump) const override;

    /// Called with a box's position whenever its value changes, by the author or by code.
    void SetClickHandler(ClickHandler handler) { mClick = std::move(handler); }

    /// Gives the bar's groups the colour that the visual theme has for them; without a theme
    /// nothing changes.
    void SetupExplorerBar(ExplorerBar& Control);
    /// Adds a box to the frame of an item, opening the item's group. Nothing, and no box, where
    /// the item has no frame.
    Ref<CheckBox> AddCheckbox(ExplorerBar& Control, GroupItem& Item, const std::string& Caption,
                              const std::string& Tag, const std::string& ToolTipText);
    /// Brings the boxes to the width of the bar; one narrower than its margins changes nothing.
    void ResizeCheckboxes(const ExplorerBar& Control);
    /// The text as it fits into a box, with an ellipsis where it had to be shortened.
    std::string FitTextByRect(const CheckBox& Control, const std::string& Text) const;
    /// Takes all boxes off their frame.
    void Clear();

    /// All boxes, in the order of their adding.
    const std::vector<Ref<CheckBox>>& GetCheckBoxes() const { return mCheckBoxes; }
    std::size_t Count() const { return mCheckBoxes.size(); }
    /// By position from 1; error 9 outside.
    const Ref<CheckBox>& Item(std::size_t position) const;
    /// The whole caption of a box, by position from 1; error 9 outside.
    const std::string& CaptionOf(std::size_t position) const;

private:
    Ref<CheckBox> MakeBox(const std::string& caption, const std::string& tag,
                          const std::string& toolTipText);
    void PlaceBox(ExplorerBar& bar, GroupItem& item, CheckBox& box);

    InstanceCount mInstanceCount{"EBCheckBoxes", ComponentType::Class};
    std::vector<Ref<CheckBox>> mCheckBoxes;
    std::vector<std::string> mCheckBoxCaptions;
    std::vector<Connection> mConnections;
    Ref<Container> mFrame;
    ClickHandler mClick;
};

} // namespace paperkite
