#pragma once

#include "foundation/Object.h"

#include <string>

namespace paperkite {

/// A property of an item of source code as text: "caption" (the name, with the parameter types of
/// overloads), or a member that has a text form, letter case ignored, "item" in front or not. An
/// unknown one is empty.
std::string PropertyOf(const Object& item, const std::string& name);

} // namespace paperkite
