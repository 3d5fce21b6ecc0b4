#include "pagelayout/KeptElements.h"

#include "foundation/Error.h"
#include "foundation/Text.h"

#include <algorithm>
#include <charconv>

namespace paperkite {

namespace {

constexpr std::string_view kClose = "-->";
constexpr std::string_view kEscapedClose = "--&gt;";

/// Whether a position is inside an end tag, which repeats what its start tag is called.
bool IsInEndTag(std::string_view html, std::size_t at) {
    const std::string_view before = html.substr(0, at);
    return before.substr(before.rfind('>') + 1).find("</") != std::string_view::npos;
}

std::string StartTagOf(const std::string& source) {
    return source.substr(0, source.find(kClose) + kClose.size());
}

// Without the blank behind the indentation, which is even.
void DropOddBlank(std::string& text) {
    const std::size_t last = text.find_last_not_of(' ');
    const std::size_t blanks = text.size() - (last == std::string::npos ? 0 : last + 1);
    const bool beginsLine = last == std::string::npos || text[last] == '\n';
    if (beginsLine && blanks % 2 == 1) text.pop_back();
}

} // namespace

void RaiseElementLost(const std::string& source) {
    RaiseError(ErrorNumber::InvalidCall,
               "The element " + StartTagOf(source) +
                   " would be lost where it stands. Put it into the head or the body, between "
                   "tags or as an attribute's value in quotation marks");
}

std::string KeptElements::Hide(const Collection<Ref<ParserElement>>& pieces) {
    for (const auto& piece : pieces)
        if (piece->ElementType != kParserTagElement)
            // Behind the "<", which the text may hold in its escaped form.
            while (piece->Text.find(mPrefix.substr(1)) != std::string::npos)
                mPrefix += '-';
    std::string hidden;
    for (const auto& piece : pieces)
        hidden += piece->ElementType == kParserTagElement ? Keep(piece->SourceText) : piece->Text;
    mIsExpected.assign(mSources.size() + 1, true);
    mIsExpected[0] = false;
    return hidden;
}

std::string KeptElements::Keep(std::string source) {
    mSources.push_back(std::move(source));
    return mPrefix + std::to_string(mSources.size()) + std::string(kClose);
}

std::string KeptElements::KeepExpected(std::string source) {
    std::string comment = Keep(std::move(source));
    mIsExpected.resize(mSources.size() + 1);
    mIsExpected.back() = true;
    return comment;
}

std::size_t KeptElements::LengthOf(std::string_view html, std::size_t at,
                                   std::string_view text) const {
    std::size_t from = at;
    while (!text.empty() && from < html.size()) {
        std::size_t end = from;
        const std::size_t number = NumberAt(html, from, end);
        // Only as far as the text can reach, whatever the length of what follows.
        const std::string_view near = html.substr(0, from + text.size() + mPrefix.size());
        // Behind what only begins like a comment of ours.
        const std::size_t next = number > 0 ? from : near.find(mPrefix, from + 1);
        const std::string_view piece =
            number > 0
                ? std::string_view(mSources[number - 1])
                : html.substr(from, std::min(next, html.size()) - from).substr(0, text.size());
        if (!text.starts_with(piece)) return 0;
        text.remove_prefix(piece.size());
        from = number > 0 ? end : from + piece.size();
    }
    return text.empty() ? from - at : 0;
}

void KeptElements::Forget(std::string_view html) {
    if (mIsExpected.size() <= 1) return;
    for (std::size_t at = html.find(mPrefix); at != std::string_view::npos;
         at = html.find(mPrefix, at + 1)) {
        std::size_t end = at;
        const std::size_t number = NumberAt(html, at, end);
        if (number < mIsExpected.size()) mIsExpected[number] = false;
    }
}

std::size_t KeptElements::NumberAt(std::string_view html, std::size_t at, std::size_t& end) const {
    if (html.substr(at, mPrefix.size()) != mPrefix) return 0;
    std::size_t number = 0;
    const char* digits = html.data() + at + mPrefix.size();
    const auto read = std::from_chars(digits, html.data() + html.size(), number);
    end = static_cast<std::size_t>(read.ptr - html.data());
    if (read.ec != std::errc() || number > mSources.size() ||
        html.substr(end, kClose.size()) != kClose)
        return 0;
    end += kClose.size();
    return number;
}

std::string KeptElements::WithBareComments(const std::string& html) const {
    const std::string escaped = "&lt;" + mPrefix.substr(1);
    std::string bare;
    std::size_t from = 0;
    for (std::size_t at = html.find(escaped); at != std::string::npos;
         at = html.find(escaped, at + 1)) {
        const std::size_t digits = at + escaped.size();
        const std::size_t end = std::min(html.find_first_not_of("0123456789", digits), html.size());
        if (html.compare(end, kEscapedClose.size(), kEscapedClose) != 0) continue;
        bare.append(html, from, at - from).append(mPrefix);
        bare.append(html, digits, end - digits).append(kClose);
        from = end + kEscapedClose.size();
    }
    return from == 0 ? html : bare.append(html, from);
}

std::string KeptElements::Restore(const std::string& rewritten) const {
    const std::string html = WithBareComments(rewritten);
    std::vector<bool> found(mSources.size() + 1);
    std::string restored;
    std::size_t from = 0;
    bool isPreformatted = false;
    for (std::size_t at = html.find('<'); at != std::string::npos; at = html.find('<', at + 1)) {
        // Few tags are any of these.
        const char first = at + 1 < html.size() ? html[at + 1] : '\0';
        const bool isEnd = first == '/';
        if (isEnd || first == 'p' || first == 'P' || first == 't' || first == 'T') {
            const std::string_view name = std::string_view(html).substr(at + (isEnd ? 2 : 1), 8);
            if (EqualIgnoringCase(name.substr(0, 3), "pre") || EqualIgnoringCase(name, "textarea"))
                isPreformatted = !isEnd;
        }
        if (first != '!') continue;
        std::size_t end = at;
        const std::size_t number = NumberAt(html, at, end);
        if (number == 0) continue;
        restored.append(html, from, at - from);
        if (!isPreformatted) DropOddBlank(restored);
        restored += mSources[number - 1];
        if (found[number] && IsInEndTag(html, at)) RaiseElementLost(mSources[number - 1]);
        found[number] = true;
        from = end;
    }
    for (std::size_t lost = 1; lost < mIsExpected.size(); ++lost)
        if (mIsExpected[lost] && !found[lost]) RaiseElementLost(mSources[lost - 1]);
    return restored.append(html, from);
}

} // namespace paperkite
