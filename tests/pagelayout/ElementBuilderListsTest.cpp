#include "pagelayout/ElementBuilderFixture.h"

namespace paperkite::test {
namespace {

class ElementBuilderListsTest : public ElementBuilderFixture {
protected:
    /// The choices of a row that is filled from that source.
    std::string ChoicesFrom(const std::string& source, const std::string& values = {}) {
        auto definition = MakeRef<ElementDef>();
        definition->Name = "listed";
        AddAttribute(definition, "row", "List", source, values);
        Initialise();
        mBuilder->SetElement(definition);
        return Choices(*Row("row"));
    }

    static Ref<TemplateText> Text(const std::string& name) {
        auto text = MakeRef<TemplateText>();
        text->Name = name;
        return text;
    }
};

TEST_F(ElementBuilderListsTest, ValuesMayBePairsOfTextAndValue) {
    EXPECT_EQ(ChoicesFrom("values", "red:#FF0000,blue"), "red=#FF0000;blue=blue;");
    EXPECT_EQ(ChoicesFrom("VALUES", "a:b:c"), "a=b:c;");
    EXPECT_EQ(ChoicesFrom("values", "nothing:,x"), "nothing=;x=x;");
    EXPECT_EQ(ChoicesFrom("values", ""), "");
}

TEST_F(ElementBuilderListsTest, NoTextIsListedTwice) {
    EXPECT_EQ(ChoicesFrom("values", "a:1,a:2,b,a"), "a=1;b=b;");
}

TEST_F(ElementBuilderListsTest, AHugeListHoldsEachTextOnce) {
    std::string values;
    for (int number = 0; number < 100000; ++number)
        values += std::to_string(number % 50000) + ",";
    values.pop_back();
    auto definition = MakeRef<ElementDef>();
    definition->Name = "huge";
    AddAttribute(definition, "row", "list", "values", values);
    Initialise();
    mBuilder->SetElement(definition);
    EXPECT_EQ(Row("row")->GetChoices().size(), 50000u);
}

TEST_F(ElementBuilderListsTest, TaggedCommentDefsAreListedByName) {
    AddTag("##", "Description");
    AddTag("##remarks", "Remarks");
    AddTag("##other", "Remarks");
    EXPECT_EQ(ChoicesFrom("taggedcommentdefs"), "Description=##;Remarks=##remarks;");
}

TEST_F(ElementBuilderListsTest, VariablesScrapsAndPhrasesAreListedInOrder) {
    for (const char* name : {"second", "first"}) {
        auto variable = MakeRef<VariableDef>();
        variable->Name = name;
        mTemplate->VariableDefs.Add(variable, name);
    }
    mTemplate->Scraps.Add(Text("foot"), "foot");
    mTemplate->Phrases.Add(Text("See Also"), "See Also");
    EXPECT_EQ(ChoicesFrom("variables"), "second=second;first=first;");
    EXPECT_EQ(ChoicesFrom("scraps"), "foot=foot;");
    EXPECT_EQ(ChoicesFrom("phrases"), "See Also=See Also;");
}

TEST_F(ElementBuilderListsTest, NamespacesStoreTheirMonikers) {
    AddLevel("kite.other:Page");
    EXPECT_EQ(ChoicesFrom("namespaces"),
              "kite.source:Project=kite.source;kite.other:Page=kite.other;");
}

TEST_F(ElementBuilderListsTest, ChildNamespacesAreThoseOfTheNamedLevels) {
    auto project = mTemplate->NamespaceDefs->Item("kite.source:Project");
    auto type = AddLevel("kite.source:Class");
    auto method = AddLevel("kite.source:Method");
    for (const auto& [parent, children] :
         std::vector<std::pair<Ref<NamespaceDef>, std::vector<Ref<NamespaceDef>>>>{
             {project, {type, method}}, {type, {type, method}}}) {
        auto below = MakeRef<NamespaceDefs>();
        for (const auto& child : children)
            below->Add(child, child->Name);
        parent->SetChildDefs(below);
    }
    EXPECT_EQ(ChoicesFrom("childnamespaces",
                          "kite.source:Project, kite.source:Class,kite.source:Nowhere"),
              "kite.source:Class=kite.source:Class;kite.source:Method=kite.source:Method;");
    EXPECT_EQ(ChoicesFrom("childnamespaces", "kite.source:Method"), "");
}

TEST_F(ElementBuilderListsTest, WithoutATemplateTheListsAreEmpty) {
    auto definition = MakeRef<ElementDef>();
    definition->Name = "listed";
    for (const char* source : {"variables", "scraps", "phrases", "namespaces", "childnamespaces"})
        AddAttribute(definition, source, "list", source, "kite.source:Project");
    mBuilder->SetElement(definition);
    ASSERT_EQ(mBuilder->prpProperties->Count(), 5u);
    for (const auto& row : *mBuilder->prpProperties)
        EXPECT_TRUE(row->GetChoices().empty()) << row->GetKey();
    EXPECT_EQ(Messages(), "");
}

TEST_F(ElementBuilderListsTest, AnUnknownSourceGivesAnEmptyList) {
    EXPECT_EQ(ChoicesFrom("elsewhere", "a,b"), "");
    EXPECT_EQ(Row("row")->GetValueType(), PropertyValueType::Choice);
}

TEST_F(ElementBuilderListsTest, ARowShowsTheTextOfItsStoredValue) {
    ChoicesFrom("values", "red:#FF0000,blue");
    Row("row")->SetValue("#FF0000");
    EXPECT_EQ(Row("row")->GetValueText(), "red");
    Row("row")->SetValue("green");
    EXPECT_EQ(Row("row")->GetValueText(), "green");
}

} // namespace
} // namespace paperkite::test
