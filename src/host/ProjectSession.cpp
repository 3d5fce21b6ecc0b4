#include "host/ProjectSession.h"

#include "doctypes/source/NameQuestion.h"

#include "foundation/Text.h"
#include "host/NearestNames.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

namespace paperkite {

namespace {

namespace fs = std::filesystem;

std::string WithEnding(const std::string& path) {
    return EndsWithIgnoringCase(path, kProjectEnding) ? path : path + kProjectEnding;
}

/// A name with "." between its steps, however it was written.
std::string WithDots(const std::string& name) {
    return ReplaceAll(ReplaceAll(ReplaceAll(name, "::", "."), "~", "."), "/", ".");
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

ProjectSession::OpenResult Problem(std::string message) {
    return {nullptr, std::move(message), false};
}

} // namespace

std::string ProjectSession::FileOf(const std::string& given) {
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

ProjectSession::OpenResult ProjectSession::Open(const std::string& path, const Progress& progress) {
    auto opened = ProjectDocument::Open(FileOf(path));
    if (opened.Problem) return Problem(opened.Problem->Message());
    return Scanned(opened.Project, progress);
}

ProjectSession::OpenResult ProjectSession::OpenLastKnown(const std::string& path,
                                                         const Progress& progress) {
    return OpenKnownOr(&Scanned, path, progress);
}

ProjectSession::OpenResult ProjectSession::OpenSoon(const std::string& path,
                                                    const Progress& progress) {
    return OpenKnownOr(&ScannedInPart, path, progress);
}

ProjectSession::OpenResult ProjectSession::OpenKnownOr(Scanning scanning, const std::string& path,
                                                       const Progress& progress) {
    auto opened = ProjectDocument::Open(FileOf(path));
    if (opened.Problem) return Problem(opened.Problem->Message());
    const auto& sources = opened.Project->GetSources();
    auto reading = sources.empty() ? std::nullopt : LastKnownSources(sources);
    if (reading) {
        std::unique_ptr<ProjectSession> session(new ProjectSession(opened.Project));
        if (ScanAnswer answer = session->Code(std::move(*reading)); answer.Code) {
            session->Adopt(std::move(*answer.Code));
            session->mIsUpToDate = false;
            return {std::move(session), {}};
        }
    }
    return scanning(opened.Project, progress);
}

ProjectSession::OpenResult ProjectSession::Create(const NewProject& wanted,
                                                  const Progress& progress) {
    return CreateBy(&Scanned, wanted, progress);
}

ProjectSession::OpenResult ProjectSession::CreateSoon(const NewProject& wanted,
                                                      const Progress& progress) {
    return CreateBy(&ScannedInPart, wanted, progress);
}

ProjectSession::OpenResult ProjectSession::CreateBy(Scanning scanning, const NewProject& wanted,
                                                    const Progress& progress) {
    const std::string path = WithEnding(wanted.Path);
    std::error_code ignored;
    if (fs::exists(path, ignored))
        return Problem(path + " is there already. Choose another name, or open that project.");
    const fs::path home = fs::absolute(path, ignored).parent_path();
    if (!fs::is_directory(home, ignored))
        return Problem("There is no folder " + home.string() +
                       " to keep the project in. Make it first, or choose another place.");
    auto made = ProjectDocument::New(path);
    if (made.Problem) return Problem(made.Problem->Message());
    const fs::path folder = fs::weakly_canonical(wanted.SourceFolder, ignored);
    SourceSettings& source = made.Project->AddSource(folder.string());
    source.Excludes = wanted.Excludes;
    made.Project->SetTitle(wanted.Title.empty() ? source.RootName : wanted.Title);
    OpenResult result = scanning(made.Project, progress);
    if (!result.Session) return result;
    if (const auto problem = made.Project->Save()) return Problem(problem->Message());
    return result;
}

ProjectSession::OpenResult ProjectSession::Scanned(Ref<ProjectDocument> project,
                                                   const Progress& progress) {
    std::unique_ptr<ProjectSession> session(new ProjectSession(std::move(project)));
    ScanAnswer answer = session->Scan(progress);
    return With(std::move(session), std::move(answer));
}

ProjectSession::OpenResult ProjectSession::ScannedInPart(Ref<ProjectDocument> project,
                                                         const Progress& progress) {
    if (project->GetSources().empty()) return Scanned(std::move(project), progress);
    std::unique_ptr<ProjectSession> session(new ProjectSession(std::move(project)));
    auto reading = std::make_unique<RunningReading>(session->mProject->GetSources(),
                                                    RunningReading::Parts::Wanted);
    const auto isCancelled = [&] { return progress && !progress(reading->Now()); };
    while (!reading->IsFinished()) {
        if (isCancelled()) return {nullptr, {}, true};
        reading->WaitForNews();
        auto part = reading->TakePart();
        ScanAnswer answer = part ? session->Code(std::move(*part)) : ScanAnswer();
        if (!answer.Code || isCancelled()) continue;
        OpenResult result = With(std::move(session), std::move(answer));
        result.Rest = std::move(reading);
        return result;
    }
    ScanAnswer answer = session->Code(reading->TakeResult());
    return With(std::move(session), std::move(answer));
}

ProjectSession::OpenResult ProjectSession::With(std::unique_ptr<ProjectSession> session,
                                                ScanAnswer answer) {
    if (!answer.Code) return {nullptr, answer.Problem, answer.Cancelled};
    session->Adopt(std::move(*answer.Code));
    return {std::move(session), {}};
}

ProjectSession::ScanAnswer ProjectSession::Scan(const Progress& progress) const {
    if (mProject->GetSources().empty())
        return {{},
                mProject->GetPath() + ": The project names no source folder. Add a <source> "
                                      "element with the folder of the code."};
    return Code(ReadSources(mProject->GetSources(), progress));
}

ProjectSession::ScanAnswer ProjectSession::Code(SourceReading reading) const {
    if (reading.Cancelled || !reading.Problem.empty())
        return {{}, reading.Problem, reading.Cancelled};
    ScannedCode code;
    code.IsPart = reading.IsPart;
    if (!reading.IsPart) code.Digests = reading.Digests();
    code.Provider = MakeRef<SourceNamespaceProvider>(mProject->GetComments());
    for (std::size_t i = 0; i < reading.Scans.size(); ++i) {
        ScanResult& scan = reading.Scans[i];
        code.Provider->AddRoot(std::move(*scan.Index), mProject->GetSources()[i].Folder);
        code.Warnings.insert(code.Warnings.end(), scan.Warnings.begin(), scan.Warnings.end());
        code.FileCount += scan.FileCount;
    }
    std::vector<const SourceIndex*> indexes;
    std::size_t itemCount = 0;
    for (std::size_t root = 0; root < code.Provider->GetRootCount(); ++root) {
        indexes.push_back(&code.Provider->GetIndex(root));
        itemCount += indexes.back()->Size() - 1;
    }
    if (itemCount == 0) return {{}, NothingFound(*mProject)};
    code.Definitions = MakeSourceNamespaceDefs(indexes);
    return {std::move(code), {}};
}

void ProjectSession::Adopt(ScannedCode code) {
    if (mCode.Definitions) mCode.Definitions->Release();
    mCode = std::move(code);
    mNames.reset();
    mIsUpToDate = !mCode.IsPart;
    mProject->RegisterProvider(kSourceMoniker, mCode.Provider);
}

void ProjectSession::Replace(Ref<ProjectDocument> project) {
    project->TakeStoreOf(*mProject);
    mProject = std::move(project);
    mProject->RegisterProvider(kSourceMoniker, mCode.Provider);
}

ProjectSession::~ProjectSession() {
    if (mCode.Definitions) mCode.Definitions->Release();
}

std::string ProjectSession::Resolve(const std::string& name) const {
    const auto matches = Matches(name);
    return matches.size() == 1 ? matches.front() : std::string();
}

std::vector<std::string> ProjectSession::Matches(const std::string& name) const {
    if (mCode.Provider->GetItem(name)) return {name};
    const std::string wanted = WithDots(name);
    std::vector<std::string> whole;
    std::vector<std::string> endings;
    for (std::size_t root = 0; root < mCode.Provider->GetRootCount(); ++root)
        whole.push_back(WithDots(mCode.Provider->GetIndex(root).QualifiedName(SourceIndex::Root)) +
                        "." + wanted);
    std::vector<std::string> exact;
    mCode.Provider->ForEachName([&](const std::string& candidate) {
        const std::string dotted = WithDots(candidate);
        if (dotted == wanted || std::find(whole.begin(), whole.end(), dotted) != whole.end())
            exact.push_back(candidate);
        else if (dotted.ends_with("." + wanted))
            endings.push_back(candidate);
        return true;
    });
    if (!exact.empty()) return exact;
    // A constructor bears its class's name, and the class is meant.
    const auto isInside = [&](const std::string& inner) {
        return std::any_of(endings.begin(), endings.end(), [&](const std::string& outer) {
            return inner.starts_with(outer + "~");
        });
    };
    std::vector<std::string> outermost;
    std::copy_if(endings.begin(), endings.end(), std::back_inserter(outermost),
                 [&](const std::string& match) { return !isInside(match); });
    return outermost;
}

std::vector<std::string> ProjectSession::FindByName(const std::string& text,
                                                    std::size_t most) const {
    if (!mNames) {
        mNames.emplace();
        for (std::size_t root = 0; root < mCode.Provider->GetRootCount(); ++root)
            mNames->Add(mCode.Provider->GetIndex(root));
    }
    std::vector<std::string> found;
    const auto index = [this](std::size_t root) -> const SourceIndex& {
        return mCode.Provider->GetIndex(root);
    };
    for (const NameSearch::Place& place : FindByQuestion(*mNames, index, text, most))
        found.push_back(mCode.Provider->GetIndex(place.Root).QualifiedName(place.Entity));
    return found;
}

std::vector<std::string> ProjectSession::Nearest(const std::string& name) const {
    NearestNames nearest(name, "~");
    mCode.Provider->ForEachName([&](const std::string& candidate) {
        nearest.Offer(candidate);
        return true;
    });
    return nearest.Best(3);
}

} // namespace paperkite
