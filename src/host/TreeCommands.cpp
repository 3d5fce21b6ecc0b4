#include "host/Commands.h"

#include "foundation/Text.h"
#include "model/CoverageReport.h"

#include <nlohmann/json.hpp>

#include <iomanip>
#include <ostream>
#include <sstream>

namespace paperkite {

namespace {

using Json = nlohmann::ordered_json;

Ref<Object> ItemOf(Workspace& workspace, const TreeNode& node) {
    return workspace.GetSession().GetProvider()->GetItem(node.GetKey());
}

/// The children of a node, loaded; placeholders are never among them.
std::vector<Ref<TreeNode>> LoadedChildren(const Ref<TreeNode>& node) {
    if (!node->GetExpanded()) node->SetExpanded(true);
    std::vector<Ref<TreeNode>> children;
    for (const auto& child : node->GetChildren())
        children.push_back(child);
    return children;
}

void PrintNode(Workspace& workspace, const Ref<TreeNode>& node, int level, int depth,
               std::ostream& out) {
    const auto item = ItemOf(workspace, *node);
    out << std::string(static_cast<std::size_t>(level) * 2, ' ') << (node->GetBold() ? "* " : "- ")
        << node->GetText() << "  [" << item->Get("Kind").ToText();
    const std::string access = item->Get("Access").ToText();
    if (access != "PUBLIC") out << ", " << LowerCase(access);
    out << "]\n";
    if (level >= depth) return;
    for (const auto& child : LoadedChildren(node))
        PrintNode(workspace, child, level + 1, depth, out);
}

Json NodeAsJson(Workspace& workspace, const Ref<TreeNode>& node, int level, int depth) {
    const auto item = ItemOf(workspace, *node);
    Json json{
        {"name", item->Get("Name").ToText()},    {"qualifiedName", node->GetKey()},
        {"kind", item->Get("Kind").ToText()},    {"access", item->Get("Access").ToText()},
        {"documented", node->GetBold()},         {"file", item->Get("File").ToText()},
        {"line", item->Get("Line").ToInteger()}, {"signature", item->Get("Signature").ToText()}};
    if (level >= depth) return json;
    Json children = Json::array();
    for (const auto& child : LoadedChildren(node))
        children.push_back(NodeAsJson(workspace, child, level + 1, depth));
    json["children"] = std::move(children);
    return json;
}

std::string Percent(const CoverageReport::Count& count) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(1) << count.Percent();
    return text.str();
}

void PrintCoverage(const CoverageReport& report, const std::string& by, std::ostream& out) {
    std::size_t width = 8;
    for (const auto& group : report.GetGroups())
        width = std::max(width, group.Name.size());
    const auto line = [&](const std::string& name, const CoverageReport::Count& count) {
        out << std::left << std::setw(static_cast<int>(width)) << name << std::right
            << std::setw(12) << count.Documented << std::setw(9) << count.Total << std::setw(9)
            << Percent(count) << " %\n";
    };
    out << std::left << std::setw(static_cast<int>(width)) << (by == "file" ? "File" : "Kind")
        << std::right << std::setw(12) << "documented" << std::setw(9) << "of" << '\n';
    for (const auto& group : report.GetGroups())
        line(group.Name.empty() ? "(no file)" : group.Name, group);
    line("All", report.GetAll());
}

Json CountAsJson(const CoverageReport::Count& count) {
    return {{"documented", count.Documented}, {"total", count.Total}, {"percent", count.Percent()}};
}

Json CoverageAsJson(const CoverageReport& report, const std::string& by) {
    Json groups = Json::array();
    for (const auto& group : report.GetGroups()) {
        Json entry{{by, group.Name}};
        entry.update(CountAsJson(group));
        groups.push_back(std::move(entry));
    }
    return {{"all", CountAsJson(report.GetAll())},
            {"groups", std::move(groups)},
            {"gone", report.GetGone()}};
}

std::string GoneText(const std::vector<std::string>& gone) {
    if (gone.size() == 1)
        return "Comments are kept for " + gone.front() +
               ", which the code does not have any more; \"homeless\" shows where it may be.\n";
    return "Comments are kept for " + std::to_string(gone.size()) +
           " items that the code does not have any more, such as " + gone.front() +
           "; \"homeless\" shows where they may be.\n";
}

/// Names come from files of any encoding.
std::string Dump(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace);
}

} // namespace

int TreeCommand::Run(const CommandTarget& target, Output& output) const {
    const auto workspace = OpenWorkspace(target.Project, output);
    if (!workspace) return 2;
    const auto name = FindTarget(*workspace, target, output);
    if (!name) return 2;
    if (!workspace->Select(*name)) return output.Fail("The tree does not show \"" + *name + "\".");
    const auto node = workspace->GetEditor().Project.GetSelectedItem();
    if (output.Json)
        output.Out << Dump(NodeAsJson(*workspace, node, 0, Depth)) << '\n';
    else
        PrintNode(*workspace, node, 0, Depth, output.Out);
    return 0;
}

int CoverageCommand::Run(const CommandTarget& target, Output& output) const {
    const auto workspace = OpenWorkspace(target.Project, output);
    if (!workspace) return 2;
    ProjectSession& session = workspace->GetSession();
    const auto report = CoverageReport::Make(
        *session.GetProvider(), *session.GetProject()->GetComments(),
        By == "file" ? CoverageReport::Grouping::File : CoverageReport::Grouping::Kind);
    if (output.Json)
        output.Out << Dump(CoverageAsJson(report, By)) << '\n';
    else
        PrintCoverage(report, By, output.Out);
    if (!report.GetGone().empty()) output.Err << GoneText(report.GetGone());
    if (report.GetAll().Reaches(FailUnder)) return 0;
    output.Err << Percent(report.GetAll()) << " % are documented, less than the "
               << NumberText(FailUnder) << " % that are asked for.\n";
    return 1;
}

} // namespace paperkite
