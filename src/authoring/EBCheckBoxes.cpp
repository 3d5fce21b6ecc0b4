#include "authoring/EBCheckBoxes.h"

#include "authoring/ScaleModes.h"
#include "foundation/Error.h"
#include "foundation/Services.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

// What a visual theme calls the ground and the text of the bar's groups.
constexpr int kGroupPart = 5;
constexpr int kGroupState = 1;
constexpr int kGroundProperty = 3802;
constexpr int kTextProperty = 3803;
constexpr double kRoomBesideBoxes = 3;

Colour ThemeColour(int property) {
    const auto& theme = CurrentServices().ThemeColours;
    if (!theme || !theme->IsActive()) return std::nullopt;
    return theme->ColourOf(kGroupPart, kGroupState, property);
}

ScaleMode ScaleModeOf(const ExplorerBar& bar) {
    return bar.GetScaleMode() == 0 ? ScaleMode::Twips : static_cast<ScaleMode>(bar.GetScaleMode());
}

} // namespace

void EBCheckBoxes::DumpVariables(VariableDump& dump) const {
    std::vector<Value> boxes(mCheckBoxes.size(), Value(InterfaceValue{}));
    std::vector<Value> captions(mCheckBoxCaptions.begin(), mCheckBoxCaptions.end());
    dump.Add("mCheckBoxes", Value::ArrayOf(std::move(boxes), 1))
        .Add("mCheckBoxCaptions", Value::ArrayOf(std::move(captions), 1));
}

void EBCheckBoxes::SetupExplorerBar(ExplorerBar& Control) {
    Procedure(*this, "SetupExplorerBar", [&](Frame&) {
        if (const Colour ground = ThemeColour(kGroundProperty)) Control.SetGroupBackColor(ground);
    });
}

Ref<CheckBox> EBCheckBoxes::AddCheckbox(ExplorerBar& Control, GroupItem& Item,
                                        const std::string& Caption, const std::string& Tag,
                                        const std::string& ToolTipText) {
    return Procedure<Ref<CheckBox>>(*this, "AddCheckbox", [&](Ref<CheckBox>& result, Frame& frame) {
        Watch watchCaption(frame, "Caption", Caption);
        Watch watchTag(frame, "Tag", Tag);
        Watch watchTip(frame, "ToolTipText", ToolTipText);
        mFrame = Item.GetControl().As<Container>();
        if (mFrame->GetBackColor() != Control.GetBackColor())
            mFrame->SetBackColor(Control.GetBackColor());
        if (Item.GetGroup()) Item.GetGroup()->SetCollapsed(false);
        const auto box = MakeBox(Caption, Tag, ToolTipText);
        PlaceBox(Control, Item, *box);
        mFrame->Controls.Add(box);
        result = box;
    });
}

Ref<CheckBox> EBCheckBoxes::MakeBox(const std::string& caption, const std::string& tag,
                                    const std::string& toolTipText) {
    const std::size_t index = mCheckBoxes.size() + 1;
    auto box = MakeRef<CheckBox>("chkExplorerBar" + std::to_string(index));
    box->SetCaption(caption);
    box->SetTag(tag);
    box->SetToolTipText(toolTipText);
    box->SetAccessibleName(caption);
    box->SetBackColor(mFrame->GetBackColor());
    if (const Colour text = ThemeColour(kTextProperty)) box->SetForeColor(text);
    mConnections.push_back(box->Events.Click.Connect([this, index] {
        if (mClick) mClick(index);
    }));
    mCheckBoxes.push_back(box);
    mCheckBoxCaptions.push_back(caption);
    return box;
}

void EBCheckBoxes::PlaceBox(ExplorerBar& bar, GroupItem& item, CheckBox& box) {
    const double rowHeight = bar.GetRowHeight();
    const int top = static_cast<int>(LeadingNumber(mFrame->GetTag()));
    const int height = static_cast<int>(rowHeight * kTwipsPerPixel);
    box.Move(0, top, mFrame->GetWidth(), height);
    mFrame->SetTag(std::to_string(top + height));
    if (bar.GetTag().empty()) bar.SetTag(std::to_string(bar.GetTabIndex()));
    const int tabIndex = static_cast<int>(LeadingNumber(bar.GetTag())) + 1;
    bar.SetTag(std::to_string(tabIndex));
    box.SetTabIndex(tabIndex);
    mFrame->SetHeight(top + height);
    item.SetHeight(ScaleY(top + height, ScaleMode::Twips, ScaleMode::Pixels) / rowHeight);
}

void EBCheckBoxes::ResizeCheckboxes(const ExplorerBar& Control) {
    Procedure(*this, "ResizeCheckboxes", [&](Frame&) {
        const auto group = Control.GetGroup("flags");
        const double margins = 2.0 * (group->GetLeftMargin() + group->GetRightMargin());
        const double width = ScaleX(Control.GetWidth(), ScaleModeOf(Control), ScaleMode::Pixels) -
                             margins + kRoomBesideBoxes;
        if (width < 1) return;
        for (std::size_t position = 1; position <= Count(); ++position) {
            CheckBox& box = *Item(position);
            box.SetWidth(static_cast<int>(width * kTwipsPerPixel));
            box.SetCaption(FitTextByRect(box, CaptionOf(position)));
        }
    });
}

std::string EBCheckBoxes::FitTextByRect(const CheckBox& Control, const std::string& Text) const {
    return Procedure<std::string>(*this, "FitTextByRect", [&](std::string& result, Frame& frame) {
        Watch watchText(frame, "Text", Text);
        const auto& measure = CurrentServices().TextMeasure;
        if (!measure) {
            result = Text;
            return;
        }
        const double width = ScaleX(Control.GetWidth(), ScaleMode::Twips, ScaleMode::Pixels) -
                             measure->CheckBoxGlyphWidth();
        const std::string fitting = measure->FitWithEllipsis(Text, static_cast<int>(width));
        result = fitting.substr(0, fitting.find('\0'));
    });
}

void EBCheckBoxes::Clear() {
    Procedure(*this, "Clear", [&](Frame&) {
        mConnections.clear();
        mCheckBoxes.clear();
        mCheckBoxCaptions.clear();
        if (mFrame) mFrame->Controls.Clear();
    });
}

const Ref<CheckBox>& EBCheckBoxes::Item(std::size_t position) const {
    if (position < 1 || position > mCheckBoxes.size()) RaiseError(ErrorNumber::SubscriptOutOfRange);
    return mCheckBoxes[position - 1];
}

const std::string& EBCheckBoxes::CaptionOf(std::size_t position) const {
    if (position < 1 || position > mCheckBoxCaptions.size())
        RaiseError(ErrorNumber::SubscriptOutOfRange);
    return mCheckBoxCaptions[position - 1];
}

} // namespace paperkite
