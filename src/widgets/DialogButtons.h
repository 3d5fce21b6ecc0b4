#pragma once

#include "widgets/Button.h"
#include "widgets/ControlCollection.h"

namespace paperkite {

/// The two buttons that end a dialog: "OK", which Enter presses, and "Cancel", which Escape does.
/// They are added to the dialog's controls at once; the dialog connects them and puts them into
/// its layout.
///
///     const auto [ok, cancel] = MakeDialogButtons(Controls);
struct DialogButtons {
    Ref<Button> OK;
    Ref<Button> Cancel;
};

DialogButtons MakeDialogButtons(ControlCollection& controls);

} // namespace paperkite
