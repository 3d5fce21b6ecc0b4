#include "host/Commands.h"

#include "foundation/GlobalConfig.h"
#include "foundation/Text.h"
#include "host/StateFolder.h"
#include "model/CommentJournal.h"
#include "model/ProjectLock.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <ostream>

namespace paperkite {

namespace {

/// How long a command waits for others that write.
constexpr int kWaitMilliseconds = 30000;

const char* PhaseText(ScanPhase phase) {
    switch (phase) {
    case ScanPhase::FindingFiles:
        return "Finding files";
    case ScanPhase::SurveyingFiles:
        return "Surveying files";
    case ScanPhase::ReadingFiles:
        return "Reading files";
    case ScanPhase::BuildingIndex:
        return "Building the index";
    }
    return "";
}

/// Shows how far a scan is, in one line that is written over and over.
class TerminalProgress {
public:
    explicit TerminalProgress(std::ostream& stream)
        : mStream(stream), mShown(isatty(STDERR_FILENO) != 0) {}
    ~TerminalProgress() {
        if (mAny) mStream << "\r\033[K" << std::flush;
    }
    bool operator()(const ScanProgress& progress) {
        const auto now = std::chrono::steady_clock::now();
        if (!mShown || now - mLast < std::chrono::milliseconds(100)) return true;
        mLast = now;
        mAny = true;
        mStream << '\r' << "\033[K" << PhaseText(progress.Phase);
        if (progress.FilesTotal > 0)
            mStream << ' ' << progress.FilesDone << " of " << progress.FilesTotal;
        mStream << std::flush;
        return true;
    }

private:
    std::ostream& mStream;
    bool mShown;
    bool mAny = false;
    std::chrono::steady_clock::time_point mLast;
};

/// What does not keep a command from its work, and what the user should know.
void TellWhatIsAmiss(const ProjectDocument& project, Output& output) {
    for (const FileProblem& problem : project.GetMissingFiles())
        output.Err << problem.Message() << '\n';
    if (CommentJournal::HasLeftOver(JournalFolder(), project.GetPath()))
        output.Err << project.GetPath()
                   << ": A program that did not come to its end left unsaved comments of this "
                      "project. Open it in the window to recover or discard them.\n";
}

void ShowEverything() {
    ProjectViewOptions& options = GlobalConfig().ProjectViewOptions;
    options.Grouped = false;
    options.ShowPrivate = true;
    options.ShowFriend = true;
    options.ShowProtected = true;
    options.AutoExpandChildren = false;
}

} // namespace

int Output::Fail(const std::string& message) {
    Err << message << '\n';
    return 2;
}

std::unique_ptr<Workspace> OpenWorkspace(const std::string& project, Output& output) {
    TerminalProgress progress(output.Err);
    auto opened = ProjectSession::Open(project, std::ref(progress));
    if (!opened.Session) {
        output.Fail(opened.Problem);
        return nullptr;
    }
    TellWhatIsAmiss(*opened.Session->GetProject(), output);
    ShowEverything();
    return std::make_unique<Workspace>(std::move(opened.Session));
}

int WorkAlone(const std::string& project, Output& output,
              const std::function<int(Workspace& workspace)>& work) {
    std::optional<ProjectLock::Holder> other;
    const auto lock =
        ProjectLock::TakeForWriting(ProjectSession::FileOf(project), kWaitMilliseconds, other);
    if (other) return output.Fail("Another program is writing this project. Try again later.");
    const auto workspace = OpenWorkspace(project, output);
    if (!workspace) return 2;
    const int code = work(*workspace);
    const std::string path = workspace->GetSession().GetProject()->GetPath();
    if (const auto open = code == 0 ? ProjectLock::WhoHasOpen(path) : std::nullopt)
        output.Err << path << " is open in process " << open->Process << " on " << open->Host
                   << " since " << open->Since << ", which will take the change up.\n";
    return code;
}

std::string UnclearItem(const std::string& name, const std::vector<std::string>& matches,
                        const std::vector<std::string>& nearest) {
    constexpr std::size_t kShown = 3;
    if (matches.size() > 1) {
        const std::vector<std::string> shown(
            matches.begin(),
            matches.begin() + static_cast<std::ptrdiff_t>(std::min(kShown, matches.size())));
        return "\"" + name + "\" may mean " + std::to_string(matches.size()) + " items, such as " +
               Join(shown, " or ") + ". Write more steps of its name.";
    }
    const std::string message = "There is no item \"" + name + "\" in this project.";
    if (nearest.empty()) return message + " The command \"tree\" shows the items that there are.";
    return message + " Did you mean " + Join(nearest, " or ") + "?";
}

std::optional<std::string> FindTarget(Workspace& workspace, const CommandTarget& target,
                                      Output& output) {
    ProjectSession& session = workspace.GetSession();
    if (target.Item.empty()) return session.GetProvider()->GetIndex(0).QualifiedName(0);
    const auto matches = session.Matches(target.Item);
    if (matches.size() == 1) return matches.front();
    output.Fail(UnclearItem(target.Item, matches, session.Nearest(target.Item)));
    return std::nullopt;
}

std::optional<std::pair<int, int>> ParseSize(const std::string& text) {
    const auto number = [](const std::string& digits) {
        int value = 0;
        const auto end = digits.data() + digits.size();
        const auto parsed = std::from_chars(digits.data(), end, value);
        return parsed.ec == std::errc() && parsed.ptr == end && value >= 1 && value <= 16384 ? value
                                                                                             : 0;
    };
    const int width = number(Token(text, "x", 1));
    const int height = number(Token(text, "x", 2));
    if (width == 0 || height == 0 || Split(text, "x").size() != 2) return std::nullopt;
    return std::pair(width, height);
}

int NewCommand::Run(const std::string& project, Output& output) const {
    TerminalProgress progress(output.Err);
    const auto made =
        ProjectSession::Create({project, Source, Title, Excludes}, std::ref(progress));
    if (!made.Session) return output.Fail(made.Problem);
    const auto& session = *made.Session;
    for (const std::string& warning : session.GetWarnings())
        output.Err << warning << '\n';
    output.Out << "Made " << session.GetProject()->GetPath() << " with "
               << session.GetProvider()->GetIndex(0).Size() - 1 << " items from "
               << session.GetFileCount() << " files.\n";
    return 0;
}

int RunNext(const CommandTarget& target, Output& output) {
    const auto workspace = OpenWorkspace(target.Project, output);
    if (!workspace) return 2;
    // Private items count as little here as in the coverage.
    GlobalConfig().ProjectViewOptions.ShowPrivate = false;
    const auto name = FindTarget(*workspace, target, output);
    if (!name) return 2;
    workspace->Load();
    Ref<TreeNode> from;
    if (!target.Item.empty()) {
        if (!workspace->Select(*name))
            return output.Fail("\"" + *name + "\" is private: next walks the other items only.");
        from = workspace->GetEditor().Project.GetSelectedItem();
    }
    const auto next = workspace->NextUndocumented(from);
    if (!next) {
        output.Out << "Every item" << (from ? " behind this one" : "") << " is documented.\n";
        return 0;
    }
    const auto item = workspace->GetSession().GetProvider()->GetItem(next->GetKey());
    output.Out << next->GetKey() << "  " << item->Get("Kind").ToText();
    const std::string file = item->Get("File").ToText();
    if (!file.empty()) output.Out << "  " << file << ':' << item->Get("Line").ToText();
    output.Out << '\n';
    return 0;
}

} // namespace paperkite
