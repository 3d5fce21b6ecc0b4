#pragma once

#include "doctypes/source/SourceDeclaration.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// The declarations of one file as bytes, without the number of the file: what passes from those
/// who read files to the one who builds the index, and what is kept between two scans.
std::string EncodeDeclarations(const std::vector<SourceDeclaration>& declarations);

/// Hands out one declaration after the other; the same object every time. False when the bytes
/// cannot be right; what was handed out until then is not to be used either.
bool DecodeDeclarations(std::string_view bytes, std::uint32_t file,
                        const std::function<void(const SourceDeclaration&)>& visit);

} // namespace paperkite
