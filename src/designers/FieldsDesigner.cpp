#include "designers/FieldsDesigner.h"

namespace paperkite {

FieldsDesigner::FieldsDesigner(std::string name, Several several)
    : TagDesignerControl(std::move(name), several), pnlForeign(MakeRef<Container>("pnlForeign")),
      lblForeign(pnlForeign->Controls.Make<Label>("lblForeign")),
      txtForeign(pnlForeign->Controls.Make<TextBox>("txtForeign")),
      cmdAnew(pnlForeign->Controls.Make<Button>("cmdAnew")),
      pnlFields(MakeRef<Container>("pnlFields")) {
    MakeChooser();
    lblForeign->SetWordWrap(true);
    lblForeign->SetCaption("This comment was written in another way, so it is shown as it stands. "
                           "It stays so until you change it.");
    txtForeign->SetMultiLine(true);
    txtForeign->SetAccessibleName("The comment as it stands");
    cmdAnew->SetCaption("&Begin Anew");
    cmdAnew->SetToolTipText("Empty fields; the old text goes when you fill them");
    pnlForeign->SetLayout(
        FormLayout::Column({FormLayout::Item(lblForeign), FormLayout::Item(txtForeign, 1),
                            FormLayout::Row({FormLayout::Stretch(), FormLayout::Item(cmdAnew)})}));
    pnlForeign->SetVisible(false);

    const auto form = MakeRef<Container>("pnlForm");
    form->Controls.Add(pnlFields);
    form->Controls.Add(pnlForeign);
    form->SetLayout(
        FormLayout::Padded({FormLayout::Item(pnlFields, 1), FormLayout::Item(pnlForeign, 1)}));
    Dock->SetClient(form);
    On(txtForeign->Events.Change, "txtForeign_Change", [this] {
        if (mShowing) return;
        const std::string& text = txtForeign->GetText();
        Store(text.empty() ? std::nullopt : std::optional(text));
    });
    On(cmdAnew->Events.Click, "cmdAnew_Click", [this] { BeginAnew(); });
}

void FieldsDesigner::SetFields(FormLayout layout) {
    pnlFields->SetLayout(std::move(layout));
}

void FieldsDesigner::ShowComment() {
    Fill([this] {
        const auto text = StoredText();
        const bool isOurs = ShowFields(text);
        txtForeign->SetText(isOurs ? std::string() : text.value_or(std::string()));
        pnlForeign->SetVisible(!isOurs);
        pnlFields->SetVisible(isOurs);
    });
}

void FieldsDesigner::BeginAnew() {
    Fill([this] { ShowFields({}); });
    pnlForeign->SetVisible(false);
    pnlFields->SetVisible(true);
    FocusFields();
}

void FieldsDesigner::FieldsChanged() {
    if (!mShowing) Store(FieldsText());
}

void FieldsDesigner::FocusFields() {
    Control& field = pnlForeign->GetVisible() ? static_cast<Control&>(*txtForeign) : FirstField();
    field.SetFocus();
}

} // namespace paperkite
