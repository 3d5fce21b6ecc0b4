#include "host/TagName.h"

#include "foundation/GlobalConfig.h"

namespace paperkite {

std::string TagName(const std::string& tagIdentifier) {
    const auto definition = GlobalConfig().TaggedCommentDefs->Find(tagIdentifier);
    return definition ? definition->DisplayName : tagIdentifier;
}

std::string TagNameOf(const TaggedComment& comment) {
    std::string tag = TagName(comment.GetTagIdentifier());
    if (!comment.GetQualifier().empty()) tag += " " + comment.GetQualifier();
    return tag;
}

} // namespace paperkite
