#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace paperkite {

/// The memory of one run of a parser. It all goes at once, so that nobody walks the parser's tree
/// to free it, however deep that is. What the parser gives back is handed out again.
class ParserArena {
public:
    ParserArena() = default;
    ParserArena(const ParserArena&) = delete;
    ParserArena& operator=(const ParserArena&) = delete;

    void* Allocate(std::size_t size);
    /// A piece of that size that begins with what stands in this one, which may be none.
    void* Reallocate(void* piece, std::size_t size);
    void Free(void* piece);

private:
    // Small pieces are of every size that is a multiple of the grain, larger ones powers of two; in
    // front of each stands the number of its size. Nothing of the parsers wants more than a
    // pointer's alignment.
    static constexpr std::size_t kGrain = 16;
    static constexpr std::size_t kSmallSizes = 32;
    static constexpr std::size_t kSizes = kSmallSizes + 48;
    static constexpr std::size_t kHeader = alignof(void*);
    static constexpr std::size_t kFirstBlock = 4096;

    char* Carve(std::size_t size);
    static std::size_t NumberOf(void* piece);

    std::vector<std::unique_ptr<char[]>> mBlocks;
    char* mNext = nullptr;
    std::size_t mLeft = 0;
    std::size_t mBlockSize = kFirstBlock;
    std::array<void*, kSizes> mFree{};
};

} // namespace paperkite
