#pragma once

#include <cstdint>
#include <string_view>

namespace paperkite {

/// Reads what a ByteWriter wrote, and never beyond its end: bytes that cannot be right make it bad,
/// and all that a bad reader gives is zero or empty.
class ByteReader {
public:
    explicit ByteReader(std::string_view bytes) : mBytes(bytes) {}

    std::uint64_t Number() {
        std::uint64_t number = 0;
        for (unsigned shift = 0; shift < 64 && !mBytes.empty(); shift += 7) {
            const auto byte = static_cast<unsigned char>(mBytes.front());
            mBytes.remove_prefix(1);
            number |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
            if (byte < 0x80) {
                return mIsGood ? number : 0;
            }
        }
        mIsGood = false;
        return 0;
    }

    /// A number that must not be larger.
    std::uint64_t NumberUpTo(std::uint64_t largest) {
        const std::uint64_t number = Number();
        mIsGood = mIsGood && number <= largest;
        return mIsGood ? number : 0;
    }

    std::string_view Text() {
        const std::uint64_t size = Number();
        mIsGood = mIsGood && size <= mBytes.size();
        if (!mIsGood) {
            return {};
        }
        const std::string_view text = mBytes.substr(0, size);
        mBytes.remove_prefix(size);
        return text;
    }

    bool IsGood() const { return mIsGood; }

    bool IsAtEnd() const { return mBytes.empty(); }

private:
    std::string_view mBytes;
    bool mIsGood = true;
};

} // namespace paperkite
