#pragma once

namespace paperkite {

/// Major, minor and revision of this library, as reports and the program show them.
inline constexpr const char* kVersion = "4.0.1";

} // namespace paperkite
