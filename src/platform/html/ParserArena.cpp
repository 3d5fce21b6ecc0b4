#include "platform/html/ParserArena.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace paperkite {

void* ParserArena::Allocate(std::size_t size) {
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

std::size_t ParserArena::NumberOf(void* piece) {
    std::size_t number;
    std::memcpy(&number, static_cast<char*>(piece) - kHeader, sizeof number);
    return number;
}

void* ParserArena::Reallocate(void* piece, std::size_t size) {
    if (!piece) return Allocate(size);
    const std::size_t number = NumberOf(piece);
    const std::size_t whole =
        number > kSmallSizes ? std::size_t(1) << (number - kSmallSizes) : number * kGrain;
    if (size <= whole - kHeader) return piece;
    void* larger = Allocate(size);
    std::memcpy(larger, piece, whole - kHeader);
    Free(piece);
    return larger;
}

void ParserArena::Free(void* piece) {
    if (!piece) return;
    const std::size_t number = NumberOf(piece);
    std::memcpy(piece, &mFree[number], sizeof(void*));
    mFree[number] = piece;
}

char* ParserArena::Carve(std::size_t size) {
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
