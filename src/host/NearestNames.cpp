#include "host/NearestNames.h"

#include "foundation/EditDistance.h"
#include "foundation/Text.h"

#include <algorithm>

namespace paperkite {

namespace {

/// A third of the letters may differ, and two of the shortest names.
std::size_t LimitFor(const std::string& wanted) {
    return std::max<std::size_t>(2, wanted.size() / 3);
}

} // namespace

NearestNames::NearestNames(const std::string& wanted, std::string separator)
    : mWanted(LowerCase(wanted)), mSeparator(std::move(separator)) {
    if (mSeparator.empty()) return;
    for (const char* other : {"::", ".", "/"})
        mWanted = ReplaceAll(mWanted, other, mSeparator);
    mSteps = Split(mWanted, mSeparator).size();
}

std::string NearestNames::Tail(const std::string& candidate) const {
    if (mSteps == 0) return candidate;
    std::size_t from = candidate.size();
    for (std::size_t step = 0; step < mSteps && from != std::string::npos && from > 0; ++step)
        from = candidate.rfind(mSeparator, from - 1);
    return from == std::string::npos || from == 0 ? candidate
                                                  : candidate.substr(from + mSeparator.size());
}

void NearestNames::Offer(const std::string& candidate) {
    const std::string tail = LowerCase(Tail(candidate));
    const std::size_t limit = LimitFor(mWanted);
    std::size_t distance = EditDistance(mWanted, tail, limit);
    // An overload of what was asked for comes first, a longer name last.
    if (tail.starts_with(mWanted + "("))
        distance = 0;
    else if (distance > limit && tail.starts_with(mWanted))
        distance = limit;
    if (distance > limit) return;
    const auto differs = std::mismatch(mWanted.begin(), mWanted.end(), tail.begin(), tail.end());
    mFound.push_back(
        {distance, static_cast<std::size_t>(differs.first - mWanted.begin()), candidate});
}

std::vector<std::string> NearestNames::Best(std::size_t count) const {
    auto found = mFound;
    std::stable_sort(found.begin(), found.end(), [](const Found& a, const Found& b) {
        return a.Distance != b.Distance ? a.Distance < b.Distance
                                        : a.SameBeginning > b.SameBeginning;
    });
    std::vector<std::string> names;
    for (std::size_t index = 0; index < std::min(count, found.size()); ++index)
        names.push_back(found[index].Name);
    return names;
}

} // namespace paperkite
