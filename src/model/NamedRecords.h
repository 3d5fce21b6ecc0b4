#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace paperkite {

/// Records by name, gone through in the order in which they came. What came together lies together
/// in memory, so that going through many of them takes as long as reading them does, and not as
/// long as looking each one up.
///
/// A record stays where it is until it is erased. Entries are (name, record) pairs.
template <class Record>
class NamedRecords {
    struct Placed {
        Record Content;
        std::size_t Place = 0;
    };
    using Map = std::unordered_map<std::string, Placed>;

public:
    Record* Find(const std::string& name) {
        const auto found = mByName.find(name);
        return found == mByName.end() ? nullptr : &found->second.Content;
    }
    /// The record of a name; a new one at the end when there is none.
    Record& Make(std::string name) {
        const auto [entry, isNew] = mByName.try_emplace(std::move(name));
        if (isNew) {
            entry->second.Place = mOrder.size();
            mOrder.push_back(&*entry);
        }
        return entry->second.Content;
    }
    void Erase(const std::string& name) {
        const auto found = mByName.find(name);
        if (found == mByName.end()) return;
        mOrder[found->second.Place] = nullptr;
        mByName.erase(found);
    }
    void Clear() {
        mByName.clear();
        mOrder.clear();
    }
    /// Makes room for that many more.
    void Expect(std::size_t more) {
        mByName.reserve(mByName.size() + more);
        mOrder.reserve(mOrder.size() + more);
    }
    void Swap(NamedRecords& other) {
        mByName.swap(other.mByName);
        mOrder.swap(other.mOrder);
    }

    /// Visits (name, record); records may be added meanwhile, which are visited too.
    template <class Visit>
    void ForEach(const Visit& visit) {
        constexpr std::size_t kAhead = 8;
        for (std::size_t place = 0; place < mOrder.size(); ++place) {
            if (place + kAhead < mOrder.size()) __builtin_prefetch(mOrder[place + kAhead]);
            if (auto* const entry = mOrder[place]) visit(entry->first, entry->second.Content);
        }
    }

private:
    Map mByName;
    /// Nothing where one was erased.
    std::vector<typename Map::value_type*> mOrder;
};

} // namespace paperkite
