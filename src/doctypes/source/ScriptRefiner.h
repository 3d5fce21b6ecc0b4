#pragma once

#include "doctypes/source/LanguageRefiner.h"

namespace paperkite {

/// JavaScript and TypeScript: a module for each file.
class ScriptRefiner : public LanguageRefiner {
public:
    std::optional<std::vector<ScopeStep>> GroupOfPath(std::string_view path) const override;

protected:
    void Prepare(Work& work) const override;
    std::optional<std::vector<CtagsTag>> BetterTags(const Work& work) const override;
    bool IsLocal(const CtagsTag& tag, Work& work) const override;
    bool IsWanted(const CtagsTag& tag, const Work& work) const override;
    SourceKind KindOf(const CtagsTag& tag) const override;
    bool Mend(Draft& draft, Work& work) const override;
};

} // namespace paperkite
