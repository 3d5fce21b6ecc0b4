#pragma once

#include "doctypes/source/LanguageRefiner.h"

namespace paperkite {

/// Python: a module for each file, packages for folders.
class PythonRefiner : public LanguageRefiner {
public:
    std::optional<std::vector<ScopeStep>> GroupOfPath(std::string_view path) const override;

protected:
    bool IsLocal(const CtagsTag& tag, Work& work) const override;
    bool IsWanted(const CtagsTag& tag, const Work& work) const override;
    SourceKind KindOf(const CtagsTag& tag) const override;
    bool Mend(Draft& draft, Work& work) const override;
};

} // namespace paperkite
