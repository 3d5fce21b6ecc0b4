#include "authoring/EBCheckBoxes.h"

#include "foundation/Error.h"

namespace paperkite {

Ref<CheckBox> EBCheckBoxes::AddCheckbox(ExplorerBar& bar, GroupItem& item,
                                        const std::string& Caption, const std::string& Tag,
                                        const std::string& ToolTipText) {
    mFrame = item.GetControl().As<Container>();
    if (item.GetGroup()) item.GetGroup()->SetCollapsed(false);
    const std::size_t index = mCheckBoxes.size() + 1;
    auto box = MakeRef<CheckBox>("chkExplorerBar" + std::to_string(index));
    box->SetCaption(Caption);
    box->SetTag(Tag);
    box->SetToolTipText(ToolTipText);
    mConnections.push_back(box->Events.Click.Connect([this, index] {
        if (mClick) mClick(index);
    }));
    mCheckBoxes.push_back(box);
    const int height = bar.GetRowHeight();
    box->Move(0, static_cast<int>(index - 1) * height, mFrame->GetWidth(), height);
    mFrame->Controls.Add(box);
    mFrame->SetHeight(static_cast<int>(index) * height);
    item.SetHeight(static_cast<double>(index));
    return box;
}

void EBCheckBoxes::Clear() {
    mConnections.clear();
    mCheckBoxes.clear();
    if (mFrame) mFrame->Controls.Clear();
}

const Ref<CheckBox>& EBCheckBoxes::Item(std::size_t position) const {
    if (position < 1 || position > mCheckBoxes.size()) RaiseError(ErrorNumber::SubscriptOutOfRange);
    return mCheckBoxes[position - 1];
}

} // namespace paperkite
