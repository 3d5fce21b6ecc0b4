#include "pagelayout/frmEditMetaSpan.h"

#include "foundation/Services.h"
#include "pagelayout/ParsedLayout.h"
#include "widgets/DialogButtons.h"

namespace paperkite {

frmEditMetaSpan::frmEditMetaSpan() : Form("frmEditMetaSpan") {
    SetCaption("Edit Element");
    iDefaultCaption = GetCaption();
    Move(0, 0, 780, 600);
    MakeControls();
    LayOut();
    const auto keep = [this](Connection connection) {
        mConnections.push_back(std::move(connection));
    };
    keep(Events.Shown.Connect([this] { Form_Load(); }));
    keep(Events.QueryClose.Connect([this](bool& cancel) { Form_QueryUnload(cancel); }));
    keep(cmdOK->Events.Click.Connect([this] { cmdOK_Click(); }));
    keep(cmdCancel->Events.Click.Connect([this] { cmdCancel_Click(); }));
    keep(ctlBuilder->Events.SelectionChanged.Connect(
        [this](const Ref<ElementDef>& definition) { ctlBuilder_SelectionChanged(definition); }));
}

frmEditMetaSpan::~frmEditMetaSpan() = default;

void frmEditMetaSpan::DumpVariables(VariableDump& dump) const {
    dump.Add("Success", Success)
        .Add("SafeToUnload", SafeToUnload)
        .Add("IsAdd", IsAdd)
        .Add("iDefaultCaption", iDefaultCaption);
}

void frmEditMetaSpan::MakeControls() {
    Header = Controls.Make<FormHeader>("Header");
    Header->SetCaption(GetCaption());
    ctlBuilder = Controls.Make<ElementBuilder>("ctlBuilder");
    ctlBuilder->SetShowTree(false);
    // The dialog has a tip box of its own, below the text.
    ctlBuilder->SetShowTipBox(false);
    lblField = Controls.Make<Label>("lblField");
    lblField->SetCaption("&Text:");
    txtField = Controls.Make<TextBox>("txtField");
    txtField->SetAccessibleName("Text");
    txtField->SetToolTipText("What stands between the element's tags");
    txtField->SetMultiLine(true);
    tipHelp = Controls.Make<Label>("tipHelp");
    tipHelp->SetWordWrap(true);
    const DialogButtons buttons = MakeDialogButtons(Controls);
    cmdOK = buttons.OK;
    cmdCancel = buttons.Cancel;
}

void frmEditMetaSpan::LayOut() {
    Form::SetLayout(FormLayout::Column({
        FormLayout::Item(Header),
        FormLayout::Item(tipHelp),
        FormLayout::Item(ctlBuilder, 5),
        FormLayout::Item(lblField),
        FormLayout::Item(txtField, 1),
        FormLayout::Buttons({cmdOK, cmdCancel}),
    }));
}

void frmEditMetaSpan::Form_Load() {
    Procedure(*this, "Form_Load", [&](Frame&) {
        Success = false;
        iDefaultCaption = IsAdd ? "Add Element" : "Edit Element";
        ctlBuilder->SetShowTree(IsAdd);
        ctlBuilder_SelectionChanged(ctlBuilder->GetElement());
        (IsAdd ? Ref<Control>(ctlBuilder->tvwElements) : Ref<Control>(ctlBuilder->prpProperties))
            ->SetFocus();
    });
}

// So that the first key begins an edit, and the description is that of a row.
void frmEditMetaSpan::zSelectFirstRow() {
    const auto& rows = *ctlBuilder->prpProperties;
    if (rows.GetSelectedItem()) return;
    for (const auto& row : rows) {
        if (!row->GetVisible()) continue;
        ctlBuilder->prpProperties->SetSelectedItem(row);
        return;
    }
}

void frmEditMetaSpan::ctlBuilder_SelectionChanged(const Ref<ElementDef>& Definition) {
    Procedure(*this, "ctlBuilder_SelectionChanged", [&](Frame& frame) {
        Watch watchDefinition(frame, "ElementDef", Definition);
        SetCaption(Definition ? iDefaultCaption + " - " + Definition->Name : iDefaultCaption);
        Header->SetCaption(GetCaption());
        tipHelp->SetCaption(Definition ? Definition->Description
                                       : std::string("No element selected for editing."));
        zSelectFirstRow();
    });
}

void frmEditMetaSpan::zWarn(const std::string& message) {
    Required(CurrentServices().MessageBox).Show(message, GetCaption(), MessageIcon::Warning);
}

// Tags in the text that belong to nothing would end the element or swallow what follows it.
std::string frmEditMetaSpan::zTextProblem() const {
    if (txtField->GetText().find("<!--KITEMETADATA") == std::string::npos) return {};
    const auto parsed = ParsedLayout("<!--KITEMETADATA start type=\"x\"-->" + txtField->GetText() +
                                     "<!--KITEMETADATA end-->");
    const auto& pieces = parsed->GetSections()->Item(std::size_t{1})->Elements;
    if (pieces.Count() == 1 && parsed->GetParseErrors().empty()) return {};
    return "The text holds the tag of an element that is not complete, and would break the layout. "
           "Give each start tag its end tag, or take the tag out.";
}

void frmEditMetaSpan::cmdOK_Click() {
    Procedure(*this, "cmdOK_Click", [&](Frame&) {
        if (IsAdd && !ctlBuilder->GetSelectedElement()) {
            zWarn("Please select the type of element to insert.");
            return;
        }
        std::string Message;
        if (!ctlBuilder->Validate(Message)) {
            // A layout may hold elements that its template does not declare.
            if (Message.empty())
                Message = "The template does not say which attributes this element has. Choose "
                          "Cancel, and change it in the HTML view.";
            zWarn(Message);
            return;
        }
        if (const std::string problem = zTextProblem(); !problem.empty()) {
            zWarn(problem);
            txtField->SetFocus();
            return;
        }
        Success = true;
        Hide();
    });
}

void frmEditMetaSpan::cmdCancel_Click() {
    Procedure(*this, "cmdCancel_Click", [&](Frame&) {
        Success = false;
        Hide();
    });
}

void frmEditMetaSpan::Form_QueryUnload(bool& Cancel) {
    Procedure(*this, "Form_QueryUnload", [&](Frame&) {
        if (SafeToUnload) return;
        Cancel = true;
        cmdCancel_Click();
    });
}

} // namespace paperkite
