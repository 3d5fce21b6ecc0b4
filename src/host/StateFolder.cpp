#include "host/StateFolder.h"

#include <cstdlib>

namespace paperkite {

std::string StateFolder() {
    const char* state = std::getenv("XDG_STATE_HOME");
    if (state && *state == '/') return std::string(state) + "/paperkite";
    const char* home = std::getenv("HOME");
    return std::string(home && *home ? home : "/tmp") + "/.local/state/paperkite";
}

std::string JournalFolder() {
    return StateFolder() + "/unsaved";
}

} // namespace paperkite
