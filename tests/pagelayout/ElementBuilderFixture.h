#pragma once

#include "foundation/GlobalConfig.h"
#include "foundation/Text.h"
#include "pagelayout/ElementBuilder.h"
#include "support/ScriptedServices.h"

#include <gtest/gtest.h>

namespace paperkite::test {

/// A template with elements of several categories, and attributes of every kind.
class ElementBuilderFixture : public testing::Test {
protected:
    ElementBuilderFixture() {
        mTemplate->Folder = "/templates/plain";
        mSpace->Moniker = "kite.source";
        mTemplate->Namespaces.push_back(mSpace);
        AddLevel("kite.source:Project");
        AddElement("head", "Page", "The title of the page.");
        AddElement("note", "", "A note to all readers.");
        AddElement("name", "{Blank}", "The name.");
        auto comment = AddElement("comment", "Page", "The comments of one kind.");
        AddAttribute(comment, "tag", "list", "taggedcommentdefs")->Required = true;
        AddAttribute(comment, "until", "date");
        AddAttribute(comment, "edge", "COLOR");
        AddAttribute(comment, "most", "number");
        AddAttribute(comment, "bare", "boolean");
        AddAttribute(comment, "file", "File");
        AddAttribute(comment, "caption", "text");
    }

    ~ElementBuilderFixture() override {
        mTemplate->NamespaceDefs->Release();
        GlobalConfig().TaggedCommentDefs = MakeRef<TaggedCommentDefs>();
    }

    Ref<NamespaceDef> AddLevel(const std::string& name) {
        auto level = MakeRef<NamespaceDef>();
        level->Name = name;
        level->Moniker = BeforeColon(name);
        mTemplate->NamespaceDefs->Add(level, name);
        return level;
    }

    Ref<ElementDef> AddElement(const std::string& name, const std::string& category,
                               const std::string& description = {}) {
        auto definition = MakeRef<ElementDef>();
        definition->Name = name;
        definition->Category = category;
        definition->Description = description;
        mSpace->ElementDefs.Add(definition, name);
        return definition;
    }

    static Ref<AttributeDef> AddAttribute(const Ref<ElementDef>& definition,
                                          const std::string& name, const std::string& type = {},
                                          const std::string& source = {},
                                          const std::string& values = {}) {
        auto attribute = MakeRef<AttributeDef>();
        attribute->Name = name;
        attribute->Description = "About " + name;
        attribute->AttributeType = type;
        attribute->ValueSource = source;
        attribute->Values = values;
        definition->AttributeDefs.Add(attribute, name);
        return attribute;
    }

    static void AddTag(const std::string& tag, const std::string& name) {
        auto definition = MakeRef<TaggedCommentDef>();
        definition->TagIdentifier = tag;
        definition->DisplayName = name;
        GlobalConfig().TaggedCommentDefs->Add(definition);
    }

    static Ref<ParserElement>
    MakeElement(const std::vector<std::pair<std::string, std::string>>& attributes) {
        auto element = MakeRef<ParserElement>();
        element->ElementType = kParserTagElement;
        for (const auto& [name, value] : attributes) {
            auto attribute = MakeRef<ElementAttribute>();
            attribute->Name = name;
            attribute->Value = value;
            element->Attributes.Add(attribute, name);
        }
        return element;
    }

    static std::string Written(const ParserElement& element) {
        std::string text;
        for (const auto& attribute : element.Attributes)
            text += attribute->Name + "=" + attribute->Value + ";";
        return text;
    }

    static std::string Choices(const PropertyItem& row) {
        std::string text;
        for (const auto& choice : row.GetChoices())
            text += choice.Text + "=" + choice.Value + ";";
        return text;
    }

    void Initialise() { mBuilder->Initialise(mTemplate->NamespaceDefs, mTemplate); }

    Ref<ElementDef> Definition(const std::string& name) { return mSpace->ElementDefs.Item(name); }

    Ref<PropertyItem> Row(const std::string& name) { return mBuilder->prpProperties->Item(name); }

    Ref<TreeNode> Node(const std::string& key) { return mBuilder->tvwElements->Nodes.Item(key); }

    std::string Messages() { return Join(std::exchange(mServices.Messages->Shown, {}), "\n"); }

    ScriptedServices mServices;
    Ref<PageTemplate> mTemplate = MakeRef<PageTemplate>();
    Ref<TemplateNamespace> mSpace = MakeRef<TemplateNamespace>();
    Ref<ElementBuilder> mBuilder = MakeRef<ElementBuilder>();
};

} // namespace paperkite::test
