#include "model/XmlCheck.h"

#include "foundation/Text.h"
#include "foundation/Unicode.h"
#include "model/XmlWords.h"

#include <algorithm>
#include <array>

#include <pugixml.hpp>

namespace paperkite {

namespace {

/// How deep values are looked at.
constexpr int kDeepest = 500;
constexpr std::array<std::string_view, 5> kEntities = {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;"};

MarkupProblem ProblemAt(std::string_view text, std::size_t offset, std::string what) {
    const std::string_view before = text.substr(0, std::min(offset, text.size()));
    const std::string_view line = before.substr(before.rfind('\n') + 1);
    const auto begins = [](char byte) { return !IsContinuation(byte); };
    return {1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')),
            1 + static_cast<std::size_t>(std::count_if(line.begin(), line.end(), begins)),
            std::move(what)};
}

/// Looks at what the parser lets pass. Values stand in the parsed text itself, as they were typed.
class LooseEnds {
public:
    LooseEnds(std::string_view text, const char* parsed) : mText(text), mParsed(parsed) {}

    std::optional<MarkupProblem> In(const pugi::xml_node& parent, int depth = 0) const {
        if (depth > kDeepest) return {};
        for (const pugi::xml_node& node : parent.children()) {
            if (node.type() == pugi::node_pcdata)
                if (auto problem = InValue(node.value())) return problem;
            if (auto problem = InAttributes(node)) return problem;
            if (auto problem = In(node, depth + 1)) return problem;
        }
        return {};
    }

private:
    std::optional<MarkupProblem> InAttributes(const pugi::xml_node& node) const {
        for (auto attribute = node.first_attribute(); attribute;
             attribute = attribute.next_attribute()) {
            if (node.attribute(attribute.name()) != attribute)
                return ProblemAt(mText, static_cast<std::size_t>(attribute.name() - mParsed),
                                 "The attribute \"" + std::string(attribute.name()) +
                                     "\" is there twice; remove one of them.");
            if (auto problem = InValue(attribute.value())) return problem;
        }
        return {};
    }

    std::optional<MarkupProblem> InValue(const char* value) const {
        const std::string_view text = value;
        for (std::size_t at = text.find('&'); at != text.npos; at = text.find('&', at + 1)) {
            const std::string_view rest = text.substr(at);
            const bool isKnown =
                rest.starts_with("&#") ||
                std::any_of(kEntities.begin(), kEntities.end(),
                            [&](std::string_view entity) { return rest.starts_with(entity); });
            if (isKnown) continue;
            return ProblemAt(mText, static_cast<std::size_t>(value - mParsed) + at,
                             "\"&\" begins an entity that XML does not know; a plain \"&\" is "
                             "written \"&amp;\", any character by its number (\"&#160;\").");
        }
        return {};
    }

    std::string_view mText;
    const char* mParsed;
};

} // namespace

std::optional<MarkupProblem> CheckXml(const std::string& text) {
    constexpr unsigned kAsTyped =
        (pugi::parse_full | pugi::parse_ws_pcdata | pugi::parse_fragment) &
        ~(pugi::parse_escapes | pugi::parse_eol | pugi::parse_wconv_attribute);
    std::string parsed = text;
    parsed.push_back('\0');
    pugi::xml_document document;
    const auto result =
        document.load_buffer_inplace(parsed.data(), text.size(), kAsTyped, pugi::encoding_utf8);
    if (!result)
        return ProblemAt(text, static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, result.offset)),
                         "Here " + WordsFor(result) + ".");
    return LooseEnds(text, parsed.data()).In(document);
}

} // namespace paperkite
