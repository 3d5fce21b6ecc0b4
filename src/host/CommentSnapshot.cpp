#include "host/CommentSnapshot.h"

#include <algorithm>

namespace paperkite {

namespace {

using TaggedComments = std::vector<Ref<TaggedComment>>;

Ref<TaggedComment> Take(const TaggedComments& comments, const std::string& id) {
    const auto found = std::find_if(comments.begin(), comments.end(),
                                    [&](const auto& comment) { return comment->GetId() == id; });
    return found == comments.end() ? Ref<TaggedComment>() : *found;
}

Ref<TaggedComment> Restored(const CommentSnapshot::Comment& wanted, const TaggedComments& present,
                            const Ref<Object>& item) {
    auto comment = Take(present, wanted.Id);
    if (!comment) {
        comment = MakeRef<TaggedComment>(wanted.Id);
        comment->SetItem(item);
        comment->SetState(kTaggedCommentNew);
    }
    if (comment->GetState() == kTaggedCommentTombstone) comment->SetState(0);
    comment->SetTagIdentifier(wanted.Tag);
    comment->SetQualifier(wanted.Qualifier);
    comment->SetXMLCommentType(wanted.XmlTag);
    comment->SetText(wanted.Text);
    return comment;
}

} // namespace

CommentSnapshot::Comment CommentSnapshot::Of(const TaggedComment& comment) {
    return {comment.GetId(), comment.GetTagIdentifier(), comment.GetQualifier(),
            comment.GetXMLCommentType(), comment.GetWrittenText()};
}

CommentSnapshot CommentSnapshot::Of(const ProjectSession& session, const std::string& item) {
    CommentSnapshot snapshot;
    const auto comments = session.GetProject()->GetComments()->Find(item);
    if (!comments) return snapshot;
    for (const auto& comment : *comments)
        if (comment->GetState() != kTaggedCommentTombstone)
            snapshot.mComments.push_back(Of(*comment));
    return snapshot;
}

const CommentSnapshot::Comment* CommentSnapshot::Find(const std::string& id) const {
    const auto found = std::find_if(mComments.begin(), mComments.end(),
                                    [&](const Comment& comment) { return comment.Id == id; });
    return found == mComments.end() ? nullptr : &*found;
}

void CommentSnapshot::Put(Comment comment) {
    for (Comment& present : mComments)
        if (present.Id == comment.Id) {
            present = std::move(comment);
            return;
        }
    mComments.push_back(std::move(comment));
}

void CommentSnapshot::Remove(const std::string& id) {
    std::erase_if(mComments, [&](const Comment& comment) { return comment.Id == id; });
}

void CommentSnapshot::Restore(const ProjectSession& session, const std::string& name) const {
    CommentStore& store = *session.GetProject()->GetComments();
    const Ref<Object> item = session.GetProvider()->GetItem(name);
    auto collection = item ? store.CommentsOf(item, name) : store.Find(name);
    const bool isNew = !collection;
    if (isNew) collection = MakeRef<TaggedCommentCollection>();
    const TaggedComments present(collection->begin(), collection->end());
    TaggedComments wanted;
    for (const Comment& comment : mComments)
        wanted.push_back(Restored(comment, present, item));
    for (const auto& comment : present) {
        if (Find(comment->GetId())) continue;
        // What was never stored leaves nothing behind.
        if (comment->GetState() == kTaggedCommentNew) continue;
        comment->SetState(kTaggedCommentTombstone);
        wanted.push_back(comment);
    }
    if (wanted == present) return;
    for (const auto& comment : present)
        collection->Remove(comment->GetId());
    for (const auto& comment : wanted)
        collection->Add(comment, comment->GetId());
    if (isNew) store.SetComments(name, collection);
}

} // namespace paperkite
