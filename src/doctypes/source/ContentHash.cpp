#include "doctypes/source/ContentHash.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace paperkite {

std::uint64_t ContentHash::Of(std::string_view bytes) {
    ContentHash hash;
    hash.Add(bytes);
    return hash.Value();
}

// both halves of a wide product depend on all bits of the word and of what came before
void ContentHash::Mix(std::uint64_t word) {
    __extension__ using Wide = unsigned __int128;
    const Wide product = static_cast<Wide>(mState ^ word) * 0xD6E8FEB86659FD93ull;
    const auto low = static_cast<std::uint64_t>(product);
    const auto high = static_cast<std::uint64_t>(product >> 64);
    mState = low ^ high ^ std::rotl(mState, 23);
}

void ContentHash::Add(std::string_view bytes) {
    if (bytes.empty()) {
        return;
    }
    mLength += bytes.size();
    if (mRestSize > 0) {
        const std::size_t taken = std::min(mRest.size() - mRestSize, bytes.size());
        std::memcpy(mRest.data() + mRestSize, bytes.data(), taken);
        mRestSize += taken;
        bytes.remove_prefix(taken);
        if (mRestSize < mRest.size()) {
            return;
        }
        std::uint64_t word;
        std::memcpy(&word, mRest.data(), sizeof word);
        Mix(word);
        mRestSize = 0;
    }
    while (bytes.size() >= sizeof(std::uint64_t)) {
        std::uint64_t word;
        std::memcpy(&word, bytes.data(), sizeof word);
        Mix(word);
        bytes.remove_prefix(sizeof word);
    }
    if (!bytes.empty()) {
        std::memcpy(mRest.data(), bytes.data(), bytes.size());
        mRestSize = bytes.size();
    }
}

std::uint64_t ContentHash::Value() const {
    ContentHash last = *this;
    std::uint64_t word = 0;
    std::memcpy(&word, mRest.data(), mRestSize);
    last.Mix(word);
    last.Mix(mLength);
    return last.mState;
}

} // namespace paperkite
