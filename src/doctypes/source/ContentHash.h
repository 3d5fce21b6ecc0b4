#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace paperkite {

/// A checksum of 64 bits that tells contents apart and finds damage. It is no protection against
/// somebody who makes up contents on purpose.
class ContentHash {
public:
    static std::uint64_t Of(std::string_view bytes);

    /// The pieces count as one text, however it is cut.
    void Add(std::string_view bytes);
    std::uint64_t Value() const;

private:
    void Mix(std::uint64_t word);

    std::uint64_t mState = 0x9E3779B97F4A7C15ull;
    std::uint64_t mLength = 0;
    std::array<char, 8> mRest = {}; ///< bytes that do not fill a word yet
    std::size_t mRestSize = 0;
};

} // namespace paperkite
