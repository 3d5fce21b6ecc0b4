#include "doctypes/source/SourceText.h"

#include <algorithm>
#include <fstream>

namespace paperkite {

namespace {

constexpr std::uintmax_t largestFile = 64u << 20;

} // namespace

SourceText::SourceText(std::string text) : mText(std::move(text)) {
    mStarts.push_back(0);
    for (std::size_t i = 0; i < mText.size(); ++i) {
        const bool isLoneReturn =
            mText[i] == '\r' && (i + 1 == mText.size() || mText[i + 1] != '\n');
        if ((mText[i] == '\n' || isLoneReturn) && i + 1 < mText.size()) {
            mStarts.push_back(i + 1);
        }
    }
}

std::optional<SourceText> SourceText::Read(const std::filesystem::path& file) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error || size > largestFile) {
        return std::nullopt;
    }
    std::ifstream stream(file, std::ios::binary);
    std::string text(size, '\0');
    if (!stream.read(text.data(), static_cast<std::streamsize>(size)) && !stream.eof()) {
        return std::nullopt;
    }
    text.resize(static_cast<std::size_t>(stream.gcount()));
    return SourceText(std::move(text));
}

std::string_view SourceText::Line(std::uint32_t line) const {
    if (line == 0 || line > LineCount()) {
        return {};
    }
    const std::size_t begin = mStarts[line - 1];
    std::string_view text(mText.data() + begin, Offset(line + 1) - begin);
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) {
        text.remove_suffix(1);
    }
    return text;
}

std::size_t SourceText::Offset(std::uint32_t line) const {
    return line >= 1 && line <= LineCount() ? mStarts[line - 1] : mText.size();
}

std::uint32_t SourceText::LineAt(std::size_t offset) const {
    const auto next = std::upper_bound(mStarts.begin(), mStarts.end(), offset);
    return static_cast<std::uint32_t>(next - mStarts.begin());
}

} // namespace paperkite
