#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace paperkite {

/// The memory of one run of the parser. It all goes at once, so that nobody walks the parser's tree
/// to free it, however deep that is. What the parser gives back is handed out again.
class GumboArena {
public:
    GumboArena() = default;
    GumboArena(const GumboArena&) = delete;
    GumboArena& operator=(const GumboArena&) = delete;

    void* Allocate(std::size_t size);
    void Free(void* piece);

private:
    // Small pieces are of every size that is a multiple of the grain, larger ones powers of two; in
    // front of each stands the number of its size. Nothing of the parser wants more than a
    // pointer's alignment.
    static constexpr std::size_t kGrain = 16;
    static constexpr std::size_t kSmallSizes = 32;
    static constexpr std::size_t kSizes = kSmallSizes + 48;
    static constexpr std::size_t kHeader = alignof(void*);
    static constexpr std::size_t kFirstBlock = 4096;

    char* Carve(std::size_t size);

    std::vector<std::unique_ptr<char[]>> mBlocks;
    char* mNext = nullptr;
    std::size_t mLeft = 0;
    std::size_t mBlockSize = kFirstBlock;
    std::array<void*, kSizes> mFree{};
};

} // namespace paperkite
