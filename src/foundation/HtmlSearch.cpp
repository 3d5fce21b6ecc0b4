#include "foundation/HtmlSearch.h"

#include "foundation/Unicode.h"

#include <algorithm>
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

bool IsLetterOrDigitByte(char byte) {
    const char lower = LowerByte(byte);
    return (lower >= 'a' && lower <= 'z') || (byte >= '0' && byte <= '9');
}

/// Where the two bytes in a row stand of which the fewest are to be expected.
std::size_t RarestPairOf(std::string_view key) {
    std::size_t best = 0;
    const auto rank = [&](std::size_t at) { return Commonness(key[at]) + Commonness(key[at + 1]); };
    for (std::size_t at = 1; at + 1 < key.size(); ++at)
        if (rank(at) < rank(best)) best = at;
    return best;
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
    if (mKey.empty()) return;
    mRareAt = RarestPairOf(mKey);
    mRare = BothCases(mKey[mRareAt]);
    mBehindRare = BothCases(mKey[std::min(mRareAt + 1, mKey.size() - 1)]);
}

std::array<char, 2> HtmlSearch::BothCases(char byte) const {
    return {byte, mOptions.CaseSensitive ? byte : OtherCase(byte)};
}

void HtmlSearch::AppendFolded(std::string& to, char32_t character) const {
    AppendCharacter(to, mOptions.CaseSensitive ? character : FoldCase(character));
}

void HtmlSearch::FoldPart(std::string_view text, std::size_t from, bool& isBlank,
                          Folded& folded) const {
    for (std::size_t at = from; at < text.size();) {
        const std::size_t origin = at;
        const char32_t character = NextCharacter(text, at);
        const bool wasBlank = std::exchange(isBlank, IsWhiteSpace(character));
        if (isBlank && wasBlank) continue;
        folded.Begin(origin);
        AppendFolded(folded.Text, isBlank ? U' ' : character);
    }
    folded.End = text.size();
}

HtmlSearch::Folded HtmlSearch::Fold(std::string_view source) const {
    Folded folded;
    folded.Text.reserve(source.size());
    bool isBlank = false;
    FoldPart(source, 0, isBlank, folded);
    return folded;
}

HtmlSearch::Folded HtmlSearch::Fold(const HtmlText& text) const {
    Folded folded;
    const std::string_view all = text.GetText();
    folded.Text.reserve(all.size());
    bool isBlank = false;
    const auto& pieces = text.GetPieces();
    for (std::size_t index = 0; index < pieces.size(); ++index) {
        if (!pieces[index].IsBreak) {
            FoldPart(all.substr(0, text.EndOf(index)), pieces[index].From, isBlank, folded);
            continue;
        }
        folded.Begin(pieces[index].From);
        folded.Text += kBreak;
        isBlank = false;
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

bool HtmlSearch::IsKeyByte(char found, char wanted) const {
    return found == wanted || (!mOptions.CaseSensitive && LowerByte(found) == wanted);
}

// Whether the key may stand around its rare byte: it does, or a tag or an entity hides how it goes
// on.
bool HtmlSearch::MayBeAround(std::string_view html, std::size_t rare) const {
    const bool seesThrough = !mOptions.SearchInHTML;
    for (std::size_t key = mRareAt + 1, at = rare + 1; key < mKey.size(); ++key, ++at) {
        if (at >= html.size()) return false;
        if (!IsKeyByte(html[at], mKey[key]))
            return seesThrough && (html[at] == '<' || html[at] == '&');
    }
    for (std::size_t key = mRareAt, at = rare; key > 0; --key, --at) {
        if (at == 0) return false;
        if (!IsKeyByte(html[at - 1], mKey[key - 1]))
            return seesThrough && (html[at - 1] == '>' || html[at - 1] == ';');
    }
    return true;
}

bool HtmlSearch::MayBeAt(std::string_view html, std::size_t at) const {
    const bool isRare = html[at] == mRare[0] || html[at] == mRare[1];
    if (isRare && MayBeAround(html, at)) return true;
    // Letters and digits can only be written with their numbers.
    if (html[at] != '&' || mOptions.SearchInHTML) return false;
    return !IsLetterOrDigitByte(mRare[0]) || html.substr(at, 2) == "&#";
}

// Wherever the text stands, its rare byte does, as it is or as an entity, and behind it the next
// one or something that hides it. Most blocks hold no such pair, which a processor finds out for
// many bytes at once.
bool HtmlSearch::MayBeIn(std::string_view html) const {
    if (mPattern.empty()) return false;
    if (mKey.empty()) return true;
    constexpr std::size_t kBlock = 64;
    const auto [rare, otherRare] = mRare;
    const auto [behind, otherBehind] = mBehindRare;
    const bool seesThrough = !mOptions.SearchInHTML;
    const char tag = seesThrough ? '<' : behind;
    const char entity = seesThrough ? '&' : behind;
    const unsigned char any = mKey.size() == 1;
    const unsigned char anyEntity = seesThrough && !IsLetterOrDigitByte(rare);
    // The last block overlaps the one before it, and leaves the last byte, which none is behind.
    const std::size_t blocks = html.size() > kBlock ? html.size() - 1 : 0;
    for (std::size_t end = kBlock; blocks > 0; end = std::min(end + kBlock, blocks)) {
        const std::size_t block = end - kBlock;
        const char* const bytes = html.data() + block;
        unsigned char found = 0;
        for (std::size_t at = 0; at < kBlock; ++at) {
            const char byte = bytes[at];
            const char next = bytes[at + 1];
            const unsigned char isRare = (byte == rare) | (byte == otherRare);
            const unsigned char goesOn =
                any | (next == behind) | (next == otherBehind) | (next == tag) | (next == entity);
            const unsigned char isEntity = (byte == entity) & (anyEntity | (next == '#'));
            found |= (isRare & goesOn) | isEntity;
        }
        for (std::size_t at = block; found != 0 && at < end; ++at)
            if (MayBeAt(html, at)) return true;
        if (end == blocks) break;
    }
    for (std::size_t at = blocks; at < html.size(); ++at)
        if (MayBeAt(html, at)) return true;
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
