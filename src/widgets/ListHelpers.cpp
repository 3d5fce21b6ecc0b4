#include "widgets/ListHelpers.h"

namespace paperkite {

namespace {

void RestoreListIndex(ListBox& lbx, int listIndex) {
    if (listIndex < lbx.GetListCount()) lbx.SetListIndex(listIndex);
}

} // namespace

void SelectList(ListBox& lbx, bool Value) {
    const int listIndex = lbx.GetListIndex();
    for (int index = 0; index < lbx.GetListCount(); ++index)
        lbx.SetSelected(index, Value);
    RestoreListIndex(lbx, listIndex);
}

void CheckListItem(ListBox& lbx, const std::string& Text) {
    const int listIndex = lbx.GetListIndex();
    for (int index = 0; index < lbx.GetListCount(); ++index) {
        if (lbx.GetList(index) != Text) continue;
        lbx.SetSelected(index, true);
        break;
    }
    RestoreListIndex(lbx, listIndex);
}

bool GetCommandChecked(const DockCheckCommand& Command) {
    return Command.GetChecked() == 1;
}

void SetCommandChecked(DockCheckCommand& Command, bool Value) {
    if (GetCommandChecked(Command) == Value) return;
    Command.SetChecked(Value ? 1 : 0);
}

} // namespace paperkite
