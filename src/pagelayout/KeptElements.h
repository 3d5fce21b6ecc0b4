#pragma once

#include "foundation/Collection.h"
#include "foundation/ParserElement.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// Says that an element, by its source text, would not come through, and how to mend that; error 5.
[[noreturn]] void RaiseElementLost(const std::string& source);

/// Keeps the source text of page-layout elements out of the way of whoever rewrites the HTML around
/// them: a bare comment stands in for each, which is legal everywhere an element is.
///
///     KeptElements kept;
///     std::string html = kept.Hide(parsed->GetSections()->Item(1)->Elements);
///     …
///     return kept.Restore(Tidied(html));
class KeptElements {
public:
    /// The text that a parser took apart, with a comment for each tag element. Call it before Keep.
    std::string Hide(const Collection<Ref<ParserElement>>& pieces);
    /// The comment that stands for a source text.
    std::string Keep(std::string source);
    /// As Keep; the comment has to be there when the texts are put back, like those of Hide.
    std::string KeepExpected(std::string source);
    /// How many bytes from a position on are a text with elements hidden in it; 0 where they are
    /// something else.
    std::size_t LengthOf(std::string_view html, std::size_t at, std::string_view text) const;
    /// Does not expect the comments of a part that is taken away.
    void Forget(std::string_view html);
    /// Puts the source texts back, also where a comment was taken for text, as in a title. A blank
    /// that the rewriting left in front of one at the begin of a line, behind the indentation,
    /// goes. Error 5 for an expected one that is lost and was not forgotten, and for one in the
    /// name of a tag.
    std::string Restore(const std::string& html) const;

private:
    /// The number of the comment at a position and where it ends; 0 for anything else.
    std::size_t NumberAt(std::string_view html, std::size_t at, std::size_t& end) const;
    std::string WithBareComments(const std::string& html) const;

    /// Begins the comments; nothing in the text does.
    std::string mPrefix = "<!--kitekept";
    std::vector<std::string> mSources;
    /// By number; those behind its end are not.
    std::vector<bool> mIsExpected;
};

} // namespace paperkite
