#pragma once

#include "widgets/Control.h"

#include <string>
#include <vector>

namespace paperkite {

/// A field with a list that drops down; the author picks an entry, or types where Editable.
class ComboBox : public Control {
public:
    explicit ComboBox(std::string name = {}) : Control(std::move(name)) {}

    bool GetEditable() const { return mEditable; }

    void SetEditable(bool value) { Assign(mEditable, value); }

    /// At a position from 0, or at the end without one.
    void AddItem(const std::string& text, int index = -1);
    void RemoveItem(int index);
    void Clear();

    int GetListCount() const { return static_cast<int>(mEntries.size()); }

    /// A position that is not there raises error 9.
    const std::string& GetList(int index) const;

    const std::string& GetItemData(int index) const;
    void SetItemData(int index, const std::string& data);

    /// Names the entry; empty for none.
    const std::string& GetItemKey(int index) const;
    void SetItemKey(int index, const std::string& key);

    const std::string& GetItemToolTipText(int index) const;
    void SetItemToolTipText(int index, const std::string& text);

    /// A small square of this colour stands before the entry's text.
    const Colour& GetItemSwatch(int index) const;
    void SetItemSwatch(int index, const Colour& colour);

    /// -1 for none. A new index sets Text and raises Click.
    int GetListIndex() const { return mListIndex; }

    void SetListIndex(int index);

    const std::string& GetText() const { return mText; }

    /// An entry's text chooses that entry (Click). Another text is taken where the box is editable
    /// (Change), and raises error 5 where it is not.
    void SetText(const std::string& value);

    struct {
        Event<> Click;
        Event<> Change;
        Event<> DropDown;
    } Events;

    void UserChoose(int index);
    void UserType(const std::string& text);
    /// The author opens the list; handlers may fill it first.
    void UserDropDown();

private:
    struct Entry {
        std::string Text;
        std::string Data;
        std::string Key;
        std::string ToolTipText;
        Colour Swatch;
    };

    const Entry& At(int index) const;
    Entry& At(int index);
    int Find(const std::string& text) const;

    std::vector<Entry> mEntries;
    std::string mText;
    int mListIndex = -1;
    bool mEditable = false;
};

} // namespace paperkite
