#pragma once

#include "foundation/HtmlText.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// What to look for, and how.
struct SearchOptions {
    std::string SearchFor;
    /// No letter or digit stands before or behind it.
    bool WholeWord = false;
    bool CaseSensitive = false;
    /// Look at the bytes of the source, tags included, instead of the text that a reader sees.
    bool SearchInHTML = false;
};

/// Finds a text in HTML, and replaces it.
///
/// What counts is what a reader sees: entities are decoded, white space of any kind and length is
/// the same, and a match may go on behind the tags of elements that stand inside a line, so that
/// "the key" is found in "the <b>key</b>". It does not go over the edges of blocks. A replacement
/// leaves every tag where it is: the new text stands where the match began. Without CaseSensitive
/// letters are the same in both cases also beyond ASCII (Latin, Greek, Cyrillic, Armenian).
///
/// With SearchInHTML the source is searched as it stands, and the replacement is put in unchanged;
/// whoever asks for that may change the markup.
///
/// Matches do not overlap; the leftmost ones count. Time is linear in the length of the source. An
/// empty text is found nowhere.
class HtmlSearch {
public:
    /// Where something was found.
    struct Hit {
        /// Bytes of the text that a reader sees (see HtmlText), or of the source with SearchInHTML.
        std::size_t From = 0;
        std::size_t To = 0;

        bool operator==(const Hit&) const = default;
    };

    explicit HtmlSearch(SearchOptions options);

    const SearchOptions& GetOptions() const { return mOptions; }
    /// False when the source surely holds no hit; much quicker than looking.
    bool MayBeIn(std::string_view html) const;

    std::vector<Hit> Find(const HtmlText& text) const;
    std::vector<Hit> Find(std::string_view html) const;
    /// The source with the hits replaced; the same bytes where there is none.
    std::string Replace(std::string_view html, const std::vector<Hit>& hits,
                        std::string_view replacement) const;
    /// All of them. Tells how many there were.
    std::string ReplaceAll(std::string_view html, std::string_view replacement,
                           std::size_t* count = nullptr) const;
    /// The byte of the source where a hit begins, and the one behind its end.
    HtmlText::Stretch SourceOf(const HtmlText& text, const Hit& hit) const;

private:
    struct Folded;

    void AppendFolded(std::string& to, char32_t character) const;
    void FoldPart(std::string_view text, std::size_t from, bool& isBlank, Folded& folded) const;
    Folded Fold(const HtmlText& text) const;
    Folded Fold(std::string_view source) const;
    std::vector<Hit> FindIn(const Folded& folded) const;
    bool IsWhole(std::string_view text, std::size_t from, std::size_t to) const;
    std::array<char, 2> BothCases(char byte) const;
    bool IsKeyByte(char found, char wanted) const;
    bool MayBeAround(std::string_view html, std::size_t rare) const;
    bool MayBeAt(std::string_view html, std::size_t at) const;

    SearchOptions mOptions;
    /// The text in the form in which texts are compared.
    std::string mPattern;
    /// By the length that matched, how much of it still matches when the next byte does not.
    std::vector<std::size_t> mFallBack;
    /// A stretch of the pattern that stands in the source as it is, wherever no tag or entity
    /// interrupts it; empty where nothing can be said without decoding.
    std::string mKey;
    /// The rarest two bytes in a row of the key, each in both cases, and where they stand there. Of
    /// a key of one byte, that byte.
    std::array<char, 2> mRare{};
    std::array<char, 2> mBehindRare{};
    std::size_t mRareAt = 0;
};

} // namespace paperkite
