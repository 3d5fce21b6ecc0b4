#pragma once

#include <cctype>

namespace paperkite {

/// Whether a character may stand in a name, in any of the languages; bytes of UTF-8 letters do.
inline bool IsNameCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '$' ||
           static_cast<unsigned char>(c) >= 0x80;
}

} // namespace paperkite
