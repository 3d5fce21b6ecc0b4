#pragma once

#include <functional>
#include <string>

namespace paperkite {

/// What coverage needs to know of an item.
struct CoverageRow {
    std::string QualifiedName;
    /// The word for what it is ("Class", "Method").
    std::string Kind;
    /// Relative to the source folder; empty for items that stand in no file.
    std::string File;
};

/// Lists the items that ought to be documented, without making them.
class CoverageSource {
public:
    virtual ~CoverageSource() = default;
    /// Whether there is an item of that name at all, also one that need not be documented.
    virtual bool Exists(const std::string& qualifiedName) const = 0;
    virtual void ForEach(const std::function<void(const CoverageRow&)>& visit) const = 0;
};

} // namespace paperkite
