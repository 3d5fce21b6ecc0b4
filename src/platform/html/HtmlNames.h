#pragma once

#include <string_view>

namespace paperkite {

// What HTML says about its elements, by their names in lower case.

/// Elements without contents and end tag ("br"), those that only serialising knows ("bgsound")
/// included.
bool IsVoidElement(std::string_view name);
/// Elements whose text is written as it is: no entities inside.
bool HoldsRawText(std::string_view name);
/// Elements whose first line break the parser drops ("pre").
bool DropsFirstLineBreak(std::string_view name);
/// Elements that stand on lines of their own, so that blanks around them mean nothing.
bool IsBlockElement(std::string_view name);

} // namespace paperkite
