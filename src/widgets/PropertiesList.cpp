#include "widgets/PropertiesList.h"

#include "widgets/Keys.h"

#include <algorithm>

namespace paperkite {

PropertiesList::PropertiesList(std::string name) : Control(std::move(name)) {}

PropertiesList::~PropertiesList() {
    for (const auto& row : mRows)
        Release(row);
}

Ref<PropertyItem> PropertiesList::Add(const std::string& key, const std::string& caption,
                                      PropertyItemType itemType) {
    return Insert(Count() + 1, key, caption, itemType);
}

Ref<PropertyItem> PropertiesList::Insert(std::size_t position, const std::string& key,
                                         const std::string& caption, PropertyItemType itemType) {
    if (position < 1 || position > Count() + 1) RaiseError(ErrorNumber::SubscriptOutOfRange);
    auto row = MakeRef<PropertyItem>(key.empty() ? MakeKey() : key);
    if (!mRowOfKey.try_emplace(row->mKey, row.get()).second)
        RaiseError(ErrorNumber::KeyAlreadyThere, "The key \"" + key + "\" is already in the list");
    row->mCaption = caption;
    row->mItemType = itemType;
    row->mList = this;
    mRows.insert(mRows.begin() + static_cast<std::ptrdiff_t>(position - 1), row);
    Renumber(position - 1);
    TellRowsChanged();
    return row;
}

std::string PropertiesList::MakeKey() {
    std::string key;
    do
        key = "Item" + std::to_string(mNextMadeKey++);
    while (Contains(key));
    return key;
}

Ref<PropertyItem> PropertiesList::Item(const std::string& key) const {
    return mRows[SlotOf(key)];
}

Ref<PropertyItem> PropertiesList::Item(std::size_t position) const {
    if (position < 1 || position > Count()) RaiseError(ErrorNumber::SubscriptOutOfRange);
    return mRows[position - 1];
}

Ref<PropertyItem> PropertiesList::Find(const std::string& key) const {
    return Contains(key) ? Item(key) : Ref<PropertyItem>();
}

std::size_t PropertiesList::SlotOf(const std::string& key) const {
    const auto found = mRowOfKey.find(key);
    if (found == mRowOfKey.end())
        RaiseError(ErrorNumber::InvalidCall, "The list has no row \"" + key + "\"");
    return found->second->mIndex - 1;
}

void PropertiesList::Renumber(std::size_t from) {
    for (std::size_t slot = from; slot < mRows.size(); ++slot)
        mRows[slot]->mIndex = slot + 1;
}

void PropertiesList::Remove(const std::string& key) {
    TakeOut(SlotOf(key));
}

void PropertiesList::Remove(std::size_t position) {
    TakeOut(Item(position)->mIndex - 1);
}

void PropertiesList::TakeOut(std::size_t slot) {
    const Ref<PropertyItem> row = mRows[slot];
    const bool selected = mSelected == row;
    if (selected) CancelEdit();
    mRows.erase(mRows.begin() + static_cast<std::ptrdiff_t>(slot));
    Renumber(slot);
    mRowOfKey.erase(row->mKey);
    Release(row);
    if (selected) mSelected = nullptr;
    TellRowsChanged();
    if (selected) Events.SelChange.Raise(nullptr);
}

void PropertiesList::Clear() {
    if (mRows.empty()) return;
    CancelEdit();
    const auto rows = std::exchange(mRows, {});
    mRowOfKey.clear();
    for (const auto& row : rows)
        Release(row);
    const bool hadSelection = bool(mSelected);
    mSelected = nullptr;
    TellRowsChanged();
    if (hadSelection) Events.SelChange.Raise(nullptr);
}

void PropertiesList::Release(const Ref<PropertyItem>& row) {
    row->mList = nullptr;
    row->mIndex = 0;
}

void PropertiesList::SetSelectedItem(const Ref<PropertyItem>& row) {
    if (mSelected == row) return;
    if (row && !IsOwn(row))
        RaiseError(ErrorNumber::InvalidCall, "The row does not stand in this list");
    const Ref<PropertyItem> wanted = row;
    EndEdit();
    // What the end of the edit did may have removed the row.
    if (wanted && !IsOwn(wanted)) return;
    if (mSelected == wanted) return;
    mSelected = wanted;
    if (mSuspended == 0)
        Tell<PropertiesListObserver>([](auto& view) { view.SelectionChanged(); });
    else
        mTouched = true;
    Events.SelChange.Raise(wanted);
}

bool PropertiesList::IsOwn(const Ref<PropertyItem>& row) const {
    return row && row->mList == this;
}

const std::string& PropertiesList::GetColumnCaption(const std::string& column) const {
    if (column == "Name") return mNameCaption;
    if (column == "Value") return mValueCaption;
    RaiseError(ErrorNumber::InvalidCall, "The list has no column \"" + column + "\"");
}

void PropertiesList::SetColumnCaption(const std::string& column, const std::string& caption) {
    GetColumnCaption(column);
    Assign(column == "Name" ? mNameCaption : mValueCaption, caption);
}

int PropertiesList::AddButton(const std::string& key, const std::string& toolTipText,
                              const std::string& image, const std::string& caption) {
    for (const auto& button : mButtons)
        if (button.Key == key)
            RaiseError(ErrorNumber::KeyAlreadyThere, "The button \"" + key + "\" is already there");
    mButtons.push_back(PropertyButton{key, toolTipText, image, caption, true});
    Tell<PropertiesListObserver>([](auto& view) { view.ButtonsChanged(); });
    return GetButtonCount();
}

PropertyButton& PropertiesList::ButtonAt(int position) {
    if (position < 1 || position > GetButtonCount()) RaiseError(ErrorNumber::SubscriptOutOfRange);
    return mButtons[static_cast<std::size_t>(position - 1)];
}

const PropertyButton& PropertiesList::GetButton(int position) const {
    return const_cast<PropertiesList*>(this)->ButtonAt(position);
}

void PropertiesList::SetButtonVisible(int position, bool visible) {
    PropertyButton& button = ButtonAt(position);
    if (button.Visible == visible) return;
    button.Visible = visible;
    Tell<PropertiesListObserver>([](auto& view) { view.ButtonsChanged(); });
}

void PropertiesList::SuspendUpdates() {
    ++mSuspended;
}

void PropertiesList::ResumeUpdates() {
    if (mSuspended == 0 || --mSuspended > 0) return;
    if (std::exchange(mTouched, false)) TellRowsChanged();
}

void PropertiesList::TellRowsChanged() {
    if (mSuspended > 0) {
        mTouched = true;
        return;
    }
    Tell<PropertiesListObserver>([](auto& view) { view.RowsChanged(); });
}

void PropertiesList::TellRowChanged(PropertyItem& row) {
    if (mSuspended > 0) {
        mTouched = true;
        return;
    }
    const Ref<PropertyItem> kept = mRows[row.mIndex - 1];
    Tell<PropertiesListObserver>([&](auto& view) { view.RowChanged(kept); });
}

} // namespace paperkite
