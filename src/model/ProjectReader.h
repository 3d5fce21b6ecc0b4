#pragma once

#include "model/FileProblem.h"

#include <optional>
#include <string>

namespace paperkite {

class ProjectDocument;

/// The version of the format of project files that this program writes.
inline constexpr int kProjectVersion = 1;

/// Reads a project file (".kiteproject") into a new project, whose path is set; Content Files are
/// only listed.
class ProjectReader {
public:
    /// Nothing when all went well; otherwise the project is of no use.
    static std::optional<FileProblem> Read(const std::string& bytes, ProjectDocument& project);
};

} // namespace paperkite
