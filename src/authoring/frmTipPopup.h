#pragma once

#include "foundation/BulwarkSupport.h"
#include "foundation/Procedure.h"
#include "widgets/Form.h"
#include "widgets/Label.h"

#include <string>

namespace paperkite {

/// The small form that shows the tip of a comment type below its button.
class frmTipPopup : public Form, public Shielded {
public:
    frmTipPopup();

    const char* ModuleName() const override { return "frmTipPopup"; }

    /// HTML; line breaks are kept.
    const std::string& GetTipText() const { return Tip->GetCaption(); }
    /// Gives the form the size that the text needs.
    void SetTipText(const std::string& value);

    Ref<Label> Tip;

private:
    InstanceCount mInstanceCount{"frmTipPopup", ComponentType::Form};
};

} // namespace paperkite
