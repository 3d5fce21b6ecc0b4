#pragma once

#include "widgets/Control.h"

#include <string>
#include <vector>

namespace paperkite {

/// A list of texts to choose from, or with CheckBoxes to tick. Entries count from 0.
class ListBox : public Control {
public:
    explicit ListBox(std::string name = {}) : Control(std::move(name)) {}

    /// Whether each entry has a box; Selected is then its tick, else the choice itself.
    bool GetCheckBoxes() const { return mCheckBoxes; }

    void SetCheckBoxes(bool value) { Assign(mCheckBoxes, value); }

    /// At a position from 0, or at the end without one.
    void AddItem(const std::string& text, int index = -1);
    void RemoveItem(int index);
    void Clear();

    int GetListCount() const { return static_cast<int>(mEntries.size()); }

    /// The text of an entry; a position that is not there raises error 9.
    const std::string& GetList(int index) const;
    void SetList(int index, const std::string& text);

    /// Anything that the component wants to keep with the entry.
    const std::string& GetItemData(int index) const;
    void SetItemData(int index, const std::string& data);

    /// The current entry, -1 for none. A new one raises Click.
    int GetListIndex() const { return mListIndex; }

    void SetListIndex(int index);

    /// The text of the current entry; empty when there is none.
    std::string GetText() const;

    bool GetSelected(int index) const;
    /// With CheckBoxes: ticks the entry, which becomes the current one as in the real list (Click),
    /// and raises ItemCheck. Without them it chooses the entry or takes the choice away.
    void SetSelected(int index, bool value);

    struct {
        Event<> Click;
        Event<> DblClick;
        Event<int> ItemCheck; ///< position of the entry whose tick changed
        Event<int&, int> KeyDown;
    } Events;

    void UserClick(int index);
    void UserDblClick(int index);
    /// Turns the tick of an entry.
    void UserCheck(int index);
    int UserKeyDown(int keyCode, int shift);

private:
    struct Entry {
        std::string Text;
        std::string Data;
        bool Ticked = false;
    };

    const Entry& At(int index) const;
    Entry& At(int index);

    std::vector<Entry> mEntries;
    int mListIndex = -1;
    bool mCheckBoxes = false;
};

} // namespace paperkite
