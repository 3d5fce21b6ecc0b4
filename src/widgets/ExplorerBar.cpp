#include "widgets/ExplorerBar.h"

#include <algorithm>

namespace paperkite {

ExplorerBar::ExplorerBar(std::string name) : Control(std::move(name)) {}

ExplorerBar::~ExplorerBar() {
    for (const auto& group : mGroups)
        group->mBar = nullptr;
}

Ref<ExplorerBarGroup> ExplorerBar::AddGroup(const std::string& key, const std::string& caption,
                                            const std::string& before) {
    if (FindGroup(key))
        RaiseError(ErrorNumber::KeyAlreadyThere, "The group \"" + key + "\" is already there");
    const std::size_t slot = before.empty() ? mGroups.size() : SlotOf(before);
    auto group = MakeRef<ExplorerBarGroup>(key, caption);
    group->mBar = this;
    mGroups.insert(mGroups.begin() + static_cast<std::ptrdiff_t>(slot), group);
    TellGroupsChanged();
    return group;
}

std::size_t ExplorerBar::SlotOf(const std::string& key) const {
    const auto found = std::find_if(mGroups.begin(), mGroups.end(),
                                    [&](const auto& group) { return group->GetKey() == key; });
    if (found == mGroups.end())
        RaiseError(ErrorNumber::InvalidCall, "The bar has no group \"" + key + "\"");
    return static_cast<std::size_t>(found - mGroups.begin());
}

Ref<ExplorerBarGroup> ExplorerBar::GetGroup(const std::string& key) const {
    return mGroups[SlotOf(key)];
}

Ref<ExplorerBarGroup> ExplorerBar::GetGroup(std::size_t position) const {
    if (position < 1 || position > mGroups.size()) RaiseError(ErrorNumber::SubscriptOutOfRange);
    return mGroups[position - 1];
}

Ref<ExplorerBarGroup> ExplorerBar::FindGroup(const std::string& key) const {
    for (const auto& group : mGroups)
        if (group->GetKey() == key) return group;
    return nullptr;
}

void ExplorerBar::RemoveGroup(const std::string& key) {
    TakeOut(SlotOf(key));
}

void ExplorerBar::RemoveGroup(std::size_t position) {
    GetGroup(position);
    TakeOut(position - 1);
}

void ExplorerBar::TakeOut(std::size_t slot) {
    const Ref<ExplorerBarGroup> group = mGroups[slot];
    const bool hadSelection = mSelected && mSelected->GetGroup() == group.get();
    mGroups.erase(mGroups.begin() + static_cast<std::ptrdiff_t>(slot));
    group->mBar = nullptr;
    TellGroupsChanged();
    if (hadSelection) SetSelectedItem(nullptr);
}

void ExplorerBar::SetSelectedItem(const Ref<GroupItem>& item) {
    if (mSelected == item) return;
    const Ref<ExplorerBarGroup> group = item ? GroupOf(*item) : Ref<ExplorerBarGroup>();
    if (item && !group) RaiseError(ErrorNumber::InvalidCall, "The item does not stand in this bar");
    const Ref<GroupItem> selected = item;
    mSelected = selected;
    if (mSuspended > 0)
        mTouched = true;
    else
        Tell<ExplorerBarObserver>([](auto& view) { view.SelectionChanged(); });
    Events.SelChange.Raise(group, selected, selected);
}

void ExplorerBar::DropSelection(const Ref<GroupItem>& item) {
    if (mSelected == item) SetSelectedItem(nullptr);
}

Ref<ExplorerBarGroup> ExplorerBar::GroupOf(const GroupItem& item) const {
    for (const auto& group : mGroups)
        if (group.get() == item.GetGroup()) return group;
    return nullptr;
}

void ExplorerBar::SuspendPainting() {
    ++mSuspended;
}

void ExplorerBar::ResumePainting() {
    if (mSuspended == 0 || --mSuspended > 0) return;
    if (std::exchange(mTouched, false)) TellGroupsChanged();
}

void ExplorerBar::TellGroupsChanged() {
    if (mSuspended > 0) {
        mTouched = true;
        return;
    }
    Tell<ExplorerBarObserver>([](auto& view) { view.GroupsChanged(); });
}

void ExplorerBar::UserClick(const Ref<GroupItem>& item) {
    if (!AcceptsGestures() || !item->GetEnabled() || !item->GetVisible() || item->GetControl())
        return;
    const Ref<GroupItem> clicked = item;
    const Ref<ExplorerBarGroup> group = GroupOf(*clicked);
    if (!group || !group->GetVisible()) return;
    SetSelectedItem(clicked);
    Events.ItemClick.Raise(clicked);
}

void ExplorerBar::UserToggle(const Ref<ExplorerBarGroup>& group) {
    if (!AcceptsGestures() || group->GetBar() != this) return;
    group->SetCollapsed(!group->GetCollapsed());
    Events.GroupCollapse.Raise();
}

} // namespace paperkite
