#include "doctypes/source/StringPool.h"

#include "doctypes/source/ContentHash.h"

#include <algorithm>
#include <cstring>

namespace paperkite {

namespace {

constexpr std::size_t blockSize = 256 * 1024;

std::uint32_t HashOf(std::string_view text) {
    return static_cast<std::uint32_t>(ContentHash::Of(text));
}

} // namespace

StringPool::StringPool() : mSlots(1024, NotThere) {
    Intern({});
}

StringPool StringPool::Copy() const {
    StringPool copy;
    copy.mTexts.clear();
    copy.mTexts.reserve(mTexts.size());
    for (const std::string_view text : mTexts) {
        copy.mTexts.push_back(copy.Keep(text));
    }
    copy.mHashes = mHashes;
    copy.mSlots = mSlots;
    return copy;
}

// The slots are a power of two and at most two thirds full.
std::size_t StringPool::SlotOf(std::string_view text, std::uint32_t hash) const {
    const std::size_t mask = mSlots.size() - 1;
    std::size_t slot = hash & mask;
    while (mSlots[slot] != NotThere &&
           (mHashes[mSlots[slot]] != hash || mTexts[mSlots[slot]] != text)) {
        slot = (slot + 1) & mask;
    }
    return slot;
}

StringPool::Id StringPool::Find(std::string_view text) const {
    return mSlots[SlotOf(text, HashOf(text))];
}

StringPool::Id StringPool::Intern(std::string_view text) {
    if (text.empty() && !mTexts.empty()) {
        return 0;
    }
    const std::uint32_t hash = HashOf(text);
    std::size_t slot = SlotOf(text, hash);
    if (mSlots[slot] != NotThere) {
        return mSlots[slot];
    }
    if ((mTexts.size() + 1) * 3 > mSlots.size() * 2) {
        Grow();
        slot = SlotOf(text, hash);
    }
    const Id id = static_cast<Id>(mTexts.size());
    mTexts.push_back(Keep(text));
    mHashes.push_back(hash);
    mSlots[slot] = id;
    return id;
}

std::string_view StringPool::Keep(std::string_view text) {
    if (text.empty()) {
        return {};
    }
    if (text.size() > mFree) {
        mFree = std::max(blockSize, text.size());
        mBlocks.push_back(std::make_unique_for_overwrite<char[]>(mFree));
        mNext = mBlocks.back().get();
    }
    std::memcpy(mNext, text.data(), text.size());
    const std::string_view kept(mNext, text.size());
    mNext += text.size();
    mFree -= text.size();
    return kept;
}

void StringPool::Freeze() {
    mSlots = {};
    mHashes = {};
    mTexts.shrink_to_fit();
}

StringPool StringPool::Frozen(std::unique_ptr<char[]> block,
                              const std::vector<std::uint32_t>& ends) {
    StringPool pool;
    pool.mTexts.clear();
    pool.mHashes = {};
    pool.mTexts.reserve(ends.size());
    std::size_t start = 0;
    for (const std::uint32_t end : ends) {
        pool.mTexts.emplace_back(block.get() + start, end - start);
        start = end;
    }
    pool.mBlocks.push_back(std::move(block));
    pool.mSlots = {};
    return pool;
}

void StringPool::Grow() {
    mSlots.assign(mSlots.size() * 2, NotThere);
    const std::size_t mask = mSlots.size() - 1;
    for (Id id = 0; id < mTexts.size(); ++id) {
        std::size_t slot = mHashes[id] & mask;
        while (mSlots[slot] != NotThere) {
            slot = (slot + 1) & mask;
        }
        mSlots[slot] = id;
    }
}

} // namespace paperkite
