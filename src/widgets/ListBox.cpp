#include "widgets/ListBox.h"

namespace paperkite {

const ListBox::Entry& ListBox::At(int index) const {
    if (index < 0 || index >= GetListCount()) RaiseError(ErrorNumber::SubscriptOutOfRange);
    return mEntries[static_cast<std::size_t>(index)];
}

ListBox::Entry& ListBox::At(int index) {
    return const_cast<Entry&>(static_cast<const ListBox*>(this)->At(index));
}

void ListBox::AddItem(const std::string& text, int index) {
    if (index < -1 || index > GetListCount()) RaiseError(ErrorNumber::SubscriptOutOfRange);
    const int at = index < 0 ? GetListCount() : index;
    mEntries.insert(mEntries.begin() + at, Entry{text, {}, false});
    if (mListIndex >= at) ++mListIndex;
    TellChanged();
}

void ListBox::RemoveItem(int index) {
    At(index);
    mEntries.erase(mEntries.begin() + index);
    if (mListIndex == index)
        mListIndex = -1;
    else if (mListIndex > index)
        --mListIndex;
    TellChanged();
}

void ListBox::Clear() {
    if (mEntries.empty()) return;
    mEntries.clear();
    mListIndex = -1;
    TellChanged();
}

const std::string& ListBox::GetList(int index) const {
    return At(index).Text;
}

void ListBox::SetList(int index, const std::string& text) {
    Assign(At(index).Text, text);
}

const std::string& ListBox::GetItemData(int index) const {
    return At(index).Data;
}

void ListBox::SetItemData(int index, const std::string& data) {
    At(index).Data = data;
}

void ListBox::SetListIndex(int index) {
    if (index != -1) At(index);
    if (Assign(mListIndex, index)) Events.Click.Raise();
}

std::string ListBox::GetText() const {
    return mListIndex < 0 ? std::string() : GetList(mListIndex);
}

bool ListBox::GetSelected(int index) const {
    const Entry& entry = At(index);
    return mCheckBoxes ? entry.Ticked : index == mListIndex;
}

void ListBox::SetSelected(int index, bool value) {
    if (GetSelected(index) == value) return;
    if (!mCheckBoxes) {
        SetListIndex(value ? index : -1);
        return;
    }
    Assign(At(index).Ticked, value);
    SetListIndex(index);
    Events.ItemCheck.Raise(index);
}

void ListBox::UserClick(int index) {
    if (AcceptsGestures()) SetListIndex(index);
}

void ListBox::UserDblClick(int index) {
    if (!AcceptsGestures()) return;
    SetListIndex(index);
    Events.DblClick.Raise();
}

void ListBox::UserCheck(int index) {
    if (AcceptsGestures() && mCheckBoxes) SetSelected(index, !GetSelected(index));
}

int ListBox::UserKeyDown(int keyCode, int shift) {
    if (AcceptsGestures()) Events.KeyDown.Raise(keyCode, shift);
    return keyCode;
}

} // namespace paperkite
