#include "pagelayout/KeptElements.h"

#include "foundation/Text.h"

#include <cstdlib>

namespace paperkite {

namespace {

constexpr std::string_view kTag = "<!--KITEMETADATA ";
constexpr std::string_view kComment = "<!--";
constexpr std::string_view kStart = "start";
constexpr std::string_view kEnd = "end";
constexpr std::string_view kClose = "-->";

struct Stretch {
    std::size_t Begin = 0;
    std::size_t End = 0;
};

bool BeginsTag(const std::string& html, std::size_t at, std::string_view tag) {
    return EqualIgnoringCase(std::string_view(html).substr(at, tag.size()), tag);
}

// The outermost elements, in the order of the text. A tag without its counterpart is text.
std::vector<Stretch> OutermostElements(const std::string& html) {
    std::vector<Stretch> found;
    std::vector<std::size_t> open;
    for (std::size_t at = html.find(kComment); at != std::string::npos;
         at = html.find(kComment, at)) {
        if (!BeginsTag(html, at, kTag)) {
            at += kComment.size();
            continue;
        }
        const std::size_t close = html.find(kClose, at);
        if (close == std::string::npos) break;
        const std::size_t end = close + kClose.size();
        const std::size_t word = at + kTag.size();
        if (EqualIgnoringCase(html.substr(word, kStart.size()), kStart)) {
            open.push_back(at);
        } else if (EqualIgnoringCase(html.substr(word, kEnd.size()), kEnd) && !open.empty()) {
            while (!found.empty() && found.back().Begin > open.back())
                found.pop_back();
            found.push_back({open.back(), end});
            open.pop_back();
        }
        at = end;
    }
    return found;
}

// Without the blank behind the indentation, which is even.
void DropOddBlank(std::string& text) {
    const std::size_t last = text.find_last_not_of(' ');
    const std::size_t blanks = text.size() - (last == std::string::npos ? 0 : last + 1);
    const bool beginsLine = last == std::string::npos || text[last] == '\n';
    if (beginsLine && blanks % 2 == 1) text.pop_back();
}

} // namespace

std::string KeptElements::Hide(const std::string& html) {
    while (html.find(mPrefix) != std::string::npos)
        mPrefix += '-';
    std::string hidden;
    std::size_t from = 0;
    for (const Stretch& element : OutermostElements(html)) {
        hidden.append(html, from, element.Begin - from);
        hidden += Keep(html.substr(element.Begin, element.End - element.Begin));
        from = element.End;
    }
    return hidden.append(html, from);
}

std::string KeptElements::Keep(std::string source) {
    mSources.push_back(std::move(source));
    return mPrefix + std::to_string(mSources.size()) + std::string(kClose);
}

std::string KeptElements::Restore(const std::string& html) const {
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
        if (first != '!' || html.compare(at, mPrefix.size(), mPrefix) != 0) continue;
        const std::size_t digits = at + mPrefix.size();
        const std::size_t number = std::strtoul(html.c_str() + digits, nullptr, 10);
        const std::size_t close = html.find(kClose, digits);
        if (number < 1 || number > mSources.size() || close == std::string::npos) continue;
        restored.append(html, from, at - from);
        if (!isPreformatted) DropOddBlank(restored);
        restored += mSources[number - 1];
        from = close + kClose.size();
    }
    return restored.append(html, from);
}

} // namespace paperkite
