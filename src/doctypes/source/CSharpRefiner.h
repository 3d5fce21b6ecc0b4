#pragma once

#include "doctypes/source/LanguageRefiner.h"

namespace paperkite {

/// C#.
class CSharpRefiner : public LanguageRefiner {
protected:
    std::vector<ScopeStep> GroupOf(Work& work) const override;
    SourceKind KindOf(const CtagsTag& tag) const override;
    bool Mend(Draft& draft, Work& work) const override;
};

} // namespace paperkite
