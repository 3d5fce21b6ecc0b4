#include "model/MergeOrder.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>

namespace paperkite {

namespace {

using Keys = std::vector<std::string>;
using KeySet = std::unordered_set<std::string>;

Keys Within(const Keys& keys, const KeySet& wanted) {
    Keys result;
    for (const std::string& key : keys)
        if (wanted.contains(key)) result.push_back(key);
    return result;
}

/// The order of what was in the base.
Keys Spine(const Keys& base, const Keys& ours, const Keys& theirs) {
    const KeySet inBase(base.begin(), base.end());
    const auto order = [&](const Keys& side) -> Keys {
        Keys own = Within(side, inBase);
        const KeySet present(side.begin(), side.end());
        if (own == Within(base, present)) return {};
        for (const std::string& key : base)
            if (!present.contains(key)) own.push_back(key);
        return own;
    };
    Keys byOurs = order(ours);
    Keys byTheirs = order(theirs);
    if (byOurs.empty() == byTheirs.empty()) return base;
    return byOurs.empty() ? byTheirs : byOurs;
}

using Anchored = std::unordered_map<std::string, Keys>;

/// What a side added, by the entry of the base that it stands behind; "" is the beginning.
Anchored AdditionsOf(const Keys& side, const KeySet& base,
                     const std::function<bool(const std::string&)>& isKept,
                     std::unordered_map<std::string, std::string>& anchors) {
    Anchored result;
    std::string anchor;
    for (const std::string& key : side) {
        if (!isKept(key)) continue;
        if (base.contains(key)) {
            anchor = key;
            continue;
        }
        result[anchor].push_back(key);
        // What both added at different places stands at one of them.
        const auto [known, isNew] = anchors.emplace(key, anchor);
        if (!isNew) known->second = std::min(known->second, anchor);
    }
    return result;
}

/// One side's additions behind the other's, in an order that knows no sides.
Keys Together(const Keys& left, const Keys& right) {
    Keys result = std::min(left, right);
    const KeySet known(result.begin(), result.end());
    for (const std::string& key : std::max(left, right))
        if (!known.contains(key)) result.push_back(key);
    return result;
}

} // namespace

std::vector<std::string> MergeOrder(const Keys& base, const Keys& ours, const Keys& theirs,
                                    const std::function<bool(const std::string&)>& isKept) {
    const KeySet inBase(base.begin(), base.end());
    std::unordered_map<std::string, std::string> anchors;
    Anchored added = AdditionsOf(ours, inBase, isKept, anchors);
    Anchored alsoAdded = AdditionsOf(theirs, inBase, isKept, anchors);
    Keys result;
    const auto add = [&](const std::string& anchor) {
        for (const std::string& key : Together(added[anchor], alsoAdded[anchor]))
            if (anchors[key] == anchor) result.push_back(key);
    };
    add({});
    for (const std::string& key : Spine(base, ours, theirs)) {
        if (!isKept(key)) continue;
        result.push_back(key);
        add(key);
    }
    return result;
}

} // namespace paperkite
