#include "model/PageTemplateReader.h"

#include "foundation/Text.h"

#include <array>

namespace paperkite {

namespace {

constexpr std::array<std::pair<const char*, int>, 7> kVariableTypes = {{{"text", 0},
                                                                        {"number", 5},
                                                                        {"date", 7},
                                                                        {"boolean", 11},
                                                                        {"file", 103},
                                                                        {"color", 104},
                                                                        {"list", 105}}};

using Problem = std::optional<FileProblem>;

/// Reads the elements below the root, one after the other.
class Reading {
public:
    Reading(const XmlReader& reader, PageTemplate& result) : mReader(reader), mResult(result) {}

    Problem Run(const XmlElement& root) {
        if (auto problem = ReadRoot(root)) return problem;
        for (const XmlElement& child : root.Children)
            if (child.IsElement())
                if (auto problem = ReadChild(child)) return problem;
        if (mResult.PageLayouts->Count() == 0)
            return mReader.ProblemAt(root, "This template has no layout.",
                                     "Add a <layout name=\"…\" file=\"….html\" "
                                     "namespaces=\"…\"/> for each kind of page.");
        return ConnectLevels(root);
    }

private:
    Problem ReadRoot(const XmlElement& root) {
        mResult.Name = root.AttributeText("name");
        mResult.Language = root.AttributeText("language");
        mResult.Options = root.AttributeText("options");
        if (const XmlElement* description = root.FindChild("description"))
            mResult.Description = description->ContentText();
        return Required(root, "template", "name");
    }

    Problem Required(const XmlElement& element, const std::string& what,
                     const std::string& attribute) const {
        if (!element.AttributeText(attribute).empty()) return {};
        return mReader.ProblemAt(element, "This " + what + " does not say its " + attribute + ".",
                                 "Add " + attribute + "=\"…\" to it, or remove it.");
    }

    Problem Twice(const XmlElement& element, const std::string& what) const {
        return mReader.ProblemAt(element, "There are two " + what + " of this name.",
                                 "Rename or remove one of the two.");
    }

    static std::string PluralOf(const std::string& what) {
        return what.ends_with('y') ? what.substr(0, what.size() - 1) + "ies" : what + "s";
    }

    /// Checks what a collection needs of an element that goes into it by its name.
    template <class Collection>
    Problem CheckName(const XmlElement& element, const std::string& what,
                      const Collection& collection) const {
        if (auto problem = Required(element, what, "name")) return problem;
        if (collection.Contains(element.AttributeText("name")))
            return Twice(element, PluralOf(what));
        return {};
    }

    Problem ReadChild(const XmlElement& child) {
        if (child.Name == "namespace") return ReadNamespace(child);
        if (child.Name == "level") return ReadLevel(child);
        if (child.Name == "layout") return ReadLayout(child);
        if (child.Name == "variable") return ReadVariable(child);
        if (child.Name == "phrase") return ReadText(child, mResult.Phrases);
        if (child.Name == "scrap") return ReadText(child, mResult.Scraps);
        if (child.Name == "file") return ReadFile(child);
        return {};
    }

    Problem ReadNamespace(const XmlElement& element) {
        if (auto problem = Required(element, "namespace", "moniker")) return problem;
        auto served = MakeRef<TemplateNamespace>();
        served->Moniker = element.AttributeText("moniker");
        for (const XmlElement& child : element.Children)
            if (child.IsElement())
                if (auto problem = ReadDefinition(child, *served)) return problem;
        mResult.Namespaces.push_back(served);
        return {};
    }

    Problem ReadDefinition(const XmlElement& element, TemplateNamespace& served) const {
        if (element.Name == "element") return ReadElement(element, served.ElementDefs);
        if (element.Name == "category") return ReadElement(element, served.CategoryDefs);
        return {};
    }

    Problem ReadElement(const XmlElement& element, Collection<Ref<ElementDef>>& definitions) const {
        if (auto problem = CheckName(element, element.Name, definitions)) return problem;
        auto definition = MakeRef<ElementDef>();
        definition->Name = element.AttributeText("name");
        definition->Category = element.AttributeText("category");
        if (const XmlElement* description = element.FindChild("description"))
            definition->Description = TrimWhiteSpace(description->ContentText());
        for (const XmlElement& child : element.Children)
            if (child.IsElement() && child.Name == "attribute")
                if (auto problem = ReadAttribute(child, *definition)) return problem;
        definitions.Add(definition, definition->Name);
        return {};
    }

    Problem ReadAttribute(const XmlElement& element, ElementDef& definition) const {
        if (auto problem = CheckName(element, "attribute", definition.AttributeDefs))
            return problem;
        auto attribute = MakeRef<AttributeDef>();
        attribute->Name = element.AttributeText("name");
        attribute->AttributeType = element.AttributeText("type");
        attribute->Required = element.AttributeText("required") == "true";
        attribute->ValueSource = element.AttributeText("source");
        attribute->Values = element.AttributeText("values");
        attribute->Description = TrimWhiteSpace(element.ContentText());
        definition.AttributeDefs.Add(attribute, attribute->Name);
        return {};
    }

    Problem ReadLevel(const XmlElement& element) {
        if (auto problem = CheckName(element, "level", *mResult.NamespaceDefs)) return problem;
        auto level = MakeRef<NamespaceDef>();
        level->Name = element.AttributeText("name");
        level->Moniker = BeforeColon(level->Name);
        level->ItemType = AfterColon(level->Name);
        level->GroupCaption = element.AttributeText("caption");
        mResult.NamespaceDefs->Add(level, level->Name);
        return {};
    }

    /// Levels name their children, which may stand behind them.
    Problem ConnectLevels(const XmlElement& root) const {
        for (const XmlElement& element : root.Children) {
            if (!element.IsElement() || element.Name != "level") continue;
            auto children = MakeRef<NamespaceDefs>();
            for (const std::string& part : Split(element.AttributeText("children"), ",")) {
                const std::string name = TrimWhiteSpace(part);
                if (!mResult.NamespaceDefs->Contains(name))
                    return mReader.ProblemAt(element, "There is no level \"" + name + "\".",
                                             "Add a <level name=\"" + name +
                                                 "\"/>, or take it out of children.");
                if (!children->Contains(name))
                    children->Add(mResult.NamespaceDefs->Item(name), name);
            }
            mResult.NamespaceDefs->Item(element.AttributeText("name"))->SetChildDefs(children);
        }
        return {};
    }

    Problem ReadLayout(const XmlElement& element) {
        if (auto problem = CheckName(element, "layout", *mResult.PageLayouts)) return problem;
        if (auto problem = CheckFile(element, "layout", "file")) return problem;
        auto layout = MakeRef<PageLayout>();
        layout->Name = element.AttributeText("name");
        layout->FileName = element.AttributeText("file");
        layout->FileNameTemplate = element.AttributeText("filenametemplate");
        layout->Namespaces = element.AttributeText("namespaces");
        layout->Internal = element.AttributeText("internal") == "true";
        layout->ExcludedElements = element.AttributeText("excludedelements");
        mResult.PageLayouts->Add(layout);
        return {};
    }

    Problem ReadVariable(const XmlElement& element) {
        if (auto problem = CheckName(element, "variable", mResult.VariableDefs)) return problem;
        auto variable = MakeRef<VariableDef>();
        variable->Name = element.AttributeText("name");
        const std::string type = element.AttributeText("type");
        variable->ItemType = VariableTypeOf(type);
        if (VariableTypeText(variable->ItemType) != (type.empty() ? "text" : type))
            return mReader.ProblemAt(element, "\"" + type + "\" is no type of a variable.",
                                     "Use text, number, date, boolean, file, color or list.");
        variable->Caption = element.AttributeText("caption");
        variable->DefaultValue = element.ContentText();
        mResult.VariableDefs.Add(variable, variable->Name);
        return {};
    }

    Problem ReadText(const XmlElement& element, Collection<Ref<TemplateText>>& texts) const {
        if (auto problem = CheckName(element, element.Name, texts)) return problem;
        auto text = MakeRef<TemplateText>();
        text->Name = element.AttributeText("name");
        text->Text = element.ContentText();
        texts.Add(text, text->Name);
        return {};
    }

    Problem ReadFile(const XmlElement& element) {
        if (auto problem = CheckFile(element, "file", "path")) return problem;
        mResult.Files.push_back(element.AttributeText("path"));
        return {};
    }

    Problem CheckFile(const XmlElement& element, const std::string& what,
                      const std::string& attribute) const {
        if (auto problem = Required(element, what, attribute)) return problem;
        const std::string path = element.AttributeText(attribute);
        if (PageTemplateReader::IsBelowFolder(path)) return {};
        return mReader.ProblemAt(element, "\"" + path + "\" is outside the template's folder.",
                                 "Copy the file into the folder and name it by its path there.");
    }

    const XmlReader& mReader;
    PageTemplate& mResult;
};

} // namespace

int VariableTypeOf(const std::string& word) {
    for (const auto& [name, number] : kVariableTypes)
        if (word == name) return number;
    return 0;
}

std::string VariableTypeText(int type) {
    for (const auto& [name, number] : kVariableTypes)
        if (type == number) return name;
    return {};
}

bool PageTemplateReader::IsBelowFolder(const std::string& path) {
    if (path.empty() || path.front() == '/' ||
        path.find_first_of(std::string_view("\\:\0", 3)) != path.npos)
        return false;
    for (const std::string& step : Split(path, "/"))
        if (step == "..") return false;
    return true;
}

std::optional<FileProblem> PageTemplateReader::Read(const std::string& path,
                                                    const std::string& bytes, PageTemplate& result,
                                                    XmlFile& kept) {
    const XmlReader reader(path, bytes);
    if (auto problem = reader.Read(kept)) return problem;
    if (auto problem =
            reader.CheckRoot(kept.Root, "pagetemplate", kPageTemplateVersion, "a page template"))
        return problem;
    return Reading(reader, result).Run(kept.Root);
}

} // namespace paperkite
