#pragma once

#include "foundation/SpellEngine.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

class HtmlText;

/// Takes the words out of a plain text whose spelling can be checked. A word is a run of letters
/// and digits of any script, with apostrophes inside; hyphens and underscores part words. Passed
/// over is what no dictionary knows by its nature: addresses ("https://…", "me@example.org"), paths
/// and file names, qualified names of code ("std::string", "list.size"), options ("--help"), and
/// single letters.
///
///     for (SpellWords words(text); words.Next();) … words.Word() … words.From() …
class SpellWords {
public:
    /// A word that an engine does not know, in bytes of the text.
    struct Misspelt {
        std::size_t From = 0;
        std::size_t To = 0;
        /// As dictionaries have it: with plain apostrophes, without soft hyphens.
        std::string Word;

        bool operator==(const Misspelt&) const = default;
    };

    explicit SpellWords(std::string_view text) : mText(text) {}

    /// Goes to the next word; false at the end.
    bool Next();
    const std::string& Word() const { return mWord; }
    std::size_t From() const { return mFrom; }
    std::size_t To() const { return mTo; }

    /// What a word is made of where capitals begin new words inside: "fetchHTMLRecord" gives
    /// "fetch", "HTML" and "Record", as bytes of the word; one part for an ordinary word.
    struct Part {
        std::size_t From = 0;
        std::size_t To = 0;
    };
    static std::vector<Part> PartsOf(std::string_view word);

    /// Whether options pass a word over, whatever dictionaries say.
    static bool IsPassedOver(std::string_view word, const SpellOptions& options);

    /// The words of a plain text that are wrong: neither does the engine know the whole word, nor
    /// all of its parts. The parts that it does not know are given.
    static std::vector<Misspelt> FindMisspelt(std::string_view text, SpellEngine& engine);
    /// The same for the prose of HTML source, in bytes of HtmlText's text.
    static std::vector<Misspelt> FindMisspelt(const HtmlText& text, SpellEngine& engine);

private:
    bool NextChunk();
    bool NextInChunk();

    std::string_view mText;
    std::string mWord;
    std::size_t mFrom = 0;
    std::size_t mTo = 0;
    std::size_t mChunkEnd = 0;
    std::size_t mAt = 0;
};

} // namespace paperkite
