#pragma once

#include "doctypes/source/SourceIndex.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

// A parameter of a callable is an item too, so that it has comments of its own. Its qualified name
// is that of the callable with a step behind it that begins with ":", which no other step holds:
// "zoo~Dog~Bark~:times". A parameter without a name, or with one that stands before it already,
// goes by its number: "zoo~Dog~Bark~:2".

/// The step of a parameter, by its position from 0.
std::string ParameterStep(const std::vector<SourceParameter>& parameters, std::size_t position);

/// The name of a callable and the position of its parameter.
struct ParameterPlace {
    SourceIndex::Id Callable = SourceIndex::Nothing;
    std::size_t Position = 0;
};

/// Where a parameter's qualified name leads; nothing when there is no such parameter.
std::optional<ParameterPlace> FindParameter(const SourceIndex& index,
                                            std::string_view qualifiedName);

/// Whether a qualified name is that of a parameter, there or not.
bool IsParameterName(std::string_view qualifiedName);

} // namespace paperkite
