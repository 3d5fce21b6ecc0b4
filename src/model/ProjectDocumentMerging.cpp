#include "model/CommentStore.h"
#include "model/MergeConflicts.h"
#include "model/ProjectDocument.h"
#include "model/ProjectReader.h"
#include "model/SafeFile.h"
#include "model/ThreeWayMerge.h"

// What somebody else does to the files while the project is open.

namespace paperkite {

std::vector<FileProblem> ProjectDocument::GetMissingFiles() const {
    std::vector<FileProblem> problems;
    for (const auto& file : mContentFiles) {
        if (!file->IsMissing) continue;
        FileProblem problem;
        problem.Reason = FileProblem::ReasonCode::Missing;
        problem.File = file->Path;
        problem.What = "This Content File of the project is missing; its comments are not shown.";
        problem.Remedy = "Put it back, or remove it from the project's list of Content Files.";
        problems.push_back(std::move(problem));
    }
    return problems;
}

std::vector<std::string> ProjectDocument::ChangedOnDisk() {
    std::vector<std::string> changed;
    if (mExistsOnDisk && mStamps.Differs(mPath, mBytes)) changed.push_back(mPath);
    for (const auto& file : mContentFiles)
        if ((file->ExistsOnDisk || file->IsMissing) && mStamps.Differs(file->Path, file->Bytes))
            changed.push_back(file->Path);
    return changed;
}

bool ProjectDocument::MayHoldConflicts() const {
    if (MergeConflicts::MayBeIn(mBytes)) return true;
    for (const auto& file : mContentFiles)
        if (MergeConflicts::MayBeIn(file->Bytes)) return true;
    return false;
}

ProjectDocument::FileBytes ProjectDocument::PresentBytes() const {
    FileBytes result;
    std::string canonical;
    result.emplace(mPath, BytesOfProject(canonical));
    for (const auto& file : mContentFiles)
        if (!file->IsMissing) result.emplace(file->Path, BytesOf(*file, canonical));
    return result;
}

ProjectDocument::FileBytes ProjectDocument::StoredBytes() const {
    FileBytes result;
    if (mExistsOnDisk) result.emplace(mPath, mBytes);
    for (const auto& file : mContentFiles)
        if (file->ExistsOnDisk) result.emplace(file->Path, file->Bytes.Get());
    return result;
}

/// Whether every file with unsaved comments is in the project still.
std::optional<FileProblem> ProjectDocument::CheckListed(const std::string& projectBytes) const {
    ProjectDocument merged;
    merged.mPath = mPath;
    if (auto problem = ProjectReader::Read(projectBytes, merged)) return problem;
    std::string canonical;
    for (const auto& file : mContentFiles) {
        bool isListed = false;
        for (const auto& entry : merged.GetCommentFiles())
            isListed = isListed || entry->FileName == file->Path;
        if (isListed || file->IsMissing || BytesOf(*file, canonical) == file->Bytes) continue;
        FileProblem problem;
        problem.Reason = FileProblem::ReasonCode::ChangedOnDisk;
        problem.File = file->Path;
        problem.What = "Somebody else took this Content File out of the project, and there are "
                       "unsaved comments for it.";
        problem.Remedy = "Save the project under another name to keep them.";
        return problem;
    }
    return {};
}

ProjectDocument::DiskMerge ProjectDocument::MergeWithDisk() const {
    DiskMerge result;
    const auto merge = [&result](const std::string& path, const std::string& base,
                                 const std::string& ours) {
        std::string theirs;
        const bool isThere = !SafeFile::Read(path, theirs);
        auto merged = isThere ? ThreeWayMerge::Merge({path, base}, {path, ours}, {path, theirs})
                              : ThreeWayMerge::Result{ours, 0, {}};
        if (merged.Problem) return merged.Problem;
        result.Conflicts += merged.Conflicts;
        if (merged.Bytes != theirs) result.Bytes[path] = std::move(merged.Bytes);
        if (isThere) result.Seen[path] = std::move(theirs);
        return std::optional<FileProblem>();
    };
    std::string canonical;
    result.Problem = merge(mPath, mBytes, BytesOfProject(canonical));
    for (const auto& file : mContentFiles) {
        if (result.Problem) return result;
        if (!file->IsMissing)
            result.Problem = merge(file->Path, file->Bytes, BytesOf(*file, canonical));
    }
    if (result.Problem) return result;
    const auto project = result.Bytes.find(mPath);
    std::string onDisk;
    if (project == result.Bytes.end()) result.Problem = SafeFile::Read(mPath, onDisk);
    if (!result.Problem)
        result.Problem = CheckListed(project == result.Bytes.end() ? onDisk : project->second);
    return result;
}

void ProjectDocument::TakeStoreOf(ProjectDocument& other) {
    other.mComments->SwapComments(*mComments);
    std::swap(other.mComments, mComments);
    MoveStoreTo(mPath);
}

} // namespace paperkite
