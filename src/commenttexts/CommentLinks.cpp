#include "commenttexts/CommentLinks.h"

#include "foundation/HtmlAttributes.h"
#include "foundation/HtmlText.h"
#include "foundation/HtmlTokens.h"
#include "foundation/Text.h"

#include <optional>

namespace paperkite::CommentLinks {

namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kBlanks = " \t\r\n\f";

std::string InOneLine(std::string_view text) {
    std::string line;
    for (std::size_t at = text.find_first_not_of(kBlanks); at != kNone;
         at = text.find_first_not_of(kBlanks, at)) {
        const std::size_t end = std::min(text.find_first_of(kBlanks, at), text.size());
        if (!line.empty()) line += ' ';
        line += text.substr(at, end - at);
        at = end;
    }
    return line;
}

/// The first one counts, as in a browser.
std::optional<std::string> AddressIn(std::string_view tag) {
    HtmlAttributes attributes(tag);
    while (attributes.Next())
        if (EqualIgnoringCase(attributes.Name(), "href")) return attributes.Value();
    return std::nullopt;
}

} // namespace

bool MayHoldLinks(std::string_view html) {
    for (std::size_t at = html.find('<'); at != kNone; at = html.find('<', at + 1)) {
        if (at + 2 >= html.size()) return false;
        if (html[at + 1] != 'a' && html[at + 1] != 'A') continue;
        const std::string_view behind = html.substr(at + 2);
        if (kBlanks.find(behind[0]) != kNone || behind[0] == '/' ||
            EqualIgnoringCase(behind.substr(0, 3), "rea"))
            return true;
    }
    return false;
}

std::vector<Link> Find(std::string_view html) {
    std::vector<Link> links;
    if (!MayHoldLinks(html)) return links;
    std::size_t captionFrom = kNone;
    const auto close = [&](std::size_t to) {
        if (captionFrom != kNone)
            links.back().Caption =
                InOneLine(HtmlText(html.substr(captionFrom, to - captionFrom)).GetText());
        captionFrom = kNone;
    };
    HtmlTokens tokens(html);
    for (HtmlToken token; tokens.Next(token);) {
        const bool isStart = token.What == HtmlToken::Kind::StartTag;
        if (!isStart && token.What != HtmlToken::Kind::EndTag) continue;
        const bool isAnchor = EqualIgnoringCase(token.Name, "a");
        if (isAnchor) close(token.From);
        if (!isStart || (!isAnchor && !EqualIgnoringCase(token.Name, "area"))) continue;
        auto address = AddressIn(html.substr(token.From, token.To - token.From));
        if (!address) continue;
        // An area inside a link stands for itself; the link's own caption ends there.
        close(token.From);
        links.push_back({std::move(*address), {}});
        if (isAnchor) captionFrom = token.To;
    }
    close(html.size());
    return links;
}

} // namespace paperkite::CommentLinks
