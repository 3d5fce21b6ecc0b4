#include "pagelayout/LayoutText.h"

#include "foundation/HtmlTokens.h"
#include "foundation/Text.h"

#include <algorithm>

namespace paperkite {

namespace {

constexpr std::string_view kHelpNamespace = "http://msdn.microsoft.com/mshelp";
constexpr std::size_t kNone = std::string_view::npos;

bool BeginsWith(std::string_view text, std::string_view beginning) {
    return EqualIgnoringCase(text.substr(0, beginning.size()), beginning);
}

std::size_t BehindBlanks(std::string_view text, std::size_t from) {
    return std::min(text.find_first_not_of(' ', from), text.size());
}

/// The blanks around an equals sign that are too many, or an empty range.
struct Equals {
    std::size_t From = 0;
    std::size_t Sign = 0;
    std::size_t To = 0;

    bool IsLoose() const { return Sign > From || To > Sign + 1; }
};

/// What stands between the name of the attribute and its value; empty unless the value is the
/// help namespace in quotation marks.
Equals EqualsBehind(std::string_view html, std::size_t name) {
    const std::size_t sign = BehindBlanks(html, name);
    if (sign >= html.size() || html[sign] != '=') return {};
    const std::size_t value = BehindBlanks(html, sign + 1);
    if (value >= html.size() || (html[value] != '"' && html[value] != '\'')) return {};
    const std::size_t end = value + 1 + kHelpNamespace.size();
    if (!BeginsWith(html.substr(value + 1), kHelpNamespace) ||
        html.substr(end, 1) != html.substr(value, 1))
        return {};
    return {name, sign, value};
}

/// The next loose equals sign of the attribute, inside a tag or not.
Equals NextLoose(std::string_view html, std::size_t from) {
    constexpr std::string_view kName = "xmlns:mshelp";
    constexpr std::size_t kColon = 5;
    for (std::size_t colon = html.find(':', from); colon != kNone;
         colon = html.find(':', colon + 1)) {
        if (colon < kColon || !BeginsWith(html.substr(colon - kColon), kName)) continue;
        const Equals equals = EqualsBehind(html, colon - kColon + kName.size());
        if (equals.IsLoose()) return equals;
    }
    return {};
}

} // namespace

bool BeginsBody(std::string_view text) {
    return ContainsIgnoringCase(text, "<body ") || ContainsIgnoringCase(text, "<body>");
}

bool EndsBetweenCells(std::string_view text) {
    constexpr std::size_t kLongest = 5;
    std::size_t at = text.rfind('<');
    if (at == kNone) return false;
    // Line breaks of two characters and blanks at the end do not count.
    std::string cut;
    for (; at < text.size() && cut.size() < kLongest; ++at) {
        if (text.substr(at, 2) == "\r\n")
            ++at;
        else
            cut += text[at];
    }
    const std::string_view rest = text.substr(at);
    if (ReplaceAll(rest, "\r\n", "").find_first_not_of(' ') == std::string::npos)
        cut.erase(cut.find_last_not_of(' ') + 1);
    return BeginsWith(cut, "</td>") || BeginsWith(cut, "<tr>") || BeginsWith(cut, "<tr ");
}

std::string WithoutAddedTitles(const std::string& html) {
    constexpr std::string_view kTitle = "<title></title>\n";
    constexpr std::string_view kBlanks = "        ";
    std::string result;
    std::size_t written = 0;
    const std::string_view text = html;
    for (std::size_t at = text.find('<'); at != kNone; at = text.find('<', at + 1)) {
        const bool isTitle = at >= written + kBlanks.size() &&
                             BeginsWith(text.substr(at), kTitle) &&
                             text.substr(at - kBlanks.size(), kBlanks.size()) == kBlanks;
        if (!isTitle) continue;
        result.append(text, written, at - kBlanks.size() - written);
        written = at + kTitle.size();
    }
    return result.append(text, written, kNone);
}

std::string WithTightHelpNamespace(const std::string& html) {
    Equals loose = NextLoose(html, 0);
    if (!loose.IsLoose()) return html;
    std::string result;
    std::size_t written = 0;
    HtmlTokens tokens(html);
    for (HtmlToken token; loose.IsLoose() && tokens.Next(token);) {
        while (loose.IsLoose() && loose.From < token.To) {
            // In running text it is an example, not an attribute.
            if (token.What == HtmlToken::Kind::StartTag) {
                result.append(html, written, loose.From - written) += '=';
                written = loose.To;
            }
            loose = NextLoose(html, loose.To);
        }
    }
    return result.append(html, written, std::string::npos);
}

} // namespace paperkite
