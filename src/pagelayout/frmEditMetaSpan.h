#pragma once

#include "foundation/BulwarkSupport.h"
#include "foundation/Procedure.h"
#include "pagelayout/ElementBuilder.h"
#include "widgets/Button.h"
#include "widgets/Form.h"
#include "widgets/FormHeader.h"
#include "widgets/Label.h"
#include "widgets/TextBox.h"

#include <string>

namespace paperkite {

/// The dialog in which an author fills in an element of a page layout, or chooses a new one.
///
///     auto form = MakeRef<frmEditMetaSpan>();
///     form->SetIsAdd(true);
///     form->SetLayout(layout);
///     form->ctlBuilder->Initialise(pageTemplate->NamespaceDefs, pageTemplate);
///     form->Show(FormMode::Modal);
///     if (form->GetSuccess()) form->ctlBuilder->Save(element);
///     form->SetSafeToUnload(true);
///
/// Needs the service MessageBox.
class frmEditMetaSpan : public Form, public Shielded {
public:
    frmEditMetaSpan();
    ~frmEditMetaSpan() override;

    const char* ModuleName() const override { return "frmEditMetaSpan"; }
    void DumpVariables(VariableDump& dump) const override;

    /// Whether the author left the dialog with OK.
    bool GetSuccess() const { return Success; }
    void SetSuccess(bool value) { Success = value; }
    /// While it is false the close box only hides the dialog, as Cancel does.
    bool GetSafeToUnload() const { return SafeToUnload; }
    void SetSafeToUnload(bool value) { SafeToUnload = value; }
    /// Whether an element is added, which the author chooses from the tree; set before Show.
    bool GetIsAdd() const { return IsAdd; }
    void SetIsAdd(bool value) { IsAdd = value; }

    Ref<PageLayout> GetLayout() const { return ctlBuilder->GetLayout(); }
    void SetLayout(const Ref<PageLayout>& value) { ctlBuilder->SetLayout(value); }
    /// What stands between the element's tags.
    const std::string& GetText() const { return txtField->GetText(); }
    void SetText(const std::string& value) { txtField->SetText(value); }

    Ref<FormHeader> Header;
    Ref<ElementBuilder> ctlBuilder;
    Ref<Label> lblField;
    Ref<TextBox> txtField;
    Ref<Label> tipHelp;
    Ref<Button> cmdOK;
    Ref<Button> cmdCancel;

private:
    void MakeControls();
    void LayOut();
    void Form_Load();
    void Form_QueryUnload(bool& Cancel);
    void cmdOK_Click();
    void cmdCancel_Click();
    void ctlBuilder_SelectionChanged(const Ref<ElementDef>& Definition);
    void zSelectFirstRow();
    /// Why the text cannot stand in an element; empty where it can.
    std::string zTextProblem() const;
    void zWarn(const std::string& message);

    InstanceCount mInstanceCount{"frmEditMetaSpan", ComponentType::Form};
    bool Success = false;
    bool SafeToUnload = false;
    bool IsAdd = false;
    std::string iDefaultCaption;
    std::vector<Connection> mConnections;
};

} // namespace paperkite
