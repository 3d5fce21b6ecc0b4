#include "host/PreviewCommand.h"

#include "foundation/Services.h"
#include "foundation/Text.h"
#include "host/HeadlessServices.h"
#include "host/ItemPage.h"
#include "model/PageTemplateDocument.h"
#include "model/SafeFile.h"

#include <filesystem>
#include <ostream>

namespace paperkite {

namespace {

namespace fs = std::filesystem;

/// The template of a folder; nothing, and said why, when it is none.
Ref<PageTemplateDocument> OpenFolder(const std::string& folder, Output& output) {
    auto opened = PageTemplateDocument::Open(folder);
    if (opened.Problem) {
        output.Fail(opened.Problem->Message());
        return {};
    }
    for (const FileProblem& warning : opened.Warnings)
        output.Err << warning.Message() << '\n';
    return opened.Template;
}

using Templates = Collection<Ref<PageTemplate>>;

std::string NamesOf(const Templates& templates) {
    std::vector<std::string> names;
    for (const auto& known : templates)
        names.push_back(known->Name);
    return Join(names, ", ");
}

/// Those of the program. The components need not know of them here.
Templates ProgramTemplates(Output& output) {
    Templates templates;
    for (const FileProblem& problem : PageTemplateDocument::OpenAll(
             CurrentServices().ApplicationFolder + "/templates", templates))
        output.Err << problem.Message() << '\n';
    return templates;
}

Ref<PageTemplateDocument> FindTemplate(const std::string& wanted, Output& output) {
    const bool isPath = wanted.find('/') != std::string::npos;
    if (isPath) return OpenFolder(wanted, output);
    const std::string name = wanted.empty() ? kStandardTemplate : wanted;
    const Templates templates = ProgramTemplates(output);
    Ref<PageTemplateDocument> first;
    for (const auto& known : templates) {
        const auto document = known.As<PageTemplateDocument>();
        if (!document) continue;
        if (EqualIgnoringCase(document->Name, name)) return document;
        if (!first) first = document;
    }
    if (!first)
        output.Fail("The program has no page template. Name the folder of one with --template.");
    else if (!wanted.empty())
        output.Fail("There is no template \"" + wanted + "\". There are " + NamesOf(templates) +
                    ".");
    else
        return first;
    return {};
}

/// The layout that is wanted, or the first one for the level; nothing, and said why, when there is
/// none.
Ref<PageLayout> FindLayout(const PageTemplate& from, const std::string& wanted,
                           const std::string& level, Output& output) {
    std::vector<std::string> fitting;
    for (const auto& layout : *from.PageLayouts) {
        const bool serves = Serves(*layout, level);
        if (serves && wanted.empty() && !layout->Internal) return layout;
        if (EqualIgnoringCase(layout->Name, wanted)) return layout;
        if (serves) fitting.push_back("\"" + layout->Name + "\"");
    }
    std::string message =
        wanted.empty() ? "The template \"" + from.Name + "\" has no layout for " + level + "."
                       : "The template \"" + from.Name + "\" has no layout \"" + wanted + "\".";
    if (!fitting.empty()) message += " For this item it has " + Join(fitting, " and ") + ".";
    output.Fail(message);
    return {};
}

/// Copies what pages need beside them. Nothing is replaced that says something else.
std::optional<std::string> CopyFiles(const PageTemplate& from, const fs::path& folder) {
    for (const bool isTrial : {true, false})
        for (const std::string& file : from.Files) {
            std::string bytes;
            std::string present;
            const std::string to = (folder / file).string();
            if (auto problem = SafeFile::Read(from.Folder + "/" + file, bytes))
                return problem->Message();
            const bool isThere = !SafeFile::Read(to, present);
            if (isThere && present != bytes)
                return to + " is there already and is another file. Nothing was written: choose "
                            "another folder, or take the file away.";
            if (isTrial || isThere) continue;
            std::error_code ignored;
            fs::create_directories(fs::path(to).parent_path(), ignored);
            if (auto problem = SafeFile::Write(to, bytes)) return problem->Message();
        }
    return {};
}

} // namespace

int PreviewCommand::Run(const CommandTarget& target, Output& output) const {
    const auto from = FindTemplate(Template, output);
    if (!from) return 2;
    const auto workspace = OpenWorkspace(target.Project, output);
    if (!workspace) return 2;
    const auto name = FindTarget(*workspace, target, output);
    if (!name) return 2;
    ProjectSession& session = workspace->GetSession();
    const auto item = ItemWithPage(session.GetProvider()->GetItem(*name));
    const auto layout = FindLayout(*from, Layout, LevelOf(*item), output);
    if (!layout) return 2;
    std::string text;
    if (const auto problem = from->ReadLayout(*layout, text))
        return output.Fail(problem->Message());
    if (!Out.empty())
        if (const auto problem = CopyFiles(*from, fs::absolute(Out).parent_path()))
            return output.Fail(*problem);
    const ItemPage page = MakeItemPage(session, item, from, text, {Edit, !Out.empty()});
    for (const std::string& mistake : page.Mistakes)
        output.Err << from->PathOf(*layout) << ": " << mistake << '\n';
    for (const std::string& missing : page.Missing)
        output.Err << *name << ": " << missing << '\n';
    if (Out.empty()) {
        output.Out << page.Text;
        return 0;
    }
    if (const auto problem = SafeFile::Write(Out, page.Text))
        return output.Fail(problem->Message());
    output.Out << "Wrote the page of " << *name << " to " << Out << ".\n";
    return 0;
}

} // namespace paperkite
