#pragma once

#include "foundation/TaggedComment.h"

#include <string>

namespace paperkite {

/// How authors know a tag: by the name of its definition, or by the tag itself where there is none.
std::string TagName(const std::string& tagIdentifier);
/// The same with what the comment's tag qualifies: "Parameter key".
std::string TagNameOf(const TaggedComment& comment);

} // namespace paperkite
