#include "foundation/HtmlSearch.h"

#include "foundation/Unicode.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace paperkite {

namespace {

/// Stands for the edge of a block; no UTF-8 holds it.
constexpr char kBreak = '\xFF';

/// How common a byte is in texts, roughly: the less the better to look for.
int Commonness(char byte) {
    constexpr std::string_view kByRank = "zqxjkvbpygfwmculdrhsnioate ";
    const std::size_t rank = kByRank.find(byte);
    return rank == std::string_view::npos ? 0 : static_cast<int>(rank) + 1;
}

char OtherCase(char byte) {
    if (byte >= 'a' && byte <= 'z') return static_cast<char>(byte - 'a' + 'A');
    return byte;
}

char LowerByte(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte;
}

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

const char* FindByte(const char* from, const char* to, char byte) {
    return static_cast<const char*>(
        std::memchr(from, static_cast<unsigned char>(byte), static_cast<std::size_t>(to - from)));
}

/// The longest stretch of the pattern without blanks, and without letters that may be written in
/// another way.
std::string KeyOf(std::string_view pattern, bool onlyAscii) {
    std::string_view best;
    for (std::size_t at = 0; at < pattern.size();) {
        std::size_t end = at;
        while (end < pattern.size() && pattern[end] != ' ' && (!onlyAscii || IsAscii(pattern[end])))
            ++end;
        if (end - at > best.size()) best = pattern.substr(at, end - at);
        at = end + 1;
    }
    return std::string(best);
}

/// The elements between which the text is parted, as far as their names begin so.
bool IsBlockTag(std::string_view tag) {
    std::size_t at = 1;
    if (at < tag.size() && tag[at] == '/') ++at;
    std::size_t end = at;
    while (end < tag.size() && tag[end] != '>' && tag[end] != ' ' && end - at < 4)
        ++end;
    const std::string_view name = tag.substr(at, end - at);
    return name == "p" || name == "li" || name == "ul" || name == "ol" || name == "br" ||
           name == "td" || name == "tr" || name == "pre" || name == "div";
}

} // namespace

/// A text in the form in which it is compared, with the places that its bytes came from.
struct HtmlSearch::Folded {
    std::string Text;
    /// A stretch whose bytes stand as far from each other as those they came from.
    struct Step {
        std::size_t At;
        std::size_t From;
        bool operator<(const Step& other) const { return At < other.At; }
    };
    std::vector<Step> Steps;
    std::size_t End = 0;

    void Begin(std::size_t from) {
        const bool goesOn =
            !Steps.empty() && Steps.back().From + (Text.size() - Steps.back().At) == from;
        if (!goesOn) Steps.push_back({Text.size(), from});
    }
    std::size_t Origin(std::size_t at) const {
        if (at >= Text.size()) return End;
        const auto behind = std::upper_bound(Steps.begin(), Steps.end(), Step{at, 0});
        const Step& step = *std::prev(behind);
        return step.From + (at - step.At);
    }
};

HtmlSearch::HtmlSearch(SearchOptions options) : mOptions(std::move(options)) {
    mPattern = Fold(std::string_view(mOptions.SearchFor)).Text;
    if (mPattern.empty()) return;
    mFallBack.assign(mPattern.size() + 1, 0);
    for (std::size_t at = 1, length = 0; at < mPattern.size(); ++at) {
        while (length > 0 && mPattern[at] != mPattern[length])
            length = mFallBack[length];
        if (mPattern[at] == mPattern[length]) ++length;
        mFallBack[at + 1] = length;
    }
    if (!HoldsOnlyUtf8(mOptions.SearchFor)) return;
    mKey = KeyOf(mPattern, !mOptions.CaseSensitive);
    for (std::size_t at = 0; at < mKey.size(); ++at) {
        mInKey[static_cast<unsigned char>(mKey[at])] = true;
        if (!mOptions.CaseSensitive) mInKey[static_cast<unsigned char>(OtherCase(mKey[at]))] = true;
        if (Commonness(mKey[at]) < Commonness(mKey[mRareAt])) mRareAt = at;
    }
    if (mKey.empty()) return;
    mRare = {mKey[mRareAt], mOptions.CaseSensitive ? mKey[mRareAt] : OtherCase(mKey[mRareAt])};
}

void HtmlSearch::AppendFolded(std::string& to, char32_t character) const {
    AppendCharacter(to, mOptions.CaseSensitive ? character : FoldCase(character));
}

HtmlSearch::Folded HtmlSearch::Fold(std::string_view source) const {
    Folded folded;
    folded.Text.reserve(source.size());
    bool isBlank = false;
    for (std::size_t at = 0; at < source.size();) {
        const std::size_t from = at;
        const char32_t character = NextCharacter(source, at);
        const bool wasBlank = std::exchange(isBlank, IsWhiteSpace(character));
        if (isBlank && wasBlank) continue;
        folded.Begin(from);
        AppendFolded(folded.Text, isBlank ? U' ' : character);
    }
    folded.End = source.size();
    return folded;
}

HtmlSearch::Folded HtmlSearch::Fold(const HtmlText& text) const {
    Folded folded;
    const std::string& all = text.GetText();
    folded.Text.reserve(all.size());
    bool isBlank = false;
    const auto& pieces = text.GetPieces();
    for (std::size_t index = 0; index < pieces.size(); ++index) {
        if (pieces[index].IsBreak) {
            folded.Begin(pieces[index].From);
            folded.Text += kBreak;
            isBlank = false;
            continue;
        }
        const std::string_view part = std::string_view(all).substr(0, text.EndOf(index));
        for (std::size_t at = pieces[index].From; at < part.size();) {
            const std::size_t from = at;
            const char32_t character = NextCharacter(part, at);
            const bool wasBlank = std::exchange(isBlank, IsWhiteSpace(character));
            if (isBlank && wasBlank) continue;
            folded.Begin(from);
            AppendFolded(folded.Text, isBlank ? U' ' : character);
        }
    }
    folded.End = all.size();
    return folded;
}

bool HtmlSearch::IsWhole(std::string_view text, std::size_t from, std::size_t to) const {
    std::size_t at = from;
    if (from > 0 && IsLetterOrDigit(NextCharacter(text, at))) {
        std::size_t before = from;
        if (IsLetterOrDigit(PreviousCharacter(text, before))) return false;
    }
    at = to;
    if (to < text.size() && IsLetterOrDigit(PreviousCharacter(text, at))) {
        std::size_t behind = to;
        if (IsLetterOrDigit(NextCharacter(text, behind))) return false;
    }
    return true;
}

std::vector<HtmlSearch::Hit> HtmlSearch::FindIn(const Folded& folded) const {
    std::vector<Hit> hits;
    if (mPattern.empty()) return hits;
    const std::string& text = folded.Text;
    std::size_t length = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        while (length > 0 && text[at] != mPattern[length])
            length = mFallBack[length];
        if (text[at] == mPattern[length]) ++length;
        if (length < mPattern.size()) continue;
        const std::size_t from = at + 1 - length;
        if (mOptions.WholeWord && !IsWhole(text, from, at + 1)) {
            length = mFallBack[length];
            continue;
        }
        // The white space that a blank stands for belongs to the hit.
        hits.push_back({folded.Origin(from), folded.Origin(at + 1)});
        length = 0;
    }
    return hits;
}

std::vector<HtmlSearch::Hit> HtmlSearch::Find(const HtmlText& text) const {
    return mOptions.SearchInHTML ? FindIn(Fold(text.GetSource())) : FindIn(Fold(text));
}

std::vector<HtmlSearch::Hit> HtmlSearch::Find(std::string_view html) const {
    if (!MayBeIn(html)) return {};
    return mOptions.SearchInHTML ? FindIn(Fold(html)) : FindIn(Fold(HtmlText(html)));
}

bool HtmlSearch::HoldsKey(std::string_view html) const {
    if (html.size() < mKey.size()) return false;
    const char* const begin = html.data() + mRareAt;
    const char* const end = begin + (html.size() - mKey.size() + 1);
    const auto isHere = [&](const char* rare) {
        const char* at = rare - mRareAt;
        if (mOptions.CaseSensitive) return std::memcmp(at, mKey.data(), mKey.size()) == 0;
        return std::equal(mKey.begin(), mKey.end(), at,
                          [](char wanted, char found) { return wanted == LowerByte(found); });
    };
    for (std::size_t way = 0; way < (mRare[0] == mRare[1] ? 1u : 2u); ++way)
        for (const char* at = begin; at < end && (at = FindByte(at, end, mRare[way])); ++at)
            if (isHere(at)) return true;
    return false;
}

/// Whether the key may begin before a tag and go on behind it.
bool HtmlSearch::MayBeginBefore(std::string_view html, std::size_t tag) const {
    return tag > 0 && mInKey[static_cast<unsigned char>(html[tag - 1])] &&
           !IsBlockTag(html.substr(tag, 8));
}

bool HtmlSearch::MayBeIn(std::string_view html) const {
    if (mPattern.empty()) return false;
    if (mKey.empty()) return true;
    if (HoldsKey(html)) return true;
    if (mOptions.SearchInHTML) return false;
    if (html.find('&') != std::string_view::npos) return true;
    if (mKey.size() == 1) return false;
    for (std::size_t at = html.find('<'); at != std::string_view::npos; at = html.find('<', at + 1))
        if (MayBeginBefore(html, at)) return true;
    return false;
}

HtmlText::Stretch HtmlSearch::SourceOf(const HtmlText& text, const Hit& hit) const {
    if (mOptions.SearchInHTML) return {hit.From, hit.To};
    const auto stretches = text.SourceOf(hit.From, hit.To);
    if (stretches.empty()) return {};
    return {stretches.front().From, stretches.back().To};
}

std::string HtmlSearch::Replace(std::string_view html, const std::vector<Hit>& hits,
                                std::string_view replacement) const {
    if (!mOptions.SearchInHTML) {
        std::vector<HtmlText::Stretch> ranges;
        for (const Hit& hit : hits)
            ranges.push_back({hit.From, hit.To});
        return HtmlText(html).Replaced(ranges, replacement);
    }
    std::string result;
    std::size_t copied = 0;
    for (const Hit& hit : hits) {
        result += html.substr(copied, hit.From - copied);
        result += replacement;
        copied = hit.To;
    }
    result += html.substr(copied);
    return result;
}

std::string HtmlSearch::ReplaceAll(std::string_view html, std::string_view replacement,
                                   std::size_t* count) const {
    const auto hits = Find(html);
    if (count) *count = hits.size();
    return hits.empty() ? std::string(html) : Replace(html, hits, replacement);
}

} // namespace paperkite
