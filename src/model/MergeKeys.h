#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace paperkite {

/// Numbers the keys of a merge, from 0 on, so that they are compared and looked up as numbers.
class MergeKeys {
public:
    /// The number of a key, a fresh one for a key that is new.
    std::size_t NumberOf(std::string key) {
        const auto found = mNumbers.find(key);
        if (found != mNumbers.end()) return found->second;
        mKeys.push_back(std::move(key));
        return mNumbers.emplace(mKeys.back(), mKeys.size() - 1).first->second;
    }
    const std::string& At(std::size_t number) const { return mKeys[number]; }
    std::size_t Count() const { return mKeys.size(); }
    /// How many keys are to be expected, roughly.
    void Expect(std::size_t count) { mNumbers.reserve(count); }

private:
    /// The keys stay where they are; the numbers refer to them.
    std::deque<std::string> mKeys;
    std::unordered_map<std::string_view, std::size_t> mNumbers;
};

} // namespace paperkite
