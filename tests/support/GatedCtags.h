#pragma once

#include "support/EnvironmentChange.h"
#include "support/TemporaryFolder.h"

#include <cstdlib>
#include <filesystem>
#include <string>

namespace paperkite::test {

/// The real ctags, found before the installed one while this lives, which stands still at each file
/// with "gate1" or "gate2" in its name until the test opens that gate.
class GatedCtags {
public:
    GatedCtags() {
        const std::string script = "#!/bin/bash\n"
                                   "[ \"$1\" = --version ] && exec /usr/bin/ctags --version\n"
                                   "gates=" +
                                   mFolder.Path() +
                                   "\n"
                                   "[ -e $gates/broken ] && exit 3\n"
                                   "while IFS= read -r name; do\n"
                                   "  for gate in gate1 gate2; do\n"
                                   "    while [[ $name == *$gate* && ! -e $gates/$gate ]]; do\n"
                                   "      kill -0 $$ || exit\n"
                                   "      [ -e $gates/broken ] && exit\n"
                                   "      sleep 0.05\n"
                                   "    done\n"
                                   "  done\n"
                                   "  echo \"$name\"\n"
                                   "done | /usr/bin/ctags \"$@\"\n";
        const std::string path = mFolder.Write("bin/ctags", script);
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    }

    void Open(const std::string& gate) const { mFolder.Write(gate, ""); }
    void OpenAll() const {
        Open("gate1");
        Open("gate2");
    }
    void Close(const std::string& gate) const { std::filesystem::remove(mFolder / gate); }
    /// It ends, and cannot be started again.
    void Break() const { Open("broken"); }

private:
    TemporaryFolder mFolder;
    EnvironmentChange mPath{"PATH", (mFolder / "bin") + ":" + std::getenv("PATH")};
};

} // namespace paperkite::test
