#pragma once

#include "designers/FieldsDesigner.h"
#include "widgets/CodeBox.h"

namespace paperkite {

/// The designer of comments that are XML: a field for code, and below it, while it is typed, what
/// keeps the text from being well-formed, and where. What is typed is stored, well-formed or not.
class dsrXMLIsland : public TagDesignerControl {
public:
    explicit dsrXMLIsland(std::string name = {});
    const char* ModuleName() const override { return "dsrXMLIsland"; }

    const Ref<CodeBox> txtXML;
    const Ref<Label> lblState;
    const Ref<Button> cmdGoTo;

protected:
    void ShowComment() override;
    void FocusFields() override { txtXML->SetFocus(); }

private:
    void Check();

    bool mShowing = false;
};

} // namespace paperkite
