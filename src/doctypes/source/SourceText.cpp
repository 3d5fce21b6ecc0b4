#include "doctypes/source/SourceText.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace paperkite {

namespace {

constexpr std::uintmax_t largestFile = 64u << 20;

} // namespace

SourceText::SourceText(std::string text) : mText(std::move(text)) {
    mStarts.push_back(0);
    if (mText.find('\r') == std::string::npos) {
        for (std::size_t i = 0; (i = mText.find('\n', i)) < mText.size() && ++i < mText.size();) {
            mStarts.push_back(i);
        }
        return;
    }
    for (std::size_t i = 0; i < mText.size(); ++i) {
        const bool isLoneReturn =
            mText[i] == '\r' && (i + 1 == mText.size() || mText[i + 1] != '\n');
        if ((mText[i] == '\n' || isLoneReturn) && i + 1 < mText.size()) {
            mStarts.push_back(i + 1);
        }
    }
}

std::optional<SourceText> SourceText::Read(const std::filesystem::path& file) {
    auto bytes = ReadBytes(file);
    return bytes ? std::optional<SourceText>(std::move(*bytes)) : std::nullopt;
}

std::optional<std::string> SourceText::ReadBytes(const std::filesystem::path& file) {
    const int handle = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (handle < 0) {
        return std::nullopt;
    }
    struct stat status = {};
    std::optional<std::string> text;
    if (::fstat(handle, &status) == 0 && S_ISREG(status.st_mode) &&
        static_cast<std::uintmax_t>(status.st_size) <= largestFile) {
        text.emplace(static_cast<std::size_t>(status.st_size), '\0');
        std::size_t size = 0;
        ssize_t count = 0;
        while (size < text->size() &&
               (count = ::read(handle, text->data() + size, text->size() - size)) > 0) {
            size += static_cast<std::size_t>(count);
        }
        text->resize(size);
        text = count < 0 ? std::nullopt : std::move(text);
    }
    ::close(handle);
    return text;
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
