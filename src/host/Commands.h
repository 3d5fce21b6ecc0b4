#pragma once

#include "host/Workspace.h"

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace paperkite {

/// Where a command writes, and how.
struct Output {
    std::ostream& Out;
    std::ostream& Err;
    bool Json = false;

    /// Writes the message and gives the exit code of bad input.
    int Fail(const std::string& message);
};

/// The project that a command works on, and the item as the user wrote it (may be empty).
struct CommandTarget {
    std::string Project;
    std::string Item;
};

/// Opens the project on the components, every access shown and nothing grouped; on a problem it
/// says so and gives nothing. The scan shows its progress where the error stream is a terminal.
std::unique_ptr<Workspace> OpenWorkspace(const std::string& project, Output& output);

/// Works on a project so that nobody else writes it from reading to saving. On a problem it says so
/// and gives the exit code of bad input; where a window has the project open, it says so behind.
int WorkAlone(const std::string& project, Output& output,
              const std::function<int(Workspace& workspace)>& work);

/// The qualified name of the target's item (of the root where none was named); on an unknown name
/// it says so with the nearest ones and gives nothing.
std::optional<std::string> FindTarget(Workspace& workspace, const CommandTarget& target,
                                      Output& output);

/// Why a name does not lead to one item: it may mean several, or none, and then which look like it.
std::string UnclearItem(const std::string& name, const std::vector<std::string>& matches,
                        const std::vector<std::string>& nearest);

/// "1280x800"
std::optional<std::pair<int, int>> ParseSize(const std::string& text);

struct NewCommand {
    std::string Source;
    std::string Title;
    std::vector<std::string> Excludes;

    int Run(const std::string& project, Output& output) const;
};

struct TreeCommand {
    int Depth = 2;

    int Run(const CommandTarget& target, Output& output) const;
};

struct CommentCommand {
    std::string Tag;
    std::string Text;
    /// Flags need none.
    bool HasText = false;
    bool Add = false;
    bool Delete = false;

    int Run(const CommandTarget& target, Output& output) const;

private:
    int Write(Workspace& workspace, const TaggedCommentDef& definition, const CommandTarget& target,
              Output& output) const;
};

struct CoverageCommand {
    std::string By = "kind";
    double FailUnder = 0;

    int Run(const CommandTarget& target, Output& output) const;
};

int RunComments(const CommandTarget& target, Output& output);
int RunNext(const CommandTarget& target, Output& output);

} // namespace paperkite
