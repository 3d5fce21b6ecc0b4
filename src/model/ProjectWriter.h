#pragma once

#include <string>

namespace paperkite {

class ProjectDocument;
struct XmlVocabulary;

/// Writes project files (".kiteproject").
class ProjectWriter {
public:
    /// What the project looks like in its file, with what its reader did not understand.
    static std::string Canonical(const ProjectDocument& project);

    /// What this program understands of project files.
    static const XmlVocabulary& Vocabulary();
};

} // namespace paperkite
