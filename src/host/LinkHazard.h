#pragma once

#include <string>

namespace paperkite {

/// What an author is told about a link before it goes into a comment: that it is a script, holds
/// characters that cannot be seen, or is otherwise malformed, such as one that ends behind
/// "http://". Empty for a link that is nothing of the kind. Nothing of the program ever runs such a
/// link; it is kept as it was typed.
std::string LinkHazard(const std::string& link);

} // namespace paperkite
