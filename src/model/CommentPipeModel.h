#pragma once

#include "foundation/CommentPipe.h"

namespace paperkite {

/// Comments stand in files by tag, and are edited in the order in which the configuration defines
/// the tags: the general description first, tags without a definition last. Comments of one tag
/// keep their order among themselves, both ways, so that going there and back changes nothing.
class CommentPipeModel : public CommentPipe {
public:
    Ref<TaggedCommentCollection> Consolidate(const Ref<TaggedCommentCollection>& comments) override;
    Ref<TaggedCommentCollection> Separate(const Ref<TaggedCommentCollection>& comments) override;
};

} // namespace paperkite
