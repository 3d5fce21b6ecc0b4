#include "commenttexts/KeywordList.h"

#include "commenttexts/PlainText.h"
#include "foundation/Text.h"

#include <algorithm>
#include <utility>

namespace paperkite {

namespace {

constexpr std::string_view kBetweenLevels = " > ";

/// With one blank wherever there was any white space.
std::string WithSingleBlanks(std::string_view text) {
    std::string single;
    for (const char letter : text) {
        const bool isBlank = letter == ' ' || letter == '\t' || letter == '\n' || letter == '\r';
        if (!isBlank)
            single += letter;
        else if (!single.empty() && single.back() != ' ')
            single += ' ';
    }
    return TrimWhiteSpace(single);
}

bool ComesBefore(const std::string& left, const std::string& right) {
    return CompareIgnoringCase(left, right) < 0;
}

/// The keywords of a text or of what is typed, in order, repeated ones too.
std::vector<std::string> KeywordsOf(std::string_view text) {
    std::vector<std::string> keywords;
    for (const std::string& line : PlainText::Lines(text))
        for (const std::string& part : Split(line, ","))
            if (std::string keyword = KeywordList::Normal(part); !keyword.empty())
                keywords.push_back(std::move(keyword));
    return keywords;
}

} // namespace

std::optional<KeywordList> KeywordList::Read(std::string_view text) {
    if (!PlainText::IsPlain(text)) return {};
    KeywordList list;
    for (std::string& keyword : KeywordsOf(text))
        if (list.Find(keyword) == list.mKeywords.end()) list.mKeywords.push_back(keyword);
    return list;
}

std::string KeywordList::Write() const {
    return Join(mKeywords, "\n");
}

std::vector<std::string> KeywordList::Add(std::string_view typed) {
    std::vector<std::string> repeated;
    for (const std::string& keyword : KeywordsOf(typed)) {
        if (Find(keyword) != mKeywords.end())
            repeated.push_back(keyword);
        else
            mKeywords.insert(mKeywords.begin() + static_cast<std::ptrdiff_t>(PlaceFor(keyword)),
                             keyword);
    }
    return repeated;
}

bool KeywordList::Change(std::size_t position, std::string_view keyword) {
    const std::string normal = Normal(ReplaceAll(keyword, ",", " "));
    const auto found = Find(normal);
    const auto place = mKeywords.begin() + static_cast<std::ptrdiff_t>(position);
    if (normal.empty() || (found != mKeywords.end() && found != place)) return false;
    mKeywords[position] = normal;
    return true;
}

void KeywordList::Remove(std::size_t position) {
    mKeywords.erase(mKeywords.begin() + static_cast<std::ptrdiff_t>(position));
}

std::string KeywordList::Normal(std::string_view keyword) {
    return Join(Levels(keyword), kBetweenLevels);
}

// A sign that touches its neighbours on both sides belongs to a word, such as "operator>>".
std::vector<std::string> KeywordList::Levels(std::string_view keyword) {
    std::vector<std::string> levels;
    const std::string line = " " + WithSingleBlanks(keyword) + " ";
    std::string level;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const bool isLone = line[at] == '>' && at > 0 && at + 1 < line.size() &&
                            line[at - 1] == ' ' && line[at + 1] == ' ';
        if (isLone)
            levels.push_back(TrimWhiteSpace(std::exchange(level, {})));
        else
            level += line[at];
    }
    levels.push_back(TrimWhiteSpace(level));
    std::erase_if(levels, [](const std::string& text) { return text.empty(); });
    return levels;
}

std::vector<std::string>::const_iterator KeywordList::Find(const std::string& keyword) const {
    return std::find_if(mKeywords.begin(), mKeywords.end(), [&](const std::string& other) {
        return EqualIgnoringCase(other, keyword);
    });
}

std::size_t KeywordList::PlaceFor(const std::string& keyword) const {
    if (!std::is_sorted(mKeywords.begin(), mKeywords.end(), ComesBefore)) return mKeywords.size();
    const auto place = std::upper_bound(mKeywords.begin(), mKeywords.end(), keyword, ComesBefore);
    return static_cast<std::size_t>(place - mKeywords.begin());
}

} // namespace paperkite
