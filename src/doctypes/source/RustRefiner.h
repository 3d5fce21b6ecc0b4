#pragma once

#include "doctypes/source/LanguageRefiner.h"

namespace paperkite {

/// Rust: a module for each file; what an impl holds belongs to the type.
class RustRefiner : public LanguageRefiner {
public:
    std::optional<std::vector<ScopeStep>> GroupOfPath(std::string_view path) const override;

protected:
    std::string_view ScopeSeparator() const override { return "::"; }

    bool IsWanted(const CtagsTag& tag, const Work& work) const override;
    SourceKind KindOf(const CtagsTag& tag) const override;
    bool Mend(Draft& draft, Work& work) const override;
};

} // namespace paperkite
