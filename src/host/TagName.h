#pragma once

#include <string>

namespace paperkite {

/// How authors know a tag: by the name of its definition, or by the tag itself where there is none.
std::string TagName(const std::string& tagIdentifier);

} // namespace paperkite
