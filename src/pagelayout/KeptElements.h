#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// Keeps the source text of page-layout elements out of the way of whoever rewrites the HTML around
/// them: a bare comment stands in for each, which is legal everywhere an element is.
///
///     KeptElements kept;
///     std::string html = kept.Hide(text);
///     …
///     return kept.Restore(Tidied(html));
class KeptElements {
public:
    /// With a comment for each element that has both its tags; those inside another one go with
    /// it. Call it before Keep.
    std::string Hide(const std::string& html);
    /// The comment that stands for a source text.
    std::string Keep(std::string source);
    /// Puts the source texts back. A blank that the rewriting left in front of one at the begin of
    /// a line, behind the indentation, goes.
    std::string Restore(const std::string& html) const;

private:
    /// Begins the comments; nothing in the text does.
    std::string mPrefix = "<!--kitekept";
    std::vector<std::string> mSources;
};

} // namespace paperkite
