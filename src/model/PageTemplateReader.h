#pragma once

#include "foundation/PageTemplate.h"
#include "model/FileProblem.h"
#include "model/XmlReader.h"

#include <optional>
#include <string>

namespace paperkite {

/// The version of the format of "template.xml" that this program writes.
inline constexpr int kPageTemplateVersion = 1;

/// Reads the description of a page template, "template.xml".
class PageTemplateReader {
public:
    /// Reads into a new template, and leaves the file as it was read in `kept`. Nothing when all
    /// went well; otherwise the template is of no use.
    static std::optional<FileProblem> Read(const std::string& path, const std::string& bytes,
                                           PageTemplate& result, XmlFile& kept);

    /// Whether a path stays below the template's folder.
    static bool IsBelowFolder(const std::string& path);
};

/// The editors that variables may have, as words of the file and as numbers of VariableDef;
/// 0 for an unknown word, an empty text for an unknown number.
int VariableTypeOf(const std::string& word);
std::string VariableTypeText(int type);

} // namespace paperkite
