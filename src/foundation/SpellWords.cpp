#include "foundation/SpellWords.h"

#include "foundation/HtmlText.h"
#include "foundation/Unicode.h"

#include <utility>

namespace paperkite {

namespace {

constexpr char32_t kSoftHyphen = 0xAD;
constexpr char32_t kTypographicApostrophe = 0x2019;

bool IsApostrophe(char32_t character) {
    return character == '\'' || character == kTypographicApostrophe;
}

bool IsAsciiLetterOrDigit(char byte) {
    return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= 'a' && byte <= 'z');
}

/// Without the signs around it that belong to the sentence.
std::string_view Bare(std::string_view chunk) {
    constexpr std::string_view kLeading = "\"'([{<*_";
    constexpr std::string_view kTrailing = "\"')]}>*_.,;:!?";
    const std::size_t from = chunk.find_first_not_of(kLeading);
    if (from == std::string_view::npos) return {};
    const std::size_t last = chunk.find_last_not_of(kTrailing);
    return last == std::string_view::npos || last < from ? std::string_view()
                                                         : chunk.substr(from, last + 1 - from);
}

bool IsAddress(std::string_view bare) {
    if (bare.find("://") != std::string_view::npos) return true;
    if (bare.starts_with("www.") || bare.starts_with("mailto:")) return true;
    const std::size_t at = bare.find('@');
    return at != std::string_view::npos && at > 0 && bare.find('.', at) != std::string_view::npos;
}

bool IsPath(std::string_view bare) {
    if (bare.find('\\') != std::string_view::npos) return true;
    const std::size_t slash = bare.find('/');
    if (slash == std::string_view::npos) return false;
    return slash == 0 || bare[0] == '~' || bare[0] == '.' ||
           bare.find('/', slash + 1) != std::string_view::npos;
}

/// A point inside, between letters or digits: "main.cpp", "list.size". Not "e.g." and the like,
/// which are no words either.
bool IsDotted(std::string_view bare) {
    for (std::size_t at = 1; at + 1 < bare.size(); ++at)
        if (bare[at] == '.' && IsAsciiLetterOrDigit(bare[at - 1]) &&
            IsAsciiLetterOrDigit(bare[at + 1]))
            return true;
    return false;
}

bool IsCodeName(std::string_view bare) {
    return bare.find("::") != std::string_view::npos || bare.find("->") != std::string_view::npos;
}

bool IsOption(std::string_view bare) {
    return bare.size() > 1 && (bare.starts_with("--") || bare[0] == '$' || bare[0] == '#');
}

bool HoldsNoWords(std::string_view chunk) {
    constexpr std::string_view kSigns = "/\\.:@>#$-";
    if (chunk.find_first_of(kSigns) == std::string_view::npos) return false;
    const std::string_view bare = Bare(chunk);
    return IsAddress(bare) || IsPath(bare) || IsDotted(bare) || IsCodeName(bare) || IsOption(bare);
}

std::size_t SkipBlanks(std::string_view text, std::size_t at) {
    while (at < text.size()) {
        std::size_t next = at;
        if (!IsWhiteSpace(NextCharacter(text, next))) break;
        at = next;
    }
    return at;
}

std::size_t SkipToBlank(std::string_view text, std::size_t at) {
    while (at < text.size()) {
        const auto byte = static_cast<unsigned char>(text[at]);
        if (byte < 0x80 && byte > ' ') {
            ++at;
            continue;
        }
        std::size_t next = at;
        if (IsWhiteSpace(NextCharacter(text, next))) break;
        at = next;
    }
    return at;
}

bool IsSingleLetter(std::string_view word) {
    std::size_t at = 0;
    return !word.empty() && (NextCharacter(word, at), at == word.size());
}

} // namespace

bool SpellWords::NextChunk() {
    while (true) {
        mAt = SkipBlanks(mText, mChunkEnd);
        if (mAt >= mText.size()) return false;
        mChunkEnd = SkipToBlank(mText, mAt);
        if (!HoldsNoWords(mText.substr(mAt, mChunkEnd - mAt))) return true;
    }
}

bool SpellWords::NextInChunk() {
    const std::string_view text = mText.substr(0, mChunkEnd);
    mWord.clear();
    for (std::size_t at = mAt; at < text.size(); mAt = at) {
        const std::size_t from = at;
        const char32_t character = NextCharacter(text, at);
        const bool isLetter = IsLetterOrDigit(character) && character != kReplacementCharacter;
        const bool isInside = !mWord.empty();
        if (isLetter) {
            if (!isInside) mFrom = from;
            mWord.append(text, from, at - from);
            mTo = at;
        } else if (isInside && character != kSoftHyphen) {
            std::size_t next = at;
            const bool goesOn = IsApostrophe(character) && at < text.size() &&
                                IsLetterOrDigit(NextCharacter(text, next));
            if (!goesOn) {
                mAt = at;
                return true;
            }
            mWord += '\'';
        }
    }
    return !mWord.empty();
}

bool SpellWords::Next() {
    while (true) {
        if (mAt >= mChunkEnd && !NextChunk()) return false;
        if (NextInChunk() && !IsSingleLetter(mWord)) return true;
    }
}

std::vector<SpellWords::Part> SpellWords::PartsOf(std::string_view word) {
    std::vector<Part> parts;
    std::size_t begin = 0;
    std::size_t previous = 0;
    bool wasUpper = false;
    bool wasLower = false;
    for (std::size_t at = 0; at < word.size();) {
        const std::size_t from = at;
        const char32_t character = NextCharacter(word, at);
        const bool isUpper = IsUpperCase(character);
        const bool isLower = !isUpper && !IsApostrophe(character);
        std::size_t cut = 0;
        if (isUpper && wasLower) cut = from;
        // The last capital of several belongs to the word behind it: "HTMLText".
        if (isLower && wasUpper && previous > begin) cut = previous;
        if (cut > begin) {
            parts.push_back({begin, cut});
            begin = cut;
        }
        previous = from;
        wasUpper = isUpper;
        wasLower = isLower;
    }
    parts.push_back({begin, word.size()});
    return parts;
}

bool SpellWords::IsPassedOver(std::string_view word, const SpellOptions& options) {
    bool hasDigit = false;
    bool hasUpper = false;
    bool hasLower = false;
    bool hasUpperInside = false;
    for (std::size_t at = 0; at < word.size();) {
        const bool isFirst = at == 0;
        const char32_t character = NextCharacter(word, at);
        if (character < 0x80 ? character >= '0' && character <= '9' : IsDigit(character))
            hasDigit = true;
        else if (IsUpperCase(character))
            (isFirst ? hasUpper : hasUpperInside) = true;
        else if (!IsApostrophe(character))
            hasLower = true;
    }
    if (hasDigit && options.IgnoreWithNumbers) return true;
    if (!hasLower) return options.IgnoreInUpperCase && (hasUpper || hasUpperInside);
    return hasUpperInside && options.IgnoreInMixedCase;
}

std::vector<SpellWords::Misspelt> SpellWords::FindMisspelt(std::string_view text,
                                                           SpellEngine& engine) {
    std::vector<Misspelt> found;
    for (SpellWords words(text); words.Next();) {
        const std::string& word = words.Word();
        if (engine.Check(word)) continue;
        const auto parts = PartsOf(word);
        // A word with apostrophes or soft hyphens may have other bytes in the text.
        if (parts.size() == 1 || words.To() - words.From() != word.size()) {
            found.push_back({words.From(), words.To(), word});
            continue;
        }
        for (const Part& part : parts) {
            std::string piece = word.substr(part.From, part.To - part.From);
            if (!IsSingleLetter(piece) && !engine.Check(piece))
                found.push_back(
                    {words.From() + part.From, words.From() + part.To, std::move(piece)});
        }
    }
    return found;
}

std::vector<SpellWords::Misspelt> SpellWords::FindMisspelt(const HtmlText& text,
                                                           SpellEngine& engine) {
    std::vector<Misspelt> found;
    for (const HtmlText::Stretch& prose : text.Prose()) {
        const auto part =
            std::string_view(text.GetText()).substr(prose.From, prose.To - prose.From);
        for (Misspelt& one : FindMisspelt(part, engine)) {
            one.From += prose.From;
            one.To += prose.From;
            found.push_back(std::move(one));
        }
    }
    return found;
}

} // namespace paperkite
