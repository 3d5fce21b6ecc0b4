#pragma once

#include "foundation/Event.h"
#include "host/CommentHistory.h"
#include "host/UnsavedWork.h"
#include "host/Workspace.h"

#include <cstddef>
#include <string>
#include <vector>

namespace paperkite {

/// New texts for comments of an open project. A comment that somebody changed meanwhile keeps what
/// it says.
class TextChanges {
public:
    struct Change {
        std::string Item;
        std::string CommentId;
        std::string Before;
        std::string After;
    };
    using Changes = std::vector<Change>;

    /// Journal and history may be nothing; all outlive this.
    TextChanges(Workspace& workspace, UnsavedWork* unsaved, CommentHistory* history)
        : mWorkspace(workspace), mUnsaved(unsaved), mHistory(history) {}

    /// Makes the changes as one step of the history. Gives how many of the comments did not say
    /// Before any more and were left alone.
    std::size_t Apply(const Changes& changes, const std::string& caption);

    struct {
        /// Comments of an item changed; raised when all of a step is in place.
        Event<const std::string&> Changed;
    } Events;

private:
    Ref<TaggedComment> FindComment(const Change& change) const;

    Workspace& mWorkspace;
    UnsavedWork* mUnsaved;
    CommentHistory* mHistory;
};

} // namespace paperkite
