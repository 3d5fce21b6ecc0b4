#include "model/ProjectDocument.h"
#include "model/ProjectPaths.h"
#include "model/ProjectWords.h"
#include "model/SafeFile.h"

#include <filesystem>

// Saving under another name.

namespace paperkite {

namespace {

bool IsBelow(const std::string& folder, const std::string& path) {
    return path.starts_with(folder == "/" ? folder : folder + "/");
}

/// What stood at a place before; nothing where no file was.
std::optional<std::string> BytesAt(const std::string& path) {
    std::string bytes;
    if (SafeFile::Read(path, bytes)) return {};
    return bytes;
}

/// Puts a file back as BytesAt found it.
void Restore(const std::string& path, const std::optional<std::string>& bytes) {
    std::error_code ignored;
    if (BytesAt(path) == bytes) return;
    if (bytes)
        SafeFile::Write(path, *bytes);
    else
        std::filesystem::remove(path, ignored);
}

} // namespace

/// A Content File with its entry in the project, as it was.
struct ProjectDocument::OldFile {
    Ref<CommentFile> Entry;
    Ref<ContentFile> File;
    std::string Path;
    SharedText Bytes;
    SharedText CanonicalBytes;
    bool ExistsOnDisk = false;
    /// What is found where it is to be written.
    std::optional<std::string> Replaced;
};

void ProjectDocument::MoveTo(const std::string& path) {
    const std::string oldFolder = ProjectPaths::FolderOf(mPath);
    const std::string oldName = ProjectPaths::BaseName(mPath);
    const std::string newFolder = ProjectPaths::FolderOf(path);
    for (const auto& entry : GetCommentFiles()) {
        const Ref<ContentFile> file = FindContentFile(entry->FileName);
        const bool stays = !file || file->IsMissing || mPath.empty();
        if (stays || !IsBelow(oldFolder, file->Path)) continue;
        std::filesystem::path moved = newFolder + file->Path.substr(oldFolder.size());
        if (moved.stem() == oldName)
            moved.replace_filename(ProjectPaths::BaseName(path) + moved.extension().string());
        if (moved.string() == file->Path) continue;
        file->Path = entry->FileName = moved.string();
        file->ExistsOnDisk = false;
    }
    MoveStoreTo(path);
    mExistsOnDisk = false;
}

std::vector<ProjectDocument::OldFile> ProjectDocument::RememberFiles() const {
    std::vector<OldFile> old;
    for (const auto& entry : GetCommentFiles())
        if (const auto file = FindContentFile(ProjectPaths::Normal(entry->FileName)))
            old.push_back({entry,
                           file,
                           file->Path,
                           file->Bytes,
                           file->CanonicalBytes,
                           file->ExistsOnDisk,
                           {}});
    return old;
}

void ProjectDocument::GoBackTo(std::vector<OldFile> old) {
    for (OldFile& was : old) {
        ContentFile& file = *was.File;
        if (file.Path == was.Path) continue;
        const bool isWritten = file.ExistsOnDisk;
        std::error_code ignored;
        if (isWritten && was.Replaced)
            SafeFile::Write(file.Path, *was.Replaced);
        else if (isWritten)
            std::filesystem::remove(file.Path, ignored);
        file.Path = was.Entry->FileName = was.Path;
        file.Bytes = std::move(was.Bytes);
        file.CanonicalBytes = std::move(was.CanonicalBytes);
        file.ExistsOnDisk = was.ExistsOnDisk;
    }
}

std::optional<FileProblem> ProjectDocument::SaveAs(const std::string& path,
                                                   Overwriting overwriting) {
    const std::string whole = ProjectPaths::Normal(path);
    if (whole == mPath) return Save(overwriting);
    if (auto problem = SyncContentFiles()) return problem;

    const std::string oldPath = mPath;
    ProjectWords words(whole);
    const std::optional<std::string> oldWords = BytesAt(words.GetPath());
    if (!oldPath.empty())
        if (auto problem = words.TakeFrom(oldPath)) return problem;
    const bool existed = mExistsOnDisk;
    std::vector<OldFile> old = RememberFiles();
    MoveTo(whole);
    for (OldFile& was : old)
        if (was.File->Path != was.Path) was.Replaced = BytesAt(was.File->Path);
    const auto problem = Save(overwriting);
    if (!problem) return {};
    Restore(words.GetPath(), oldWords);
    GoBackTo(std::move(old));
    MoveStoreTo(oldPath);
    mExistsOnDisk = existed;
    return problem;
}

} // namespace paperkite
