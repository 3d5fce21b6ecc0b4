#include "designers/dsrIsExample.h"

#include "commenttexts/PlainText.h"
#include "widgets/Keys.h"

#include <algorithm>

namespace paperkite {

dsrIsExample::dsrIsExample(std::string name)
    : FieldsDesigner(std::move(name), Several::OnlyShown),
      chkExample(Field<CheckBox>("chkExample")), txtTitle(Field<TextBox>("txtTitle")),
      lstItems(Field<ListBox>("lstItems")), cmdRemove(Field<Button>("cmdRemove")),
      tvwItems(Field<TreeControl>("tvwItems")), cmdAdd(Field<Button>("cmdAdd")),
      lblMessage(Field<Label>("lblMessage")), mTree(tvwItems) {
    chkExample->SetCaption("This item is an &example");
    txtTitle->SetPlaceholderText("Counts the words of a file");
    cmdRemove->SetCaption("&Remove");
    cmdRemove->SetToolTipText("Remove the selected item from the list (Delete)");
    cmdAdd->SetCaption("&Add");
    cmdAdd->SetToolTipText("Add the selected item to the list (Enter)");
    tvwItems->SetEmptyText("There is no code to choose from. Read the sources first.");
    lblMessage->SetWordWrap(true);
    MakeLayout();
    Connect();
}

void dsrIsExample::MakeLayout() {
    const auto lblItems = Field<Label>("lblItems");
    const auto lblTree = Field<Label>("lblTree");
    lblItems->SetCaption("It &shows how to use:");
    lblTree->SetCaption("All &items:");
    const auto shown =
        FormLayout::Column({FormLayout::Item(lblItems), FormLayout::Item(lstItems, 1),
                            FormLayout::Row({FormLayout::Stretch(), FormLayout::Item(cmdRemove)})},
                           1);
    const auto all =
        FormLayout::Column({FormLayout::Item(lblTree), FormLayout::Item(tvwItems, 1),
                            FormLayout::Row({FormLayout::Stretch(), FormLayout::Item(cmdAdd)})},
                           1);
    SetFields(FormLayout::Column({FormLayout::Item(chkExample),
                                  FormLayout::Fields({{"&What it does:", txtTitle}}),
                                  FormLayout::Row({shown, all}, 1), FormLayout::Item(lblMessage)},
                                 1));
}

void dsrIsExample::Connect() {
    On(chkExample->Events.Click, "chkExample_Click", [this] {
        if (IsShowing()) return;
        ShowButtons();
        FieldsChanged();
    });
    On(txtTitle->Events.Change, "txtTitle_Change", [this] {
        if (IsShowing()) return;
        mNote.Title = PlainText::OneLine(txtTitle->GetText());
        if (!mNote.Title.empty()) chkExample->SetChecked(true);
        FieldsChanged();
    });
    On(cmdAdd->Events.Click, "cmdAdd_Click", [this] { AddChosen(); });
    On(cmdRemove->Events.Click, "cmdRemove_Click", [this] { RemoveSelected(); });
    On(tvwItems->Events.NodeDblClick, "tvwItems_NodeDblClick",
       [this](const Ref<TreeNode>&) { AddChosen(); });
    On(tvwItems->Events.SelectionChange, "tvwItems_SelectionChange", [this] { ShowButtons(); });
    On(tvwItems->Events.KeyDown, "tvwItems_KeyDown", [this](int& keyCode, int) {
        if (keyCode != KeyReturn) return;
        keyCode = 0;
        AddChosen();
    });
    On(lstItems->Events.Click, "lstItems_Click", [this] {
        if (!IsShowing()) mTree.Reveal(lstItems->GetText());
        ShowButtons();
    });
    On(lstItems->Events.KeyDown, "lstItems_KeyDown", [this](int& keyCode, int) {
        if (keyCode != KeyDelete) return;
        keyCode = 0;
        RemoveSelected();
    });
}

bool dsrIsExample::ShowFields(const std::optional<std::string>& text) {
    const auto note = ExampleNote::Read(text.value_or(std::string()));
    if (!note) return false;
    mNote = *note;
    chkExample->SetChecked(text.has_value());
    txtTitle->SetText(mNote.Title);
    mTree.ShowAround(GetElement());
    ShowItems(-1);
    return true;
}

std::optional<std::string> dsrIsExample::FieldsText() const {
    return chkExample->GetChecked() ? std::optional(mNote.Write()) : std::nullopt;
}

Control& dsrIsExample::FirstField() {
    return chkExample->GetChecked() ? static_cast<Control&>(*txtTitle) : *chkExample;
}

void dsrIsExample::AddChosen() {
    const std::string chosen = mTree.GetChosen();
    const bool isOwn = GetElement() && chosen == TextOfItem(GetElement(), "QualifiedName");
    const auto found = std::find(mNote.Items.begin(), mNote.Items.end(), chosen);
    if (chosen.empty() || isOwn)
        return lblMessage->SetCaption(isOwn ? "An item is no example of itself." : "");
    if (found == mNote.Items.end()) mNote.Items.push_back(chosen);
    chkExample->SetChecked(true);
    ShowItems(-1);
    FieldsChanged();
}

void dsrIsExample::RemoveSelected() {
    const int selected = lstItems->GetListIndex();
    if (selected < 0) return;
    mNote.Items.erase(mNote.Items.begin() + selected);
    ShowItems(std::min(selected, static_cast<int>(mNote.Items.size()) - 1));
    FieldsChanged();
}

void dsrIsExample::ShowItems(int selected) {
    lstItems->Clear();
    for (const std::string& item : mNote.Items)
        lstItems->AddItem(item);
    lstItems->SetListIndex(selected);
    ShowButtons();
}

void dsrIsExample::ShowButtons() {
    cmdRemove->SetEnabled(lstItems->GetListIndex() >= 0);
    cmdAdd->SetEnabled(!mTree.GetChosen().empty());
    if (!chkExample->GetChecked())
        lblMessage->SetCaption(
            "Tick the box when this code is there to show how other code is used.");
    else
        lblMessage->SetCaption(mNote.Items.empty() ? "Choose an item at the right and press Add."
                                                   : "");
}

} // namespace paperkite
