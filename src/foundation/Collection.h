#pragma once

#include "foundation/Error.h"
#include "foundation/Text.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace paperkite {

/// How the keys of a collection are compared.
enum class KeyComparison { Exact, IgnoringCase };

/// An ordered list that counts from 1, with optional unique keys.
///
/// Adding, finding and removing by key take constant time, and so does the look-up by position
/// between removals. An unknown key or position raises error 5 or 9, a key that is already there
/// error 457. Removing while walking is safe, and adding too: the walk goes on with what follows.
template <class T>
class Collection {
    struct Entry {
        std::uint64_t Sequence;
        std::string Key;
        std::optional<T> Value;
    };

public:
    explicit Collection(KeyComparison comparison = KeyComparison::Exact)
        : mComparison(comparison) {}

    std::size_t Count() const { return mCount; }
    /// Makes room for that many entries.
    void Reserve(std::size_t count) { mEntries.reserve(count); }

    void Add(T value, const std::string& key = {}) {
        if (!key.empty() && !mSequenceOfKey.try_emplace(Normalised(key), mNextSequence).second)
            RaiseError(ErrorNumber::KeyAlreadyThere,
                       "The key \"" + key + "\" is already in the collection");
        mEntries.push_back(Entry{mNextSequence++, key, std::move(value)});
        ++mCount;
    }

    const T& Item(const std::string& key) const { return *mEntries[SlotOfKey(key)].Value; }
    T& Item(const std::string& key) { return *mEntries[SlotOfKey(key)].Value; }
    const T& Item(std::size_t position) const { return *mEntries[SlotOfPosition(position)].Value; }
    T& Item(std::size_t position) { return *mEntries[SlotOfPosition(position)].Value; }

    /// The key under which the entry at a position stands, or an empty text.
    const std::string& KeyAt(std::size_t position) const {
        return mEntries[SlotOfPosition(position)].Key;
    }

    bool Contains(const std::string& key) const { return FindKey(key) != mSequenceOfKey.end(); }

    /// The entry under a key, or nullptr: a look-up that never raises.
    const T* Find(const std::string& key) const {
        const auto found = FindKey(key);
        return found == mSequenceOfKey.end() ? nullptr
                                             : &*mEntries[SlotOfSequence(found->second)].Value;
    }

    void Remove(const std::string& key) { Erase(SlotOfKey(key)); }
    void Remove(std::size_t position) { Erase(SlotOfPosition(position)); }

    void Clear() {
        mEntries.clear();
        mSequenceOfKey.clear();
        mCount = 0;
    }

    /// Walks the entries that live, in order. It finds its place again by sequence number, so that
    /// removals, additions and clearing under way do no harm.
    template <class Owner, class Element>
    class Walk {
    public:
        using value_type = T;
        using reference = Element&;
        using pointer = Element*;
        using difference_type = std::ptrdiff_t;
        using iterator_category = std::input_iterator_tag;

        Walk(Owner* owner, std::uint64_t from) : mOwner(owner) { Seek(from); }

        Element& operator*() const { return *mOwner->mEntries[Slot()].Value; }

        Element* operator->() const { return &**this; }

        Walk& operator++() {
            Seek(mSequence + 1);
            return *this;
        }

        bool operator==(const Walk& other) const { return mSequence == other.mSequence; }

    private:
        friend class Collection;
        static constexpr std::uint64_t kEnd = UINT64_MAX;

        void Seek(std::uint64_t from) {
            if (from == kEnd) {
                mSequence = kEnd;
                return;
            }
            const auto& entries = mOwner->mEntries;
            std::size_t slot = mHint + 1;
            if (slot == 0 || slot >= entries.size() || entries[slot].Sequence != from)
                slot = mOwner->LowerSlot(from);
            while (slot < entries.size() && !entries[slot].Value)
                ++slot;
            mHint = slot;
            mSequence = slot < entries.size() ? entries[slot].Sequence : kEnd;
        }

        std::size_t Slot() const {
            if (mHint < mOwner->mEntries.size() && mOwner->mEntries[mHint].Sequence == mSequence &&
                mOwner->mEntries[mHint].Value)
                return mHint;
            const std::size_t slot = mOwner->LowerSlot(mSequence);
            if (slot >= mOwner->mEntries.size() || mOwner->mEntries[slot].Sequence != mSequence ||
                !mOwner->mEntries[slot].Value)
                RaiseError(ErrorNumber::SubscriptOutOfRange);
            return slot;
        }

        Owner* mOwner;
        std::uint64_t mSequence = kEnd;
        std::size_t mHint = static_cast<std::size_t>(-1);
    };

    using iterator = Walk<Collection, T>;
    using const_iterator = Walk<const Collection, const T>;

    iterator begin() { return iterator(this, 0); }
    iterator end() { return iterator(this, iterator::kEnd); }
    const_iterator begin() const { return const_iterator(this, 0); }
    const_iterator end() const { return const_iterator(this, const_iterator::kEnd); }

private:
    auto FindKey(const std::string& key) const {
        return mComparison == KeyComparison::Exact ? mSequenceOfKey.find(key)
                                                   : mSequenceOfKey.find(LowerCase(key));
    }

    std::string Normalised(const std::string& key) const {
        return mComparison == KeyComparison::Exact ? key : LowerCase(key);
    }

    std::size_t LowerSlot(std::uint64_t sequence) const {
        const auto found = std::lower_bound(
            mEntries.begin(), mEntries.end(), sequence,
            [](const Entry& entry, std::uint64_t wanted) { return entry.Sequence < wanted; });
        return static_cast<std::size_t>(found - mEntries.begin());
    }

    // While nothing was removed from the middle, sequence numbers are positions.
    std::size_t SlotOfSequence(std::uint64_t sequence) const {
        const std::uint64_t offset = sequence - mEntries.front().Sequence;
        if (offset < mEntries.size() && mEntries[offset].Sequence == sequence) return offset;
        return LowerSlot(sequence);
    }

    std::size_t SlotOfKey(const std::string& key) const {
        const auto found = FindKey(key);
        if (found == mSequenceOfKey.end())
            RaiseError(ErrorNumber::InvalidCall,
                       "The key \"" + key + "\" is not in the collection");
        return SlotOfSequence(found->second);
    }

    std::size_t SlotOfPosition(std::size_t position) const {
        if (position < 1 || position > mCount) RaiseError(ErrorNumber::SubscriptOutOfRange);
        if (mEntries.size() != mCount) Sweep();
        return position - 1;
    }

    void Erase(std::size_t slot) {
        if (!mEntries[slot].Key.empty()) mSequenceOfKey.erase(Normalised(mEntries[slot].Key));
        mEntries[slot].Value.reset();
        --mCount;
        if (mEntries.size() > 2 * mCount + 16) Sweep();
    }

    void Sweep() const {
        std::erase_if(mEntries, [](const Entry& entry) { return !entry.Value; });
    }

    KeyComparison mComparison;
    // Removed entries keep their slot until the next look-up by position.
    mutable std::vector<Entry> mEntries;
    std::unordered_map<std::string, std::uint64_t> mSequenceOfKey;
    std::uint64_t mNextSequence = 0;
    std::size_t mCount = 0;
};

} // namespace paperkite
