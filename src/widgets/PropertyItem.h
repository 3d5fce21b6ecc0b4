#pragma once

#include "widgets/Changing.h"
#include "widgets/Control.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace paperkite {

class PropertiesList;

enum class PropertyItemType : int { Normal = 0, Header = 1 };

/// What a row's value is, which says how it is edited. The numbers are those that templates keep.
enum class PropertyValueType : int {
    String = 0,
    Number = 5,
    Date = 7,     ///< year, month and day, as in 2026-12-31
    Boolean = 11, ///< "true" or "false"
    File = 103,   ///< a path; the row's button raises BeforeEdit, whose handler asks for a file
    Color = 104,  ///< "#" and six hexadecimal digits, or the name of a web colour
    Choice = 105, ///< one of the row's choices
};

/// An entry of a row's drop-down list.
struct PropertyChoice {
    /// What the author reads and picks.
    std::string Text;
    /// What becomes the row's value.
    std::string Value;

    bool operator==(const PropertyChoice&) const = default;
};

/// In which colour a value is shown.
enum class ValueColour { Default, GrayText };

/// One row of a PropertiesList. A removed row keeps its fields, has Index 0 and is heard no more.
class PropertyItem : public Changing {
public:
    explicit PropertyItem(std::string key) : mKey(std::move(key)) {}

    PropertyItem(const PropertyItem&) = delete;
    PropertyItem& operator=(const PropertyItem&) = delete;

    const std::string& GetKey() const { return mKey; }

    /// Position in the list from 1; 0 once the row was removed.
    std::size_t GetIndex() const { return mIndex; }

    const std::string& GetCaption() const { return mCaption; }

    void SetCaption(const std::string& value) { Assign(mCaption, value); }

    /// What the "Name" column shows; the caption when empty.
    const std::string& GetDisplayText() const { return mDisplayText; }

    void SetDisplayText(const std::string& value) { Assign(mDisplayText, value); }

    /// May have many lines.
    const std::string& GetValue() const { return mValue; }

    /// A new value raises Change.
    void SetValue(const std::string& value);

    /// What the "Value" column shows: the text of the choice whose value it is, otherwise the
    /// value.
    const std::string& GetValueText() const;

    /// What is wrong with the value, in a sentence that also says how to mend it; empty for a good
    /// or empty one. A wrong value is kept as it is.
    std::string GetProblem() const;

    /// Shown in the description pane; "<BR>" breaks the line.
    const std::string& GetDescription() const { return mDescription; }

    void SetDescription(const std::string& value) { Assign(mDescription, value); }

    const std::string& GetTag() const { return mTag; }

    void SetTag(const std::string& value) { mTag = value; }

    bool GetReadOnly() const { return mReadOnly; }

    void SetReadOnly(bool value) { Assign(mReadOnly, value); }

    /// A locked value is shown and not edited.
    bool GetValueLocked() const { return mValueLocked; }

    void SetValueLocked(bool value) { Assign(mValueLocked, value); }

    PropertyItemType GetItemType() const { return mItemType; }

    void SetItemType(PropertyItemType value) { Assign(mItemType, value); }

    bool IsHeader() const { return mItemType == PropertyItemType::Header; }

    PropertyValueType GetValueType() const { return mValueType; }

    void SetValueType(PropertyValueType value) { Assign(mValueType, value); }

    /// The values to choose from, for PropertyValueType::Choice.
    const std::vector<PropertyChoice>& GetChoices() const { return mChoices; }

    /// Texts that are their own values; a text that comes again is left out.
    void SetChoices(const std::vector<std::string>& texts);
    /// Adds a choice at the end; false, and nothing happens, when its text is there already. Takes
    /// constant time.
    bool AddChoice(const std::string& text, const std::string& value);

    bool HasChoice(const std::string& text) const { return mChoiceTexts.contains(text); }

    bool HasChoiceOfValue(const std::string& value) const { return mChoiceOfValue.contains(value); }

    /// A row that is not visible keeps its place and value, and is neither seen nor edited.
    bool GetVisible() const { return mVisible; }

    void SetVisible(bool value) { Assign(mVisible, value); }

    ValueColour GetValueColour() const { return mValueColour; }

    void SetValueColour(ValueColour value) { Assign(mValueColour, value); }

    bool GetBold() const { return mBold; }

    void SetBold(bool value) { Assign(mBold, value); }

    bool GetChecked() const { return mChecked; }

    /// A new tick raises ItemCheck.
    void SetChecked(bool value);

    /// Whether the rows below a header are shown. Writing it raises nothing.
    bool GetExpanded() const { return mExpanded; }

    void SetExpanded(bool value) { Assign(mExpanded, value); }

private:
    friend class PropertiesList;

    void TellChanged() override;

    PropertiesList* mList = nullptr;
    std::size_t mIndex = 0;
    std::string mKey;
    std::string mCaption;
    std::string mDisplayText;
    std::string mValue;
    std::string mDescription;
    std::string mTag;
    std::vector<PropertyChoice> mChoices;
    std::unordered_set<std::string> mChoiceTexts;
    // The first choice of each value.
    std::unordered_map<std::string, std::size_t> mChoiceOfValue;
    PropertyItemType mItemType = PropertyItemType::Normal;
    PropertyValueType mValueType = PropertyValueType::String;
    ValueColour mValueColour = ValueColour::Default;
    bool mReadOnly = false;
    bool mValueLocked = false;
    bool mBold = false;
    bool mChecked = false;
    bool mExpanded = true;
    bool mVisible = true;
};

} // namespace paperkite
