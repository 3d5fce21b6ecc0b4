#pragma once

#include "model/CommentStore.h"
#include "model/ContentFile.h"
#include "model/FileProblem.h"

#include <functional>
#include <optional>
#include <string>

namespace paperkite {

/// Writes Content Files (".ktc"): one element a comment, by qualified name, then by tag, then in
/// the order in which the author has them.
class ContentFileWriter {
public:
    /// Which comments belong into the file; by default those that came from it.
    using BelongsTest = std::function<bool(const CommentStore::Origin&)>;

    /// What the file's comments in the store look like on disk.
    static std::string Canonical(const ContentFile& file, const CommentStore& store,
                                 const BelongsTest& belongs = {});

    /// The bytes that the file is to hold: those that were read while nothing changed.
    static std::string Bytes(const ContentFile& file, const CommentStore& store,
                             const BelongsTest& belongs = {});
};

} // namespace paperkite
