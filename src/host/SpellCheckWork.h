#pragma once

#include "foundation/SpellEngine.h"
#include "host/TextChanges.h"
#include "host/TextContext.h"
#include "model/CommentStore.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace paperkite {

/// Finds the misspelt words in the comments of a project, also in those whose item is gone.
/// Changes nothing: TextChanges does.
class SpellCheckWork {
public:
    struct Finding {
        std::string Item;
        std::string CommentId;
        std::string Tag;  ///< "##remarks"
        std::string Name; ///< "Remarks"
        std::string Word;
        TextContext Context;
        /// In the text that a reader sees (see HtmlText), or in the bytes of a comment that is no
        /// HTML.
        std::size_t From = 0;
        std::size_t To = 0;
        /// What stands there; Word is how dictionaries have it.
        std::string Found;
    };
    /// Asked for each item; false ends the check.
    using GoOn = std::function<bool(std::size_t done, std::size_t total)>;

    explicit SpellCheckWork(SpellEngine& engine) : mEngine(engine) {}

    /// Sorted by item; in an item in the order of its comments. With an item only what it and the
    /// items below it have; nothing when the check was ended.
    std::vector<Finding> Check(const CommentStore& store, const std::string& item = {},
                               const GoOn& goOn = {});
    /// What to change so that a finding is replaced, whatever is right by now; no change where it
    /// is not there any more.
    static TextChanges::Changes Plan(const CommentStore& store, const Finding& finding,
                                     const std::string& replacement);

private:
    void CheckComment(const std::string& item, const TaggedComment& comment,
                      std::vector<Finding>& findings);

    SpellEngine& mEngine;
};

} // namespace paperkite
