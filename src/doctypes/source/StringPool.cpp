#include "doctypes/source/StringPool.h"

#include <algorithm>
#include <cstring>
#include <functional>

namespace paperkite {

namespace {

constexpr std::size_t blockSize = 256 * 1024;

} // namespace

StringPool::StringPool() : mSlots(1024, NotThere) {
    Intern({});
}

// The slots are a power of two and at most two thirds full.
std::size_t StringPool::SlotOf(std::string_view text) const {
    const std::size_t mask = mSlots.size() - 1;
    std::size_t slot = std::hash<std::string_view>{}(text)&mask;
    while (mSlots[slot] != NotThere && mTexts[mSlots[slot]] != text) {
        slot = (slot + 1) & mask;
    }
    return slot;
}

StringPool::Id StringPool::Find(std::string_view text) const {
    return mSlots[SlotOf(text)];
}

StringPool::Id StringPool::Intern(std::string_view text) {
    std::size_t slot = SlotOf(text);
    if (mSlots[slot] != NotThere) {
        return mSlots[slot];
    }
    if ((mTexts.size() + 1) * 3 > mSlots.size() * 2) {
        Grow();
        slot = SlotOf(text);
    }
    const Id id = static_cast<Id>(mTexts.size());
    mTexts.push_back(Keep(text));
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
    mTexts.shrink_to_fit();
}

StringPool StringPool::Frozen(std::unique_ptr<char[]> block,
                              const std::vector<std::uint32_t>& ends) {
    StringPool pool;
    pool.mTexts.clear();
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
    for (Id id = 0; id < mTexts.size(); ++id) {
        mSlots[SlotOf(mTexts[id])] = id;
    }
}

} // namespace paperkite
