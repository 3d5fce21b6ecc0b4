#pragma once

#include "designers/FieldsDesigner.h"
#include "widgets/CheckBox.h"

namespace paperkite {

/// The designer of the mark that an item is new: a box to tick, and the version since which there
/// is the item. The tick is the comment; a version may be missing.
class dsrIsNew : public FieldsDesigner {
public:
    explicit dsrIsNew(std::string name = {});
    const char* ModuleName() const override { return "dsrIsNew"; }

    const Ref<CheckBox> chkNew;
    const Ref<TextBox> txtVersion;
    const Ref<Label> lblShown;

protected:
    bool ShowFields(const std::optional<std::string>& text) override;
    std::optional<std::string> FieldsText() const override;
    Control& FirstField() override;

private:
    void ShowSentence();
};

} // namespace paperkite
