#pragma once

#include "model/CommentStore.h"
#include "model/CoverageSource.h"

#include <cstddef>
#include <string>
#include <vector>

namespace paperkite {

/// How many of a code base's items are documented: in all, and by their kind or file.
class CoverageReport {
public:
    enum class Grouping { Kind, File };

    struct Count {
        std::size_t Documented = 0;
        std::size_t Total = 0;

        /// 0 to 100; nothing to document is fully documented.
        double Percent() const;
        /// Exact: 2 of 3 do not reach 66.67.
        bool Reaches(double percent) const;
    };

    struct Group : Count {
        std::string Name;
    };

    static CoverageReport Make(const CoverageSource& source, const CommentStore& comments,
                               Grouping grouping = Grouping::Kind);

    const Count& GetAll() const { return mAll; }
    /// Sorted by name.
    const std::vector<Group>& GetGroups() const { return mGroups; }
    /// The qualified names that have comments and that the source does not list, sorted: items that
    /// were renamed or removed.
    const std::vector<std::string>& GetGone() const { return mGone; }

private:
    Count mAll;
    std::vector<Group> mGroups;
    std::vector<std::string> mGone;
};

} // namespace paperkite
