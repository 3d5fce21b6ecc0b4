#pragma once

#include "foundation/Object.h"

#include <string>

namespace paperkite {

/// A rule that applies one tagged comment to every member whose type and name match.
struct ModelComment : Object {
    std::string TypeName() const override { return "ModelComment"; }

    /// Its key in the collection.
    std::string Key;
    /// The item type of the members.
    std::string MemberType;
    /// May hold wildcards.
    std::string MemberName;
    std::string ParentName;
    /// The tag under which the text is inserted.
    std::string TaggedCommentPrefix;
    std::string TaggedcommentText;
    /// Only members that have no comment of this tag get the text.
    bool OnlyIfBlank = false;
    /// 1 before, 2 after the member's own comment of the tag.
    int InsertionPoint = 2;
};

} // namespace paperkite
