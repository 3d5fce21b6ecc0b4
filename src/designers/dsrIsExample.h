#pragma once

#include "commenttexts/ExampleNote.h"
#include "designers/FieldsDesigner.h"
#include "designers/ItemTree.h"
#include "widgets/CheckBox.h"
#include "widgets/ListBox.h"

namespace paperkite {

/// The designer of the mark that an item is an example: a box to tick, what the example does, and
/// the items whose use it shows, chosen in a tree. The tick is the comment.
class dsrIsExample : public FieldsDesigner {
public:
    explicit dsrIsExample(std::string name = {});
    const char* ModuleName() const override { return "dsrIsExample"; }

    const Ref<CheckBox> chkExample;
    const Ref<TextBox> txtTitle;
    const Ref<ListBox> lstItems;
    const Ref<Button> cmdRemove;
    const Ref<TreeControl> tvwItems;
    const Ref<Button> cmdAdd;
    const Ref<Label> lblMessage;

protected:
    bool ShowFields(const std::optional<std::string>& text) override;
    std::optional<std::string> FieldsText() const override;
    Control& FirstField() override;

private:
    void MakeLayout();
    void Connect();
    void AddChosen();
    void RemoveSelected();
    void ShowItems(int selected);
    void ShowButtons();

    ItemTree mTree;
    ExampleNote mNote;
};

} // namespace paperkite
