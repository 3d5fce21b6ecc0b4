#include "host/ProjectSession.h"

#include "foundation/Text.h"
#include "host/NearestNames.h"

#include <filesystem>

namespace paperkite {

namespace {

namespace fs = std::filesystem;

/// The project file that a user means.
std::string ProjectPath(const std::string& given) {
    std::error_code ignored;
    if (fs::is_directory(given, ignored)) {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator(given, ignored))
            if (entry.path().extension() == kProjectEnding) found.push_back(entry.path().string());
        return found.size() == 1 ? found.front() : given;
    }
    if (!fs::exists(given, ignored) && fs::exists(given + kProjectEnding, ignored))
        return given + kProjectEnding;
    return given;
}

std::string WithEnding(const std::string& path) {
    return EndsWithIgnoringCase(path, kProjectEnding) ? path : path + kProjectEnding;
}

ProjectSession::OpenResult Problem(std::string message) {
    return {nullptr, std::move(message)};
}

/// Without a single item there is nothing to document, and most likely the folder is the wrong one.
std::string NothingFound(const ProjectDocument& project) {
    std::vector<std::string> folders;
    for (const SourceSettings& source : project.GetSources())
        folders.push_back(source.Folder);
    return "There is no source code in " + Join(folders, " and ") +
           " that can be read. Choose a folder with source files that are not all left out; the "
           "project file names the folder in its <source> element.";
}

} // namespace

ProjectSession::OpenResult ProjectSession::Open(const std::string& path, const Progress& progress) {
    auto opened = ProjectDocument::Open(ProjectPath(path));
    if (opened.Problem) return Problem(opened.Problem->Message());
    return Scanned(opened.Project, progress);
}

ProjectSession::OpenResult ProjectSession::Create(const NewProject& wanted,
                                                  const Progress& progress) {
    const std::string path = WithEnding(wanted.Path);
    std::error_code ignored;
    if (fs::exists(path, ignored))
        return Problem(path + " is there already. Choose another name, or open that project.");
    auto made = ProjectDocument::New(path);
    if (made.Problem) return Problem(made.Problem->Message());
    const fs::path folder = fs::weakly_canonical(wanted.SourceFolder, ignored);
    SourceSettings& source = made.Project->AddSource(folder.string());
    source.Excludes = wanted.Excludes;
    made.Project->SetTitle(wanted.Title.empty() ? source.RootName : wanted.Title);
    OpenResult result = Scanned(made.Project, progress);
    if (!result.Session) return result;
    if (const auto problem = made.Project->Save()) return Problem(problem->Message());
    return result;
}

ProjectSession::OpenResult ProjectSession::Scanned(Ref<ProjectDocument> project,
                                                   const Progress& progress) {
    std::unique_ptr<ProjectSession> session(new ProjectSession(std::move(project)));
    OpenResult result = session->Scan(progress);
    if (result.Problem.empty() && !result.Cancelled) result.Session = std::move(session);
    return result;
}

ProjectSession::OpenResult ProjectSession::Rescan(const Progress& progress) {
    return Scan(progress);
}

ProjectSession::OpenResult ProjectSession::Scan(const Progress& progress) {
    if (mProject->GetSources().empty())
        return Problem(mProject->GetPath() +
                       ": The project names no source folder. Add a <source> element with the "
                       "folder of the code.");
    const auto provider = MakeRef<SourceNamespaceProvider>(mProject->GetComments());
    std::vector<const SourceIndex*> indexes;
    std::vector<std::string> warnings;
    std::size_t fileCount = 0;
    std::size_t itemCount = 0;
    for (const SourceSettings& source : mProject->GetSources()) {
        SourceScanner scanner(source.Folder, source.RootName);
        for (const std::string& pattern : source.Excludes)
            scanner.Exclude(pattern);
        ScanResult scan = scanner.Scan(progress);
        if (scan.Outcome.Status == ScanStatus::Cancelled)
            return {nullptr, scan.Outcome.Message, true};
        if (!scan.Outcome.IsDone()) return Problem(scan.Outcome.Message);
        provider->AddRoot(std::move(*scan.Index), source.Folder);
        warnings.insert(warnings.end(), scan.Warnings.begin(), scan.Warnings.end());
        fileCount += scan.FileCount;
    }
    for (std::size_t root = 0; root < provider->GetRootCount(); ++root) {
        indexes.push_back(&provider->GetIndex(root));
        itemCount += indexes.back()->Size() - 1;
    }
    if (itemCount == 0) return Problem(NothingFound(*mProject));
    if (mDefinitions) mDefinitions->Release();
    mDefinitions = MakeSourceNamespaceDefs(indexes);
    mProvider = provider;
    mWarnings = std::move(warnings);
    mFileCount = fileCount;
    mProject->RegisterProvider(kSourceMoniker, mProvider);
    return {};
}

ProjectSession::~ProjectSession() {
    if (mDefinitions) mDefinitions->Release();
}

std::string ProjectSession::Resolve(const std::string& name) const {
    const auto exists = [&](const std::string& candidate) {
        return mProvider->GetItem(candidate) != nullptr;
    };
    if (exists(name)) return name;
    for (const char* separator : {"~", "::", ".", "/"}) {
        const std::string steps = ReplaceAll(name, separator, "~");
        if (exists(steps)) return steps;
        for (std::size_t root = 0; root < mProvider->GetRootCount(); ++root) {
            const SourceIndex& index = mProvider->GetIndex(root);
            const std::string below = index.QualifiedName(SourceIndex::Root) + "~" + steps;
            if (exists(below)) return below;
        }
    }
    return OnlyNameEndingWith(name);
}

std::string ProjectSession::OnlyNameEndingWith(const std::string& name) const {
    const std::string steps = ReplaceAll(ReplaceAll(name, "::", "~"), ".", "~");
    const std::string ending = "~" + steps;
    std::string found;
    bool isUnique = true;
    mProvider->ForEachName([&](const std::string& candidate) {
        if (!candidate.ends_with(ending)) return true;
        // A constructor bears its class's name, and the class is meant.
        if (found.empty() || found.starts_with(candidate + "~"))
            found = candidate;
        else
            isUnique = candidate.starts_with(found + "~");
        return isUnique;
    });
    return isUnique ? found : std::string();
}

std::vector<std::string> ProjectSession::Nearest(const std::string& name) const {
    NearestNames nearest(name, "~");
    mProvider->ForEachName([&](const std::string& candidate) {
        nearest.Offer(candidate);
        return true;
    });
    return nearest.Best(3);
}

} // namespace paperkite
