#include "widgets/WebColours.h"

#include "foundation/Text.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <unordered_map>

namespace paperkite::WebColours {

namespace {

struct Row {
    const char* Name;
    std::uint32_t Rgb;
};

// Two rows differ from what pages mean by their names, and stand as authors know them from this
// list: Alice Blue and Blanche Diamond.
constexpr Row kRows[] = {
    {"Alice Blue", 0xA0CE00},
    {"Antique White", 0xFAEBD7},
    {"Aqua", 0x00FFFF},
    {"Aquamarine", 0x7FFFD4},
    {"Azure", 0xF0FFFF},
    {"Beige", 0xF5F5DC},
    {"Bisque", 0xFFE4C4},
    {"Black", 0x000000},
    {"Blanche Diamond", 0xFFEBCD},
    {"Blue", 0x0000FF},
    {"Blue Violet", 0x8A2BE2},
    {"Brown", 0xA52A2A},
    {"Burlywood", 0xDEB887},
    {"Cadet Blue", 0x5F9EA0},
    {"Chartreuse", 0x7FFF00},
    {"Chocolate", 0xD2691E},
    {"Coral", 0xFF7F50},
    {"Corn Silk", 0xFFF8DC},
    {"Cornflower Blue", 0x6495ED},
    {"Crimson", 0xDC143C},
    {"Dark Blue", 0x00008B},
    {"Dark Cyan", 0x008B8B},
    {"Dark Golden Rod", 0xB8860B},
    {"Dark Green", 0x006400},
    {"Dark Grey", 0xA9A9A9},
    {"Dark Khaki", 0xBDB76B},
    {"Dark Magenta", 0x8B008B},
    {"Dark Olive Green", 0x556B2F},
    {"Dark Orange", 0xFF8C00},
    {"Dark Orchid", 0x9932CC},
    {"Dark Red", 0x8B0000},
    {"Dark Salmon", 0xE9967A},
    {"Dark Sea Green", 0x8FBC8F},
    {"Dark Slate Blue", 0x483D8B},
    {"Dark Slate Grey", 0x2F4F4F},
    {"Dark Turquoise", 0x00CED1},
    {"Dark Violet", 0x9400D3},
    {"Deep Pink", 0xFF1493},
    {"Deep Sky Blue", 0x00BFFF},
    {"Dim Grey", 0x696969},
    {"Dodger Blue", 0x1E90FF},
    {"Fire Brick", 0xB22222},
    {"Floral White", 0xFFFAF0},
    {"Forest Green", 0x228B22},
    {"Gainsboro", 0xDCDCDC},
    {"Ghost White", 0xF8F8FF},
    {"Gold", 0xFFD700},
    {"Golden Rod", 0xDAA520},
    {"Green", 0x008000},
    {"Green Yellow", 0xADFF2F},
    {"Grey", 0x808080},
    {"Honeydew", 0xF0FFF0},
    {"Hot Pink", 0xFF69B4},
    {"Indian Red", 0xCD5C5C},
    {"Indigo", 0x4B0082},
    {"Ivory", 0xFFFFF0},
    {"Khaki", 0xF0E68C},
    {"Lavender", 0xE6E6FA},
    {"Lavender Blush", 0xFFF0F5},
    {"Lemon Chiffon", 0xFFFACD},
    {"Light Blue", 0xADD8E6},
    {"Light Coral", 0xF08080},
    {"Light Cyan", 0xE0FFFF},
    {"Light Golden Rod Yellow", 0xFAFAD2},
    {"Light Green", 0x90EE90},
    {"Light Grey", 0xD3D3D3},
    {"Light Pink", 0xFFB6C1},
    {"Light Salmon", 0xFFA07A},
    {"Light Sea Green", 0x20B2AA},
    {"Light Sky Blue", 0x87CEFA},
    {"Light Slate Grey", 0x778899},
    {"Light Steel Blue", 0xB0C4DE},
    {"Light Yellow", 0xFFFFE0},
    {"Lime", 0x00FF00},
    {"Lime Green", 0x32CD32},
    {"Linen", 0xFAF0E6},
    {"Magenta", 0xFF00FF},
    {"Maroon", 0x800000},
    {"Medium Aqua Marine", 0x66CDAA},
    {"Medium Blue", 0x0000CD},
    {"Medium Orchid", 0xBA55D3},
    {"Medium Purple", 0x9370DB},
    {"Medium Sea Green", 0x3CB371},
    {"Medium Slate Blue", 0x7B68EE},
    {"Medium Spring Green", 0x00FA9A},
    {"Medium Turquoise", 0x48D1CC},
    {"Medium Violet Red", 0xC71585},
    {"Midnight Blue", 0x191970},
    {"Mint Cream", 0xF5FFFA},
    {"Misty Rose", 0xFFE4E1},
    {"Navajo White", 0xFFDEAD},
    {"Navy", 0x000080},
    {"Old Lace", 0xFDF5E6},
    {"Olive", 0x808000},
    {"Olive Drab", 0x6B8E23},
    {"Orange", 0xFFA500},
    {"Orange Red", 0xFF4500},
    {"Orchid", 0xDA70D6},
    {"Pale Golden Rod", 0xEEE8AA},
    {"Pale Green", 0x98FB98},
    {"Pale Turquoise", 0xAFEEEE},
    {"Pale Violet Red", 0xDB7093},
    {"Papaya Whip", 0xFFEFD5},
    {"Peach Puff", 0xFFDAB9},
    {"Peru", 0xCD853F},
    {"Pink", 0xFFC0CB},
    {"Plum", 0xDDA0DD},
    {"Powder Blue", 0xB0E0E6},
    {"Purple", 0x800080},
    {"Red", 0xFF0000},
    {"Rosy Brown", 0xBC8F8F},
    {"Royal Blue", 0x4169E1},
    {"Saddle Brown", 0x8B4513},
    {"Salmon", 0xFA8072},
    {"Sandy Brown", 0xF4A460},
    {"Sea Green", 0x2E8B57},
    {"Sea Shell", 0xFFF5EE},
    {"Sienna", 0xA0522D},
    {"Silver", 0xC0C0C0},
    {"Sky Blue", 0x87CEEB},
    {"Slate Blue", 0x6A5ACD},
    {"Slate Grey", 0x708090},
    {"Snow", 0xFFFAFA},
    {"Spring Green", 0x00FF7F},
    {"Steel Blue", 0x4682B4},
    {"Tan", 0xD2B48C},
    {"Teal", 0x008080},
    {"Thistle", 0xD8BFD8},
    {"Tomato", 0xFF6347},
    {"Turquoise", 0x40E0D0},
    {"Violet", 0xEE82EE},
    {"Wheat", 0xF5DEB3},
    {"White", 0xFFFFFF},
    {"White Smoke", 0xF5F5F5},
    {"Yellow", 0xFFFF00},
    {"Yellow Green", 0x9ACD32},
};

std::int32_t FromRgb(std::uint32_t rgb) {
    return FromComponents({static_cast<int>(rgb >> 16), static_cast<int>((rgb >> 8) & 0xFF),
                           static_cast<int>(rgb & 0xFF)});
}

std::string WithoutBlanks(std::string_view text) {
    return LowerCase(ReplaceAll(text, " ", ""));
}

std::optional<std::int32_t> ReadHexadecimal(std::string_view digits) {
    if (digits.size() != 3 && digits.size() != 6) return {};
    std::string whole;
    for (const char digit : digits)
        whole.append(digits.size() == 3 ? 2 : 1, digit);
    std::uint32_t value = 0;
    const char* end = whole.data() + whole.size();
    const auto [stop, error] = std::from_chars(whole.data(), end, value, 16);
    if (error != std::errc() || stop != end) return {};
    return FromRgb(value);
}

std::optional<std::int32_t> ReadDecimal(std::string_view text) {
    const auto parts = Split(text, ",");
    if (parts.size() != 3) return {};
    std::array<int, 3> values{};
    for (std::size_t at = 0; at < values.size(); ++at) {
        const std::string part = TrimBlanks(parts[at]);
        const char* end = part.data() + part.size();
        const auto [stop, error] = std::from_chars(part.data(), end, values[at]);
        if (error != std::errc() || stop != end || values[at] < 0 || values[at] > 255) return {};
    }
    return FromComponents({values[0], values[1], values[2]});
}

std::optional<std::int32_t> ReadName(std::string_view text) {
    static const auto kByName = [] {
        std::unordered_map<std::string, std::int32_t> byName;
        for (const Named& named : NamedColours())
            byName.emplace(WithoutBlanks(named.Text), named.Color);
        return byName;
    }();
    const auto found = kByName.find(WithoutBlanks(text));
    if (found == kByName.end()) return {};
    return found->second;
}

} // namespace

const std::vector<Named>& NamedColours() {
    static const auto kColours = [] {
        std::vector<Named> colours;
        for (const Row& row : kRows) {
            const std::int32_t colour = FromRgb(row.Rgb);
            colours.push_back({row.Name, std::to_string(colour),
                               Text(colour) + "\n" + ComponentsText(colour), Text(colour), colour});
        }
        return colours;
    }();
    return kColours;
}

std::int32_t FromComponents(const Components& components) {
    return components.Red + 256 * components.Green + 65536 * components.Blue;
}

Components ToComponents(std::int32_t colour) {
    return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

std::string Text(std::int32_t colour) {
    const Components parts = ToComponents(colour);
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "#%02X%02X%02X", parts.Red, parts.Green, parts.Blue);
    return text.data();
}

std::string ComponentsText(std::int32_t colour) {
    const Components parts = ToComponents(colour);
    return std::to_string(parts.Red) + "," + std::to_string(parts.Green) + "," +
           std::to_string(parts.Blue);
}

std::optional<std::int32_t> Read(std::string_view text) {
    const std::string trimmed = TrimWhiteSpace(text);
    if (trimmed.starts_with('#')) return ReadHexadecimal(std::string_view(trimmed).substr(1));
    if (trimmed.find(',') != trimmed.npos) return ReadDecimal(trimmed);
    if (const auto named = ReadName(trimmed)) return named;
    return ReadHexadecimal(trimmed);
}

} // namespace paperkite::WebColours
