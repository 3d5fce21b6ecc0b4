#pragma once

#include <string>

namespace paperkite {

struct Output;

/// Lists the links of all comments of a project, and which of them lead nowhere. Exit code 1 when
/// there are any of those.
int RunLinks(const std::string& project, Output& output);

} // namespace paperkite
