#include "widgets/ComboBox.h"

namespace paperkite {

const ComboBox::Entry& ComboBox::At(int index) const {
    if (index < 0 || index >= GetListCount()) RaiseError(ErrorNumber::SubscriptOutOfRange);
    return mEntries[static_cast<std::size_t>(index)];
}

ComboBox::Entry& ComboBox::At(int index) {
    return const_cast<Entry&>(std::as_const(*this).At(index));
}

int ComboBox::Find(const std::string& text) const {
    for (int index = 0; index < GetListCount(); ++index)
        if (GetList(index) == text) return index;
    return -1;
}

void ComboBox::AddItem(const std::string& text, int index) {
    if (index < -1 || index > GetListCount()) RaiseError(ErrorNumber::SubscriptOutOfRange);
    const int at = index < 0 ? GetListCount() : index;
    mEntries.insert(mEntries.begin() + at, Entry{text, {}, {}, {}, {}});
    if (mListIndex >= at) ++mListIndex;
    TellChanged();
}

void ComboBox::RemoveItem(int index) {
    At(index);
    mEntries.erase(mEntries.begin() + index);
    if (mListIndex == index) {
        mListIndex = -1;
        mText.clear();
    } else if (mListIndex > index) {
        --mListIndex;
    }
    TellChanged();
}

void ComboBox::Clear() {
    if (mEntries.empty() && mText.empty()) return;
    mEntries.clear();
    mText.clear();
    mListIndex = -1;
    TellChanged();
}

const std::string& ComboBox::GetList(int index) const {
    return At(index).Text;
}

const std::string& ComboBox::GetItemData(int index) const {
    return At(index).Data;
}

void ComboBox::SetItemData(int index, const std::string& data) {
    At(index).Data = data;
}

const std::string& ComboBox::GetItemKey(int index) const {
    return At(index).Key;
}

void ComboBox::SetItemKey(int index, const std::string& key) {
    At(index).Key = key;
}

const std::string& ComboBox::GetItemToolTipText(int index) const {
    return At(index).ToolTipText;
}

void ComboBox::SetItemToolTipText(int index, const std::string& text) {
    Assign(At(index).ToolTipText, text);
}

const Colour& ComboBox::GetItemSwatch(int index) const {
    return At(index).Swatch;
}

void ComboBox::SetItemSwatch(int index, const Colour& colour) {
    Assign(At(index).Swatch, colour);
}

void ComboBox::SetListIndex(int index) {
    if (mListIndex == index) return;
    mText = index == -1 ? std::string() : GetList(index);
    Assign(mListIndex, index);
    Events.Click.Raise();
}

void ComboBox::SetText(const std::string& value) {
    if (mText == value) return;
    const int index = Find(value);
    if (index >= 0) {
        SetListIndex(index);
        return;
    }
    if (!mEditable) RaiseError(ErrorNumber::InvalidCall, "\"" + value + "\" is not in the list");
    mListIndex = -1;
    Assign(mText, value);
    Events.Change.Raise();
}

void ComboBox::UserChoose(int index) {
    if (AcceptsGestures()) SetListIndex(index);
}

void ComboBox::UserType(const std::string& text) {
    if (!AcceptsGestures() || !mEditable || mText == text) return;
    mListIndex = -1;
    Assign(mText, text);
    Events.Change.Raise();
}

void ComboBox::UserDropDown() {
    if (AcceptsGestures()) Events.DropDown.Raise();
}

} // namespace paperkite
