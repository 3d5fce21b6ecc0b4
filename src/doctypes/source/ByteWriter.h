#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace paperkite {

/// Puts numbers and texts one after the other, for ByteReader.
class ByteWriter {
public:
    /// Seven bits in a byte, so that small numbers are short.
    void Number(std::uint64_t number) {
        while (number >= 0x80) {
            mBytes += static_cast<char>(number | 0x80);
            number >>= 7;
        }
        mBytes += static_cast<char>(number);
    }

    void Text(std::string_view text) {
        Number(text.size());
        mBytes += text;
    }

    const std::string& Bytes() const { return mBytes; }

    std::string Take() { return std::move(mBytes); }

private:
    std::string mBytes;
};

} // namespace paperkite
