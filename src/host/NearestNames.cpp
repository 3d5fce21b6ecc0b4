#include "host/NearestNames.h"

#include "foundation/Text.h"

#include <algorithm>

namespace paperkite {

namespace {

/// A third of the letters may differ, and two of the shortest names.
std::size_t LimitFor(const std::string& wanted) {
    return std::max<std::size_t>(2, wanted.size() / 3);
}

} // namespace

std::size_t EditDistance(const std::string& left, const std::string& right, std::size_t limit) {
    const std::size_t difference =
        left.size() > right.size() ? left.size() - right.size() : right.size() - left.size();
    if (difference > limit) return limit + 1;
    std::vector<std::size_t> row(right.size() + 1);
    for (std::size_t column = 0; column <= right.size(); ++column)
        row[column] = column;
    for (std::size_t line = 1; line <= left.size(); ++line) {
        std::size_t diagonal = row[0];
        row[0] = line;
        std::size_t smallest = line;
        for (std::size_t column = 1; column <= right.size(); ++column) {
            const std::size_t replaced = diagonal + (left[line - 1] != right[column - 1]);
            diagonal = row[column];
            row[column] = std::min({row[column] + 1, row[column - 1] + 1, replaced});
            smallest = std::min(smallest, row[column]);
        }
        if (smallest > limit) return limit + 1;
    }
    return std::min(row.back(), limit + 1);
}

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
