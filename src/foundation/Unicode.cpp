#include "foundation/Unicode.h"

#include <algorithm>
#include <iterator>

namespace paperkite {

namespace {

struct Range {
    char32_t First;
    char32_t Last;
};

// Characters from U+00A0 on that belong to no word: signs, punctuation, blanks and pictures.
constexpr Range kNoWord[] = {
    {0x00A0, 0x00A9}, {0x00AB, 0x00B1}, {0x00B4, 0x00B4},   {0x00B6, 0x00B8},   {0x00BB, 0x00BF},
    {0x00D7, 0x00D7}, {0x00F7, 0x00F7}, {0x02C2, 0x02C5},   {0x02D2, 0x02DF},   {0x0375, 0x0375},
    {0x037E, 0x037E}, {0x0384, 0x0385}, {0x0387, 0x0387},   {0x0482, 0x0482},   {0x055A, 0x055F},
    {0x0589, 0x058F}, {0x05BE, 0x05BE}, {0x05C0, 0x05C0},   {0x05C3, 0x05C3},   {0x05F3, 0x05F4},
    {0x0600, 0x060F}, {0x061B, 0x061F}, {0x066A, 0x066D},   {0x06D4, 0x06D4},   {0x0964, 0x0965},
    {0x0E3F, 0x0E3F}, {0x0E5A, 0x0E5B}, {0x1680, 0x1680},   {0x2000, 0x203E},   {0x2041, 0x2053},
    {0x2055, 0x2070}, {0x207A, 0x207E}, {0x208A, 0x208F},   {0x20A0, 0x20CF},   {0x2190, 0x24B5},
    {0x2500, 0x2BFF}, {0x2E00, 0x2E7F}, {0x3000, 0x3004},   {0x3008, 0x3020},   {0x3030, 0x3030},
    {0x303D, 0x303F}, {0x30A0, 0x30A0}, {0x30FB, 0x30FB},   {0xD800, 0xF8FF},   {0xFE10, 0xFE1F},
    {0xFE30, 0xFE6F}, {0xFEFF, 0xFEFF}, {0xFF00, 0xFF0F},   {0xFF1A, 0xFF20},   {0xFF3B, 0xFF40},
    {0xFF5B, 0xFF65}, {0xFFE0, 0xFFFF}, {0x1F000, 0x1FAFF}, {0xE0000, 0x10FFFF}};

constexpr Range kDigits[] = {{'0', '9'},       {0x0660, 0x0669}, {0x06F0, 0x06F9},
                             {0x0966, 0x096F}, {0x0E50, 0x0E59}, {0xFF10, 0xFF19}};

template <std::size_t Count>
bool Holds(const Range (&ranges)[Count], char32_t character) {
    const auto* after =
        std::upper_bound(std::begin(ranges), std::end(ranges), character,
                         [](char32_t wanted, const Range& range) { return wanted < range.First; });
    return after != std::begin(ranges) && character <= std::prev(after)->Last;
}

/// Blocks in which an even number is the capital of the next one.
constexpr Range kEvenCapitals[] = {{0x0100, 0x0137}, {0x014A, 0x0177}, {0x01DE, 0x01EF},
                                   {0x01F8, 0x021F}, {0x0222, 0x0233}, {0x03D8, 0x03EF},
                                   {0x0460, 0x0481}, {0x048A, 0x04BF}, {0x04D0, 0x052F},
                                   {0x1E00, 0x1E95}, {0x1EA0, 0x1EFF}};
/// The same with odd capitals.
constexpr Range kOddCapitals[] = {
    {0x0139, 0x0148}, {0x0179, 0x017E}, {0x01CD, 0x01DC}, {0x04C1, 0x04CE}};

/// A stretch of capitals whose small letters stand that much further on.
struct Shifted {
    char32_t First;
    char32_t Last;
    char32_t By;
};

constexpr Shifted kShifted[] = {{'A', 'Z', 32},       {0x00C0, 0x00D6, 32}, {0x00D8, 0x00DE, 32},
                                {0x0388, 0x038A, 37}, {0x038E, 0x038F, 63}, {0x0391, 0x03A1, 32},
                                {0x03A3, 0x03AB, 32}, {0x0400, 0x040F, 80}, {0x0410, 0x042F, 32},
                                {0x0531, 0x0556, 48}, {0x0386, 0x0386, 38}, {0x038C, 0x038C, 64},
                                {0x04C0, 0x04C0, 15}, {0xFF21, 0xFF3A, 32}};

char32_t FoldBeyondAscii(char32_t character) {
    if (Holds(kEvenCapitals, character)) {
        // The dotted and dotless letters are nobody's pair.
        if (character == 0x130 || character == 0x131) return character;
        return character | 1;
    }
    if (Holds(kOddCapitals, character)) return character + (character & 1);
    if (character == 0x178) return 0xFF;
    if (character == 0x3C2) return 0x3C3; // the sigma at a word's end
    for (const Shifted& stretch : kShifted)
        if (character >= stretch.First && character <= stretch.Last) return character + stretch.By;
    return character;
}

/// Small letters that no capital in these tables leads to, such as the sharp s.
bool IsLoneSmallLetter(char32_t character) {
    return character == 0xDF || character == 0x131 || character == 0x138 || character == 0x149 ||
           character == 0x17F || character == 0x390 || character == 0x3B0 || character == 0x3C2;
}

} // namespace

char32_t NextCharacter(std::string_view text, std::size_t& at) {
    const auto first = static_cast<unsigned char>(text[at++]);
    if (first < 0x80) return first;
    if (first < 0xC2 || first > 0xF4) return kReplacementCharacter;
    const int more = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
    char32_t character = first & (0x3F >> more);
    for (int taken = 0; taken < more; ++taken) {
        if (at >= text.size() || !IsContinuation(text[at])) return kReplacementCharacter;
        const char32_t grown = (character << 6) | (static_cast<unsigned char>(text[at]) & 0x3F);
        const bool isRefused =
            taken == 0 && ((more == 2 && (grown < 0x20 || (grown >= 0x360 && grown < 0x380))) ||
                           (more == 3 && (grown < 0x10 || grown >= 0x110)));
        if (isRefused) return kReplacementCharacter;
        character = grown;
        ++at;
    }
    return character;
}

char32_t PreviousCharacter(std::string_view text, std::size_t& at) {
    std::size_t first = at - 1;
    while (first > 0 && at - first < 4 && IsContinuation(text[first]))
        --first;
    std::size_t end = first;
    const char32_t character = NextCharacter(text.substr(0, at), end);
    if (end == at) {
        at = first;
        return character;
    }
    --at;
    return kReplacementCharacter;
}

std::string Shortened(std::string_view text, std::size_t most) {
    if (text.size() <= most) return std::string(text);
    while (most > 0 && IsContinuation(text[most]))
        --most;
    return std::string(text.substr(0, most)) + "…";
}

void AppendCharacter(std::string& text, char32_t character) {
    if (character > 0x10FFFF || (character >= 0xD800 && character <= 0xDFFF))
        character = kReplacementCharacter;
    const auto add = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80) return add(character);
    if (character < 0x800) {
        add(0xC0 | (character >> 6));
    } else if (character < 0x10000) {
        add(0xE0 | (character >> 12));
        add(0x80 | ((character >> 6) & 0x3F));
    } else {
        add(0xF0 | (character >> 18));
        add(0x80 | ((character >> 12) & 0x3F));
        add(0x80 | ((character >> 6) & 0x3F));
    }
    add(0x80 | (character & 0x3F));
}

std::string AsUtf8(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t from = at;
        const char32_t character = NextCharacter(text, at);
        if (character == kReplacementCharacter)
            AppendCharacter(result, character);
        else
            result.append(text, from, at - from);
    }
    return result;
}

bool HoldsOnlyUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        if (static_cast<unsigned char>(text[at]) < 0x80) {
            ++at;
            continue;
        }
        const std::size_t from = at;
        if (NextCharacter(text, at) == kReplacementCharacter &&
            text.substr(from, at - from) != "\xEF\xBF\xBD")
            return false;
    }
    return true;
}

bool IsLetterOrDigit(char32_t character) {
    if (character < 0x80)
        return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
               (character >= '0' && character <= '9');
    return character >= 0xAA && !Holds(kNoWord, character);
}

bool IsDigit(char32_t character) {
    return Holds(kDigits, character);
}

bool IsWhiteSpace(char32_t character) {
    return character == ' ' || (character >= 9 && character <= 13) || character == 0x85 ||
           character == 0xA0 || character == 0x1680 ||
           (character >= 0x2000 && character <= 0x200A) || character == 0x2028 ||
           character == 0x2029 || character == 0x202F || character == 0x205F || character == 0x3000;
}

char32_t FoldCase(char32_t character) {
    if (character < 0x80) return character >= 'A' && character <= 'Z' ? character + 32 : character;
    return character < 0xC0 ? character : FoldBeyondAscii(character);
}

bool IsUpperCase(char32_t character) {
    return character == 0x130 || (FoldCase(character) != character && character != 0x3C2);
}

bool IsLowerCase(char32_t character) {
    if (character < 0x80) return character >= 'a' && character <= 'z';
    if (IsLoneSmallLetter(character)) return true;
    if (FoldCase(character) != character || character < 0xC0) return false;
    if (Holds(kEvenCapitals, character) || Holds(kOddCapitals, character) || character == 0xFF)
        return true;
    return std::any_of(std::begin(kShifted), std::end(kShifted), [&](const Shifted& stretch) {
        return character >= stretch.First + stretch.By && character <= stretch.Last + stretch.By;
    });
}

} // namespace paperkite
