#include "widgets/GroupItem.h"

#include "widgets/ExplorerBar.h"

namespace paperkite {

GroupItem::GroupItem(std::string key, std::string caption)
    : mKey(std::move(key)), mCaption(std::move(caption)) {}

bool GroupItem::GetSelected() const {
    return mGroup && mGroup->mBar && mGroup->mBar->mSelected.get() == this;
}

void GroupItem::SetSelected(bool value) {
    if (GetSelected() == value || !mGroup || !mGroup->mBar) return;
    mGroup->mBar->SetSelectedItem(value ? mGroup->Item(mKey) : Ref<GroupItem>());
}

void GroupItem::TellChanged() {
    if (mGroup) mGroup->TellChanged();
}

} // namespace paperkite
