#pragma once

#include "doctypes/source/LanguageRefiner.h"

namespace paperkite {

/// C and C++, with what Qt's moc adds.
class CFamilyRefiner : public LanguageRefiner {
protected:
    std::string_view ScopeSeparator() const override { return "::"; }

    std::vector<ScopeStep> GroupOf(Work& work) const override;
    std::vector<ScopeStep> ScopeOf(const CtagsTag& tag, const Work& work) const override;
    bool IsWanted(const CtagsTag& tag, const Work& work) const override;
    void Prepare(Work& work) const override;
    SourceKind KindOf(const CtagsTag& tag) const override;
    bool NeedsHead(SourceKind kind) const override;
    bool Mend(Draft& draft, Work& work) const override;
};

} // namespace paperkite
