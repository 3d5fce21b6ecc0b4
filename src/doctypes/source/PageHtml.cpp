#include "doctypes/source/PageHtml.h"

#include "doctypes/source/ParameterList.h"
#include "foundation/HtmlText.h"
#include "foundation/Text.h"
#include "widgets/CodeColouring.h"

#include <algorithm>
#include <array>

namespace paperkite::PageHtml {

namespace {

constexpr std::size_t kLongestSentence = 240;

bool IsBlank(std::string_view line) {
    return Trimmed(line).empty();
}

bool IsNotice(std::string_view line) {
    constexpr std::array<std::string_view, 4> words = {"copyright", "spdx-", "licensed under",
                                                       "all rights reserved"};
    return std::any_of(words.begin(), words.end(),
                       [&](std::string_view word) { return ContainsIgnoringCase(line, word); });
}

/// "\brief", "@short" and the like say nothing themselves; a line of another command is none of a
/// description.
std::string_view WithoutCommand(std::string_view line) {
    if (!line.starts_with('\\') && !line.starts_with('@')) return line;
    const std::string_view command = line.substr(1, line.find_first_of(" \t") - 1);
    if (command != "brief" && command != "short") return {};
    return Trimmed(line.substr(std::min(line.size(), command.size() + 1)));
}

std::size_t EndOfSentence(std::string_view text) {
    for (std::size_t at = text.find('.'); at != text.npos; at = text.find('.', at + 1))
        if (at + 1 == text.size() || text[at + 1] == ' ') return at + 1;
    return text.size();
}

/// Whether an address leads to another page of the documentation.
bool IsPageAddress(std::string_view address) {
    if (address.empty() || address.front() == '#') return false;
    const std::size_t colon = address.find(':');
    return colon == address.npos || address.find_first_of("/?#") < colon;
}

struct Range {
    std::size_t From = std::string::npos;
    std::size_t To = 0;
};

/// The attribute "href" of a tag, with the blank before it, and its value.
Range FindHref(std::string_view tag, std::string_view& value) {
    std::size_t at = FindIgnoringCase(tag, "href");
    for (; at != tag.npos; at = FindIgnoringCase(tag, "href", at + 1)) {
        if (std::string_view(" \t\r\n").find(tag[at - 1]) == std::string_view::npos) continue;
        std::size_t from = tag.find_first_not_of(" \t\r\n", at + 4);
        if (from == tag.npos || tag[from] != '=') continue;
        from = tag.find_first_not_of(" \t\r\n", from + 1);
        if (from == tag.npos) continue;
        const bool isQuoted = tag[from] == '"' || tag[from] == '\'';
        const std::size_t to = isQuoted ? tag.find(tag[from], from + 1)
                                        : std::min(tag.find_first_of(" \t\r\n>", from), tag.size());
        if (to == tag.npos) continue;
        value = tag.substr(from + (isQuoted ? 1 : 0), to - from - (isQuoted ? 1 : 0));
        return {at - 1, to + (isQuoted ? 1 : 0)};
    }
    return {};
}

char ClassOf(CodePart part) {
    switch (part) {
    case CodePart::Keyword:
    case CodePart::Tag:
        return 'k';
    case CodePart::Text:
        return 's';
    case CodePart::Comment:
        return 'c';
    case CodePart::Number:
        return 'n';
    case CodePart::Directive:
    case CodePart::Attribute:
        return 'd';
    case CodePart::Plain:
        break;
    }
    return 'p';
}

std::string ColouredLine(std::string_view line, const CodeColouring& colouring, int& state) {
    std::string out;
    std::size_t written = 0;
    for (const CodeStretch& stretch : colouring.Line(line, state)) {
        out += Escaped(line.substr(written, stretch.Start - written));
        out += std::string("<span class=\"") + ClassOf(stretch.Part) + "\">" +
               Escaped(line.substr(stretch.Start, stretch.Length)) + "</span>";
        written = stretch.Start + stretch.Length;
    }
    return out + Escaped(line.substr(written));
}

} // namespace

std::string Escaped(std::string_view text) {
    return ReplaceAll(HtmlText::Escaped(text), "\"", "&quot;");
}

std::string Code(std::string_view code, const std::string& fileName) {
    const CodeColouring colouring(fileName);
    std::string out = "<pre class=\"example\"><code>";
    int state = 0;
    for (std::size_t from = 0; from < code.size();) {
        const std::size_t end = std::min(code.find('\n', from), code.size());
        out += ColouredLine(code.substr(from, end - from), colouring, state);
        if (end < code.size()) out += '\n';
        from = end + 1;
    }
    return out + "</code></pre>";
}

std::string Paragraphs(const std::vector<std::string>& lines) {
    std::string out;
    bool isOpen = false;
    for (const std::string& line : lines) {
        if (IsBlank(line)) {
            if (isOpen) out += "</p>\n";
            isOpen = false;
            continue;
        }
        out += isOpen ? "\n" : "<p>";
        out += Escaped(line);
        isOpen = true;
    }
    return isOpen ? out + "</p>\n" : out;
}

std::string FirstSentence(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        if (IsNotice(line)) return {};
        if (IsBlank(line)) {
            if (!text.empty()) break;
            continue;
        }
        const std::string_view said = WithoutCommand(Trimmed(line));
        if (said.empty()) {
            if (!text.empty()) break;
            continue;
        }
        text += (text.empty() ? "" : " ") + std::string(said);
        if (EndOfSentence(text) < text.size() || text.size() > kLongestSentence) break;
    }
    text.resize(EndOfSentence(text));
    if (text.size() <= kLongestSentence) return Escaped(text);
    const std::size_t cut = text.rfind(' ', kLongestSentence);
    if (cut == std::string::npos) return {};
    return Escaped(text.substr(0, cut)) + " …";
}

std::string Address(std::string_view fileName) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string out;
    for (const char character : fileName) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte <= 0x20 || std::string_view("#?\"<>").find(character) != std::string_view::npos) {
            out += '%';
            out += digits[byte >> 4];
            out += digits[byte & 15];
        } else {
            out += character;
        }
    }
    return out;
}

std::string WithoutPageLinks(const std::string& html) {
    std::string out;
    std::size_t written = 0;
    for (std::size_t at = html.find('<'); at != html.npos; at = html.find('<', at + 1)) {
        const std::string_view rest = std::string_view(html).substr(at);
        if (rest.size() < 3 || (rest[1] != 'a' && rest[1] != 'A') ||
            std::string_view(" \t\r\n").find(rest[2]) == std::string_view::npos)
            continue;
        const std::string_view tag = rest.substr(0, rest.find('>'));
        std::string_view value;
        const Range href = FindHref(tag, value);
        if (href.From == html.npos || !IsPageAddress(value)) continue;
        out.append(html, written, at + href.From - written);
        written = at + href.To;
    }
    return out.append(html, written);
}

} // namespace paperkite::PageHtml
