#include "model/ContentFileReader.h"
#include "model/ContentFileWriter.h"
#include "model/ProjectDocument.h"
#include "model/ProjectPaths.h"
#include "model/ProjectReader.h"
#include "model/ProjectWriter.h"
#include "model/SafeFile.h"

#include <algorithm>
#include <filesystem>

namespace paperkite {

namespace {

FileProblem Problem(FileProblem::ReasonCode reason, const std::string& file, std::string what,
                    std::string remedy) {
    FileProblem problem;
    problem.Reason = reason;
    problem.File = file;
    problem.What = std::move(what);
    problem.Remedy = std::move(remedy);
    return problem;
}

/// Whether a file may be replaced: it is the one that was read or written last, or none is there.
std::optional<FileProblem> CheckUntouched(const std::string& path, bool isOurs,
                                          const std::string& bytes) {
    std::string present;
    if (const auto problem = SafeFile::Read(path, present))
        // What cannot be read now fails to be written with a better message.
        return {};
    if (!isOurs)
        return Problem(FileProblem::ReasonCode::AlreadyExists, path,
                       "A file of that name is there already.",
                       "Choose another name, or allow it to be replaced.");
    if (present == bytes) return {};
    return Problem(
        FileProblem::ReasonCode::ChangedOnDisk, path,
        "Another program has changed this file since it was opened.",
        "Open it again to see the change, save under another name to keep both, or allow "
        "it to be replaced.");
}

std::optional<FileProblem> Store(const std::string& path, bool isOurs, const std::string& oldBytes,
                                 const std::string& bytes, bool mayOverwrite) {
    if (!mayOverwrite)
        if (auto problem = CheckUntouched(path, isOurs, oldBytes)) return problem;
    SafeFile::CleanUp(path);
    return SafeFile::Write(path, bytes);
}

} // namespace

ProjectDocument::OpenResult ProjectDocument::Open(const std::string& path, const FileBytes& inPlace,
                                                  const FileBytes* seen) {
    auto project = MakeRef<ProjectDocument>();
    project->MoveStoreTo(path);
    SafeFile::CleanUp(project->mPath);
    std::string bytes;
    std::optional<FileProblem> problem = SafeFile::Read(project->mPath, bytes);
    const auto other = inPlace.find(project->mPath);
    if (!problem && seen && other != inPlace.end() && seen->contains(project->mPath))
        bytes = seen->at(project->mPath);
    const bool isAsOnDisk = other == inPlace.end() || other->second == bytes;
    if (!problem) problem = ProjectReader::Read(isAsOnDisk ? bytes : other->second, *project);
    if (!problem) problem = project->LoadContentFiles(inPlace, seen);
    if (problem) return {{}, problem};
    project->mBytes = std::move(bytes);
    project->mExistsOnDisk = true;
    // Nothing is what the writer makes of it: it will be written.
    if (isAsOnDisk) project->mCanonicalBytes = ProjectWriter::Canonical(*project);
    project->mDirty = !inPlace.empty();
    return {project, {}};
}

Ref<ContentFile> ProjectDocument::FindContentFile(const std::string& path) const {
    for (const auto& file : mContentFiles)
        if (file->Path == path) return file;
    return {};
}

std::optional<FileProblem> ProjectDocument::LoadContentFiles(const FileBytes& inPlace,
                                                             const FileBytes* seen) {
    for (const auto& entry : GetCommentFiles()) {
        if (FindContentFile(entry->FileName))
            return Problem(FileProblem::ReasonCode::BadContent, mPath,
                           "The Content File \"" + entry->FileName + "\" is listed twice.",
                           "Remove one of the two entries.");
        auto file = MakeRef<ContentFile>();
        file->Path = entry->FileName;
        SafeFile::CleanUp(file->Path);
        const auto other = inPlace.find(file->Path);
        auto problem = other == inPlace.end() ? ContentFileReader::Read(file, *mComments)
                                              : LoadInPlace(file, other->second, seen);
        if (problem && problem->Reason == FileProblem::ReasonCode::Missing)
            file->IsMissing = true;
        else if (problem)
            return problem;
        mContentFiles.push_back(file);
    }
    return {};
}

std::optional<FileProblem> ProjectDocument::LoadInPlace(const Ref<ContentFile>& file,
                                                        const std::string& bytes,
                                                        const FileBytes* seen) {
    std::string onDisk;
    bool exists = false;
    if (!seen) {
        exists = !SafeFile::Read(file->Path, onDisk);
    } else if (const auto then = seen->find(file->Path); then != seen->end()) {
        exists = true;
        onDisk = then->second;
    }
    if (auto problem = ContentFileReader::ReadBytes(file, bytes, *mComments)) return problem;
    if (exists && onDisk == bytes) return {};
    file->ExistsOnDisk = exists;
    file->Bytes = std::move(onDisk);
    file->CanonicalBytes = SharedText();
    return {};
}

std::optional<FileProblem> ProjectDocument::AddContentFile(const std::string& path) {
    const std::string whole = ProjectPaths::Normal(path);
    if (FindContentFile(whole))
        return Problem(FileProblem::ReasonCode::BadContent, whole,
                       "The project has this Content File already.", "Choose another one.");
    auto file = MakeRef<ContentFile>();
    file->Path = whole;
    if (std::filesystem::exists(whole))
        if (auto problem = ContentFileReader::Read(file, *mComments)) return problem;
    mContentFiles.push_back(file);
    auto entry = MakeRef<CommentFile>();
    entry->FileName = whole;
    GetCommentFiles().Add(entry);
    return {};
}

void ProjectDocument::RemoveContentFile(const std::string& path) {
    const std::string whole = ProjectPaths::Normal(path);
    auto& entries = GetCommentFiles();
    for (std::size_t position = entries.Count(); position >= 1; --position)
        if (entries.Item(position)->FileName == whole) entries.Remove(position);
    if (const Ref<ContentFile> file = FindContentFile(whole)) mComments->DropFile(file);
    std::erase_if(mContentFiles, [&whole](const auto& file) { return file->Path == whole; });
}

// The list of Content Files is open to everybody; what came and went there is followed here.
std::optional<FileProblem> ProjectDocument::SyncContentFiles() {
    std::vector<Ref<ContentFile>> listed;
    for (const auto& entry : GetCommentFiles()) {
        const std::string path = ProjectPaths::Normal(entry->FileName);
        Ref<ContentFile> file = FindContentFile(path);
        if (!file) {
            file = MakeRef<ContentFile>();
            file->Path = path;
            if (std::filesystem::exists(path))
                if (auto problem = ContentFileReader::Read(file, *mComments)) return problem;
        }
        listed.push_back(file);
    }
    for (const auto& file : mContentFiles)
        if (std::find(listed.begin(), listed.end(), file) == listed.end())
            mComments->DropFile(file);
    mContentFiles = std::move(listed);
    return MakeHomeOfNew();
}

// A file that is missing may come back: what is new must not stand in its place then.
std::optional<FileProblem> ProjectDocument::MakeHomeOfNew() {
    if (HomeOfNew() || mComments->Count() == 0) return {};
    const std::string name = ProjectPaths::FolderOf(mPath) + "/" + ProjectPaths::BaseName(mPath);
    std::string path = name + ".ktc";
    for (int number = 2;
         FindContentFile(path) || (!mContentFiles.empty() && std::filesystem::exists(path));
         ++number)
        path = name + "-" + std::to_string(number) + ".ktc";
    return AddContentFile(path);
}

Ref<ContentFile> ProjectDocument::HomeOfNew() const {
    for (const auto& file : mContentFiles)
        if (!file->IsMissing) return file;
    return {};
}

bool ProjectDocument::IsHome(const ContentFile& file, const CommentStore::Origin& origin) const {
    if (origin.File) return origin.File.get() == &file;
    return HomeOfNew().get() == &file;
}

std::string ProjectDocument::BytesOf(const ContentFile& file, std::string& canonical) const {
    const auto belongs = [this, &file](const CommentStore::Origin& origin) {
        return IsHome(file, origin);
    };
    canonical = ContentFileWriter::Canonical(file, *mComments, belongs);
    return canonical == file.CanonicalBytes.Get() ? file.Bytes.Get() : canonical;
}

std::string ProjectDocument::BytesOfProject(std::string& canonical) const {
    canonical = ProjectWriter::Canonical(*this);
    return canonical == mCanonicalBytes ? mBytes : canonical;
}

std::optional<FileProblem> ProjectDocument::StoreContentFile(const Ref<ContentFile>& file,
                                                             Overwriting overwriting) {
    if (file->IsMissing) return {};
    std::string canonical;
    const std::string bytes = BytesOf(*file, canonical);
    const bool isStored =
        file->ExistsOnDisk && bytes == file->Bytes && std::filesystem::exists(file->Path);
    if (!isStored) {
        if (auto problem = Store(file->Path, file->ExistsOnDisk, file->Bytes, bytes,
                                 overwriting == Overwriting::Allowed))
            return problem;
        file->Bytes = bytes;
        file->CanonicalBytes = canonical;
        file->ExistsOnDisk = true;
    }
    MarkStored(file);
    return {};
}

void ProjectDocument::MarkStored(const Ref<ContentFile>& file) {
    mComments->MarkStored(
        file, [this, &file](const CommentStore::Origin& origin) { return IsHome(*file, origin); });
}

std::optional<FileProblem> ProjectDocument::StoreProjectFile(Overwriting overwriting) {
    std::string canonical;
    const std::string bytes = BytesOfProject(canonical);
    if (mExistsOnDisk && bytes == mBytes && std::filesystem::exists(mPath)) return {};
    if (auto problem =
            Store(mPath, mExistsOnDisk, mBytes, bytes, overwriting == Overwriting::Allowed))
        return problem;
    mBytes = bytes;
    mCanonicalBytes = canonical;
    mExistsOnDisk = true;
    return {};
}

std::optional<FileProblem> ProjectDocument::Save(Overwriting overwriting) {
    if (mPath.empty())
        return Problem(FileProblem::ReasonCode::CannotWrite, "(new project)",
                       "The project has no file yet.", "Save it under a name.");
    if (auto problem = SyncContentFiles()) return problem;
    for (const auto& file : mContentFiles)
        if (auto problem = StoreContentFile(file, overwriting)) return problem;
    if (auto problem = StoreProjectFile(overwriting)) return problem;
    mComments->DropTombstones();
    SetDirty(false);
    return {};
}

} // namespace paperkite
