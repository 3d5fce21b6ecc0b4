#include "widgets/TextBox.h"

#include <algorithm>

namespace paperkite {

void TextBox::SetText(const std::string& value) {
    if (mText == value) return;
    mSelStart = 0;
    mSelLength = 0;
    Assign(mText, value);
    Events.Change.Raise();
}

void TextBox::SetSelStart(std::size_t value) {
    mSelLength = 0;
    Assign(mSelStart, std::min(value, mText.size()));
}

void TextBox::SetSelLength(std::size_t value) {
    Assign(mSelLength, std::min(value, mText.size() - mSelStart));
}

std::string TextBox::GetSelText() const {
    return mText.substr(mSelStart, mSelLength);
}

void TextBox::SetSelText(const std::string& value) {
    std::string text = mText;
    text.replace(mSelStart, mSelLength, value);
    const std::size_t end = mSelStart + value.size();
    SetText(text);
    SetSelStart(end);
}

void TextBox::UserType(const std::string& text) {
    if (!AcceptsGestures() || mLocked || mText == text) return;
    mSelStart = std::min(mSelStart, text.size());
    mSelLength = std::min(mSelLength, text.size() - mSelStart);
    Assign(mText, text);
    Events.Change.Raise();
}

void TextBox::UserSelect(std::size_t start, std::size_t length) {
    mSelStart = std::min(start, mText.size());
    mSelLength = std::min(length, mText.size() - mSelStart);
}

int TextBox::UserKeyDown(int keyCode, int shift) {
    if (AcceptsGestures()) Events.KeyDown.Raise(keyCode, shift);
    return keyCode;
}

int TextBox::UserKeyPress(int character) {
    if (AcceptsGestures()) Events.KeyPress.Raise(character);
    return character;
}

int TextBox::UserKeyUp(int keyCode, int shift) {
    if (AcceptsGestures()) Events.KeyUp.Raise(keyCode, shift);
    return keyCode;
}

} // namespace paperkite
