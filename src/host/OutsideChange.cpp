#include "host/OutsideChange.h"

namespace paperkite {

void OutsideChange::Run(const std::string& caption, const std::vector<std::string>& items,
                        const std::function<void()>& work) {
    if (items.empty()) return;
    // One of the items may be open: what was typed there comes first.
    mWorkspace.GetEditor().CommitEdit();
    if (mHistory) mHistory->BeginStep(caption);
    for (const std::string& item : items) {
        if (mUnsaved) mUnsaved->ItemShown(item);
        if (mHistory) mHistory->ItemShown(item);
    }
    work();
    mWorkspace.GetSession().GetProject()->SetDirty(true);
    for (const std::string& item : items) {
        if (mUnsaved) mUnsaved->ItemChanged(item);
        if (mHistory) mHistory->ItemChanged(item);
    }
    if (mHistory) mHistory->EndStep();
    mWorkspace.ShowChanged(items);
}

} // namespace paperkite
