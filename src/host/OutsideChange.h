#pragma once

#include "host/CommentHistory.h"
#include "host/UnsavedWork.h"
#include "host/Workspace.h"

#include <functional>
#include <string>
#include <vector>

namespace paperkite {

/// Changes comments of an open project from outside its editor, and keeps editor, tree, journal and
/// history in step; nothing is written before the next save.
class OutsideChange {
public:
    /// Journal and history may be nothing; all outlive this.
    OutsideChange(Workspace& workspace, UnsavedWork* unsaved, CommentHistory* history)
        : mWorkspace(workspace), mUnsaved(unsaved), mHistory(history) {}

    /// Ends what is being edited, remembers what the items have, does the work, and shows it. All
    /// of it is one step of the history. Without items nothing happens, not even the work.
    void Run(const std::string& caption, const std::vector<std::string>& items,
             const std::function<void()>& work);

private:
    Workspace& mWorkspace;
    UnsavedWork* mUnsaved;
    CommentHistory* mHistory;
};

} // namespace paperkite
