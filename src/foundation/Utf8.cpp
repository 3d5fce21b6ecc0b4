#include "foundation/Utf8.h"

#include <algorithm>

namespace paperkite {

std::size_t Utf8CharacterLength(std::string_view text) {
    if (text.empty()) {
        return 0;
    }
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(0);
    if (first < 0x80) {
        return 1;
    }
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length) {
        return 0;
    }
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) {
            return 0;
        }
    }
    const unsigned char second = byte(1);
    const bool isBad = (first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
                       (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F);
    return isBad ? 0 : length;
}

bool IsValidUtf8(std::string_view text) {
    while (!text.empty()) {
        if (static_cast<unsigned char>(text[0]) < 0x80) {
            text.remove_prefix(1);
            continue;
        }
        const std::size_t length = Utf8CharacterLength(text);
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

bool IsPrintableUtf8(std::string_view text) {
    return std::none_of(text.begin(), text.end(),
                        [](unsigned char c) { return c < 0x20 || c == 0x7F; }) &&
           IsValidUtf8(text);
}

std::string PrintableUtf8(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t length = Utf8CharacterLength(text);
        const unsigned char first = static_cast<unsigned char>(text[0]);
        if (length == 0 || first < 0x20 || first == 0x7F) {
            result += "\xEF\xBF\xBD";
        } else {
            result += text.substr(0, length);
        }
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return result;
}

} // namespace paperkite
