#pragma once

#include "doctypes/SourceTree.h"

#include "doctypes/source/SourceNamespaceProvider.h"
#include "foundation/GlobalConfig.h"
#include "foundation/Text.h"
#include "model/ConfigurationReader.h"
#include "model/ProjectDocument.h"
#include "model/TemplateParser.h"

#include <gtest/gtest.h>

namespace paperkite::test {

inline constexpr const char* kZoo = "namespace zoo {\n"
                                    "class Animal {\n"
                                    "public:\n"
                                    "    int Age() const;\n"
                                    "    void Sleep();\n"
                                    "};\n"
                                    "/// Barks. And more.\n"
                                    "class Dog : public Animal, public Loud<int> {\n"
                                    "public:\n"
                                    "    void Bark(int times, const char* \"how\" = 0);\n"
                                    "    void Bark(double);\n"
                                    "    bool operator|(const Dog& other) const;\n"
                                    "    int Age() const;\n"
                                    "protected:\n"
                                    "    int mLeft;\n"
                                    "private:\n"
                                    "    int mSecret;\n"
                                    "};\n"
                                    "class Puppy : public Dog {};\n"
                                    "}\n";

/// Code with types and members, and pages of it that a test's own layouts make.
class SourcePageFixture : public testing::Test {
protected:
    SourcePageFixture() {
        GlobalConfig().TaggedCommentDefs = ConfigurationReader::Standard();
        GlobalConfig().Templates.Clear();
        mTemplate->Name = "Plain";
        auto layout = MakeRef<PageLayout>();
        layout->Name = "Everything";
        layout->FileNameTemplate = "%%ItemQualifiedName%%.html";
        layout->Namespaces = "kite.source:Project,kite.source:Namespace,kite.source:Class,"
                             "kite.source:Method,kite.source:Operator";
        mTemplate->PageLayouts->Add(layout);
        mTree.Write("zoo.h", ReplaceAll(kZoo, "\"how\"", "how"));
        mProvider->AddRoot(mTree.Scan(), mTree.Folder());
        mData = mProvider->GetDataProvider();
        mData->Set("Template", Value(mTemplate));
    }
    ~SourcePageFixture() override {
        GlobalConfig().TaggedCommentDefs = MakeRef<TaggedCommentDefs>();
    }

    Ref<TaggedComment> Write(const std::string& item, const std::string& tag,
                             const std::string& text) {
        const auto owner = mProvider->GetItem(item);
        auto comment = MakeRef<TaggedComment>();
        comment->SetTagIdentifier(tag);
        comment->SetText(text);
        comment->SetItem(owner);
        owner->Get("TaggedComments")
            .ToObjectOf<TaggedCommentCollection>()
            ->Add(comment, comment->GetId());
        return comment;
    }
    /// The page that a layout makes of an item.
    std::string Page(const std::string& item, const std::string& layout) {
        mData->Call("Prepare", {Value(Ref<NamespaceDef>()), Value(mProvider->GetItem(item)),
                                Value("Caption"), Value()});
        auto parser = MakeRef<TemplateParser>();
        parser->SetPageLayoutTags();
        parser->LoadText(layout);
        EXPECT_EQ(parser->GetParseErrors(), "");
        parser->SetDataProvider(mData);
        parser->SetUseProvidedText(true);
        return parser->Parse();
    }
    static std::string Element(const std::string& attributes, const std::string& text = {}) {
        return "<!--KITEMETADATA start type=" + attributes + "-->" + text +
               "<!--KITEMETADATA end-->";
    }
    void ForEdit() { mData->Set("ForEdit", Value(true)); }
    static bool Holds(const std::string& page, const std::string& part) {
        return page.find(part) != std::string::npos;
    }
    void AddText(Collection<Ref<TemplateText>>& texts, const std::string& name,
                 const std::string& text) {
        auto added = MakeRef<TemplateText>();
        added->Name = name;
        added->Text = text;
        texts.Add(added, name);
    }

    SourceTree mTree;
    Ref<CommentStore> mStore = MakeRef<CommentStore>();
    Ref<SourceNamespaceProvider> mProvider = MakeRef<SourceNamespaceProvider>(mStore);
    Ref<DataProvider> mData;
    Ref<PageTemplate> mTemplate = MakeRef<PageTemplate>();
    const std::string mDog = "p~zoo~Dog";
    const std::string mBark = "p~zoo~Dog~Bark(int,const char*)";
};

} // namespace paperkite::test
