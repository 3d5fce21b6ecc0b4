#include "designers/dsrMenuItem.h"

#include "commenttexts/PlainText.h"
#include "foundation/Text.h"

namespace paperkite {

dsrMenuItem::dsrMenuItem(std::string name)
    : FieldsDesigner(std::move(name), Several::Offered), txtPath(Field<TextBox>("txtPath")),
      txtKeys(Field<TextBox>("txtKeys")), lblShown(Field<Label>("lblShown")) {
    txtPath->SetPlaceholderText("File > Export > As PDF…");
    txtKeys->SetPlaceholderText("Ctrl+Shift+E");
    lblShown->SetWordWrap(true);
    SetFields(
        FormLayout::Column({FormLayout::Fields({{"&Menu path:", txtPath}, {"&Keys:", txtKeys}}),
                            FormLayout::Item(lblShown), FormLayout::Stretch()},
                           1));
    const auto changed = [this] {
        ShowSentence();
        FieldsChanged();
    };
    On(txtPath->Events.Change, "txtPath_Change", changed);
    On(txtKeys->Events.Change, "txtKeys_Change", changed);
}

bool dsrMenuItem::ShowFields(const std::optional<std::string>& text) {
    const auto path = MenuPath::Read(text.value_or(std::string()));
    if (!path) return false;
    txtPath->SetText(path->PathText());
    txtKeys->SetText(path->Keys);
    ShowSentence();
    return true;
}

MenuPath dsrMenuItem::Path() const {
    return {MenuPath::StepsOf(txtPath->GetText()), PlainText::OneLine(txtKeys->GetText())};
}

std::optional<std::string> dsrMenuItem::FieldsText() const {
    const std::string text = Path().Write();
    return text.empty() ? std::nullopt : std::optional(text);
}

void dsrMenuItem::ShowSentence() {
    const MenuPath path = Path();
    if (path.Steps.empty())
        return lblShown->SetCaption("Write the menu and its entries with \">\" between them, as "
                                    "they stand in the program.");
    std::string shown = "Pages say: " + Join(path.Steps, " › ");
    if (!path.Keys.empty()) shown += " (" + path.Keys + ")";
    lblShown->SetCaption(shown);
}

} // namespace paperkite
