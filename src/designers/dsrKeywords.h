#pragma once

#include "commenttexts/KeywordList.h"
#include "designers/FieldsDesigner.h"
#include "widgets/ListBox.h"

namespace paperkite {

/// The designer of the words under which an index lists an item. A word is typed above the list of
/// those that there are; one that is there already is refused with a word.
class dsrKeywords : public FieldsDesigner {
public:
    explicit dsrKeywords(std::string name = {});
    const char* ModuleName() const override { return "dsrKeywords"; }

    const Ref<TextBox> txtKeyword;
    const Ref<Button> cmdAdd;
    const Ref<Button> cmdChange;
    const Ref<Label> lblMessage;
    const Ref<ListBox> lstKeywords;
    const Ref<Button> cmdRemove;

protected:
    bool ShowFields(const std::optional<std::string>& text) override;
    std::optional<std::string> FieldsText() const override;
    Control& FirstField() override { return *txtKeyword; }

private:
    void Connect();
    void cmdAdd_Click();
    void cmdChange_Click();
    void cmdRemove_Click();
    void ShowList(int selected);
    void ShowButtons();
    void Say(const std::string& message);

    KeywordList mKeywords;
};

} // namespace paperkite
