#pragma once

#include "widgets/DockCommand.h"
#include "widgets/ListBox.h"

#include <string>

namespace paperkite {

/// Ticks every entry of a check-list box, or none; the current entry stays the current one.
void SelectList(ListBox& lbx, bool Value);

/// Ticks the first entry whose text is exactly Text; the current entry stays the current one. With
/// no such entry nothing is ticked.
void CheckListItem(ListBox& lbx, const std::string& Text);

/// Whether the command is in its on state.
bool GetCommandChecked(const DockCheckCommand& Command);

/// Turns the command on or off. A state that already agrees is not written, since writing it would
/// raise the host's notification.
void SetCommandChecked(DockCheckCommand& Command, bool Value);

} // namespace paperkite
