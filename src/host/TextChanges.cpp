#include "host/TextChanges.h"

#include "host/OutsideChange.h"

#include <algorithm>
#include <set>
#include <utility>

namespace paperkite {

Ref<TaggedComment> TextChanges::FindComment(const Change& change) const {
    const auto comments = mWorkspace.GetSession().GetProject()->GetComments()->Find(change.Item);
    if (!comments || !comments->Contains(change.CommentId)) return {};
    const auto comment = comments->Item(change.CommentId);
    return comment->GetState() == kTaggedCommentTombstone ? Ref<TaggedComment>() : comment;
}

/// Gives the changes that were made.
TextChanges::Changes TextChanges::Write(const Changes& changes) {
    // What is being typed may be a change of the same comment.
    mWorkspace.GetEditor().CommitEdit();
    Changes made;
    std::set<std::string> items;
    for (const Change& change : changes) {
        const auto comment = FindComment(change);
        if (!comment || comment->GetText() != change.Before) continue;
        made.push_back(change);
        items.insert(change.Item);
    }
    const std::vector<std::string> names(items.begin(), items.end());
    OutsideChange(mWorkspace, mUnsaved).Run(names, [&] {
        for (const Change& change : made)
            FindComment(change)->SetText(change.After);
    });
    for (const std::string& item : names)
        Events.Changed.Raise(item);
    return made;
}

std::size_t TextChanges::Apply(const Changes& changes) {
    Changes made = Write(changes);
    const std::size_t left = changes.size() - made.size();
    if (made.empty()) return left;
    mSteps.resize(mDone);
    mSteps.push_back(std::move(made));
    mDone = mSteps.size();
    return left;
}

std::size_t TextChanges::Undo() {
    if (!CanUndo()) return 0;
    Changes back = mSteps[--mDone];
    for (Change& change : back)
        std::swap(change.Before, change.After);
    return back.size() - Write(back).size();
}

std::size_t TextChanges::Redo() {
    if (!CanRedo()) return 0;
    const Changes again = mSteps[mDone++];
    return again.size() - Write(again).size();
}

void TextChanges::Clear() {
    mSteps.clear();
    mDone = 0;
}

} // namespace paperkite
