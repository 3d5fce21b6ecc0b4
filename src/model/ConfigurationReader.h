#pragma once

#include "foundation/TaggedCommentDef.h"
#include "model/FileProblem.h"

#include <optional>
#include <string>

namespace paperkite {

/// Reads the definitions of tagged comments, which stand in "taggedcomments.xml" of the
/// configuration folder. The standard ones are part of the program too.
///
///     if (auto problem = ConfigurationReader::Load(folder, GlobalConfig().TaggedCommentDefs))
///         Say(problem->Message());
class ConfigurationReader {
public:
    /// The version of the format that this program reads.
    static constexpr int kVersion = 1;

    /// Reads the file of a folder, or the standard definitions where the folder has none. With a
    /// problem `definitions` becomes the standard ones.
    static std::optional<FileProblem> Load(const std::string& folder,
                                           Ref<TaggedCommentDefs>& definitions);

    /// Nothing when all went well; otherwise `definitions` is as it was. `file` is only named in
    /// problems.
    static std::optional<FileProblem> ReadBytes(const std::string& file, std::string bytes,
                                                Ref<TaggedCommentDefs>& definitions);

    /// The definitions that the program brings.
    static Ref<TaggedCommentDefs> Standard();
};

} // namespace paperkite
