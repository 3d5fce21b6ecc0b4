#include "model/PageTemplateDocument.h"

#include "model/PageTemplateReader.h"
#include "model/PageTemplateWriter.h"
#include "model/ProjectPaths.h"
#include "model/SafeFile.h"

#include <algorithm>
#include <filesystem>
#include <set>

namespace paperkite {

namespace {

namespace fs = std::filesystem;

FileProblem ProblemOf(FileProblem::ReasonCode reason, const std::string& file, std::string what,
                      std::string remedy) {
    FileProblem problem;
    problem.Reason = reason;
    problem.File = file;
    problem.What = std::move(what);
    problem.Remedy = std::move(remedy);
    return problem;
}

std::string DescriptionPath(const std::string& folder) {
    return folder + "/template.xml";
}

/// The folders below one, sorted; hidden ones left out.
std::vector<std::string> FoldersBelow(const std::string& folder) {
    std::vector<std::string> folders;
    std::error_code ignored;
    for (fs::directory_iterator entry(folder, ignored), end; !ignored && entry != end;
         entry.increment(ignored))
        if (entry->is_directory(ignored) && !entry->path().filename().string().starts_with('.'))
            folders.push_back(entry->path().string());
    std::sort(folders.begin(), folders.end());
    return folders;
}

} // namespace

PageTemplateDocument::~PageTemplateDocument() {
    NamespaceDefs->Release();
}

PageTemplateDocument::OpenResult PageTemplateDocument::Open(const std::string& folder) {
    auto opened = MakeRef<PageTemplateDocument>();
    opened->Folder = ProjectPaths::Normal(folder);
    const std::string path = DescriptionPath(opened->Folder);
    SafeFile::CleanUp(path);
    if (auto problem = SafeFile::Read(path, opened->mBytes)) {
        if (problem->Reason == FileProblem::ReasonCode::Missing)
            problem->Remedy = "A folder of a page template holds template.xml; choose another "
                              "folder, or take this one away.";
        return {{}, problem, {}};
    }
    if (auto problem = PageTemplateReader::Read(path, opened->mBytes, *opened, opened->mKept))
        return {{}, problem, {}};
    opened->mCanonicalBytes = PageTemplateWriter::Canonical(*opened, opened->mKept);
    opened->mExistsOnDisk = true;
    return {opened, {}, opened->FindMissing()};
}

std::vector<FileProblem> PageTemplateDocument::FindMissing() const {
    std::vector<FileProblem> missing;
    const auto look = [&](const std::string& path, std::string what, std::string remedy) {
        std::error_code ignored;
        if (!fs::exists(path, ignored))
            missing.push_back(ProblemOf(FileProblem::ReasonCode::Missing, path, std::move(what),
                                        std::move(remedy)));
    };
    look(SamplePath(), "The template has no sample page.",
         "Put a page that shows what it looks like there; until then nothing is shown when it is "
         "chosen.");
    std::set<std::string> seen;
    for (const auto& layout : *PageLayouts)
        if (seen.insert(layout->FileName).second)
            look(PathOf(*layout), "The layout \"" + layout->Name + "\" has no file.",
                 "Put the file there, or take the layout out of template.xml; until then its pages "
                 "are empty.");
    for (const std::string& file : Files)
        look(Folder + "/" + file, "A file that pages need is not there.",
             "Put the file there, or take it out of template.xml.");
    return missing;
}

std::vector<FileProblem> PageTemplateDocument::OpenAll(const std::string& folder,
                                                       Collection<Ref<PageTemplate>>& templates) {
    std::vector<FileProblem> problems;
    for (const std::string& path : FoldersBelow(folder)) {
        OpenResult opened = Open(path);
        if (opened.Problem) {
            problems.push_back(*opened.Problem);
            continue;
        }
        const std::string& name = opened.Template->Name;
        if (templates.Contains(name)) {
            problems.push_back(ProblemOf(FileProblem::ReasonCode::BadContent, DescriptionPath(path),
                                         "There is a template \"" + name + "\" already.",
                                         "Give one of the two another name."));
            continue;
        }
        templates.Add(opened.Template, name);
        problems.insert(problems.end(), opened.Warnings.begin(), opened.Warnings.end());
    }
    return problems;
}

std::optional<FileProblem> PageTemplateDocument::Save() {
    const std::string path = DescriptionPath(Folder);
    const std::string canonical = PageTemplateWriter::Canonical(*this, mKept);
    if (mExistsOnDisk && canonical == mCanonicalBytes) return {};
    std::string present;
    const bool isThere = !SafeFile::Read(path, present);
    if (isThere && !mExistsOnDisk)
        return ProblemOf(FileProblem::ReasonCode::AlreadyExists, path,
                         "A template is there already.", "Choose another folder.");
    if (isThere && present != mBytes)
        return ProblemOf(FileProblem::ReasonCode::ChangedOnDisk, path,
                         "Another program has changed this file since it was opened.",
                         "Open the template again to see the change.");
    std::error_code ignored;
    fs::create_directories(Folder, ignored);
    if (auto problem = SafeFile::Write(path, canonical)) return problem;
    mBytes = canonical;
    mCanonicalBytes = canonical;
    mExistsOnDisk = true;
    return {};
}

std::optional<FileProblem> PageTemplateDocument::ReadLayout(const PageLayout& layout,
                                                            std::string& text) const {
    return SafeFile::Read(PathOf(layout), text);
}

std::optional<FileProblem> PageTemplateDocument::WriteLayout(const PageLayout& layout,
                                                             const std::string& text) const {
    std::string present;
    if (!SafeFile::Read(PathOf(layout), present) && present == text) return {};
    return SafeFile::Write(PathOf(layout), text);
}

} // namespace paperkite
