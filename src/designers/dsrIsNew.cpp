#include "designers/dsrIsNew.h"

#include "commenttexts/PlainText.h"

namespace paperkite {

dsrIsNew::dsrIsNew(std::string name)
    : FieldsDesigner(std::move(name), Several::OnlyShown), chkNew(Field<CheckBox>("chkNew")),
      txtVersion(Field<TextBox>("txtVersion")), lblShown(Field<Label>("lblShown")) {
    chkNew->SetCaption("This item is &new");
    txtVersion->SetPlaceholderText("1.4");
    lblShown->SetWordWrap(true);
    SetFields(FormLayout::Column({FormLayout::Item(chkNew),
                                  FormLayout::Fields({{"&Since version:", txtVersion}}),
                                  FormLayout::Item(lblShown), FormLayout::Stretch()},
                                 1));
    On(chkNew->Events.Click, "chkNew_Click", [this] {
        if (!IsShowing() && !chkNew->GetChecked()) txtVersion->SetText({});
        ShowSentence();
        FieldsChanged();
    });
    On(txtVersion->Events.Change, "txtVersion_Change", [this] {
        if (!IsShowing() && !txtVersion->GetText().empty()) chkNew->SetChecked(true);
        ShowSentence();
        FieldsChanged();
    });
}

bool dsrIsNew::ShowFields(const std::optional<std::string>& text) {
    const std::string version = text.value_or(std::string());
    if (!PlainText::IsPlain(version) || PlainText::FilledLines(version).size() > 1) return false;
    chkNew->SetChecked(text.has_value());
    txtVersion->SetText(PlainText::OneLine(version));
    ShowSentence();
    return true;
}

std::optional<std::string> dsrIsNew::FieldsText() const {
    if (!chkNew->GetChecked()) return {};
    return PlainText::OneLine(txtVersion->GetText());
}

Control& dsrIsNew::FirstField() {
    return chkNew->GetChecked() ? static_cast<Control&>(*txtVersion) : *chkNew;
}

void dsrIsNew::ShowSentence() {
    const std::string version = PlainText::OneLine(txtVersion->GetText());
    if (!chkNew->GetChecked())
        lblShown->SetCaption("Tick the box, or type a version, and pages say that this is new.");
    else if (version.empty())
        lblShown->SetCaption("Pages say: New.");
    else
        lblShown->SetCaption("Pages say: New in " + version + ".");
}

} // namespace paperkite
