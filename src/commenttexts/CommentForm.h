#pragma once

#include "foundation/TaggedCommentDef.h"

namespace paperkite {

/// How the text of a comment is written. The designer that its tag's definition names decides.
enum class CommentForm {
    Html,          ///< HTML; also for tags without a designer
    Keywords,      ///< KeywordList
    IsNew,         ///< the version, or nothing
    IsExample,     ///< ExampleNote
    ExampleSource, ///< ExampleReference
    CommentsFrom,  ///< the qualified name of another item
    MenuItem,      ///< MenuPath
    SubItems,      ///< SubItemList, which is HTML too
    Xml,           ///< XML as its author typed it
};

/// The form of a definition's comments; nothing is HTML.
CommentForm FormOf(const TaggedCommentDef* definition);

inline CommentForm FormOf(const Ref<TaggedCommentDef>& definition) {
    return FormOf(definition.get());
}

} // namespace paperkite
