#include "designers/dsrSubItem.h"

#include "foundation/Text.h"
#include "widgets/Keys.h"

#include <algorithm>

namespace paperkite {

namespace {

constexpr const char* kUnnamed = "(without a name)";

std::string ShownName(const SubItemList::SubItem& item) {
    return item.Name.empty() ? kUnnamed : item.Name;
}

} // namespace

dsrSubItem::dsrSubItem(std::string name)
    : FieldsDesigner(std::move(name), Several::OnlyShown), lstItems(Field<ListBox>("lstItems")),
      cmdAdd(Field<Button>("cmdAdd")), cmdRemove(Field<Button>("cmdRemove")),
      cmdUp(Field<Button>("cmdUp")), cmdDown(Field<Button>("cmdDown")),
      txtName(Field<TextBox>("txtName")), txtText(Field<TextBox>("txtText")),
      lblMessage(Field<Label>("lblMessage")) {
    cmdAdd->SetCaption("&Add");
    cmdAdd->SetToolTipText("Add a part behind the selected one (Insert)");
    cmdRemove->SetCaption("&Remove");
    cmdRemove->SetToolTipText("Remove the selected part (Delete)");
    cmdUp->SetCaption("Move &Up");
    cmdDown->SetCaption("Move &Down");
    txtText->SetMultiLine(true);
    lblMessage->SetWordWrap(true);
    MakeLayout();
    Connect();
}

void dsrSubItem::MakeLayout() {
    const auto label = [&](const char* name, const char* caption) {
        const auto made = Field<Label>(name);
        made->SetCaption(caption);
        return made;
    };
    const auto list = FormLayout::Column(
        {FormLayout::Item(label("lblItems", "&Parts:")), FormLayout::Item(lstItems, 1),
         FormLayout::Row({FormLayout::Item(cmdAdd), FormLayout::Item(cmdRemove)}),
         FormLayout::Row({FormLayout::Item(cmdUp), FormLayout::Item(cmdDown)})},
        2);
    const auto part =
        FormLayout::Column({FormLayout::Item(label("lblName", "&Name:")), FormLayout::Item(txtName),
                            FormLayout::Item(label("lblText", "&Text:")),
                            FormLayout::Item(txtText, 1), FormLayout::Item(lblMessage)},
                           3);
    SetFields(FormLayout::Row({list, part}, 1));
}

void dsrSubItem::Connect() {
    On(cmdAdd->Events.Click, "cmdAdd_Click", [this] { cmdAdd_Click(); });
    On(cmdRemove->Events.Click, "cmdRemove_Click", [this] { cmdRemove_Click(); });
    On(cmdUp->Events.Click, "cmdUp_Click", [this] { MoveItem(-1); });
    On(cmdDown->Events.Click, "cmdDown_Click", [this] { MoveItem(1); });
    On(lstItems->Events.Click, "lstItems_Click", [this] {
        if (!IsShowing()) ShowItem();
    });
    On(lstItems->Events.KeyDown, "lstItems_KeyDown", [this](int& keyCode, int) {
        const int key = keyCode;
        if (key == KeyDelete || key == KeyInsert) keyCode = 0;
        if (key == KeyDelete) cmdRemove_Click();
        if (key == KeyInsert) cmdAdd_Click();
    });
    On(txtName->Events.Change, "txtName_Change", [this] { FieldTyped(); });
    On(txtText->Events.Change, "txtText_Change", [this] { FieldTyped(); });
}

bool dsrSubItem::ShowFields(const std::optional<std::string>& text) {
    const auto items = SubItemList::Read(text.value_or(std::string()));
    if (!items) return false;
    mItems = *items;
    ShowList(mItems.Items.empty() ? -1 : 0);
    return true;
}

std::optional<std::string> dsrSubItem::FieldsText() const {
    const std::string text = mItems.Write();
    return text.empty() ? std::nullopt : std::optional(text);
}

Control& dsrSubItem::FirstField() {
    return mItems.Items.empty() ? static_cast<Control&>(*cmdAdd) : *lstItems;
}

SubItemList::SubItem* dsrSubItem::Selected() {
    const int index = lstItems->GetListIndex();
    return index < 0 ? nullptr : &mItems.Items[static_cast<std::size_t>(index)];
}

void dsrSubItem::cmdAdd_Click() {
    const int at = lstItems->GetListIndex() + 1;
    mItems.Items.insert(mItems.Items.begin() + at, SubItemList::SubItem());
    ShowList(at);
    FieldsChanged();
    txtName->SetFocus();
}

void dsrSubItem::cmdRemove_Click() {
    const int index = lstItems->GetListIndex();
    if (index < 0) return;
    mItems.Items.erase(mItems.Items.begin() + index);
    ShowList(std::min(index, static_cast<int>(mItems.Items.size()) - 1));
    FieldsChanged();
}

void dsrSubItem::MoveItem(int step) {
    const int index = lstItems->GetListIndex();
    const int other = index + step;
    if (index < 0 || other < 0 || other >= lstItems->GetListCount()) return;
    std::swap(mItems.Items[static_cast<std::size_t>(index)],
              mItems.Items[static_cast<std::size_t>(other)]);
    ShowList(other);
    FieldsChanged();
}

void dsrSubItem::FieldTyped() {
    SubItemList::SubItem* item = Selected();
    const bool isSame =
        item && item->Name == txtName->GetText() && item->Text == txtText->GetText();
    if (IsShowing() || !item || isSame) return;
    item->Name = txtName->GetText();
    item->Text = txtText->GetText();
    lstItems->SetList(lstItems->GetListIndex(), ShownName(*item));
    ShowItem();
    FieldsChanged();
}

void dsrSubItem::ShowList(int selected) {
    lstItems->Clear();
    for (const SubItemList::SubItem& item : mItems.Items)
        lstItems->AddItem(ShownName(item));
    lstItems->SetListIndex(selected);
    ShowItem();
}

void dsrSubItem::ShowItem() {
    const SubItemList::SubItem* item = Selected();
    const SubItemList::SubItem shown = item ? *item : SubItemList::SubItem();
    Fill([&] {
        txtName->SetText(shown.Name);
        txtText->SetText(shown.Text);
    });
    txtName->SetEnabled(item != nullptr);
    txtText->SetEnabled(item != nullptr);
    const int index = lstItems->GetListIndex();
    cmdRemove->SetEnabled(item != nullptr);
    cmdUp->SetEnabled(index > 0);
    cmdDown->SetEnabled(item && index + 1 < lstItems->GetListCount());
    const auto sameName =
        std::count_if(mItems.Items.begin(), mItems.Items.end(),
                      [&](const auto& other) { return EqualIgnoringCase(other.Name, shown.Name); });
    if (!item)
        lblMessage->SetCaption("Press Add for the first part: a value, a column, an entry that has "
                               "no comments of its own.");
    else
        lblMessage->SetCaption(sameName > 1 && !shown.Name.empty()
                                   ? "Another part bears the name \"" + shown.Name + "\" too."
                                   : "");
}

} // namespace paperkite
