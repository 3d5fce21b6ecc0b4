#include "model/MergeOrder.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace paperkite {

namespace {

using Numbers = std::vector<std::size_t>;
using Marks = std::vector<bool>;

Marks MarksOf(const Numbers& numbers, std::size_t count) {
    Marks marks(count);
    for (const std::size_t number : numbers)
        marks[number] = true;
    return marks;
}

Numbers Within(const Numbers& numbers, const Marks& wanted) {
    Numbers result;
    for (const std::size_t number : numbers)
        if (wanted[number]) result.push_back(number);
    return result;
}

/// The order of what was in the base.
Numbers Spine(const Numbers& base, const Marks& inBase, const Numbers& ours,
              const Numbers& theirs) {
    const auto order = [&](const Numbers& side) -> Numbers {
        Numbers own = Within(side, inBase);
        const Marks present = MarksOf(side, inBase.size());
        if (own == Within(base, present)) return {};
        for (const std::size_t number : base)
            if (!present[number]) own.push_back(number);
        return own;
    };
    Numbers byOurs = order(ours);
    Numbers byTheirs = order(theirs);
    if (byOurs.empty() == byTheirs.empty()) return base;
    return byOurs.empty() ? byTheirs : byOurs;
}

/// What both sides added, by the place that it stands at: 0 is the beginning, others are behind the
/// entry of the base whose number is one less.
class Additions {
public:
    Additions(const MergeKeys& keys, const Marks& inBase,
              const std::function<bool(std::size_t)>& isKept)
        : mKeys(keys), mInBase(inBase), mIsKept(isKept), mPlaces(keys.Count(), kNowhere) {}

    void AddOurs(const Numbers& side) { Add(side, mOurs); }
    void AddTheirs(const Numbers& side) { Add(side, mTheirs); }

    /// Adds what stands at a place: one side's additions behind the other's, in an order that knows
    /// no sides.
    void AppendTo(Numbers& result, std::size_t place) const {
        const Numbers& ours = At(mOurs, place);
        const Numbers& theirs = At(mTheirs, place);
        if (ours.empty() && theirs.empty()) return;
        const bool oursFirst = !std::lexicographical_compare(
            theirs.begin(), theirs.end(), ours.begin(), ours.end(),
            [this](std::size_t left, std::size_t right) {
                return left != right && mKeys.At(left) < mKeys.At(right);
            });
        const Numbers& first = oursFirst ? ours : theirs;
        const std::unordered_set<std::size_t> known(first.begin(), first.end());
        for (const std::size_t number : first)
            if (mPlaces[number] == place) result.push_back(number);
        for (const std::size_t number : oursFirst ? theirs : ours)
            if (mPlaces[number] == place && !known.contains(number)) result.push_back(number);
    }

private:
    using ByPlace = std::unordered_map<std::size_t, Numbers>;
    static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

    void Add(const Numbers& side, ByPlace& added) {
        std::size_t place = 0;
        for (const std::size_t number : side) {
            if (!mIsKept(number)) continue;
            if (mInBase[number]) {
                place = number + 1;
                continue;
            }
            added[place].push_back(number);
            // What both added at different places stands at one of them.
            if (mPlaces[number] == kNowhere || IsBefore(place, mPlaces[number]))
                mPlaces[number] = place;
        }
    }

    static const Numbers& At(const ByPlace& added, std::size_t place) {
        static const Numbers none;
        const auto found = added.find(place);
        return found == added.end() ? none : found->second;
    }
    bool IsBefore(std::size_t place, std::size_t other) const {
        if (place == 0 || other == 0) return place < other;
        return mKeys.At(place - 1) < mKeys.At(other - 1);
    }

    const MergeKeys& mKeys;
    const Marks& mInBase;
    const std::function<bool(std::size_t)>& mIsKept;
    Numbers mPlaces;
    ByPlace mOurs;
    ByPlace mTheirs;
};

} // namespace

std::vector<std::size_t> MergeOrder(const MergeKeys& keys, const Numbers& base, const Numbers& ours,
                                    const Numbers& theirs,
                                    const std::function<bool(std::size_t)>& isKept) {
    const Marks inBase = MarksOf(base, keys.Count());
    Additions additions(keys, inBase, isKept);
    additions.AddOurs(ours);
    additions.AddTheirs(theirs);
    Numbers result;
    additions.AppendTo(result, 0);
    for (const std::size_t number : Spine(base, inBase, ours, theirs)) {
        if (!isKept(number)) continue;
        result.push_back(number);
        additions.AppendTo(result, number + 1);
    }
    return result;
}

} // namespace paperkite
