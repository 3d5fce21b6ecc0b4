#pragma once

#include "model/CommentStore.h"
#include "model/ContentFile.h"
#include "model/FileProblem.h"

#include <optional>
#include <string>

namespace paperkite {

/// The version of the format of Content Files that this program writes.
inline constexpr int kContentFileVersion = 1;

/// Reads Content Files (".ktc") into a comment store.
class ContentFileReader {
public:
    /// Nothing when all went well; otherwise the store is as it was.
    static std::optional<FileProblem> Read(const Ref<ContentFile>& file, CommentStore& store);

    /// The same of bytes that were read already.
    static std::optional<FileProblem> ReadBytes(const Ref<ContentFile>& file, std::string bytes,
                                                CommentStore& store);

    /// What is wrong with the children of a Content File's root, if anything is.
    static std::optional<FileProblem> CheckContent(const XmlReader& reader, const XmlElement& root);
};

} // namespace paperkite
