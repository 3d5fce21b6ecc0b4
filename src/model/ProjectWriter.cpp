#include "model/ProjectWriter.h"

#include "model/ProjectDocument.h"
#include "model/ProjectPaths.h"
#include "model/ProjectReader.h"
#include "model/XmlWriter.h"

#include <cstdio>

namespace paperkite {

namespace {

// Settings of newer programs stand in the same list and are kept.
bool IsKnownSetting(const XmlElement& element) {
    return ProjectSettings::Has(element.AttributeText("name"));
}

std::string FlagText(bool value) {
    return value ? "true" : "false";
}

std::string ColourText(int colour) {
    char text[8];
    std::snprintf(text, sizeof text, "#%06X", static_cast<unsigned>(colour) & 0xFFFFFFu);
    return text;
}

std::string SettingText(const Value& value) {
    return value.IsBoolean() ? FlagText(value.ToBoolean()) : value.ToText();
}

void AddSources(XmlElement& root, const ProjectDocument& project) {
    for (const SourceSettings& source : project.GetSources()) {
        const bool asWritten =
            !source.WrittenFolder.empty() &&
            ProjectPaths::FromStored(project.GetPath(), source.WrittenFolder) == source.Folder;
        XmlElement& element = root.Add(XmlElement::Named("source"));
        element.With("moniker", source.Moniker)
            .With("folder", asWritten ? source.WrittenFolder
                                      : ProjectPaths::ToStored(project.GetPath(), source.Folder))
            .With("root", source.RootName);
        for (const std::string& glob : source.Excludes)
            element.Add(XmlElement::WithText("exclude", glob));
    }
}

void AddContentFiles(XmlElement& root, const ProjectDocument& project) {
    for (const auto& file : project.GetCommentFiles()) {
        XmlElement& element = root.Add(XmlElement::Named("contentfile"));
        element.With("path", ProjectPaths::ToStored(project.GetPath(), file->FileName));
        if (!file->RelatedItemMoniker.empty()) element.With("item", file->RelatedItemMoniker);
        if (!file->DocType.empty()) element.With("doctype", file->DocType);
    }
}

void AddScope(XmlElement& root, const ProjectDocument::Scope& scope) {
    if (scope == ProjectDocument::Scope()) return;
    root.Add(XmlElement::Named("scope"))
        .With("private", FlagText(scope.Private))
        .With("friend", FlagText(scope.Friend))
        .With("protected", FlagText(scope.Protected))
        .With("protectedfriend", FlagText(scope.ProtectedFriend));
}

void AddUnlessEmpty(XmlElement& root, XmlElement list) {
    if (!list.Children.empty()) root.Add(std::move(list));
}

XmlElement SettingsOf(const ProjectDocument& project) {
    XmlElement list = XmlElement::Named("settings");
    for (const std::string& name : ProjectSettings::Names()) {
        const bool hasOwnElement = name == "ProjectGroupName";
        if (hasOwnElement || project.GetSettings().IsDefault(name)) continue;
        list.Add(XmlElement::WithText("setting", SettingText(project.GetSettings().Get(name))))
            .With("name", name);
    }
    return list;
}

void AddLists(XmlElement& root, const ProjectDocument& project, TextCollection& excluded) {
    XmlElement exclusions = XmlElement::Named("exclusions");
    for (const std::string& name : excluded)
        exclusions.Add(XmlElement::WithText("exclusion", name));
    AddUnlessEmpty(root, std::move(exclusions));

    XmlElement filters = XmlElement::Named("memberfilters");
    for (const auto& filter : project.GetMemberFilters())
        filters.Add(XmlElement::WithText("memberfilter", filter->Text));
    AddUnlessEmpty(root, std::move(filters));

    XmlElement variables = XmlElement::Named("variables");
    for (const auto& variable : project.GetVariables())
        variables.Add(XmlElement::WithText("variable", variable->Value))
            .With("name", variable->Name);
    AddUnlessEmpty(root, std::move(variables));

    XmlElement files = XmlElement::Named("additionalfiles");
    for (const auto& file : project.GetAdditionalFiles())
        files.Add(XmlElement::Named("additionalfile"))
            .With("path", ProjectPaths::ToStored(project.GetPath(), file->FileName));
    AddUnlessEmpty(root, std::move(files));

    XmlElement relationships = XmlElement::Named("ignorerelationships");
    for (const auto& relationship : project.GetIgnoreRelationships())
        relationships.Add(XmlElement::Named("relationship"))
            .With("module", relationship->Module)
            .With("procedure", relationship->ProcedureName);
    AddUnlessEmpty(root, std::move(relationships));
}

void AddDiagramStyle(XmlElement& root, const DiagramStyle& style) {
    XmlElement element = XmlElement::Named("diagramstyle");
    const DiagramStyle standard;
    const auto flag = [&](const char* name, bool DiagramStyle::*field) {
        if (style.*field != standard.*field) element.With(name, FlagText(style.*field));
    };
    const auto colour = [&](const char* name, int DiagramStyle::*field) {
        if (style.*field != standard.*field) element.With(name, ColourText(style.*field));
    };
    flag("bold", &DiagramStyle::Bold);
    flag("centercaptions", &DiagramStyle::CenterCaptions);
    flag("border", &DiagramStyle::Border);
    flag("dropshadow", &DiagramStyle::DropShadow);
    flag("useshapes", &DiagramStyle::UseShapes);
    flag("usetemplatestyle", &DiagramStyle::UseTemplateStyle);
    colour("objectfill", &DiagramStyle::ObjectFillColor);
    colour("objecttext", &DiagramStyle::ObjectTextColor);
    colour("objectborder", &DiagramStyle::ObjectBorderColor);
    colour("collectionfill", &DiagramStyle::CollectionFillColor);
    colour("collectiontext", &DiagramStyle::CollectionTextColor);
    colour("collectionborder", &DiagramStyle::CollectionBorderColor);
    if (!element.Attributes.empty()) root.Add(std::move(element));
}

} // namespace

const XmlVocabulary& ProjectWriter::Vocabulary() {
    static const XmlVocabulary vocabulary{
        "kiteproject",
        {"version"},
        "",
        {
            {"title", {}, "", {}},
            {"source", {"moniker", "folder", "root"}, "root", {{"exclude", {}, ".", {}}}},
            {"contentfile", {"path", "item", "doctype"}, "path", {}},
            {"scope", {"private", "friend", "protected", "protectedfriend"}, "", {}},
            {"settings", {}, "", {{"setting", {"name"}, "name", {}, IsKnownSetting}}},
            {"exclusions", {}, "", {{"exclusion", {}, ".", {}}}},
            {"memberfilters", {}, "", {{"memberfilter", {}, ".", {}}}},
            {"variables", {}, "", {{"variable", {"name"}, "name", {}}}},
            {"additionalfiles", {}, "", {{"additionalfile", {"path"}, "path", {}}}},
            {"ignorerelationships",
             {},
             "",
             {{"relationship", {"module", "procedure"}, "procedure", {}}}},
            {"diagramstyle",
             {"bold", "centercaptions", "border", "dropshadow", "useshapes", "usetemplatestyle",
              "objectfill", "objecttext", "objectborder", "collectionfill", "collectiontext",
              "collectionborder"},
             "",
             {}},
        }};
    return vocabulary;
}

std::string ProjectWriter::Canonical(const ProjectDocument& project) {
    XmlElement root = XmlElement::Named("kiteproject");
    root.With("version", std::to_string(kProjectVersion));
    const std::string title = project.GetSettings().Get("ProjectGroupName").ToText();
    if (!title.empty()) root.Add(XmlElement::WithText("title", title));
    AddSources(root, project);
    AddContentFiles(root, project);
    AddScope(root, project.GetStoredScope());
    AddUnlessEmpty(root, SettingsOf(project));
    AddLists(root, project, *project.mNamespaceExclusions);
    AddDiagramStyle(root, *project.GetDiagramStyle());
    KeepUnknown(root, project.mKept.Root, Vocabulary());
    return WriteXml({project.mKept.Prolog, std::move(root), project.mKept.Epilog});
}

} // namespace paperkite
