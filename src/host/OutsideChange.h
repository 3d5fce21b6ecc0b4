#pragma once

#include "host/UnsavedWork.h"
#include "host/Workspace.h"

#include <functional>
#include <string>
#include <vector>

namespace paperkite {

/// Changes comments of an open project from outside its editor, and keeps editor, tree and journal
/// in step; nothing is written before the next save.
class OutsideChange {
public:
    /// The journal may be nothing; both outlive this.
    OutsideChange(Workspace& workspace, UnsavedWork* unsaved)
        : mWorkspace(workspace), mUnsaved(unsaved) {}

    /// Ends what is being edited, remembers what is stored of the items, does the work, and shows
    /// it. Without items nothing happens, not even the work.
    void Run(const std::vector<std::string>& items, const std::function<void()>& work);

private:
    void ShowBold(const std::string& item);
    void ShowOpenItemAnew(const std::vector<std::string>& items);

    Workspace& mWorkspace;
    UnsavedWork* mUnsaved;
};

} // namespace paperkite
