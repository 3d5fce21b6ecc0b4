#pragma once

namespace paperkite {

/// How the comments of an item are held.
enum class CommentType : int {
    /// As XML comment tags: only tags with a mapping to one can be used.
    XMLCommentTags = 0,
    /// As tagged comments, of every kind that the configuration defines.
    TaggedComments = 1,
};

} // namespace paperkite
