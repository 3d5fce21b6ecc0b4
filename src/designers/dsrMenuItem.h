#pragma once

#include "commenttexts/MenuPath.h"
#include "designers/FieldsDesigner.h"

namespace paperkite {

/// The designer of the place of a command in the menus of the documented program.
class dsrMenuItem : public FieldsDesigner {
public:
    explicit dsrMenuItem(std::string name = {});
    const char* ModuleName() const override { return "dsrMenuItem"; }

    const Ref<TextBox> txtPath;
    const Ref<TextBox> txtKeys;
    const Ref<Label> lblShown;

protected:
    bool ShowFields(const std::optional<std::string>& text) override;
    std::optional<std::string> FieldsText() const override;
    Control& FirstField() override { return *txtPath; }

private:
    MenuPath Path() const;
    void ShowSentence();
};

} // namespace paperkite
