#pragma once

#include "foundation/BulwarkSupport.h"
#include "foundation/Procedure.h"
#include "widgets/Button.h"
#include "widgets/Form.h"
#include "widgets/FormHeader.h"
#include "widgets/Label.h"
#include "widgets/TextBox.h"

#include <string>

namespace paperkite {

/// The dialog that asks for one wildcard pattern of members to leave out.
///
///     auto form = MakeRef<frmFilterProperties>();
///     form->Show(FormMode::Modal);
///     if (!form->GetCancelled()) filters.Add(form->GetWildcard());
class frmFilterProperties : public Form, public Shielded {
public:
    frmFilterProperties();

    const char* ModuleName() const override { return "frmFilterProperties"; }
    void DumpVariables(VariableDump& dump) const override;

    /// True unless the author left the dialog with OK.
    bool GetCancelled() const { return mCancelled; }

    /// The pattern that the last OK stored; SetWildcard also puts it into the field.
    const std::string& GetWildcard() const { return mWildcard; }

    void SetWildcard(const std::string& value);

    Ref<FormHeader> Header;
    Ref<Label> lblWildcard;
    Ref<TextBox> txtWildcard;
    Ref<Label> lblNotes;
    Ref<Label> lblWildcardNote;
    Ref<Label> lblCaseNote;
    Ref<Button> cmdOK;
    Ref<Button> cmdCancel;

private:
    void MakeControls();
    void LayOut();
    void cmdOK_Click();
    void cmdCancel_Click();

    InstanceCount mInstanceCount{"frmFilterProperties", ComponentType::Form};
    std::string mWildcard;
    bool mCancelled = true;
    Connection mShown;
    Connection mOK;
    Connection mCancel;
};

} // namespace paperkite
