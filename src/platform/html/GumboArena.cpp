#include "platform/html/GumboArena.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace paperkite {

void* GumboArena::Allocate(std::size_t size) {
    std::size_t number = (size + kHeader + kGrain - 1) / kGrain;
    std::size_t whole = number * kGrain;
    if (number > kSmallSizes) {
        whole = std::bit_ceil(whole);
        number = kSmallSizes + static_cast<std::size_t>(std::countr_zero(whole));
    }
    if (void* piece = mFree[number]) {
        std::memcpy(&mFree[number], piece, sizeof(void*));
        return piece;
    }
    char* memory = Carve(whole);
    std::memcpy(memory, &number, sizeof number);
    return memory + kHeader;
}

void GumboArena::Free(void* piece) {
    if (!piece) return;
    std::size_t number;
    std::memcpy(&number, static_cast<char*>(piece) - kHeader, sizeof number);
    std::memcpy(piece, &mFree[number], sizeof(void*));
    mFree[number] = piece;
}

char* GumboArena::Carve(std::size_t size) {
    if (size > mLeft) {
        const std::size_t fresh = std::max(size, mBlockSize);
        mBlocks.push_back(std::make_unique_for_overwrite<char[]>(fresh));
        mBlockSize = std::min<std::size_t>(mBlockSize * 2, 1 << 22);
        // A piece that fills its block leaves the present one in use.
        if (size == fresh && mLeft > 0) return mBlocks.back().get();
        mNext = mBlocks.back().get();
        mLeft = fresh;
    }
    char* memory = mNext;
    mNext += size;
    mLeft -= size;
    return memory;
}

} // namespace paperkite
