#include "platform/html/HtmlNames.h"

#include <algorithm>
#include <iterator>

namespace paperkite {

namespace {

// Sorted, for the search.
constexpr std::string_view kVoid[] = {"area",  "base",  "basefont", "bgsound", "br",    "col",
                                      "embed", "frame", "hr",       "img",     "input", "keygen",
                                      "link",  "meta",  "param",    "source",  "track", "wbr"};
constexpr std::string_view kRaw[] = {"iframe", "noembed", "noframes", "plaintext",
                                     "script", "style",   "xmp"};
constexpr std::string_view kBlocks[] = {
    "address", "article",  "aside",   "base",     "blockquote", "body",       "br",
    "caption", "center",   "col",     "colgroup", "dd",         "details",    "dialog",
    "dir",     "div",      "dl",      "dt",       "fieldset",   "figcaption", "figure",
    "footer",  "form",     "frame",   "frameset", "h1",         "h2",         "h3",
    "h4",      "h5",       "h6",      "head",     "header",     "hgroup",     "hr",
    "html",    "legend",   "li",      "link",     "listing",    "main",       "menu",
    "meta",    "nav",      "ol",      "optgroup", "option",     "p",          "plaintext",
    "pre",     "script",   "section", "style",    "summary",    "table",      "tbody",
    "td",      "template", "tfoot",   "th",       "thead",      "title",      "tr",
    "ul",      "xmp"};

static_assert(std::ranges::is_sorted(kVoid) && std::ranges::is_sorted(kRaw) &&
              std::ranges::is_sorted(kBlocks));

template <std::size_t Count>
bool Holds(const std::string_view (&names)[Count], std::string_view name) {
    return std::binary_search(std::begin(names), std::end(names), name);
}

} // namespace

bool IsVoidElement(std::string_view name) {
    return Holds(kVoid, name);
}

bool HoldsRawText(std::string_view name) {
    return Holds(kRaw, name);
}

bool DropsFirstLineBreak(std::string_view name) {
    return name == "pre" || name == "textarea" || name == "listing";
}

bool IsBlockElement(std::string_view name) {
    return Holds(kBlocks, name);
}

} // namespace paperkite
