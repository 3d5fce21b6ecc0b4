#include "widgets/DialogButtons.h"

namespace paperkite {

DialogButtons MakeDialogButtons(ControlCollection& controls) {
    DialogButtons buttons{controls.Make<Button>("cmdOK"), controls.Make<Button>("cmdCancel")};
    buttons.OK->SetCaption("OK");
    buttons.OK->SetDefault(true);
    buttons.Cancel->SetCaption("Cancel");
    buttons.Cancel->SetCancel(true);
    return buttons;
}

} // namespace paperkite
