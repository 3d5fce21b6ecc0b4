#pragma once

#include "doctypes/source/CodeSurvey.h"

#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// The options that ctags is run with.
std::vector<std::string> CtagsOptions(const CodeSurvey& survey);

/// Whether the file's name is that of a language that is scanned.
bool IsSourceFileName(std::string_view path);

} // namespace paperkite
