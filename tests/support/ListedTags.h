#pragma once

#include "foundation/GlobalConfig.h"

namespace paperkite::test {

/// Puts every tag that is no flag into the tag list, without a tab: for tests of what an author
/// does there.
inline void ListAllTags() {
    for (const auto& definition : *GlobalConfig().TaggedCommentDefs)
        if (definition->TagType != "f") definition->TabName.clear();
}

} // namespace paperkite::test
