#pragma once

#include "widgets/Control.h"

namespace paperkite {

/// A field for text of one or many lines. A new text raises Change, whoever wrote it.
class TextBox : public Control {
public:
    explicit TextBox(std::string name = {}) : Control(std::move(name)) {}

    const std::string& GetText() const { return mText; }

    /// The selection is put at the text's beginning.
    void SetText(const std::string& value);

    bool GetMultiLine() const { return mMultiLine; }

    void SetMultiLine(bool value) { Assign(mMultiLine, value); }

    /// A locked text can be read and copied, not changed by the author.
    bool GetLocked() const { return mLocked; }

    void SetLocked(bool value) { Assign(mLocked, value); }

    /// Shown in quiet colour while the text is empty.
    const std::string& GetPlaceholderText() const { return mPlaceholderText; }

    void SetPlaceholderText(const std::string& value) { Assign(mPlaceholderText, value); }

    /// Longest text in characters that the author can type; 0 sets no limit.
    int GetMaxLength() const { return mMaxLength; }

    void SetMaxLength(int value) { Assign(mMaxLength, value); }

    /// Start and length of the selection in bytes of the UTF-8 text, kept inside it.
    std::size_t GetSelStart() const { return mSelStart; }

    void SetSelStart(std::size_t value);

    std::size_t GetSelLength() const { return mSelLength; }

    void SetSelLength(std::size_t value);

    std::string GetSelText() const;
    /// Replaces the selection; the text that follows is not selected.
    void SetSelText(const std::string& value);

    struct {
        Event<> Change;
        Event<int&, int> KeyDown; ///< KeyCode, which a handler may set to 0; Shift
        Event<int&> KeyPress;     ///< character code, which a handler may change or set to 0
        Event<int&, int> KeyUp;
    } Events;

    /// The whole text as the author left it; a locked box ignores it.
    void UserType(const std::string& text);
    void UserSelect(std::size_t start, std::size_t length);
    /// What the handlers left of the key; 0 means that it was swallowed.
    int UserKeyDown(int keyCode, int shift);
    int UserKeyPress(int character);
    int UserKeyUp(int keyCode, int shift);

private:
    std::string mText;
    std::string mPlaceholderText;
    std::size_t mSelStart = 0;
    std::size_t mSelLength = 0;
    int mMaxLength = 0;
    bool mMultiLine = false;
    bool mLocked = false;
};

} // namespace paperkite
