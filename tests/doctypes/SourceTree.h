#pragma once

#include "doctypes/source/CommentExtractor.h"
#include "doctypes/source/SourceScanner.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace paperkite::test {

/// A temporary folder that files are written into, and that is gone with the object.
class SourceTree {
public:
    SourceTree();
    ~SourceTree();
    SourceTree(const SourceTree&) = delete;
    SourceTree& operator=(const SourceTree&) = delete;

    SourceTree& Write(const std::string& file, std::string_view text);

    std::string Folder() const { return mFolder.string(); }

    /// Scans it as the project "p" and fails the test when that fails.
    SourceIndex Scan() const;

private:
    std::filesystem::path mFolder;
};

/// The tree below an entity, one line for each: indentation, access (+ public, # protected,
/// ~ friend, - private), kind, step, signature, ": type", "< base types", "@file:line-end".
/// Places and comments only where asked for.
struct DumpOptions {
    bool Places = false;
    bool Comments = false;
};

std::string Dump(const SourceIndex& index, const DumpOptions& options = {},
                 CommentExtractor* comments = nullptr, SourceIndex::Id from = SourceIndex::Root);

} // namespace paperkite::test
