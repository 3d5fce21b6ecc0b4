#include "foundation/HtmlAttributes.h"

#include "foundation/HtmlEntities.h"
#include "foundation/Unicode.h"

#include <algorithm>

namespace paperkite {

namespace {

constexpr std::string_view kBlanks = " \t\r\n\f";

std::size_t FirstOf(std::string_view text, std::string_view wanted, std::size_t from) {
    return std::min(text.find_first_of(wanted, from), text.size());
}

std::size_t FirstNotOf(std::string_view text, std::string_view skipped, std::size_t from) {
    return std::min(text.find_first_not_of(skipped, from), text.size());
}

} // namespace

HtmlAttributes::HtmlAttributes(std::string_view tag)
    : mTag(tag), mAt(FirstOf(tag, " \t\r\n\f/>", 1)) {}

bool HtmlAttributes::Next() {
    mAt = FirstNotOf(mTag, " \t\r\n\f/", mAt);
    mValue = {};
    if (mAt >= mTag.size() || mTag[mAt] == '>') return false;
    const std::size_t end = FirstOf(mTag, " \t\r\n\f/>=", mAt + 1);
    mName = mTag.substr(mAt, end - mAt);
    mAt = end;
    std::size_t sign = FirstNotOf(mTag, kBlanks, end);
    if (sign >= mTag.size() || mTag[sign] != '=') return true;
    const std::size_t value = FirstNotOf(mTag, kBlanks, sign + 1);
    if (value < mTag.size() && (mTag[value] == '"' || mTag[value] == '\'')) {
        const std::size_t close = FirstOf(mTag, mTag.substr(value, 1), value + 1);
        mValue = mTag.substr(value + 1, close - value - 1);
        mAt = std::min(close + 1, mTag.size());
    } else {
        mAt = FirstOf(mTag, " \t\r\n\f>", value);
        mValue = mTag.substr(value, mAt - value);
    }
    return true;
}

std::string HtmlAttributes::Value() const {
    std::string value;
    for (std::size_t at = 0; at < mValue.size();) {
        const std::size_t sign = FirstOf(mValue, "&", at);
        value.append(mValue.substr(at, sign - at));
        at = sign;
        if (at >= mValue.size()) break;
        const auto entity = ReadEntity(mValue, at, true);
        if (entity)
            AppendCharacter(value, entity->Character);
        else
            value += '&';
        at += entity ? entity->Length : 1;
    }
    return value;
}

} // namespace paperkite
