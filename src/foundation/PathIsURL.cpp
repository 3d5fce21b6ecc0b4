#include "foundation/PathIsURL.h"

#include <algorithm>

namespace paperkite {

namespace {

constexpr std::size_t kShortestScheme = 2;

bool IsLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool IsOfScheme(char character) {
    return IsLetter(character) || (character >= '0' && character <= '9') || character == '+' ||
           character == '-' || character == '.';
}

} // namespace

int PathIsURL(std::string_view path) {
    const std::size_t colon = path.find(':');
    if (colon == std::string_view::npos || colon < kShortestScheme) return 0;
    const std::string_view scheme = path.substr(0, colon);
    return IsLetter(scheme.front()) && std::all_of(scheme.begin(), scheme.end(), IsOfScheme);
}

} // namespace paperkite
