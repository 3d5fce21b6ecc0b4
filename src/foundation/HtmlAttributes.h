#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace paperkite {

/// Walks the attributes of a start tag in HTML source, in order.
///
///     HtmlAttributes attributes(html.substr(token.From, token.To - token.From));
///     while (attributes.Next()) … attributes.Name() … attributes.Value() …
class HtmlAttributes {
public:
    /// The tag from its "<" on.
    explicit HtmlAttributes(std::string_view tag);

    bool Next();
    /// As it is written.
    std::string_view Name() const { return mName; }
    /// Without its quotation marks, entities not decoded; empty for none.
    std::string_view RawValue() const { return mValue; }
    std::string Value() const;

private:
    std::string_view mTag;
    std::size_t mAt = 0;
    std::string_view mName;
    std::string_view mValue;
};

} // namespace paperkite
