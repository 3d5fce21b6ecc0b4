#include "widgets/Keys.h"
#include "widgets/PropertiesList.h"
#include "widgets/WebColours.h"
#include "widgets/frmBrowseHTMLColor.h"

// The in-place edit of a row, and the author's gestures.

namespace paperkite {

namespace {

/// A colour is kept in one form, however it was typed.
std::string Normalised(const PropertyItem& row, const std::string& text) {
    if (row.GetValueType() != PropertyValueType::Color) return text;
    const auto colour = WebColours::Read(text);
    return colour ? WebColours::Text(*colour) : text;
}

/// Whether the author can come to that text: a choice is picked, and not typed.
bool IsOffered(const PropertyItem& row, const std::string& text) {
    return row.GetValueType() != PropertyValueType::Choice || text.empty() ||
           text == row.GetValue() || row.HasChoiceOfValue(text);
}

} // namespace

bool PropertiesList::BeginEdit() {
    if (mInEdit) return true;
    const Ref<PropertyItem> row = mSelected;
    if (!row || !IsEditable(*row)) return false;
    bool cancel = false;
    Events.BeforeEdit.Raise(row, cancel);
    if (cancel || mSelected != row || !IsOwn(row)) return false;
    mInEdit = true;
    mEditText = row->GetValue();
    Tell<PropertiesListObserver>([](auto& view) { view.EditBegan(); });
    return true;
}

void PropertiesList::EndEdit() {
    if (!mInEdit) return;
    const Ref<PropertyItem> row = mSelected;
    const std::string text = mEditText == row->GetValue() ? mEditText : Normalised(*row, mEditText);
    if (row->GetValue() != text) {
        bool cancel = false;
        try {
            Events.AfterEdit.Raise(row, text, {}, cancel);
            if (!cancel && mInEdit && IsOwn(row)) row->SetValue(text);
        } catch (...) {
            CloseEdit();
            throw;
        }
    }
    CloseEdit();
}

bool PropertiesList::IsEditable(const PropertyItem& row) const {
    return !row.IsHeader() && row.GetVisible() && !row.GetReadOnly() && !row.GetValueLocked();
}

void PropertiesList::CancelEdit() {
    CloseEdit();
}

void PropertiesList::CloseEdit() {
    if (!mInEdit) return;
    mInEdit = false;
    mEditText.clear();
    Tell<PropertiesListObserver>([](auto& view) { view.EditEnded(); });
}

void PropertiesList::UserClick(const Ref<PropertyItem>& row) {
    if (!AcceptsGestures() || !IsOwn(row)) return;
    SetSelectedItem(row);
    Events.Click.Raise();
}

void PropertiesList::UserSelect(const Ref<PropertyItem>& row) {
    if (AcceptsGestures() && IsOwn(row)) SetSelectedItem(row);
}

void PropertiesList::UserDblClick(const Ref<PropertyItem>& row) {
    if (!AcceptsGestures() || !IsOwn(row)) return;
    SetSelectedItem(row);
    Events.DblClick.Raise();
}

void PropertiesList::UserClickButton(const std::string& key) {
    if (!AcceptsGestures()) return;
    for (const auto& button : mButtons) {
        if (button.Key != key || !button.Visible) continue;
        Events.ButtonClick.Raise(std::string(key));
        return;
    }
}

void PropertiesList::UserCheck(const Ref<PropertyItem>& row) {
    if (AcceptsGestures() && mCheckBoxes && IsOwn(row)) row->SetChecked(!row->GetChecked());
}

void PropertiesList::UserToggle(const Ref<PropertyItem>& row) {
    if (!AcceptsGestures() || !IsOwn(row) || !row->IsHeader()) return;
    row->SetExpanded(!row->GetExpanded());
    (row->GetExpanded() ? Events.Expand : Events.Collapse).Raise(row);
}

void PropertiesList::UserType(const std::string& text) {
    if (!AcceptsGestures() || !mInEdit || !IsOffered(*mSelected, text)) return;
    mEditText = text;
}

bool PropertiesList::UserExtendedEdit() {
    if (!AcceptsGestures() || !mSelected) return false;
    bool cancel = false;
    Events.BeforeExtendedEdit.Raise(mSelected, cancel);
    return !cancel;
}

void PropertiesList::UserBrowse() {
    if (!AcceptsGestures() || !mSelected) return;
    const Ref<PropertyItem> row = mSelected;
    const bool wasInEdit = mInEdit;
    // What was typed counts: handlers of BeforeEdit begin with it.
    if (wasInEdit && row->GetValueType() == PropertyValueType::File) EndEdit();
    if (!BeginEdit() || row->GetValueType() != PropertyValueType::Color) return;
    const auto chosen = BrowseColour(*row);
    if (!mInEdit || mSelected != row) return;
    if (chosen) {
        UserType(*chosen);
        EndEdit();
    } else if (!wasInEdit) {
        CancelEdit();
    }
}

std::optional<std::string> PropertiesList::BrowseColour(const PropertyItem& row) {
    if (!UserExtendedEdit()) return {};
    auto browser = MakeRef<frmBrowseHTMLColor>();
    browser->Initialize(WebColours::Read(mInEdit ? mEditText : row.GetValue()).value_or(0));
    browser->Show(FormMode::Modal);
    if (browser->GetCancelled()) return {};
    return WebColours::Text(browser->GetSelectedColor());
}

void PropertiesList::UserClear() {
    if (!AcceptsGestures() || mInEdit || !mSelected) return;
    const Ref<PropertyItem> row = mSelected;
    if (!IsEditable(*row) || row->GetValue().empty()) return;
    bool cancel = false;
    Events.AfterEdit.Raise(row, {}, {}, cancel);
    if (!cancel && IsOwn(row)) row->SetValue({});
}

int PropertiesList::UserKeyDown(int keyCode, int shift) {
    if (!AcceptsGestures()) return keyCode;
    const bool wasInEdit = mInEdit;
    Events.KeyDown.Raise(keyCode, shift);
    if (keyCode == KeyF2 && !mInEdit) BeginEdit();
    if (keyCode == KeyF4) UserBrowse();
    if (keyCode == KeyEscape && wasInEdit) CancelEdit();
    return keyCode;
}

int PropertiesList::UserKeyUp(int keyCode, int shift) {
    if (AcceptsGestures()) Events.KeyUp.Raise(keyCode, shift);
    return keyCode;
}

void PropertiesList::UserResizeDescription(int height) {
    if (!mDescriptionHeightFixed) SetDescriptionHeight(height);
}

} // namespace paperkite
