#include "model/StoredText.h"

#include "foundation/Text.h"
#include "foundation/Unicode.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace paperkite::StoredText {

namespace {

constexpr std::size_t kLongLine = 90;

std::size_t SequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    if (lead >= 0xF0 && lead < 0xF5) return 4;
    return 0;
}

std::uint32_t CodePoint(std::string_view sequence) {
    static constexpr std::array<unsigned char, 5> kLeadBits{0, 0x7F, 0x1F, 0x0F, 0x07};
    std::uint32_t value = static_cast<unsigned char>(sequence[0]) & kLeadBits[sequence.size()];
    for (std::size_t index = 1; index < sequence.size(); ++index)
        value = (value << 6) | (static_cast<unsigned char>(sequence[index]) & 0x3F);
    return value;
}

bool IsXmlCharacter(std::uint32_t point, std::size_t length) {
    static constexpr std::array<std::uint32_t, 5> kSmallest{0, 0, 0x80, 0x800, 0x10000};
    if (point < kSmallest[length] || point > 0x10FFFF) return false;
    if (point < 0x20) return point == '\t' || point == '\n';
    return !(point >= 0xD800 && point < 0xE000) && point != 0xFFFE && point != 0xFFFF;
}

/// How many bytes at a position are one character that XML can hold; 0 when there is none.
std::size_t XmlCharacterAt(std::string_view text, std::size_t position) {
    const std::size_t length = SequenceLength(static_cast<unsigned char>(text[position]));
    if (length == 0) return 0;
    for (std::size_t index = 1; index < length; ++index)
        if (position + index >= text.size() || !IsContinuation(text[position + index])) return 0;
    return IsXmlCharacter(CodePoint(text.substr(position, length)), length) ? length : 0;
}

std::string HexEscape(unsigned char byte) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    return {'\\', 'x', kDigits[byte >> 4], kDigits[byte & 15]};
}

std::string EscapeBytes(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const char character = text[position];
        if (character == '\\') {
            result += "\\\\";
        } else if (character == '\r') {
            result += "\\r";
        } else if (character == '>' && position >= 2 && text.substr(position - 2, 2) == "]]") {
            result += "\\>";
        } else if (const std::size_t length = XmlCharacterAt(text, position)) {
            result += text.substr(position, length);
            position += length;
            continue;
        } else {
            result += HexEscape(static_cast<unsigned char>(character));
        }
        ++position;
    }
    return result;
}

// Editors and merge tools like to take blanks away from the ends of lines.
void ProtectLineEnd(std::string& line) {
    if (line.ends_with(' '))
        line.replace(line.size() - 1, 1, "\\s");
    else if (line.ends_with('\t'))
        line.replace(line.size() - 1, 1, "\\t");
}

/// Where a tag that ends at `end` (its ">") begins, or npos.
std::size_t TagStart(std::string_view line, std::size_t end) {
    const std::size_t start = line.rfind('<', end);
    return start == std::string_view::npos ||
                   line.substr(start, end - start).find('>') != std::string_view::npos
               ? std::string_view::npos
               : start;
}

bool IsBlockTag(std::string_view tag) {
    static constexpr std::array<std::string_view, 24> kBreakAfter{
        "/p",  "/li", "/ul",  "/ol",    "/dl", "/dt", "/dd",         "/tr",
        "/h1", "/h2", "/h3",  "/h4",    "/h5", "/h6", "/blockquote", "/pre",
        "/td", "/th", "/div", "/table", "br",  "ul",  "ol",          "dl"};
    const std::size_t end = tag.find_first_of(" \t/>", tag.starts_with('/') ? 1 : 0);
    const std::string name = LowerCase(tag.substr(0, end));
    return std::find(kBreakAfter.begin(), kBreakAfter.end(), name) != kBreakAfter.end();
}

bool BreaksBehind(std::string_view line, std::size_t position, bool sentences) {
    if (line[position] == '>') {
        const std::size_t start = TagStart(line, position);
        return start != std::string_view::npos &&
               IsBlockTag(line.substr(start + 1, position - start - 1));
    }
    return sentences && line[position] == ' ' && position > 0 &&
           (line[position - 1] == '.' || line[position - 1] == '!' || line[position - 1] == '?');
}

std::string BreakForReading(std::string_view line) {
    const bool sentences = line.size() > kLongLine;
    std::string result;
    for (std::size_t position = 0; position < line.size(); ++position) {
        result += line[position];
        const bool isLast = position + 1 == line.size();
        if (!isLast && BreaksBehind(line, position, sentences)) result += "\\\n";
    }
    return result;
}

int HexDigit(char character) {
    if (character >= '0' && character <= '9') return character - '0';
    if (character >= 'A' && character <= 'F') return character - 'A' + 10;
    if (character >= 'a' && character <= 'f') return character - 'a' + 10;
    return -1;
}

/// Reads the escape that begins at `position` (a backslash), and says how long it is; 0: none.
std::size_t ReadEscape(std::string_view stored, std::size_t position, std::string& result) {
    if (position + 1 >= stored.size()) return 0;
    switch (stored[position + 1]) {
    case '\\':
        result += '\\';
        return 2;
    case '\n':
        return 2;
    case 'r':
        result += '\r';
        return 2;
    case 'n':
        result += '\n';
        return 2;
    case 't':
        result += '\t';
        return 2;
    case 's':
        result += ' ';
        return 2;
    case '>':
        result += '>';
        return 2;
    case 'x':
        break;
    default:
        return 0;
    }
    if (position + 3 >= stored.size()) return 0;
    const int high = HexDigit(stored[position + 2]);
    const int low = HexDigit(stored[position + 3]);
    if (high < 0 || low < 0) return 0;
    result += static_cast<char>(high * 16 + low);
    return 4;
}

} // namespace

std::string EncodeContent(std::string_view text) {
    std::string result;
    const std::string escaped = EscapeBytes(text);
    for (std::size_t start = 0;;) {
        const std::size_t end = std::min(escaped.find('\n', start), escaped.size());
        std::string line = BreakForReading(std::string_view(escaped).substr(start, end - start));
        ProtectLineEnd(line);
        result += line;
        if (end == escaped.size()) break;
        result += '\n';
        start = end + 1;
    }
    if (result.find('\n') != std::string::npos) return "\n" + result + "\n";
    return result;
}

std::string EncodeAttribute(std::string_view text) {
    return ReplaceAll(ReplaceAll(EscapeBytes(text), "\n", "\\n"), "\t", "\\t");
}

std::string Decode(std::string_view stored) {
    std::string result;
    result.reserve(stored.size());
    for (std::size_t position = 0; position < stored.size();) {
        const std::size_t plain = std::min(stored.find('\\', position), stored.size());
        result.append(stored.substr(position, plain - position));
        position = plain;
        if (position == stored.size()) break;
        const std::size_t length = ReadEscape(stored, position, result);
        if (length == 0) result += '\\';
        position += std::max<std::size_t>(length, 1);
    }
    return result;
}

std::string DecodeContent(std::string_view stored) {
    if (!stored.starts_with('\n')) return Decode(stored);
    stored.remove_prefix(1);
    const std::size_t last = stored.find_last_not_of(" \t");
    if (last != std::string_view::npos && stored[last] == '\n') stored = stored.substr(0, last);
    return Decode(stored);
}

} // namespace paperkite::StoredText
