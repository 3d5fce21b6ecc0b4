#pragma once

#include "foundation/GlobalConfig.h"
#include "model/ConfigurationReader.h"

namespace paperkite::test {

/// The standard definitions in the process's configuration, within a scope.
class StandardDefinitions {
public:
    StandardDefinitions() : mOld(GlobalConfig().TaggedCommentDefs) {
        GlobalConfig().TaggedCommentDefs = ConfigurationReader::Standard();
    }

    StandardDefinitions(const StandardDefinitions&) = delete;
    StandardDefinitions& operator=(const StandardDefinitions&) = delete;
    ~StandardDefinitions() { GlobalConfig().TaggedCommentDefs = mOld; }

private:
    Ref<TaggedCommentDefs> mOld;
};

} // namespace paperkite::test
