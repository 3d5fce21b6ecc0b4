#include "model/PageTemplateWriter.h"

#include "foundation/Text.h"
#include "model/PageTemplateReader.h"
#include "model/XmlWriter.h"

namespace paperkite {

namespace {

void WithUnlessEmpty(XmlElement& element, const char* name, const std::string& value) {
    if (!value.empty()) element.With(name, value);
}

void AddElementDef(XmlElement& parent, const char* name, const ElementDef& definition) {
    XmlElement& element = parent.Add(XmlElement::Named(name));
    element.With("name", definition.Name);
    WithUnlessEmpty(element, "category", definition.Category);
    if (!definition.Description.empty())
        element.Add(XmlElement::WithText("description", definition.Description));
    for (const auto& attribute : definition.AttributeDefs) {
        XmlElement& child = element.Add(XmlElement::WithText("attribute", attribute->Description));
        child.With("name", attribute->Name);
        WithUnlessEmpty(child, "type", attribute->AttributeType);
        if (attribute->Required) child.With("required", "true");
        WithUnlessEmpty(child, "source", attribute->ValueSource);
        WithUnlessEmpty(child, "values", attribute->Values);
    }
}

void AddNamespaces(XmlElement& root, const PageTemplate& source) {
    for (const auto& served : source.Namespaces) {
        XmlElement& element = root.Add(XmlElement::Named("namespace"));
        element.With("moniker", served->Moniker);
        for (const auto& definition : served->CategoryDefs)
            AddElementDef(element, "category", *definition);
        for (const auto& definition : served->ElementDefs)
            AddElementDef(element, "element", *definition);
    }
}

void AddLevels(XmlElement& root, const PageTemplate& source) {
    for (const auto& level : *source.NamespaceDefs) {
        XmlElement& element = root.Add(XmlElement::Named("level"));
        element.With("name", level->Name);
        WithUnlessEmpty(element, "caption", level->GroupCaption);
        std::vector<std::string> children;
        for (const auto& child : *level->GetChildDefs())
            children.push_back(child->Name);
        WithUnlessEmpty(element, "children", Join(children, ","));
    }
}

void AddLayouts(XmlElement& root, const PageTemplate& source) {
    for (const auto& layout : *source.PageLayouts) {
        XmlElement& element = root.Add(XmlElement::Named("layout"));
        element.With("name", layout->Name).With("file", layout->FileName);
        WithUnlessEmpty(element, "filenametemplate", layout->FileNameTemplate);
        WithUnlessEmpty(element, "namespaces", layout->Namespaces);
        if (layout->Internal) element.With("internal", "true");
        WithUnlessEmpty(element, "excludedelements", layout->ExcludedElements);
    }
}

void AddVariables(XmlElement& root, const PageTemplate& source) {
    for (const auto& variable : source.VariableDefs) {
        XmlElement& element = root.Add(XmlElement::WithText("variable", variable->DefaultValue));
        element.With("name", variable->Name);
        WithUnlessEmpty(element, "type", VariableTypeText(variable->ItemType));
        WithUnlessEmpty(element, "caption", variable->Caption);
    }
}

void AddTexts(XmlElement& root, const char* name, const Collection<Ref<TemplateText>>& texts) {
    for (const auto& text : texts)
        root.Add(XmlElement::WithText(name, text->Text)).With("name", text->Name);
}

std::vector<XmlVocabulary> ElementParts() {
    return {{"description", {}, "", {}},
            {"attribute", {"name", "type", "required", "source", "values"}, "name", {}}};
}

const XmlVocabulary& Vocabulary() {
    static const XmlVocabulary vocabulary{
        "pagetemplate",
        {"version", "name", "language", "options"},
        "",
        {
            {"description", {}, "", {}},
            {"namespace",
             {"moniker"},
             "moniker",
             {{"category", {"name", "category"}, "name", ElementParts()},
              {"element", {"name", "category"}, "name", ElementParts()}}},
            {"level", {"name", "caption", "children"}, "name", {}},
            {"layout",
             {"name", "file", "filenametemplate", "namespaces", "internal", "excludedelements"},
             "name",
             {}},
            {"variable", {"name", "type", "caption"}, "name", {}},
            {"phrase", {"name"}, "name", {}},
            {"scrap", {"name"}, "name", {}},
            {"file", {"path"}, "path", {}},
        }};
    return vocabulary;
}

} // namespace

std::string PageTemplateWriter::Canonical(const PageTemplate& source, const XmlFile& kept) {
    XmlElement root = XmlElement::Named("pagetemplate");
    root.With("version", std::to_string(kPageTemplateVersion)).With("name", source.Name);
    WithUnlessEmpty(root, "language", source.Language);
    WithUnlessEmpty(root, "options", source.Options);
    if (!source.Description.empty())
        root.Add(XmlElement::WithText("description", source.Description));
    AddNamespaces(root, source);
    AddLevels(root, source);
    AddLayouts(root, source);
    AddVariables(root, source);
    AddTexts(root, "phrase", source.Phrases);
    AddTexts(root, "scrap", source.Scraps);
    for (const std::string& file : source.Files)
        root.Add(XmlElement::Named("file")).With("path", file);
    KeepUnknown(root, kept.Root, Vocabulary());
    return WriteXml({kept.Prolog, std::move(root), kept.Epilog});
}

} // namespace paperkite
