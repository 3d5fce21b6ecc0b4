#pragma once

#include "doctypes/source/LanguageRefiner.h"

namespace paperkite {

/// Ruby: modules and classes stand under the project, whichever file opens them.
class RubyRefiner : public LanguageRefiner {
protected:
    std::vector<ScopeStep> GroupOf(Work& work) const override;
    bool IsWanted(const CtagsTag& tag, const Work& work) const override;
    SourceKind KindOf(const CtagsTag& tag) const override;
    bool Mend(Draft& draft, Work& work) const override;
};

} // namespace paperkite
