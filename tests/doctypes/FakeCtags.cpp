#include "doctypes/FakeCtags.h"

#include <sys/stat.h>

namespace paperkite::test {

FakeCtags::FakeCtags(const std::string& script) : mFolder(std::make_unique<SourceTree>()) {
    mFolder->Write("fake-ctags", "#!/bin/bash\ncase \"$1\" in --version) echo Universal Ctags "
                                 "+json; exit;; esac\n" +
                                     script + "\n");
    mPath = mFolder->Folder() + "/fake-ctags";
    ::chmod(mPath.c_str(), 0755);
}

FakeCtags FakeCtags::WithBadFiles() {
    return FakeCtags("while IFS= read -r name; do\n"
                     "  case \"$name\" in\n"
                     "    *hang*) exec sleep 600;;\n"
                     "    *crash*) kill -SEGV $$;;\n"
                     "    *quit*) exit 0;;\n"
                     "  esac\n"
                     "  printf '%s\\n' \"$name\" | ctags \"$@\" || exit\n"
                     "done");
}

} // namespace paperkite::test
