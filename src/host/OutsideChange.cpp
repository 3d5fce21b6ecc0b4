#include "host/OutsideChange.h"

#include <algorithm>

namespace paperkite {

void OutsideChange::Run(const std::vector<std::string>& items, const std::function<void()>& work) {
    if (items.empty()) return;
    // One of the items may be open: what was typed there comes first.
    mWorkspace.GetEditor().CommitEdit();
    if (mUnsaved)
        for (const std::string& item : items)
            mUnsaved->ItemShown(item);
    work();
    mWorkspace.GetSession().GetProject()->SetDirty(true);
    for (const std::string& item : items) {
        if (mUnsaved) mUnsaved->ItemChanged(item);
        ShowBold(item);
    }
    ShowOpenItemAnew(items);
}

void OutsideChange::ShowBold(const std::string& item) {
    const ProjectView& tree = mWorkspace.GetEditor().Project;
    if (!tree.GetHighlightCommentedItems()) return;
    if (const auto node = tree.GetNodes().Find(item))
        node->SetBold(mWorkspace.GetSession().GetProject()->GetComments()->IsDocumented(item));
}

void OutsideChange::ShowOpenItemAnew(const std::vector<std::string>& items) {
    const ProjectView& tree = mWorkspace.GetEditor().Project;
    const auto node = tree.GetSelectedItem();
    if (!node || std::find(items.begin(), items.end(), node->GetKey()) == items.end()) return;
    tree.tvwProject->UserClick(node);
}

} // namespace paperkite
