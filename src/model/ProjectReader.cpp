#include "model/ProjectReader.h"

#include "model/ProjectDocument.h"
#include "model/ProjectPaths.h"

namespace paperkite {

namespace {

bool FlagOf(const XmlElement& element, const char* name, bool otherwise) {
    const std::string* value = element.FindAttribute(name);
    return value ? *value == "true" : otherwise;
}

int ColourOf(const XmlElement& element, const char* name, int otherwise) {
    const std::string* value = element.FindAttribute(name);
    if (!value || value->size() != 7 || value->front() != '#' ||
        value->find_first_not_of("0123456789abcdefABCDEF", 1) != std::string::npos)
        return otherwise;
    return std::stoi(value->substr(1), nullptr, 16);
}

template <class Visit>
void ForEach(const XmlElement& root, const char* list, const char* entry, const Visit& visit) {
    const XmlElement* found = root.FindChild(list);
    if (!found) return;
    for (const XmlElement& child : found->Children)
        if (child.IsElement() && child.Name == entry) visit(child);
}

void ReadSettings(const XmlElement& root, ProjectSettings& settings) {
    ForEach(root, "settings", "setting", [&](const XmlElement& element) {
        const std::string name = element.AttributeText("name");
        if (ProjectSettings::Has(name)) settings.Set(name, Value(element.ContentText()));
    });
}

void ReadDiagramStyle(const XmlElement& root, DiagramStyle& style) {
    const XmlElement* element = root.FindChild("diagramstyle");
    if (!element) return;
    style.Bold = FlagOf(*element, "bold", style.Bold);
    style.CenterCaptions = FlagOf(*element, "centercaptions", style.CenterCaptions);
    style.Border = FlagOf(*element, "border", style.Border);
    style.DropShadow = FlagOf(*element, "dropshadow", style.DropShadow);
    style.UseShapes = FlagOf(*element, "useshapes", style.UseShapes);
    style.UseTemplateStyle = FlagOf(*element, "usetemplatestyle", style.UseTemplateStyle);
    style.ObjectFillColor = ColourOf(*element, "objectfill", style.ObjectFillColor);
    style.ObjectTextColor = ColourOf(*element, "objecttext", style.ObjectTextColor);
    style.ObjectBorderColor = ColourOf(*element, "objectborder", style.ObjectBorderColor);
    style.CollectionFillColor = ColourOf(*element, "collectionfill", style.CollectionFillColor);
    style.CollectionTextColor = ColourOf(*element, "collectiontext", style.CollectionTextColor);
    style.CollectionBorderColor =
        ColourOf(*element, "collectionborder", style.CollectionBorderColor);
}

void ReadLists(const XmlElement& root, ProjectDocument& project) {
    ForEach(root, "exclusions", "exclusion", [&](const XmlElement& element) {
        const std::string name = element.ContentText();
        if (!name.empty() && !project.GetNamespaceExclusions()->Contains(name))
            project.GetNamespaceExclusions()->Add(name, name);
    });
    ForEach(root, "memberfilters", "memberfilter", [&](const XmlElement& element) {
        auto filter = MakeRef<ExcludeFilter>();
        filter->Text = element.ContentText();
        project.GetMemberFilters().Add(filter);
    });
    ForEach(root, "variables", "variable", [&](const XmlElement& element) {
        auto variable = MakeRef<Variable>();
        variable->Name = element.AttributeText("name");
        variable->Value = element.ContentText();
        if (!project.GetVariables().Contains(variable->Name))
            project.GetVariables().Add(variable, variable->Name);
    });
    ForEach(root, "additionalfiles", "additionalfile", [&](const XmlElement& element) {
        auto file = MakeRef<AdditionalFile>();
        file->FileName = ProjectPaths::FromStored(project.GetPath(), element.AttributeText("path"));
        project.GetAdditionalFiles().Add(file);
    });
    ForEach(root, "ignorerelationships", "relationship", [&](const XmlElement& element) {
        auto relationship = MakeRef<IgnoredRelationship>();
        relationship->Module = element.AttributeText("module");
        relationship->ProcedureName = element.AttributeText("procedure");
        project.GetIgnoreRelationships().Add(relationship);
    });
}

std::optional<FileProblem> ReadSource(const XmlReader& reader, const XmlElement& element,
                                      ProjectDocument& project) {
    SourceSettings source;
    source.WrittenFolder = element.AttributeText("folder");
    if (source.WrittenFolder.empty())
        return reader.ProblemAt(element, "This source does not say its folder.",
                                "Add folder=\"…\" to it, or remove it.");
    source.Folder = ProjectPaths::FromStored(project.GetPath(), source.WrittenFolder);
    SourceSettings& added = project.AddSource(source.Folder);
    added.WrittenFolder = source.WrittenFolder;
    if (element.FindAttribute("moniker")) added.Moniker = element.AttributeText("moniker");
    if (const std::string root = element.AttributeText("root"); !root.empty())
        added.RootName = root;
    for (const XmlElement& child : element.Children)
        if (child.IsElement() && child.Name == "exclude")
            added.Excludes.push_back(child.ContentText());
    return {};
}

std::optional<FileProblem> ReadContentFile(const XmlReader& reader, const XmlElement& element,
                                           ProjectDocument& project) {
    const std::string path = element.AttributeText("path");
    if (path.empty())
        return reader.ProblemAt(element, "This Content File does not say its path.",
                                "Add path=\"…\" to it, or remove it.");
    auto file = MakeRef<CommentFile>();
    file->FileName = ProjectPaths::FromStored(project.GetPath(), path);
    file->RelatedItemMoniker = element.AttributeText("item");
    file->DocType = element.AttributeText("doctype");
    project.GetCommentFiles().Add(file);
    return {};
}

void ReadScope(const XmlElement& root, ProjectDocument& project) {
    const XmlElement* scope = root.FindChild("scope");
    if (!scope) return;
    project.SetIncludePrivate(FlagOf(*scope, "private", false));
    project.SetIncludeFriend(FlagOf(*scope, "friend", false));
    project.SetIncludeProtected(FlagOf(*scope, "protected", true));
    project.SetIncludeProtectedFriend(FlagOf(*scope, "protectedfriend", true));
    project.StoreScope();
}

} // namespace

std::optional<FileProblem> ProjectReader::Read(const std::string& bytes, ProjectDocument& project) {
    const XmlReader reader(project.GetPath(), bytes);
    XmlFile xml;
    if (auto problem = reader.Read(xml)) return problem;
    if (auto problem = reader.CheckRoot(xml.Root, "kiteproject", kProjectVersion, "a project"))
        return problem;
    if (const XmlElement* title = xml.Root.FindChild("title"))
        project.SetTitle(title->ContentText());
    for (const XmlElement& child : xml.Root.Children) {
        if (!child.IsElement()) continue;
        if (child.Name == "source")
            if (auto problem = ReadSource(reader, child, project)) return problem;
        if (child.Name == "contentfile")
            if (auto problem = ReadContentFile(reader, child, project)) return problem;
    }
    ReadScope(xml.Root, project);
    ReadSettings(xml.Root, project.GetSettings());
    ReadLists(xml.Root, project);
    ReadDiagramStyle(xml.Root, *project.GetDiagramStyle());
    project.mKept = std::move(xml);
    return {};
}

} // namespace paperkite
