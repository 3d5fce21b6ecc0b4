#include "host/LayoutFile.h"

#include "foundation/Text.h"
#include "model/SafeFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>

namespace paperkite {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

} // namespace

LayoutFile::LayoutFile(Ref<PageTemplateDocument> owner, Ref<PageLayout> layout)
    : mTemplate(std::move(owner)), mLayout(std::move(layout)) {}

bool LayoutFile::IsWritable() const {
    const std::string folder = std::filesystem::path(GetPath()).parent_path().string();
    const auto may = [](const std::string& path) {
        return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
    };
    return may(GetPath()) && may(folder);
}

// Line ends of both kinds are left as they are.
void LayoutFile::Take(const std::string& bytes) {
    mBytes = bytes;
    mHasMark = bytes.starts_with(kByteOrderMark);
    mText = bytes.substr(mHasMark ? kByteOrderMark.size() : 0);
    const std::string shortened = ReplaceAll(mText, "\r\n", "\n");
    mHasLongLineEnds =
        shortened.size() < mText.size() && ReplaceAll(shortened, "\n", "\r\n") == mText;
    if (mHasLongLineEnds) mText = shortened;
}

std::string LayoutFile::BytesOf(const std::string& text) const {
    return (mHasMark ? std::string(kByteOrderMark) : std::string()) +
           (mHasLongLineEnds ? ReplaceAll(ReplaceAll(text, "\r\n", "\n"), "\n", "\r\n") : text);
}

std::optional<FileProblem> LayoutFile::Read() {
    std::string bytes;
    if (auto problem = mTemplate->ReadLayout(*mLayout, bytes)) return problem;
    Take(bytes);
    return {};
}

std::optional<std::string> LayoutFile::ChangedBytes() const {
    std::string present;
    if (mTemplate->ReadLayout(*mLayout, present) || present == mBytes) return {};
    return present;
}

std::optional<FileProblem> LayoutFile::Write(const std::string& text, Others others) {
    if (others == Others::Keep && !IsAsRead())
        return FileProblem{FileProblem::ReasonCode::ChangedOnDisk,
                           GetPath(),
                           0,
                           0,
                           "Somebody else changed this layout since it was opened.",
                           "Replace it, or save a copy and put both together."};
    const std::string bytes = BytesOf(text);
    if (auto problem = mTemplate->WriteLayout(*mLayout, bytes)) return problem;
    mBytes = bytes;
    mText = text;
    return {};
}

std::optional<FileProblem> LayoutFile::WriteCopy(const std::string& text,
                                                 const std::string& path) const {
    return SafeFile::Write(path, BytesOf(text));
}

} // namespace paperkite
