#pragma once

#include "foundation/Event.h"
#include "host/UnsavedWork.h"
#include "host/Workspace.h"

#include <cstddef>
#include <string>
#include <vector>

namespace paperkite {

/// New texts for comments of an open project, a step at a time, which can be taken back. A comment
/// that somebody changed meanwhile keeps what it says.
class TextChanges {
public:
    struct Change {
        std::string Item;
        std::string CommentId;
        std::string Before;
        std::string After;
    };
    using Changes = std::vector<Change>;

    /// The journal may be nothing; both outlive this.
    TextChanges(Workspace& workspace, UnsavedWork* unsaved)
        : mWorkspace(workspace), mUnsaved(unsaved) {}

    /// Makes the changes as one step. Gives how many of the comments did not say Before any more
    /// and were left alone.
    std::size_t Apply(const Changes& changes);
    bool CanUndo() const { return mDone > 0; }
    bool CanRedo() const { return mDone < mSteps.size(); }
    /// The same count; nothing to take back is 0.
    std::size_t Undo();
    std::size_t Redo();
    /// Forgets all steps: the comments are others now.
    void Clear();

    struct {
        /// Comments of an item changed; raised when all of a step is in place.
        Event<const std::string&> Changed;
    } Events;

private:
    Ref<TaggedComment> FindComment(const Change& change) const;
    Changes Write(const Changes& changes);

    Workspace& mWorkspace;
    UnsavedWork* mUnsaved;
    /// The first mDone of them are in force.
    std::vector<Changes> mSteps;
    std::size_t mDone = 0;
};

} // namespace paperkite
