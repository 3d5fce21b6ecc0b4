#include "foundation/HtmlSearch.h"
#include "foundation/HtmlText.h"
#include "foundation/HtmlTokens.h"
#include "foundation/SpellWords.h"
#include "foundation/Unicode.h"
#include "fuzz/FuzzTarget.h"

#include <algorithm>

namespace paperkite::fuzz {
namespace {

/// The tags and comments of the source, without the text between them.
std::string MarkupOf(const std::string& html) {
    std::string markup;
    HtmlTokens tokens(html);
    for (HtmlToken token; tokens.Next(token);)
        if (token.What != HtmlToken::Kind::Text || token.IsRaw)
            markup += html.substr(token.From, token.To - token.From) + "\n";
    return markup;
}

void CheckPieces(const HtmlText& text) {
    std::size_t source = 0;
    for (std::size_t index = 0; index < text.GetPieces().size(); ++index) {
        const auto& piece = text.GetPieces()[index];
        Require(piece.From < text.EndOf(index), "a piece is empty");
        Require(piece.SourceFrom >= source && piece.SourceTo >= piece.SourceFrom &&
                    piece.SourceTo <= text.GetSource().size(),
                "a piece stands at no place of the source");
        source = piece.SourceTo;
    }
}

void CheckWords(const std::string& html) {
    const HtmlText text(html);
    std::size_t behind = 0;
    for (SpellWords words(text.GetText()); words.Next();) {
        Require(words.From() >= behind && words.To() > words.From() &&
                    words.To() <= text.GetText().size(),
                "a word stands at no place of the text");
        behind = words.To();
        std::size_t part = 0;
        for (const auto& one : SpellWords::PartsOf(words.Word())) {
            Require(one.From == part && one.To > one.From, "the parts are not the word");
            part = one.To;
        }
        Require(part == words.Word().size(), "the parts are not the word");
    }
}

void CheckReplacing(const std::string& html, const SearchOptions& options,
                    const std::string& replacement) {
    const HtmlSearch search(options);
    const auto hits = search.Find(HtmlText(html));
    Require(search.Find(std::string_view(html)) == hits, "the quick look missed a hit");
    std::size_t behind = 0;
    for (const auto& hit : hits) {
        Require(hit.From >= behind && hit.To > hit.From, "hits overlap");
        behind = hit.To;
    }
    std::size_t count = 0;
    const std::string replaced = search.ReplaceAll(html, replacement, &count);
    Require(count == hits.size(), "not every hit was replaced");
    if (options.SearchInHTML) return;
    Require(MarkupOf(html) == MarkupOf(replaced),
            "replacing changed the markup:\n" + html + "\n---\n" + replaced);
    // Seen by a reader, only the hits are other ones.
    const HtmlText before(html);
    std::string expected;
    std::size_t copied = 0;
    for (const auto& hit : hits) {
        expected += before.GetText().substr(copied, hit.From - copied) + replacement;
        copied = hit.To;
    }
    expected += before.GetText().substr(copied);
    Require(HtmlText(replaced).GetText() == expected, "a reader sees something else:\n" + expected +
                                                          "\n---\n" + HtmlText(replaced).GetText());
}

/// The first line is what to find, the second what to put there; the rest is the source.
const FuzzTarget target("htmltext", [](std::string_view input) {
    const std::size_t first = std::min(input.find('\n'), input.size());
    const std::size_t second = std::min(input.find('\n', first + 1), input.size());
    const std::string wanted(input.substr(0, std::min<std::size_t>(first, 40)));
    const std::string by =
        first < input.size()
            ? AsUtf8(input.substr(first + 1, std::min<std::size_t>(second - first - 1, 40)))
            : std::string();
    const std::string html(second < input.size() ? input.substr(second + 1) : input);
    CheckPieces(HtmlText(html));
    CheckWords(html);
    for (const int flags : {0, 1, 2, 3, 4})
        CheckReplacing(html, {wanted, (flags & 1) != 0, (flags & 2) != 0, (flags & 4) != 0}, by);
});

} // namespace
} // namespace paperkite::fuzz
