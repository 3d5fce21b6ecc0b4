#pragma once

#include "foundation/HtmlSearch.h"
#include "host/TextChanges.h"
#include "host/TextContext.h"
#include "model/CommentStore.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// Finds a text in all comments of a project, also in those whose item is gone, and plans what a
/// replacement makes of them. Changes nothing: TextChanges does.
///
///     const CommentSearch search({"colour"});
///     const auto hits = search.Find(store);      // shown as a list, where some are unticked
///     changes.Apply(search.Plan(store, hits, "color"));
class CommentSearch {
public:
    struct Hit {
        std::string Item;
        std::string CommentId;
        std::string Tag;  ///< "##remarks"
        std::string Name; ///< "Remarks"
        TextContext Context;
        HtmlSearch::Hit Place;
    };

    explicit CommentSearch(const SearchOptions& options);

    /// Sorted by item; in an item in the order of its comments.
    std::vector<Hit> Find(const CommentStore& store) const;
    /// What to change so that those hits are replaced, a change for each comment. Hits that are not
    /// there any more are passed over.
    TextChanges::Changes Plan(const CommentStore& store, const std::vector<Hit>& hits,
                              const std::string& replacement) const;

private:
    void Add(const std::string& item, const TaggedComment& comment, std::vector<Hit>& hits) const;
    const HtmlSearch& SearchIn(const TaggedComment& comment) const;

    HtmlSearch mSearch;
    /// For comments that are no HTML, in which every byte means itself.
    HtmlSearch mPlainSearch;
};

} // namespace paperkite
