#include "foundation/HtmlText.h"

#include "foundation/HtmlEntities.h"
#include "foundation/HtmlTokens.h"
#include "foundation/Text.h"
#include "foundation/Unicode.h"

#include <algorithm>
#include <array>

namespace paperkite {

namespace {

constexpr std::array<std::string_view, 6> kCode{"code", "pre", "kbd", "samp", "tt", "var"};

/// Elements that stand inside a line: a word may go on behind their tags.
constexpr std::array<std::string_view, 31> kInline{
    "a",     "abbr", "acronym", "b",      "bdi", "bdo", "big",  "cite", "code", "del", "dfn",
    "em",    "font", "i",       "ins",    "kbd", "map", "mark", "nobr", "q",    "s",   "samp",
    "small", "span", "strike",  "strong", "sub", "sup", "tt",   "u",    "var"};

bool IsInline(std::string_view name) {
    if (EqualIgnoringCase(name, "wbr")) return true;
    return std::any_of(kInline.begin(), kInline.end(),
                       [name](std::string_view known) { return EqualIgnoringCase(known, name); });
}

std::size_t Utf16Units(char32_t character) {
    return character > 0xFFFF ? 2 : 1;
}

/// Without signs that could become markup or an entity; ">" is none.
void AppendSafe(std::string& to, std::string_view text) {
    for (const char character : text) {
        if (character == '&')
            to += "&amp;";
        else if (character == '<')
            to += "&lt;";
        else
            to += character;
    }
}

/// Takes the next character of character data, which ends at `end`; `at` stands behind it then.
char32_t NextOf(std::string_view html, std::size_t& at, std::size_t end, bool isRaw) {
    if (!isRaw && html[at] == '&') {
        if (const auto entity = ReadEntity(html.substr(0, end), at)) {
            at += entity->Length;
            return entity->Character;
        }
    }
    return NextCharacter(html.substr(0, end), at);
}

} // namespace

/// Walks the source once.
class HtmlText::Reader {
public:
    explicit Reader(HtmlText& text) : mTarget(text) {}

    void Read() {
        HtmlTokens tokens(mTarget.mSource);
        for (HtmlToken token; tokens.Next(token);) {
            if (token.What == HtmlToken::Kind::Text) {
                if (!token.IsRaw) AddRun(token.From, token.To);
                ++mRun;
            } else if (token.What != HtmlToken::Kind::Comment) {
                FollowTag(token);
            }
        }
    }

private:
    void FollowTag(const HtmlToken& token) {
        for (std::size_t index = 0; index < kCode.size(); ++index) {
            if (!EqualIgnoringCase(token.Name, kCode[index])) continue;
            if (token.What == HtmlToken::Kind::StartTag)
                ++mDepths[index];
            else if (mDepths[index] > 0)
                --mDepths[index];
        }
        mIsCode = std::any_of(mDepths.begin(), mDepths.end(), [](int depth) { return depth > 0; });
        if (!IsInline(token.Name)) AddBreak(token.From);
    }

    void AddBreak(std::size_t source) {
        if (!mTarget.mPieces.empty() && mTarget.mPieces.back().IsBreak) return;
        Add(source, source, false, true);
        mTarget.mText += '\n';
    }

    void Add(std::size_t from, std::size_t to, bool isVerbatim, bool isBreak = false) {
        mTarget.mPieces.push_back(
            {mTarget.mText.size(), from, to, isVerbatim, isBreak, mIsCode, mRun});
    }

    void AddRun(std::size_t from, std::size_t to) {
        const std::string_view html = mTarget.mSource;
        std::size_t plain = from;
        for (std::size_t at = from; at < to;) {
            const auto byte = static_cast<unsigned char>(html[at]);
            if (byte < 0x80 && byte != '&') {
                ++at;
                continue;
            }
            const std::size_t begin = at;
            const char32_t character = NextOf(html, at, to, false);
            const bool isOdd = byte == '&' ? at - begin > 1 : character == kReplacementCharacter;
            if (!isOdd) continue;
            AddVerbatim(plain, begin);
            Add(begin, at, false);
            AppendCharacter(mTarget.mText, character);
            plain = at;
        }
        AddVerbatim(plain, to);
    }

    void AddVerbatim(std::size_t from, std::size_t to) {
        if (from == to) return;
        Add(from, to, true);
        mTarget.mText += mTarget.mSource.substr(from, to - from);
    }

    HtmlText& mTarget;
    std::array<int, kCode.size()> mDepths{};
    bool mIsCode = false;
    std::size_t mRun = 0;
};

HtmlText::HtmlText(std::string_view html) : mSource(html) {
    mText.reserve(html.size());
    Reader(*this).Read();
}

std::size_t HtmlText::PieceAt(std::size_t offset) const {
    if (offset >= mText.size()) return mPieces.size();
    const auto behind = std::upper_bound(
        mPieces.begin(), mPieces.end(), offset,
        [](std::size_t wanted, const Piece& piece) { return wanted < piece.From; });
    return static_cast<std::size_t>(behind - mPieces.begin()) - 1;
}

std::vector<HtmlText::Stretch> HtmlText::SourceOf(std::size_t from, std::size_t to) const {
    std::vector<Stretch> stretches;
    while (from > 0 && from < mText.size() && IsContinuation(mText[from]))
        --from;
    while (to < mText.size() && IsContinuation(mText[to]))
        ++to;
    for (std::size_t index = PieceAt(from); index < mPieces.size(); ++index) {
        const Piece& piece = mPieces[index];
        if (piece.From >= to) break;
        if (piece.IsBreak) continue;
        Stretch stretch{piece.SourceFrom, piece.SourceTo};
        if (piece.IsVerbatim) {
            if (from > piece.From) stretch.From += from - piece.From;
            stretch.To = std::min(stretch.To, piece.SourceFrom + (to - piece.From));
        }
        if (!stretches.empty() && stretches.back().To == stretch.From)
            stretches.back().To = stretch.To;
        else
            stretches.push_back(stretch);
    }
    return stretches;
}

std::vector<HtmlText::Stretch> HtmlText::Prose() const {
    std::vector<Stretch> prose;
    for (std::size_t index = 0; index < mPieces.size(); ++index) {
        const Piece& piece = mPieces[index];
        if (piece.IsCode || piece.IsBreak) continue;
        const bool goesOn = index > 0 && !prose.empty() && prose.back().To == piece.From;
        if (goesOn)
            prose.back().To = EndOf(index);
        else
            prose.push_back({piece.From, EndOf(index)});
    }
    return prose;
}

/// Writes the source anew, run by run.
class HtmlText::Writer {
public:
    Writer(const HtmlText& text, const std::vector<Stretch>& ranges, std::string_view replacement)
        : mText(text), mRanges(ranges), mReplacement(Escaped(replacement)) {}

    std::string Write() {
        mResult.reserve(mText.mSource.size() + mRanges.size() * mReplacement.size());
        const auto& pieces = mText.mPieces;
        for (std::size_t index = 0; index < pieces.size() && mNext < mRanges.size();) {
            std::size_t behind = index + 1;
            if (!pieces[index].IsBreak)
                while (behind < pieces.size() && pieces[behind].Run == pieces[index].Run)
                    ++behind;
            const std::size_t end = mText.EndOf(behind - 1);
            if (!pieces[index].IsBreak && mRanges[mNext].From < end) WriteRun(index, behind);
            Pass(end);
            index = behind;
        }
        return mResult += mText.mSource.substr(mCopied);
    }

private:
    void Pass(std::size_t at) {
        while (mNext < mRanges.size() && mRanges[mNext].To <= at)
            ++mNext;
    }

    // In a run that changes, signs that only happened to be no markup are escaped, so that what
    // comes together behind a replacement does not become markup or an entity.
    void WriteRun(std::size_t first, std::size_t behind) {
        const auto& pieces = mText.mPieces;
        mResult += mText.mSource.substr(mCopied, pieces[first].SourceFrom - mCopied);
        for (std::size_t index = first; index < behind; ++index)
            WritePiece(pieces[index], mText.EndOf(index));
        mCopied = pieces[behind - 1].SourceTo;
    }

    void WritePiece(const Piece& piece, std::size_t end) {
        for (std::size_t at = piece.From; at < end;) {
            Pass(at);
            const bool isLeft = mNext < mRanges.size();
            const bool isIn = isLeft && mRanges[mNext].From <= at;
            const std::size_t border = !isLeft ? end
                                       : isIn  ? mRanges[mNext].To
                                               : mRanges[mNext].From;
            const std::size_t to = std::min(border, end);
            if (isIn && at == mRanges[mNext].From)
                mResult += mReplacement;
            else if (!isIn && piece.IsVerbatim)
                AppendSafe(mResult, std::string_view(mText.mText).substr(at, to - at));
            else if (!isIn)
                WriteAsItWas(piece);
            at = to;
        }
    }

    void WriteAsItWas(const Piece& piece) {
        const std::string_view source =
            std::string_view(mText.mSource)
                .substr(piece.SourceFrom, piece.SourceTo - piece.SourceFrom);
        mResult += source;
        // Left open, an entity would go on with what comes behind it now.
        if (source.starts_with('&') && !source.ends_with(';')) mResult += ';';
    }

    const HtmlText& mText;
    const std::vector<Stretch>& mRanges;
    const std::string mReplacement;
    std::string mResult;
    std::size_t mCopied = 0;
    std::size_t mNext = 0; ///< the first range that is not done
};

std::string HtmlText::Replaced(const std::vector<Stretch>& ranges,
                               std::string_view replacement) const {
    return Writer(*this, ranges, replacement).Write();
}

std::size_t HtmlText::CharactersBefore(std::string_view html, std::size_t offset) {
    std::size_t count = 0;
    HtmlTokens tokens(html);
    for (HtmlToken token; tokens.Next(token) && token.From < offset;) {
        if (token.What != HtmlToken::Kind::Text) continue;
        for (std::size_t at = token.From; at < std::min(token.To, offset);)
            count += Utf16Units(NextOf(html, at, token.To, token.IsRaw));
    }
    return count;
}

std::size_t HtmlText::OffsetBehind(std::string_view html, std::size_t characters) {
    HtmlTokens tokens(html);
    for (HtmlToken token; tokens.Next(token);) {
        if (token.What != HtmlToken::Kind::Text) continue;
        for (std::size_t at = token.From; at < token.To;) {
            if (characters == 0) return at;
            const std::size_t units = Utf16Units(NextOf(html, at, token.To, token.IsRaw));
            characters -= std::min(units, characters);
            if (characters == 0) return at;
        }
    }
    return html.size();
}

std::string HtmlText::Escaped(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char character : text) {
        if (character == '&')
            result += "&amp;";
        else if (character == '<')
            result += "&lt;";
        else if (character == '>')
            result += "&gt;";
        else
            result += character;
    }
    return result;
}

} // namespace paperkite
