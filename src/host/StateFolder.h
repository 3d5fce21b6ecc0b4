#pragma once

#include <string>

namespace paperkite {

/// The folder of this user and machine for what programs remember between runs:
/// $XDG_STATE_HOME/paperkite, usually ~/.local/state/paperkite. It need not exist.
std::string StateFolder();

/// The folder of this user and machine where journals of unsaved comments are kept,
/// "unsaved" in the former. It need not exist.
std::string JournalFolder();

} // namespace paperkite
