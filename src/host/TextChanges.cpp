#include "host/TextChanges.h"

#include "host/OutsideChange.h"

#include <set>

namespace paperkite {

Ref<TaggedComment> TextChanges::FindComment(const Change& change) const {
    const auto comments = mWorkspace.GetSession().GetProject()->GetComments()->Find(change.Item);
    if (!comments || !comments->Contains(change.CommentId)) return {};
    const auto comment = comments->Item(change.CommentId);
    return comment->GetState() == kTaggedCommentTombstone ? Ref<TaggedComment>() : comment;
}

std::size_t TextChanges::Apply(const Changes& changes, const std::string& caption) {
    // What is being typed may be a change of the same comment.
    mWorkspace.GetEditor().CommitEdit();
    Changes made;
    std::set<std::string> items;
    for (const Change& change : changes) {
        const auto comment = FindComment(change);
        if (!comment || comment->GetWrittenText() != change.Before) continue;
        made.push_back(change);
        items.insert(change.Item);
    }
    const std::vector<std::string> names(items.begin(), items.end());
    OutsideChange(mWorkspace, mUnsaved, mHistory).Run(caption, names, [&] {
        for (const Change& change : made)
            FindComment(change)->SetText(change.After);
    });
    for (const std::string& item : names)
        Events.Changed.Raise(item);
    return changes.size() - made.size();
}

} // namespace paperkite
