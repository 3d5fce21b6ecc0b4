#include "foundation/Value.h"

#include "foundation/Object.h"
#include "foundation/Text.h"

#include <cmath>
#include <limits>

namespace paperkite {

Value::Value(ValueArray value) : mContent(std::make_shared<const ValueArray>(std::move(value))) {}

Value Value::ArrayOf(std::vector<Value> entries, std::int32_t lower) {
    ValueArray array;
    array.Dimensions.push_back({lower, static_cast<std::int32_t>(entries.size())});
    array.Entries = std::move(entries);
    return Value(std::move(array));
}

Value Value::ArrayOfTexts(const std::vector<std::string>& texts) {
    return ArrayOf(std::vector<Value>(texts.begin(), texts.end()));
}

std::string Value::ToText() && {
    if (auto* text = std::get_if<std::string>(&mContent)) return std::move(*text);
    return static_cast<const Value&>(*this).ToText();
}

std::string Value::ToText() const& {
    if (IsEmpty()) return {};
    if (const auto* text = std::get_if<std::string>(&mContent)) return *text;
    if (const auto* boolean = std::get_if<bool>(&mContent)) return *boolean ? "True" : "False";
    if (const auto* integer = std::get_if<std::int32_t>(&mContent)) return std::to_string(*integer);
    if (const auto* number = std::get_if<double>(&mContent)) return NumberText(*number);
    RaiseError(ErrorNumber::TypeMismatch);
}

double Value::ToNumber() const {
    if (IsEmpty()) return 0;
    if (const auto* text = std::get_if<std::string>(&mContent)) return LeadingNumber(*text);
    if (const auto* boolean = std::get_if<bool>(&mContent)) return *boolean ? -1 : 0;
    if (const auto* integer = std::get_if<std::int32_t>(&mContent)) return *integer;
    if (const auto* number = std::get_if<double>(&mContent)) return *number;
    RaiseError(ErrorNumber::TypeMismatch);
}

std::int32_t Value::ToInteger() const {
    const double rounded = std::nearbyint(ToNumber());
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max()))
        RaiseError(ErrorNumber::Overflow);
    return static_cast<std::int32_t>(rounded);
}

bool Value::ToBoolean() const {
    if (const auto* text = std::get_if<std::string>(&mContent)) {
        if (EqualIgnoringCase(*text, "True")) return true;
        if (EqualIgnoringCase(*text, "False")) return false;
    }
    return ToNumber() != 0;
}

Ref<Object> Value::ToObject() const {
    if (IsEmpty()) return {};
    if (const auto* object = std::get_if<Ref<Object>>(&mContent)) return *object;
    RaiseError(ErrorNumber::TypeMismatch);
}

const ValueArray& Value::ToArray() const {
    if (const auto* array = std::get_if<Array>(&mContent)) return **array;
    RaiseError(ErrorNumber::TypeMismatch);
}

const RecordValue& Value::ToRecord() const {
    if (const auto* record = std::get_if<RecordValue>(&mContent)) return *record;
    RaiseError(ErrorNumber::TypeMismatch);
}

} // namespace paperkite
