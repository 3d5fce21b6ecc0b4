#include "host/LayoutFile.h"

#include "model/SafeFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>

namespace paperkite {

LayoutFile::LayoutFile(Ref<PageTemplateDocument> owner, Ref<PageLayout> layout)
    : mTemplate(std::move(owner)), mLayout(std::move(layout)) {}

bool LayoutFile::IsWritable() const {
    const std::string folder = std::filesystem::path(GetPath()).parent_path().string();
    const auto may = [](const std::string& path) {
        return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
    };
    return may(GetPath()) && may(folder);
}

void LayoutFile::Take(const std::string& bytes) {
    mBytes = bytes;
    const LayoutEnvelope envelope(bytes);
    mPrologue = envelope.GetPrologue();
    mRoot = envelope.GetRoot();
    mEpilogue = envelope.GetEpilogue();
}

std::optional<FileProblem> LayoutFile::Read() {
    std::string bytes;
    if (auto problem = mTemplate->ReadLayout(*mLayout, bytes)) return problem;
    Take(bytes);
    return {};
}

std::string LayoutFile::With(const std::string& text) const {
    return mPrologue + text + mEpilogue;
}

std::optional<FileProblem> LayoutFile::Write(const std::string& text, Others others) {
    std::string present;
    const bool isThere = !mTemplate->ReadLayout(*mLayout, present);
    if (others == Others::Keep && isThere && present != mBytes)
        return FileProblem{FileProblem::ReasonCode::ChangedOnDisk,
                           GetPath(),
                           0,
                           0,
                           "Somebody else changed this layout since it was opened.",
                           "Replace it, or save a copy and put both together."};
    const std::string bytes = With(text);
    if (auto problem = mTemplate->WriteLayout(*mLayout, bytes)) return problem;
    mBytes = bytes;
    mRoot = text;
    return {};
}

std::optional<FileProblem> LayoutFile::WriteCopy(const std::string& text,
                                                 const std::string& path) const {
    return SafeFile::Write(path, With(text));
}

} // namespace paperkite
