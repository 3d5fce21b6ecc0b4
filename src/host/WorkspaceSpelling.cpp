#include "host/WorkspaceSpelling.h"

#include "authoring/ProjectEditor.h"
#include "foundation/Services.h"
#include "foundation/Settings.h"
#include "host/DeclaredNames.h"

namespace paperkite {

namespace {

/// The project whose words count, to be told from others by its address.
const WorkspaceSpelling* newest = nullptr;

} // namespace

/// What the engine uses of the project, as long as the project is open.
struct WorkspaceSpelling::Shared {
    explicit Shared(ProjectSession& session)
        : Session(&session), Project(session.GetProject()->GetPath()), Kept(Project) {}

    /// They follow the project to another name.
    ProjectWords& Words() {
        if (Session && Session->GetProject()->GetPath() != Project) {
            Project = Session->GetProject()->GetPath();
            Kept = ProjectWords(Project);
        }
        return Kept;
    }

    /// Walking over all names takes a moment in large code, so nobody waits for it in vain.
    bool IsDeclared(const std::string& word) {
        if (!Session) return false;
        if (!Names) {
            Names = std::make_unique<DeclaredNames>();
            const auto& provider = Session->GetProvider();
            for (std::size_t root = 0; root < provider->GetRootCount(); ++root)
                Names->Add(provider->GetIndex(root));
        }
        return Names->Knows(word);
    }

    ProjectSession* Session;
    std::string Project;
    ProjectWords Kept;
    std::unique_ptr<DeclaredNames> Names;
};

WorkspaceSpelling::WorkspaceSpelling(ProjectSession& session, ProjectEditor& editor)
    : mShared(std::make_shared<Shared>(session)) {
    const auto engine = CurrentServices().Spelling;
    if (!engine) return;
    newest = this;
    Ignoring([&] { InitSpellingObject(*engine); });
    mIgnored = editor.Events.SpellIgnoreWordAdded.Connect(
        [this](const std::string& word) { Ignore(word); });
    ReadWords();
}

WorkspaceSpelling::~WorkspaceSpelling() {
    mShared->Session = nullptr;
    mShared->Names.reset();
    if (newest != this) return;
    newest = nullptr;
    if (const auto engine = CurrentServices().Spelling) engine->SetProject({});
}

void WorkspaceSpelling::CodeChanged() {
    mShared->Names.reset();
    Tell();
}

bool WorkspaceSpelling::LookAtWords() {
    if (!CurrentServices().Spelling || !mShared->Words().HasChanged()) return false;
    ReadWords();
    return true;
}

void WorkspaceSpelling::ReadWords() {
    const auto problem = mShared->Words().Read();
    mProblem = problem ? problem->Message() : std::string();
    Tell();
}

void WorkspaceSpelling::Tell() {
    const auto engine = CurrentServices().Spelling;
    if (!engine || newest != this) return;
    ProjectSpelling project;
    project.IsDeclared = [shared = mShared](const std::string& word) {
        return shared->IsDeclared(word);
    };
    const ProjectWords& words = mShared->Words();
    project.Learnt.assign(words.GetLearnt().begin(), words.GetLearnt().end());
    project.Ignored.assign(words.GetIgnored().begin(), words.GetIgnored().end());
    project.Learn = [shared = mShared](const std::string& word) {
        if (const auto problem = shared->Words().Learn(word))
            RaiseError(ErrorNumber::PathOrFileAccess, problem->Message());
    };
    engine->SetProject(std::move(project));
}

void WorkspaceSpelling::Ignore(const std::string& word) {
    const auto problem = mShared->Words().Ignore(word);
    mProblem = problem ? problem->Message() : std::string();
    const auto& messages = CurrentServices().MessageBox;
    if (problem && messages) messages->Show(problem->Message(), "Spelling", MessageIcon::Warning);
}

} // namespace paperkite
