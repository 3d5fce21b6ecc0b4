#include "host/LinksCommand.h"

#include "host/CommandLine.h"
#include "host/Commands.h"
#include "host/ItemTitle.h"
#include "host/LinkCheck.h"

#include <nlohmann/json.hpp>

#include <ostream>

namespace paperkite {

namespace {

using Json = nlohmann::ordered_json;
using Link = LinkCheck::Link;

/// Longer addresses are cut in the middle for people; the JSON has them whole.
constexpr std::size_t kLongestShown = 300;

const char* WordFor(LinkCheck::Goal goal) {
    switch (goal) {
    case LinkCheck::Goal::Item:
        return "item";
    case LinkCheck::Goal::File:
        return "file";
    case LinkCheck::Goal::Bookmark:
        return "bookmark";
    case LinkCheck::Goal::HelpTopic:
        return "help topic";
    case LinkCheck::Goal::Outside:
        return "outside";
    case LinkCheck::Goal::Nowhere:
        break;
    }
    return "nowhere";
}

/// One line, whatever an address holds.
std::string Printable(std::string text) {
    for (char& byte : text)
        if (static_cast<unsigned char>(byte) < ' ' || byte == '\x7f') byte = ' ';
    return text;
}

std::string Shown(const std::string& text) {
    return Printable(ShortenedInMiddle(text, kLongestShown));
}

void PrintJson(const std::vector<Link>& links, bool isPart, std::ostream& out) {
    Json list = Json::array();
    for (const Link& link : links) {
        list.push_back({{"qualifiedName", link.Item},
                        {"tag", link.Tag},
                        {"name", link.Name},
                        {"id", link.CommentId},
                        {"target", link.Target},
                        {"caption", link.Caption},
                        {"leadsTo", WordFor(link.LeadsTo)}});
        if (!link.LeadsToItem.empty()) list.back()["item"] = link.LeadsToItem;
        if (!link.Problem.empty()) list.back()["problem"] = link.Problem;
    }
    const Json json{
        {"links", std::move(list)}, {"nowhere", CountNowhere(links)}, {"isPart", isPart}};
    out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

void Print(const std::vector<Link>& links, std::ostream& out) {
    for (const Link& link : links) {
        out << link.Item << ": " << link.Name << ": ";
        if (!link.Caption.empty()) out << '"' << Shown(link.Caption) << "\" -> ";
        out << Shown(link.Target) << '\n';
        if (link.LeadsNowhere()) out << "    leads nowhere: " << Printable(link.Problem) << '\n';
    }
    out << LinkSummary(links) << '\n';
}

} // namespace

int RunLinks(const std::string& project, Output& output) {
    const auto workspace = OpenWorkspace(project, output);
    if (!workspace) return kExitBadInput;
    const ProjectSession& session = workspace->GetSession();
    const auto links =
        LinkCheck(*session.GetProvider()).Check(*session.GetProject()->GetComments());
    if (output.Json)
        PrintJson(links, session.IsPart(), output.Out);
    else
        Print(links, output.Out);
    if (session.IsPart())
        output.Err << "Not all source code was read, so items may only seem to be missing.\n";
    return CountNowhere(links) > 0 ? kExitCheckFailed : kExitDone;
}

} // namespace paperkite
