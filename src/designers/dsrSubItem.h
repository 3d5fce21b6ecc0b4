#pragma once

#include "commenttexts/SubItemList.h"
#include "designers/FieldsDesigner.h"
#include "widgets/ListBox.h"

namespace paperkite {

/// The designer of parts that have no comments of their own: a list of names, and beside it the
/// name and the text of the selected one.
class dsrSubItem : public FieldsDesigner {
public:
    explicit dsrSubItem(std::string name = {});
    const char* ModuleName() const override { return "dsrSubItem"; }

    const Ref<ListBox> lstItems;
    const Ref<Button> cmdAdd;
    const Ref<Button> cmdRemove;
    const Ref<Button> cmdUp;
    const Ref<Button> cmdDown;
    const Ref<TextBox> txtName;
    const Ref<TextBox> txtText;
    const Ref<Label> lblMessage;

protected:
    bool ShowFields(const std::optional<std::string>& text) override;
    std::optional<std::string> FieldsText() const override;
    Control& FirstField() override;

private:
    void MakeLayout();
    void Connect();
    void cmdAdd_Click();
    void cmdRemove_Click();
    void MoveItem(int step);
    void FieldTyped();
    void ShowList(int selected);
    void ShowItem();
    SubItemList::SubItem* Selected();

    SubItemList mItems;
};

} // namespace paperkite
