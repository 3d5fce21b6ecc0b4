#include "widgets/PropertyValues.h"

#include "foundation/Text.h"
#include "foundation/Unicode.h"
#include "widgets/WebColours.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace paperkite::PropertyValues {

namespace {

/// The number that the digits make; nothing when there is anything else among them.
std::optional<int> ReadDigits(std::string_view text) {
    int value = 0;
    for (const char character : text) {
        if (character < '0' || character > '9') return {};
        value = value * 10 + (character - '0');
    }
    return value;
}

int DaysIn(int year, int month) {
    constexpr std::array<int, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

std::optional<double> ReadNumber(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    if (!whole || !std::isfinite(value)) return {};
    return value;
}

/// Longer texts are cut in sentences.
constexpr std::size_t kMostShown = 80;

} // namespace

std::string Quoted(const std::string& text) {
    return "\"" + Shortened(text, kMostShown) + "\"";
}

std::optional<Date> ReadDate(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return {};
    const auto year = ReadDigits(text.substr(0, 4));
    const auto month = ReadDigits(text.substr(5, 2));
    const auto day = ReadDigits(text.substr(8, 2));
    if (!year || !month || !day || *year < 1 || *month < 1 || *month > 12) return {};
    if (*day < 1 || *day > DaysIn(*year, *month)) return {};
    return Date{*year, *month, *day};
}

std::string DateText(const Date& date) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", date.Year, date.Month, date.Day);
    return text.data();
}

bool IsNumber(std::string_view text) {
    // A second sign would be read behind the plus.
    return ReadNumber(text).has_value() && !text.starts_with("+-") && !text.starts_with("++");
}

std::optional<std::string> Stepped(const std::string& text, int step) {
    if (text.empty()) return NumberText(step);
    if (!IsNumber(text)) return {};
    return NumberText(*ReadNumber(text) + step);
}

std::string ProblemWith(PropertyValueType type, const std::string& text) {
    if (text.empty()) return {};
    switch (type) {
    case PropertyValueType::Number:
        if (IsNumber(text)) return {};
        return Quoted(text) + " is no number. Type digits, such as 12.";
    case PropertyValueType::Date:
        if (ReadDate(text)) return {};
        return Quoted(text) + " is no date. Type year, month and day, such as 2026-12-31.";
    case PropertyValueType::Boolean:
        if (EqualIgnoringCase(text, "true") || EqualIgnoringCase(text, "false")) return {};
        return Quoted(text) + " is neither true nor false. Choose one of the two.";
    case PropertyValueType::Color:
        if (WebColours::Read(text)) return {};
        return Quoted(text) + " is no color. Type a name, such as Teal, or #008080.";
    default:
        return {};
    }
}

} // namespace paperkite::PropertyValues
