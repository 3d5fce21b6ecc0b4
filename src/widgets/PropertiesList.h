#pragma once

#include "widgets/Control.h"
#include "widgets/PropertyItem.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace paperkite {

/// Told beyond the common things. While updates are suspended nothing is told but the end of an
/// edit; when they resume, RowsChanged says it once.
class PropertiesListObserver : public ControlObserver {
public:
    /// Rows came or went, or updates resumed: read the list again.
    virtual void RowsChanged() {}

    virtual void RowChanged(const Ref<PropertyItem>& /*row*/) {}

    virtual void SelectionChanged() {}

    /// An edit of the selected row began: read EditText.
    virtual void EditBegan() {}

    virtual void EditEnded() {}

    /// A row button came, or changed.
    virtual void ButtonsChanged() {}
};

/// A button that the selected row shows in its value column.
struct PropertyButton {
    std::string Key;
    std::string ToolTipText;
    /// Key into the list's image list.
    std::string Image;
    /// What the button says; the tool tip when empty.
    std::string Caption;
    bool Visible = true;
};

/// A list of named values that are edited in place, in two columns, with header rows, ticks, row
/// buttons and a pane that describes the selected row.
///
///     auto list = MakeRef<PropertiesList>("prpTags");
///     auto row = list->Add("t1", "#remarks");
///     row->SetValue("Never null.");
///     list->SetSelectedItem(row);
///     list->BeginEdit();
///
/// Rows are found by key, compared exactly, and by position from 1. Adding at the end and finding
/// take constant time.
class PropertiesList : public Control {
public:
    explicit PropertiesList(std::string name = {});
    ~PropertiesList() override;

    /// Adds a row at the end. An empty key is replaced by one of the list's own making; a key that
    /// is already there raises error 457.
    Ref<PropertyItem> Add(const std::string& key, const std::string& caption,
                          PropertyItemType itemType = PropertyItemType::Normal);
    /// Adds a row at a position from 1 to Count + 1; error 9 outside.
    Ref<PropertyItem> Insert(std::size_t position, const std::string& key,
                             const std::string& caption,
                             PropertyItemType itemType = PropertyItemType::Normal);

    std::size_t Count() const { return mRows.size(); }

    /// A key or position that is not there raises error 5 or 9.
    Ref<PropertyItem> Item(const std::string& key) const;
    Ref<PropertyItem> Item(std::size_t position) const;
    /// The row of that key, or nothing.
    Ref<PropertyItem> Find(const std::string& key) const;

    bool Contains(const std::string& key) const { return mRowOfKey.contains(key); }

    /// Removing the selected row takes the selection away, which raises SelChange with nothing. An
    /// edit of the row is dropped.
    void Remove(const std::string& key);
    void Remove(std::size_t position);
    void Clear();

    auto begin() const { return mRows.begin(); }

    auto end() const { return mRows.end(); }

    const Ref<PropertyItem>& GetSelectedItem() const { return mSelected; }

    /// Nothing takes the selection away. A new row ends an edit first, then raises SelChange.
    void SetSelectedItem(const Ref<PropertyItem>& row);

    /// The columns are "Name" and "Value"; another name raises error 5.
    const std::string& GetColumnCaption(const std::string& column) const;
    void SetColumnCaption(const std::string& column, const std::string& caption);

    /// Whether normal rows have a tick box.
    bool GetCheckBoxes() const { return mCheckBoxes; }

    void SetCheckBoxes(bool value) { Assign(mCheckBoxes, value); }

    /// Stands in place of rows while there are none or updates are suspended.
    const std::string& GetText() const { return mText; }

    void SetText(const std::string& value) { Assign(mText, value); }

    const Ref<ImageList>& GetImageList() const { return mImageList; }

    void SetImageList(const Ref<ImageList>& value) { Assign(mImageList, value); }

    bool GetDescriptionVisible() const { return mDescriptionVisible; }

    void SetDescriptionVisible(bool value) { Assign(mDescriptionVisible, value); }

    /// Height of the description pane in pixels.
    int GetDescriptionHeight() const { return mDescriptionHeight; }

    void SetDescriptionHeight(int value) { Assign(mDescriptionHeight, value); }

    /// Whether the author cannot change the pane's height.
    bool GetDescriptionHeightFixed() const { return mDescriptionHeightFixed; }

    void SetDescriptionHeightFixed(bool value) { Assign(mDescriptionHeightFixed, value); }

    /// Adds a row button and gives its position from 1; a key that is there raises error 457.
    int AddButton(const std::string& key, const std::string& toolTipText,
                  const std::string& image = {}, const std::string& caption = {});

    int GetButtonCount() const { return static_cast<int>(mButtons.size()); }

    /// By position from 1; error 9 outside.
    const PropertyButton& GetButton(int position) const;
    void SetButtonVisible(int position, bool visible);

    /// Begins to edit the selected row's value. False, and nothing happens, when no row is
    /// selected, when it is a header, hidden, read only or locked, or when a handler of BeforeEdit
    /// cancels.
    bool BeginEdit();
    /// Ends the edit. A text that differs from the value raises AfterEdit, with the list still in
    /// edit, and becomes the value unless a handler cancelled.
    void EndEdit();
    /// Drops the edit's text.
    void CancelEdit();

    bool GetInEdit() const { return mInEdit; }

    const std::string& GetEditText() const { return mEditText; }

    /// Calls nest; rows can be read and written meanwhile, and events are raised.
    void SuspendUpdates();
    void ResumeUpdates();

    bool GetUpdatesSuspended() const { return mSuspended > 0; }

    struct {
        Event<const Ref<PropertyItem>&> Change;    ///< a row's value is a new one
        Event<const Ref<PropertyItem>&> SelChange; ///< the row that is selected now, or nothing
        Event<const Ref<PropertyItem>&> ItemCheck; ///< a row's tick is a new one
        Event<const Ref<PropertyItem>&, bool&> BeforeEdit; ///< row, Cancel
        /// row, NewValue, NewValueData, Cancel
        Event<const Ref<PropertyItem>&, const std::string&, const std::string&, bool&> AfterEdit;
        Event<const Ref<PropertyItem>&, bool&> BeforeExtendedEdit; ///< row, Cancel
        Event<const std::string&> ButtonClick;                     ///< key of the row button
        Event<const Ref<PropertyItem>&> Collapse;                  ///< the author folded a header
        Event<const Ref<PropertyItem>&> Expand;
        Event<> Click;
        Event<> DblClick;
        Event<int&, int> KeyDown; ///< KeyCode, which a handler may set to 0; Shift
        Event<int&, int> KeyUp;
    } Events;

    /// Selects the row and raises Click.
    void UserClick(const Ref<PropertyItem>& row);
    /// The keyboard moved to the row.
    void UserSelect(const Ref<PropertyItem>& row);
    /// Selects the row and raises DblClick.
    void UserDblClick(const Ref<PropertyItem>& row);
    /// A button that is not visible ignores it.
    void UserClickButton(const std::string& key);
    /// Turns the tick.
    void UserCheck(const Ref<PropertyItem>& row);
    /// Folds or unfolds a header row, which raises Collapse or Expand.
    void UserToggle(const Ref<PropertyItem>& row);
    /// The open edit's text as the author left it. A Choice row takes one of its choices' values,
    /// the value that it has, or nothing; other texts are ignored.
    void UserType(const std::string& text);
    /// The author asks for the big editor: BeforeExtendedEdit; false when a handler cancelled.
    bool UserExtendedEdit();
    /// The button in the selected row's value. A Colour row opens the browser of colours (after
    /// BeforeExtendedEdit, where a handler may cancel) and takes what was chosen there; every other
    /// row begins its edit.
    void UserBrowse();
    /// Empties the selected row's value; AfterEdit is raised as by an edit that ends with no text.
    void UserClear();
    /// Raises KeyDown; what the handlers leave then does what the widget does by itself: F2 begins
    /// an edit, F4 presses the button in the value, Escape drops an edit. The key that is left, 0
    /// when it was swallowed.
    int UserKeyDown(int keyCode, int shift);
    int UserKeyUp(int keyCode, int shift);
    void UserResizeDescription(int height);

private:
    friend class PropertyItem;

    std::string MakeKey();
    std::size_t SlotOf(const std::string& key) const;
    void Renumber(std::size_t from);
    void TakeOut(std::size_t slot);
    void Release(const Ref<PropertyItem>& row);
    void CloseEdit();
    bool IsEditable(const PropertyItem& row) const;
    std::optional<std::string> BrowseColour(const PropertyItem& row);
    void TellRowsChanged();
    void TellRowChanged(PropertyItem& row);
    bool IsOwn(const Ref<PropertyItem>& row) const;
    PropertyButton& ButtonAt(int position);

    std::vector<Ref<PropertyItem>> mRows;
    std::unordered_map<std::string, PropertyItem*> mRowOfKey;
    Ref<PropertyItem> mSelected;
    std::vector<PropertyButton> mButtons;
    Ref<ImageList> mImageList;
    std::string mNameCaption = "Name";
    std::string mValueCaption = "Value";
    std::string mText;
    std::string mEditText;
    std::size_t mNextMadeKey = 1;
    int mDescriptionHeight = 75;
    int mSuspended = 0;
    bool mTouched = false;
    bool mInEdit = false;
    bool mCheckBoxes = false;
    bool mDescriptionVisible = true;
    bool mDescriptionHeightFixed = false;
};

} // namespace paperkite
