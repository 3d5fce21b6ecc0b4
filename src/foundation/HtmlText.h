#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// The text that a reader of HTML source sees, with the way back to the bytes of the source. No
/// document is built. Entities are decoded; tags, comments, scripts and styles are left out; where
/// a block, a cell, a line break or a picture parts the text, it has a line feed. What is no UTF-8
/// is U+FFFD. Takes linear time; the source must outlive it.
///
///     HtmlText text("<p>Fish &amp; <b>ch</b>ips</p>");
///     text.GetText();          // "\nFish & chips\n"
///     text.SourceOf(8, 13);    // the bytes of "ch" and those of "ips"
class HtmlText {
public:
    /// Bytes of the source, from From up to To.
    struct Stretch {
        std::size_t From = 0;
        std::size_t To = 0;

        bool operator==(const Stretch&) const = default;
    };
    /// A stretch of the text, with what is known of it.
    struct Piece {
        std::size_t From = 0;       ///< in the text
        std::size_t SourceFrom = 0; ///< in the source
        std::size_t SourceTo = 0;
        /// The bytes of the text are those of the source; otherwise the piece is one character.
        bool IsVerbatim = true;
        /// Parts the text; stands nowhere in the source.
        bool IsBreak = false;
        /// Stands in code, pre, kbd, samp, tt or var.
        bool IsCode = false;
        /// The run of character data that it belongs to, counted from 0.
        std::size_t Run = 0;
    };

    explicit HtmlText(std::string_view html);

    std::string_view GetSource() const { return mSource; }
    const std::string& GetText() const { return mText; }
    const std::vector<Piece>& GetPieces() const { return mPieces; }
    /// Where a piece ends in the text.
    std::size_t EndOf(std::size_t piece) const {
        return piece + 1 < mPieces.size() ? mPieces[piece + 1].From : mText.size();
    }
    /// The piece that holds a byte of the text, or the number of pieces.
    std::size_t PieceAt(std::size_t offset) const;
    /// What the bytes of the text from `from` up to `to` are made of: stretches without tags, in
    /// order. Characters that are touched are taken whole.
    std::vector<Stretch> SourceOf(std::size_t from, std::size_t to) const;
    /// The text that belongs to no code, cut where code or a block parts it.
    std::vector<Stretch> Prose() const;

    /// Replaces bytes of the text by plain text. The tags stay where they are: the replacement
    /// stands where the first of the bytes stood. Ranges are ascending and do not touch each
    /// other's bytes.
    std::string Replaced(const std::vector<Stretch>& ranges, std::string_view replacement) const;

    /// The characters that stand before a byte of the source, counted in UTF-16 units over all of
    /// its character data, as a page counts them.
    static std::size_t CharactersBefore(std::string_view html, std::size_t offset);
    /// The other way: the byte of the source behind so many characters.
    static std::size_t OffsetBehind(std::string_view html, std::size_t characters);

    /// Plain text as character data.
    static std::string Escaped(std::string_view text);

private:
    class Reader;
    class Writer;

    std::string_view mSource;
    std::string mText;
    std::vector<Piece> mPieces;
};

} // namespace paperkite
