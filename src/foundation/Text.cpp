#include "foundation/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace paperkite {

namespace {

char Lower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
}

char Upper(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 32) : character;
}

bool SameLetter(char left, char right) {
    return Lower(left) == Lower(right);
}

std::string Trim(std::string_view text, std::string_view blanks) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

template <class Find>
std::string Replace(std::string_view text, std::string_view wanted, std::string_view replacement,
                    Find find) {
    std::string result;
    std::size_t from = 0;
    while (!wanted.empty()) {
        const std::size_t found = find(from);
        if (found == std::string_view::npos) break;
        result.append(text.substr(from, found - from)).append(replacement);
        from = found + wanted.size();
    }
    return result.append(text.substr(from));
}

} // namespace

std::string LowerCase(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), Lower);
    return result;
}

std::string UpperCase(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), Upper);
    return result;
}

int CompareIgnoringCase(std::string_view left, std::string_view right) {
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t at = 0; at < common; ++at) {
        const auto a = static_cast<unsigned char>(Lower(left[at]));
        const auto b = static_cast<unsigned char>(Lower(right[at]));
        if (a != b) return a < b ? -1 : 1;
    }
    return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
}

bool EqualIgnoringCase(std::string_view left, std::string_view right) {
    return left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(), SameLetter);
}

std::size_t FindIgnoringCase(std::string_view text, std::string_view wanted, std::size_t from) {
    if (from > text.size()) return std::string_view::npos;
    if (wanted.empty()) return from;
    const char cases[] = {Lower(wanted[0]), Upper(wanted[0])};
    const auto next = [&](std::size_t behind) {
        // One character is found many bytes at a time.
        return cases[0] == cases[1] ? text.find(cases[0], behind)
                                    : text.find_first_of(std::string_view(cases, 2), behind);
    };
    for (std::size_t at = next(from); at != std::string_view::npos; at = next(at + 1)) {
        if (text.size() - at < wanted.size()) break;
        if (EqualIgnoringCase(text.substr(at, wanted.size()), wanted)) return at;
    }
    return std::string_view::npos;
}

bool ContainsIgnoringCase(std::string_view text, std::string_view wanted) {
    return FindIgnoringCase(text, wanted) != std::string_view::npos;
}

bool EndsWithIgnoringCase(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() &&
           EqualIgnoringCase(text.substr(text.size() - ending.size()), ending);
}

std::string TrimBlanks(std::string_view text) {
    return Trim(text, " ");
}

std::string TrimWhiteSpace(std::string_view text) {
    return Trim(text, " \t\r\n\f\v");
}

double LeadingNumber(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return 0;
    text.remove_prefix(first);
    const bool isSigned = text.front() == '+' || text.front() == '-';
    const std::size_t digit = isSigned ? 1 : 0;
    // The library would read "inf" and "nan" as numbers too.
    if (digit >= text.size() || (text[digit] != '.' && (text[digit] < '0' || text[digit] > '9')))
        return 0;
    // The library knows no plus sign.
    if (text.front() == '+') text.remove_prefix(1);
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

std::string ReplaceAll(std::string_view text, std::string_view wanted,
                       std::string_view replacement) {
    return Replace(text, wanted, replacement,
                   [&](std::size_t from) { return text.find(wanted, from); });
}

std::string ReplaceAllIgnoringCase(std::string_view text, std::string_view wanted,
                                   std::string_view replacement) {
    return Replace(text, wanted, replacement,
                   [&](std::size_t from) { return FindIgnoringCase(text, wanted, from); });
}

std::string Token(std::string_view text, std::string_view separator, std::size_t index) {
    if (index < 1) return {};
    std::size_t from = 0;
    while (true) {
        const std::size_t found =
            separator.empty() ? std::string_view::npos : text.find(separator, from);
        if (--index == 0)
            return std::string(
                text.substr(from, found == std::string_view::npos ? found : found - from));
        if (found == std::string_view::npos) return {};
        from = found + separator.size();
    }
}

std::vector<std::string> Split(std::string_view text, std::string_view separator) {
    std::vector<std::string> fields;
    if (text.empty()) return fields;
    std::size_t from = 0;
    while (true) {
        const std::size_t found =
            separator.empty() ? std::string_view::npos : text.find(separator, from);
        if (found == std::string_view::npos) break;
        fields.emplace_back(text.substr(from, found - from));
        from = found + separator.size();
    }
    fields.emplace_back(text.substr(from));
    return fields;
}

std::string Join(const std::vector<std::string>& fields, std::string_view separator) {
    std::string result;
    for (std::size_t index = 0; index < fields.size(); ++index) {
        if (index > 0) result += separator;
        result += fields[index];
    }
    return result;
}

std::string BeforeColon(std::string_view text) {
    return std::string(text.substr(0, text.find(':')));
}

std::string AfterColon(std::string_view text) {
    const auto colon = text.find(':');
    return colon == std::string_view::npos ? std::string() : std::string(text.substr(colon + 1));
}

std::string NumberText(double value) {
    if (std::isnan(value)) return "NaN";
    std::array<char, 400> buffer;
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value == 0 ? 0.0 : value);
    return std::string(buffer.data(), result.ptr);
}

} // namespace paperkite
