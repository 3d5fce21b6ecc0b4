#include "widgets/frmFilterProperties.h"

#include "widgets/DialogButtons.h"

namespace paperkite {

frmFilterProperties::frmFilterProperties() : Form("frmFilterProperties") {
    SetCaption("Filter Properties");
    MakeControls();
    LayOut();
    mShown = Events.Shown.Connect([this] { mCancelled = true; });
    mOK = cmdOK->Events.Click.Connect([this] { cmdOK_Click(); });
    mCancel = cmdCancel->Events.Click.Connect([this] { cmdCancel_Click(); });
}

void frmFilterProperties::DumpVariables(VariableDump& dump) const {
    dump.Add("mWildcard", mWildcard).Add("mCancelled", mCancelled);
}

void frmFilterProperties::MakeControls() {
    Header = Controls.Make<FormHeader>("Header");
    Header->SetCaption("Filter Properties");
    lblWildcard = Controls.Make<Label>("lblWildcard");
    lblWildcard->SetCaption("Don't include any members with a name matching this wildcard :");
    txtWildcard = Controls.Make<TextBox>("txtWildcard");
    txtWildcard->SetAccessibleName(lblWildcard->GetCaption());
    lblNotes = Controls.Make<Label>("lblNotes");
    lblNotes->SetCaption("Notes");
    lblNotes->SetFont({.Name = {}, .Size = 0, .Bold = true, .Italic = false});
    lblWildcardNote = Controls.Make<Label>("lblWildcardNote");
    lblWildcardNote->SetCaption("You can use standard VB wildcard matching characters such as * "
                                "and ? in the wildcard string");
    lblWildcardNote->SetWordWrap(true);
    lblCaseNote = Controls.Make<Label>("lblCaseNote");
    lblCaseNote->SetCaption("Matching is case sensitive");
    const DialogButtons buttons = MakeDialogButtons(Controls);
    cmdOK = buttons.OK;
    cmdCancel = buttons.Cancel;
}

void frmFilterProperties::LayOut() {
    SetLayout(FormLayout::Column({
        FormLayout::Item(Header),
        FormLayout::Item(lblWildcard),
        FormLayout::Item(txtWildcard),
        FormLayout::Item(lblNotes),
        FormLayout::Item(lblWildcardNote),
        FormLayout::Item(lblCaseNote),
        FormLayout::Stretch(),
        FormLayout::Buttons({cmdOK, cmdCancel}),
    }));
}

void frmFilterProperties::SetWildcard(const std::string& value) {
    mWildcard = value;
    txtWildcard->SetText(value);
}

void frmFilterProperties::cmdOK_Click() {
    Procedure(*this, "cmdOK_Click", [&](Frame&) {
        mWildcard = txtWildcard->GetText();
        mCancelled = false;
        Hide();
    });
}

void frmFilterProperties::cmdCancel_Click() {
    Procedure(*this, "cmdCancel_Click", [&](Frame&) { Hide(); });
}

} // namespace paperkite
