#include "host/FindCommand.h"

#include "host/Commands.h"

#include <nlohmann/json.hpp>

#include <ostream>
#include <set>

namespace paperkite {

namespace {

using Json = nlohmann::ordered_json;
using Hit = CommentSearch::Hit;

std::string Counted(std::size_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string PlacesOf(const std::vector<Hit>& hits) {
    std::set<std::string> items;
    std::set<std::pair<std::string, std::string>> comments;
    for (const Hit& hit : hits) {
        items.insert(hit.Item);
        comments.emplace(hit.Item, hit.CommentId);
    }
    return Counted(hits.size(), "time") + " in " + Counted(comments.size(), "comment") + " of " +
           Counted(items.size(), "item");
}

Json AsJson(const Hit& hit) {
    return {{"qualifiedName", hit.Item},
            {"tag", hit.Tag},
            {"name", hit.Name},
            {"id", hit.CommentId},
            {"context", hit.Context.Line},
            {"at", hit.Context.At},
            {"length", hit.Context.Length}};
}

} // namespace

int FindCommand::Run(const std::string& project, Output& output) const {
    if (Search.SearchFor.empty()) return output.Fail("Say what to find: the text is empty.");
    if (Replace && !DryRun)
        return WorkAlone(project, output,
                         [&](Workspace& workspace) { return Find(workspace, output); });
    const auto workspace = OpenWorkspace(project, output);
    return workspace ? Find(*workspace, output) : 2;
}

int FindCommand::Find(Workspace& workspace, Output& output) const {
    const CommentStore& store = *workspace.GetSession().GetProject()->GetComments();
    const CommentSearch search(Search);
    const auto hits = search.Find(store);
    if (Replace && !DryRun && !hits.empty()) {
        TextChanges changes(workspace, nullptr, nullptr);
        changes.Apply(search.Plan(store, hits, ReplaceWith), "Replacing");
        if (const auto problem = workspace.Save()) return output.Fail(problem->Message());
    }
    Print(hits, output);
    return 0;
}

void FindCommand::Print(const std::vector<Hit>& hits, Output& output) const {
    if (output.Json) {
        Json list = Json::array();
        for (const Hit& hit : hits) {
            list.push_back(AsJson(hit));
            if (Replace) list.back()["becomes"] = hit.Context.With(ReplaceWith);
        }
        Json json{{"hits", std::move(list)}};
        if (Replace) json["written"] = !DryRun && !hits.empty();
        output.Out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
        return;
    }
    for (const Hit& hit : hits) {
        output.Out << hit.Item << ": " << hit.Name << ": " << hit.Context.Line << '\n';
        if (Replace) output.Out << "    becomes: " << hit.Context.With(ReplaceWith) << '\n';
    }
    if (hits.empty())
        output.Out << "No comment holds \"" << Search.SearchFor << "\".\n";
    else if (Replace)
        output.Out << (DryRun ? "Would replace it " : "Replaced it ") << PlacesOf(hits) << ".\n";
    else
        output.Out << "Found " << PlacesOf(hits) << ".\n";
}

} // namespace paperkite
