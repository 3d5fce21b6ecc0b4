#include "host/SpellCommand.h"

#include "foundation/Services.h"
#include "foundation/Text.h"
#include "host/Commands.h"
#include "host/SpellCheckWork.h"

#include <nlohmann/json.hpp>

#include <map>
#include <ostream>

namespace paperkite {

namespace {

using Json = nlohmann::ordered_json;
using Finding = SpellCheckWork::Finding;

constexpr std::size_t kMostSuggestions = 5;

/// Asks for each word once: suggestions take much longer than a check.
class Suggestions {
public:
    explicit Suggestions(SpellEngine& engine) : mEngine(engine) {}

    const std::vector<std::string>& Of(const std::string& word) {
        const auto [entry, isNew] = mKnown.try_emplace(word);
        if (isNew && mEngine.GetOptions().Suggest) entry->second = mEngine.Suggest(word);
        if (entry->second.size() > kMostSuggestions) entry->second.resize(kMostSuggestions);
        return entry->second;
    }

private:
    SpellEngine& mEngine;
    std::map<std::string, std::vector<std::string>> mKnown;
};

void PrintJson(const std::vector<Finding>& findings, Suggestions& suggestions, std::ostream& out) {
    Json list = Json::array();
    for (const Finding& finding : findings)
        list.push_back({{"qualifiedName", finding.Item},
                        {"tag", finding.Tag},
                        {"name", finding.Name},
                        {"id", finding.CommentId},
                        {"word", finding.Word},
                        {"context", finding.Context.Line},
                        {"at", finding.Context.At},
                        {"length", finding.Context.Length},
                        {"suggestions", suggestions.Of(finding.Word)}});
    out << Json{{"misspelt", std::move(list)}}.dump(2, ' ', false, Json::error_handler_t::replace)
        << '\n';
}

void Print(const std::vector<Finding>& findings, Suggestions& suggestions, std::ostream& out) {
    for (const Finding& finding : findings) {
        out << finding.Item << ": " << finding.Name << ": " << finding.Context.Line << '\n'
            << "    " << finding.Word;
        const auto& likely = suggestions.Of(finding.Word);
        if (!likely.empty()) out << ": " << Join(likely, ", ");
        out << '\n';
    }
    if (findings.empty())
        out << "No word is misspelt.\n";
    else
        out << findings.size() << (findings.size() == 1 ? " word is" : " words are")
            << " misspelt.\n";
}

} // namespace

int RunSpell(const CommandTarget& target, Output& output) {
    const auto engine = CurrentServices().Spelling;
    if (!engine) return output.Fail("This program was built without spell checking.");
    const auto workspace = OpenWorkspace(target.Project, output);
    if (!workspace) return 2;
    if (const std::string problem = engine->GetProblem(); !problem.empty())
        return output.Fail(problem);
    if (const std::string& problem = workspace->GetSpelling()->GetProblem(); !problem.empty())
        return output.Fail(problem);
    std::string item;
    if (!target.Item.empty()) {
        const auto name = FindTarget(*workspace, target, output);
        if (!name) return 2;
        item = *name;
    }
    const auto findings =
        SpellCheckWork(*engine).Check(*workspace->GetSession().GetProject()->GetComments(), item);
    Suggestions suggestions(*engine);
    if (output.Json)
        PrintJson(findings, suggestions, output.Out);
    else
        Print(findings, suggestions, output.Out);
    return findings.empty() ? 0 : 1;
}

} // namespace paperkite
