#pragma once

#include "foundation/TaggedCommentCollection.h"

namespace paperkite {

/// Turns a stored comment collection into the form that is edited, and back.
class CommentPipe : public Object {
public:
    std::string TypeName() const override { return "CommentPipe"; }

    /// A collection for editing, marked as consolidated; the comments in it are the same objects.
    virtual Ref<TaggedCommentCollection>
    Consolidate(const Ref<TaggedCommentCollection>& comments) = 0;
    /// The collection as it is stored; not marked any more.
    virtual Ref<TaggedCommentCollection> Separate(const Ref<TaggedCommentCollection>& comments) = 0;
};

} // namespace paperkite
