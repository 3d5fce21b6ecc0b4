#include "widgets/ExplorerBarGroup.h"

#include "widgets/ExplorerBar.h"

namespace paperkite {

ExplorerBarGroup::ExplorerBarGroup(std::string key, std::string caption)
    : mKey(std::move(key)), mCaption(std::move(caption)) {}

ExplorerBarGroup::~ExplorerBarGroup() {
    for (const auto& item : mItems)
        item->mGroup = nullptr;
}

void ExplorerBarGroup::SetMargins(int left, int right) {
    if (mLeftMargin == left && mRightMargin == right) return;
    mLeftMargin = left;
    mRightMargin = right;
    TellChanged();
}

Ref<GroupItem> ExplorerBarGroup::Add(const std::string& key, const std::string& caption) {
    auto item = MakeRef<GroupItem>(key, caption);
    mItems.Add(item, key);
    item->mGroup = this;
    TellChanged();
    return item;
}

Ref<GroupItem> ExplorerBarGroup::Find(const std::string& key) const {
    const auto* found = mItems.Find(key);
    return found ? *found : Ref<GroupItem>();
}

void ExplorerBarGroup::Remove(const std::string& key) {
    const Ref<GroupItem> item = Item(key);
    mItems.Remove(key);
    Release(item);
}

void ExplorerBarGroup::Remove(std::size_t position) {
    const Ref<GroupItem> item = Item(position);
    mItems.Remove(position);
    Release(item);
}

void ExplorerBarGroup::Release(const Ref<GroupItem>& item) {
    item->mGroup = nullptr;
    TellChanged();
    if (mBar) mBar->DropSelection(item);
}

void ExplorerBarGroup::Clear() {
    while (Count() > 0)
        Remove(Count());
}

void ExplorerBarGroup::TellChanged() {
    if (mBar) mBar->TellGroupsChanged();
}

} // namespace paperkite
