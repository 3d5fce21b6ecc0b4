#include "host/TagName.h"

#include "foundation/GlobalConfig.h"

namespace paperkite {

std::string TagName(const std::string& tagIdentifier) {
    const auto definition = GlobalConfig().TaggedCommentDefs->Find(tagIdentifier);
    return definition ? definition->DisplayName : tagIdentifier;
}

} // namespace paperkite
