#pragma once

#include "doctypes/SourceTree.h"

#include <memory>
#include <string>

namespace paperkite::test {

/// A program for SetCtagsProgram, kept in a folder of its own.
class FakeCtags {
public:
    /// Says that it is Universal Ctags; what else it does, the lines of shell say.
    explicit FakeCtags(const std::string& script);

    /// The real ctags, but for files: one with "hang" in its name never ends, one with "crash"
    /// ends it by a signal, one with "quit" ends it as if all were well.
    static FakeCtags WithBadFiles();

    const std::string& Path() const { return mPath; }

private:
    std::unique_ptr<SourceTree> mFolder;
    std::string mPath;
};

} // namespace paperkite::test
