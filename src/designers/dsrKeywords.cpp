#include "designers/dsrKeywords.h"

#include "foundation/Text.h"
#include "widgets/Keys.h"

#include <algorithm>

namespace paperkite {

namespace {

constexpr const char* kHint = "A lower level stands behind \" > \": files > opening. Commas "
                              "separate several keywords.";

} // namespace

dsrKeywords::dsrKeywords(std::string name)
    : FieldsDesigner(std::move(name), Several::OnlyShown), txtKeyword(Field<TextBox>("txtKeyword")),
      cmdAdd(Field<Button>("cmdAdd")), cmdChange(Field<Button>("cmdChange")),
      lblMessage(Field<Label>("lblMessage")), lstKeywords(Field<ListBox>("lstKeywords")),
      cmdRemove(Field<Button>("cmdRemove")) {
    const auto lblKeyword = Field<Label>("lblKeyword");
    const auto lblKeywords = Field<Label>("lblKeywords");
    lblKeyword->SetCaption("&Keyword:");
    lblKeywords->SetCaption("&In the index:");
    cmdAdd->SetCaption("&Add");
    cmdAdd->SetToolTipText("Add what is typed to the list (Enter)");
    cmdChange->SetCaption("C&hange");
    cmdChange->SetToolTipText("Put what is typed in the place of the selected keyword");
    cmdRemove->SetCaption("&Remove");
    cmdRemove->SetToolTipText("Remove the selected keyword (Delete)");
    lblMessage->SetWordWrap(true);
    SetFields(FormLayout::Column(
        {FormLayout::Row({FormLayout::Item(lblKeyword), FormLayout::Item(txtKeyword, 1),
                          FormLayout::Item(cmdAdd), FormLayout::Item(cmdChange)}),
         FormLayout::Item(lblMessage), FormLayout::Item(lblKeywords),
         FormLayout::Item(lstKeywords, 1),
         FormLayout::Row({FormLayout::Stretch(), FormLayout::Item(cmdRemove)})},
        1));
    Connect();
}

void dsrKeywords::Connect() {
    On(cmdAdd->Events.Click, "cmdAdd_Click", [this] { cmdAdd_Click(); });
    On(cmdChange->Events.Click, "cmdChange_Click", [this] { cmdChange_Click(); });
    On(cmdRemove->Events.Click, "cmdRemove_Click", [this] { cmdRemove_Click(); });
    On(txtKeyword->Events.Change, "txtKeyword_Change", [this] { ShowButtons(); });
    On(txtKeyword->Events.KeyDown, "txtKeyword_KeyDown", [this](int& keyCode, int) {
        if (keyCode != KeyReturn) return;
        keyCode = 0;
        cmdAdd_Click();
    });
    On(lstKeywords->Events.KeyDown, "lstKeywords_KeyDown", [this](int& keyCode, int) {
        if (keyCode != KeyDelete) return;
        keyCode = 0;
        cmdRemove_Click();
    });
    On(lstKeywords->Events.Click, "lstKeywords_Click", [this] {
        if (!IsShowing() && lstKeywords->GetListIndex() >= 0)
            txtKeyword->SetText(lstKeywords->GetText());
        ShowButtons();
    });
}

bool dsrKeywords::ShowFields(const std::optional<std::string>& text) {
    const auto keywords = KeywordList::Read(text.value_or(std::string()));
    if (!keywords) return false;
    mKeywords = *keywords;
    txtKeyword->SetText({});
    ShowList(-1);
    Say(kHint);
    return true;
}

std::optional<std::string> dsrKeywords::FieldsText() const {
    const std::string text = mKeywords.Write();
    return text.empty() ? std::nullopt : std::optional(text);
}

void dsrKeywords::cmdAdd_Click() {
    const std::string typed = txtKeyword->GetText();
    if (KeywordList::Normal(typed).empty()) return Say(kHint);
    const std::vector<std::string> repeated = mKeywords.Add(typed);
    Say(repeated.empty() ? kHint
                         : "The index has \"" + Join(repeated, "\" and \"") + "\" already.");
    // What was refused stays to be mended.
    txtKeyword->SetText(Join(repeated, ", "));
    ShowList(-1);
    FieldsChanged();
    txtKeyword->SetFocus();
}

void dsrKeywords::cmdChange_Click() {
    const int selected = lstKeywords->GetListIndex();
    if (selected < 0) return;
    const std::string keyword = KeywordList::Normal(txtKeyword->GetText());
    if (keyword.empty()) return cmdRemove_Click();
    if (!mKeywords.Change(static_cast<std::size_t>(selected), keyword))
        return Say("The index has \"" + keyword + "\" already.");
    Say(kHint);
    ShowList(selected);
    FieldsChanged();
}

void dsrKeywords::cmdRemove_Click() {
    const int selected = lstKeywords->GetListIndex();
    if (selected < 0) return;
    mKeywords.Remove(static_cast<std::size_t>(selected));
    txtKeyword->SetText({});
    Say(kHint);
    ShowList(std::min(selected, static_cast<int>(mKeywords.GetKeywords().size()) - 1));
    FieldsChanged();
}

void dsrKeywords::ShowList(int selected) {
    lstKeywords->Clear();
    for (const std::string& keyword : mKeywords.GetKeywords())
        lstKeywords->AddItem(keyword);
    lstKeywords->SetListIndex(selected);
    ShowButtons();
}

void dsrKeywords::ShowButtons() {
    const bool isTyped = !KeywordList::Normal(txtKeyword->GetText()).empty();
    const bool isSelected = lstKeywords->GetListIndex() >= 0;
    cmdAdd->SetEnabled(isTyped);
    cmdChange->SetEnabled(isTyped && isSelected);
    cmdRemove->SetEnabled(isSelected);
}

void dsrKeywords::Say(const std::string& message) {
    lblMessage->SetCaption(message);
}

} // namespace paperkite
