#include "foundation/ProjectSettings.h"
#include "fuzz/ProblemCheck.h"
#include "model/ProjectDocument.h"
#include "model/ProjectReader.h"
#include "model/ProjectWriter.h"

namespace paperkite::fuzz {
namespace {

Ref<ProjectDocument> MakeProject() {
    auto project = ProjectDocument::New("/nowhere/project.kiteproject").Project;
    project->RemoveContentFile("/nowhere/project.ktc");
    return project;
}

std::string Part(const std::string& text) {
    return std::to_string(text.size()) + ":" + text + "\n";
}

/// All that an author has in the project.
std::string Listing(ProjectDocument& project) {
    std::string text = Part(project.GetTitle());
    for (const SourceSettings& source : project.GetSources()) {
        text += Part(source.Folder) + Part(source.Moniker) + Part(source.RootName);
        for (const std::string& pattern : source.Excludes)
            text += Part(pattern);
    }
    for (const auto& file : project.GetCommentFiles())
        text += Part(file->FileName) + Part(file->RelatedItemMoniker) + Part(file->DocType);
    for (const auto& name : *project.GetNamespaceExclusions())
        text += Part(name);
    for (const auto& filter : project.GetMemberFilters())
        text += Part(filter->Text);
    for (const auto& variable : project.GetVariables())
        text += Part(variable->Name) + Part(variable->Value);
    for (const auto& file : project.GetAdditionalFiles())
        text += Part(file->FileName);
    for (const auto& entry : project.GetIgnoreRelationships())
        text += Part(entry->Module) + Part(entry->ProcedureName);
    const auto& scope = project.GetStoredScope();
    for (const bool flag : {scope.Private, scope.Friend, scope.Protected, scope.ProtectedFriend})
        text += flag ? "1" : "0";
    return text;
}

const FuzzTarget target("projectfile", [](std::string_view input) {
    const auto project = MakeProject();
    if (const auto problem = ProjectReader::Read(std::string(input), *project)) {
        RequireClear(*problem, input);
        return;
    }
    const std::string written = ProjectWriter::Canonical(*project);
    const auto again = MakeProject();
    const auto problem = ProjectReader::Read(written, *again);
    Require(!problem, "what was written is refused: " + (problem ? problem->Message() : ""));
    Require(Listing(*project) == Listing(*again),
            "the project changed:\n" + Listing(*project) + "---\n" + Listing(*again) + written);
    Require(ProjectWriter::Canonical(*again) == written,
            "the second writing differs from the first:\n" + written + "---\n" +
                ProjectWriter::Canonical(*again));
});

} // namespace
} // namespace paperkite::fuzz
