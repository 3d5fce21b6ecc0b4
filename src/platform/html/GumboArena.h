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
    // Pieces are powers of two; in front of each stands which one.
    static constexpr std::size_t kClasses = 48;
    static constexpr std::size_t kHeader = 16;
    static constexpr std::size_t kFirstBlock = 4096;

    char* Carve(std::size_t size);

    std::vector<std::unique_ptr<char[]>> mBlocks;
    char* mNext = nullptr;
    std::size_t mLeft = 0;
    std::size_t mBlockSize = kFirstBlock;
    std::array<void*, kClasses> mFree{};
};

} // namespace paperkite
