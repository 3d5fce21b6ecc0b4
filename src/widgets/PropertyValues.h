#pragma once

#include "widgets/PropertyItem.h"

#include <optional>
#include <string>
#include <string_view>

/// What the values of typed rows look like as texts.
namespace paperkite::PropertyValues {

struct Date {
    int Year = 0;
    /// From 1.
    int Month = 0;
    int Day = 0;

    bool operator==(const Date&) const = default;
};

/// Reads "2026-12-31"; nothing for a text of another form or a day that no calendar has.
std::optional<Date> ReadDate(std::string_view text);
/// Four, two and two digits with hyphens between them.
std::string DateText(const Date& date);

/// Whether the whole text is a number: a sign, digits with or without a point, an exponent.
bool IsNumber(std::string_view text);
/// The number one higher or lower, as a text; nothing for a text that is none, where an empty one
/// counts as 0.
std::optional<std::string> Stepped(const std::string& text, int step);

/// A text in quotation marks for a sentence; one of more than 80 bytes is cut behind a whole
/// character and ends in "…".
std::string Quoted(const std::string& text);

/// What is wrong with a text as a value of that type, in a sentence that also says how to mend it;
/// empty for a good or empty one.
std::string ProblemWith(PropertyValueType type, const std::string& text);

} // namespace paperkite::PropertyValues
