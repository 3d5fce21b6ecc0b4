#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace paperkite {

/// Keeps each different text once and hands out small numbers for them. Number 0 is the empty text.
/// Views stay valid as long as the pool lives, also when it is moved.
class StringPool {
public:
    using Id = std::uint32_t;
    static constexpr Id NotThere = 0xFFFFFFFF;

    StringPool();
    StringPool(StringPool&&) = default;
    StringPool& operator=(StringPool&&) = default;

    /// The same texts with the same numbers, in memory of its own.
    StringPool Copy() const;

    Id Intern(std::string_view text);
    Id Find(std::string_view text) const; ///< NotThere when the pool does not hold it

    std::string_view View(Id id) const { return mTexts[id]; }

    std::size_t Size() const { return mTexts.size(); }

    /// Gives back the memory that only finding and interning need. Afterwards there is only View.
    void Freeze();

    /// A frozen pool of texts that stand one behind the other in a block; `ends` says where each
    /// ends. They must ascend to the size of the block.
    static StringPool Frozen(std::unique_ptr<char[]> block, const std::vector<std::uint32_t>& ends);

private:
    std::size_t SlotOf(std::string_view text, std::uint32_t hash) const;
    std::string_view Keep(std::string_view text);
    void Grow();

    std::vector<std::unique_ptr<char[]>> mBlocks;
    char* mNext = nullptr; ///< where the last block is still free
    std::size_t mFree = 0; ///< bytes left there
    std::vector<std::string_view> mTexts;
    std::vector<std::uint32_t> mHashes; ///< of the texts
    std::vector<Id> mSlots;
};

} // namespace paperkite
