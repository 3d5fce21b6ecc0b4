#pragma once

#include "designers/TagDesignerControl.h"
#include "foundation/ScopeExit.h"
#include "widgets/Button.h"
#include "widgets/TextBox.h"

#include <optional>
#include <string>

namespace paperkite {

/// What the designers share that edit a comment in fields. A stored text that is not of their form
/// is shown as it is, and stays so until the author changes it there or begins anew.
class FieldsDesigner : public TagDesignerControl {
public:
    /// Shown for a text of another form: a sentence, the text, and the button that begins anew.
    const Ref<Container> pnlForeign;
    const Ref<Label> lblForeign;
    const Ref<TextBox> txtForeign;
    const Ref<Button> cmdAnew;
    const Ref<Container> pnlFields;

protected:
    FieldsDesigner(std::string name, Several several);

    /// Adds a field, to be named in the layout.
    template <class Role>
    Ref<Role> Field(const char* name) {
        return pnlFields->Controls.Make<Role>(name);
    }

    void SetFields(FormLayout layout);

    /// Shows a stored text in the fields, empty fields for nothing; false, and nothing is shown,
    /// for a text of another form.
    virtual bool ShowFields(const std::optional<std::string>& text) = 0;
    /// The fields as a text, nothing for no comment.
    virtual std::optional<std::string> FieldsText() const = 0;
    /// Where the author begins to write.
    virtual Control& FirstField() = 0;

    /// The author changed a field: stores what they hold. While they are being filled it does
    /// nothing.
    void FieldsChanged();
    /// Runs what fills fields by itself.
    template <class Action>
    void Fill(Action&& action) {
        const ScopeExit filled([this, before = mShowing] { mShowing = before; });
        mShowing = true;
        action();
    }
    /// Whether the fields are being filled, so that their events mean nothing.
    bool IsShowing() const { return mShowing; }

    void ShowComment() override;
    void FocusFields() override;

private:
    void BeginAnew();

    bool mShowing = false;
};

} // namespace paperkite
