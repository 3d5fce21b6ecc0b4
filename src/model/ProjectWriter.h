#pragma once

#include <string>

namespace paperkite {

class ProjectDocument;

/// Writes project files (".kiteproject").
class ProjectWriter {
public:
    /// What the project looks like in its file, with what its reader did not understand.
    static std::string Canonical(const ProjectDocument& project);
};

} // namespace paperkite
