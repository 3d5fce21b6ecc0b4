#include "host/HomelessCommand.h"

#include "foundation/Text.h"
#include "host/NearestNames.h"
#include "model/HomelessComments.h"

#include <nlohmann/json.hpp>

#include <ostream>
#include <set>

namespace paperkite {

namespace {

using Json = nlohmann::ordered_json;
using Entry = HomelessComments::Entry;

std::string Comments(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " comment" : " comments");
}

std::vector<Entry> HomelessOf(Workspace& workspace) {
    const ProjectSession& session = workspace.GetSession();
    const auto& provider = *session.GetProvider();
    return HomelessComments::Find(*session.GetProject()->GetComments(), provider, provider);
}

Json AsJson(const Entry& entry) {
    Json homes = Json::array();
    for (const auto& home : entry.Homes)
        homes.push_back({{"qualifiedName", home.QualifiedName},
                         {"kind", home.Kind},
                         {"reason", home.Reason},
                         {"likeness", home.Likeness}});
    return {{"qualifiedName", entry.QualifiedName},
            {"comments", entry.Comments},
            {"homes", std::move(homes)}};
}

void Print(const Entry& entry, std::ostream& out) {
    out << entry.QualifiedName << "  " << Comments(entry.Comments) << '\n';
    for (const auto& home : entry.Homes)
        out << "    " << home.QualifiedName << "  " << home.Kind << ", " << home.Reason << '\n';
    if (entry.Homes.empty()) out << "    nothing looks like it\n";
}

/// With "." between the steps, however they were written.
std::string WithDots(const std::string& name) {
    return ReplaceAll(ReplaceAll(ReplaceAll(name, "::", "."), "~", "."), "/", ".");
}

/// The part of a gone item's name that a user means: all of it, or that of an item around it; the
/// first steps may be left out. Empty for none.
std::string MeantPart(const std::string& gone, const std::string& wanted) {
    for (std::string part = gone; !part.empty();) {
        const std::string dotted = WithDots(part);
        if (dotted == wanted || dotted.ends_with("." + wanted)) return part;
        const std::size_t cut = part.rfind('~');
        part = cut == std::string::npos ? std::string() : part.substr(0, cut);
    }
    return {};
}

/// The name that a user means among those that have homeless comments at or below them; empty, and
/// said why, when there is none, or more than one.
std::string FindGone(const std::vector<Entry>& entries, const std::string& wanted, Output& output) {
    NearestNames nearest(wanted, "~");
    std::set<std::string> meant;
    for (const Entry& entry : entries) {
        if (entry.QualifiedName == wanted) return wanted;
        const std::string part = MeantPart(entry.QualifiedName, WithDots(wanted));
        if (!part.empty()) meant.insert(part);
        nearest.Offer(entry.QualifiedName);
    }
    if (meant.size() == 1) return *meant.begin();
    if (meant.size() > 1) {
        output.Fail("\"" + wanted + "\" may mean " + *meant.begin() + " or " + *meant.rbegin() +
                    ". Write more steps of its name.");
        return {};
    }
    const auto best = nearest.Best(3);
    output.Fail("No comments of \"" + wanted + "\" are homeless." +
                (best.empty() ? " The command without --adopt lists those that are."
                              : " Did you mean " + Join(best, " or ") + "?"));
    return {};
}

} // namespace

int HomelessCommand::Run(const std::string& project, Output& output) const {
    if (!Adopt.empty())
        return WorkAlone(project, output,
                         [&](Workspace& workspace) { return Move(workspace, output); });
    const auto workspace = OpenWorkspace(project, output);
    return workspace ? List(*workspace, output) : 2;
}

int HomelessCommand::List(Workspace& workspace, Output& output) const {
    const auto entries = HomelessOf(workspace);
    if (output.Json) {
        Json list = Json::array();
        for (const Entry& entry : entries)
            list.push_back(AsJson(entry));
        const Json json{{"homeless", std::move(list)}};
        output.Out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
        return 0;
    }
    if (entries.empty()) output.Out << "Every comment has its item.\n";
    for (const Entry& entry : entries)
        Print(entry, output.Out);
    return 0;
}

int HomelessCommand::Move(Workspace& workspace, Output& output) const {
    const ProjectSession& session = workspace.GetSession();
    const auto& project = session.GetProject();
    const auto home = FindTarget(workspace, {project->GetPath(), Adopt[1]}, output);
    if (!home) return 2;
    const std::string gone = FindGone(HomelessOf(workspace), Adopt[0], output);
    if (gone.empty()) return 2;
    CommentStore& store = *project->GetComments();
    const auto moved = HomelessComments::Adopt(store, *session.GetProvider(), gone, *home);
    if (moved.empty())
        return output.Fail("Nothing below \"" + *home + "\" is like what stood below \"" + gone +
                           "\". Adopt its members one by one.");
    project->SetDirty(true);
    if (const auto problem = workspace.Save()) return output.Fail(problem->Message());
    for (const auto& [from, to] : moved)
        output.Out << "Moved the comments of " << from << " to " << to << ".\n";
    return 0;
}

} // namespace paperkite
