#pragma once

#include <string>

namespace paperkite {

/// The folder of this user and machine where journals of unsaved comments are kept:
/// $XDG_STATE_HOME/paperkite/unsaved, usually ~/.local/state/paperkite/unsaved. It need not exist.
std::string JournalFolder();

} // namespace paperkite
