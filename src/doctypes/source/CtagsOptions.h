#pragma once

#include "doctypes/source/CodeSurvey.h"

#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// The options that ctags is run with.
std::vector<std::string> CtagsOptions(const CodeSurvey& survey);

/// Whether a definition of a macro may change what ctags makes of the file.
bool MayUseMacros(std::string_view path);

/// Whether the file's name is that of a language that is scanned.
bool IsSourceFileName(std::string_view path);

} // namespace paperkite
