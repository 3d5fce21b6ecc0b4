#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace paperkite {

/// Finds the names that look most like one that does not exist, by edit distance, letter case
/// ignored. With a separator the last steps of the names count, as many as the wanted one has, and
/// "::", "." and "/" stand for it there.
class NearestNames {
public:
    explicit NearestNames(const std::string& wanted, std::string separator = {});

    void Offer(const std::string& candidate);
    /// At most that many, best first; names that have little in common with the wanted are left
    /// out.
    std::vector<std::string> Best(std::size_t count) const;

private:
    std::string Tail(const std::string& candidate) const;

    std::string mWanted;
    std::string mSeparator;
    std::size_t mSteps = 0;
    struct Found {
        std::size_t Distance;
        std::size_t SameBeginning;
        std::string Name;
    };
    std::vector<Found> mFound;
};

} // namespace paperkite
