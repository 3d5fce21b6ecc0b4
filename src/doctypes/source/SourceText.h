#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// The text of one file with its lines. Bytes are kept as they are, line ends LF, CR LF and CR.
class SourceText {
public:
    explicit SourceText(std::string text);

    /// Nothing when the file cannot be read or is larger than 64 MiB.
    static std::optional<SourceText> Read(const std::filesystem::path& file);

    /// The bytes of a file alone; nothing as with Read.
    static std::optional<std::string> ReadBytes(const std::filesystem::path& file);

    const std::string& Text() const { return mText; }

    std::uint32_t LineCount() const { return static_cast<std::uint32_t>(mStarts.size()); }

    /// The line without its end; lines count from 1. Empty when there is no such line.
    std::string_view Line(std::uint32_t line) const;

    /// Where the line begins; the end of the text when there is no such line.
    std::size_t Offset(std::uint32_t line) const;

    /// The line that holds the byte.
    std::uint32_t LineAt(std::size_t offset) const;

private:
    std::string mText;
    std::vector<std::size_t> mStarts;
};

} // namespace paperkite
