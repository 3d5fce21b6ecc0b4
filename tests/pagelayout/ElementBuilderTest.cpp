#include "pagelayout/ElementBuilderFixture.h"

namespace paperkite::test {
namespace {

class ElementBuilderTest : public ElementBuilderFixture {
protected:
    /// What SelectionChanged is raised with.
    std::vector<std::string> mSelections;
    Connection mTie =
        mBuilder->Events.SelectionChanged.Connect([this](const Ref<ElementDef>& definition) {
            mSelections.push_back(definition ? definition->Name : "nothing");
        });
};

TEST_F(ElementBuilderTest, GroupsTheElementsByCategory) {
    Initialise();
    std::string keys;
    for (const auto& node : mBuilder->tvwElements->Nodes)
        keys += (node->GetParent() ? node->GetParent()->GetKey() + "/" : "") + node->GetKey() + " ";
    EXPECT_EQ(keys, "C:Page C:Page/E:head C:Other C:Other/E:note E:name C:Page/E:comment ");
    EXPECT_EQ(Node("C:Other")->GetText(), "Other");
    EXPECT_EQ(Node("E:note")->GetText(), "note");
}

TEST_F(ElementBuilderTest, SelectsTheFirstElementUnlessTheTreeIsHidden) {
    Initialise();
    EXPECT_EQ(mBuilder->GetSelectedElement(), Definition("head"));
    EXPECT_EQ(mBuilder->GetElement(), Definition("head"));
    EXPECT_EQ(mSelections, std::vector<std::string>{"head"});
    mBuilder->SetShowTree(false);
    Initialise();
    EXPECT_FALSE(mBuilder->GetSelectedElement());
    EXPECT_FALSE(mBuilder->GetElement());
}

TEST_F(ElementBuilderTest, SkipsWhatTheLayoutExcludes) {
    auto layout = MakeRef<PageLayout>();
    layout->ExcludedElements = "HEAD, comment";
    mBuilder->SetLayout(layout);
    Initialise();
    EXPECT_FALSE(mBuilder->tvwElements->Nodes.Contains("E:head"));
    EXPECT_FALSE(mBuilder->tvwElements->Nodes.Contains("C:Page"));
    EXPECT_TRUE(mBuilder->tvwElements->Nodes.Contains("E:name"));
    EXPECT_EQ(mBuilder->GetLayout(), layout);
}

TEST_F(ElementBuilderTest, HoldsTheLayoutWeakly) {
    auto layout = MakeRef<PageLayout>();
    mBuilder->SetLayout(layout);
    layout = nullptr;
    EXPECT_FALSE(mBuilder->GetLayout());
}

TEST_F(ElementBuilderTest, ACategoryEmptiesTheRowsAndSaysWhatToDo) {
    Initialise();
    mBuilder->tvwElements->UserClick(Node("E:comment"));
    EXPECT_EQ(mBuilder->prpProperties->Count(), 7u);
    EXPECT_EQ(mBuilder->lblTip->GetCaption(), "The comments of one kind.");
    mBuilder->tvwElements->UserClick(Node("C:Page"));
    EXPECT_EQ(mBuilder->prpProperties->Count(), 0u);
    EXPECT_EQ(mBuilder->lblTip->GetCaption(), "Please select a sub element from the list provided");
    EXPECT_FALSE(mBuilder->GetSelectedElement());
    EXPECT_FALSE(mBuilder->GetElement());
    EXPECT_EQ(mSelections, (std::vector<std::string>{"head", "comment", "nothing"}));
}

TEST_F(ElementBuilderTest, AnotherClickOnTheSameElementKeepsWhatWasFilledIn) {
    Initialise();
    mBuilder->tvwElements->UserClick(Node("E:comment"));
    Row("caption")->SetValue("typed");
    mBuilder->tvwElements->UserClick(Node("E:comment"));
    EXPECT_EQ(Row("caption")->GetValue(), "typed");
}

TEST_F(ElementBuilderTest, EachAttributeHasARowOfItsKind) {
    Initialise();
    mBuilder->SetElement(Definition("comment"));
    const std::vector<std::pair<std::string, PropertyValueType>> expected = {
        {"tag", PropertyValueType::Choice},     {"until", PropertyValueType::Date},
        {"edge", PropertyValueType::Color},     {"most", PropertyValueType::Number},
        {"bare", PropertyValueType::Boolean},   {"file", PropertyValueType::File},
        {"caption", PropertyValueType::String},
    };
    ASSERT_EQ(mBuilder->prpProperties->Count(), expected.size());
    for (std::size_t at = 0; at < expected.size(); ++at) {
        const auto row = mBuilder->prpProperties->Item(at + 1);
        EXPECT_EQ(row->GetCaption(), expected[at].first);
        EXPECT_EQ(row->GetValueType(), expected[at].second) << row->GetCaption();
        EXPECT_EQ(row->GetDescription(), "About " + expected[at].first);
        EXPECT_EQ(row->GetValue(), "");
        EXPECT_EQ(row->GetTag(), at == 0 ? "required" : "");
    }
    EXPECT_EQ(static_cast<int>(PropertyValueType::Choice), 105);
    EXPECT_EQ(static_cast<int>(PropertyValueType::Color), 104);
    EXPECT_EQ(static_cast<int>(PropertyValueType::File), 103);
    EXPECT_EQ(Choices(*Row("bare")), "true=true;false=false;");
}

TEST_F(ElementBuilderTest, AttributesOfTheCategoryComeBehindTheElementsOwn) {
    auto category = MakeRef<ElementDef>();
    category->Name = "Page";
    AddAttribute(category, "caption", "number");
    AddAttribute(category, "heading", "number")->Required = true;
    mSpace->CategoryDefs.Add(category, "Page");
    Initialise();
    mBuilder->SetElement(Definition("comment"));
    EXPECT_EQ(mBuilder->prpProperties->Count(), 8u);
    EXPECT_EQ(Row("caption")->GetValueType(), PropertyValueType::String);
    EXPECT_EQ(Row("heading")->GetIndex(), 8u);
    std::string message;
    Row("tag")->SetValue("##");
    EXPECT_FALSE(mBuilder->Validate(message));
    EXPECT_EQ(message, "You must provide a value for heading\n");
}

TEST_F(ElementBuilderTest, AnElementThatIsNotInTheTreeCanBeEdited) {
    auto layout = MakeRef<PageLayout>();
    layout->ExcludedElements = "comment";
    mBuilder->SetLayout(layout);
    Initialise();
    mBuilder->SetElement(Definition("comment"));
    EXPECT_EQ(mBuilder->GetElement(), Definition("comment"));
    EXPECT_EQ(mBuilder->prpProperties->Count(), 7u);
    EXPECT_FALSE(mBuilder->GetSelectedElement());
    EXPECT_EQ(mSelections.back(), "comment");
}

TEST_F(ElementBuilderTest, SettingTheSameElementAgainMakesItsRowsAnew) {
    Initialise();
    mBuilder->SetElement(Definition("comment"));
    Row("caption")->SetValue("typed");
    mBuilder->SetElement(Definition("comment"));
    EXPECT_EQ(Row("caption")->GetValue(), "");
    mBuilder->SetElement(nullptr);
    EXPECT_EQ(mBuilder->prpProperties->Count(), 0u);
    EXPECT_EQ(Messages(), "");
}

TEST_F(ElementBuilderTest, LoadFillsTheRowsAndHidesTheType) {
    Initialise();
    mBuilder->SetElement(Definition("comment"));
    mBuilder->Load(MakeElement({{"Type", "comment"}, {"TAG", "##remarks"}, {"strange", "kept"}}));
    EXPECT_EQ(Row("tag")->GetValue(), "##remarks");
    EXPECT_EQ(Row("strange")->GetValue(), "kept");
    EXPECT_EQ(Row("strange")->GetValueType(), PropertyValueType::String);
    EXPECT_FALSE(Row("Type")->GetVisible());
    EXPECT_TRUE(Row("tag")->GetVisible());
    EXPECT_EQ(mBuilder->prpProperties->Count(), 9u);
}

TEST_F(ElementBuilderTest, AnUnknownAttributeKeepsItsValueThroughLoadAndSave) {
    Initialise();
    mBuilder->SetElement(Definition("head"));
    auto element = MakeElement({{"type", "head"}, {"strange", "kept"}});
    mBuilder->Load(element);
    mBuilder->Save(element);
    EXPECT_EQ(Written(*element), "type=head;strange=kept;");
}

TEST_F(ElementBuilderTest, SaveWritesTheRowsAndAddsWhatTheElementLacks) {
    Initialise();
    mBuilder->SetElement(Definition("comment"));
    auto element = MakeElement({{"type", "comment"}, {"caption", "old"}});
    mBuilder->Load(element);
    Row("caption")->SetValue("new");
    Row("tag")->SetValue("##");
    mBuilder->Save(element);
    EXPECT_EQ(Written(*element), "type=comment;caption=new;tag=##;until=;edge=;most=;bare=;file=;");
    mBuilder->Save(element);
    EXPECT_EQ(element->Attributes.Count(), 8u);
}

TEST_F(ElementBuilderTest, AnEditUnderWayCountsWhenItIsSaved) {
    Initialise();
    mBuilder->SetElement(Definition("comment"));
    mBuilder->prpProperties->SetSelectedItem(Row("caption"));
    mBuilder->prpProperties->BeginEdit();
    mBuilder->prpProperties->UserType("under way");
    auto element = MakeElement({{"caption", "old"}});
    mBuilder->Save(element);
    EXPECT_EQ(element->Attributes.Item("caption")->Value, "under way");
}

TEST_F(ElementBuilderTest, ARequiredValueMustBeThere) {
    Initialise();
    mBuilder->SetElement(Definition("comment"));
    std::string message = "Before.";
    EXPECT_FALSE(mBuilder->Validate(message));
    EXPECT_EQ(message, "Before.You must provide a value for tag\n");
    Row("tag")->SetValue(" ");
    message.clear();
    EXPECT_TRUE(mBuilder->Validate(message));
    EXPECT_EQ(message, "");
}

TEST_F(ElementBuilderTest, EveryMissingValueIsToldInTheOrderOfTheRows) {
    auto element = AddElement("table", "Page");
    for (const char* name : {"name", "width", "colour", "bare"})
        AddAttribute(element, name, name == std::string("colour") ? "color" : "text")->Required =
            true;
    AddAttribute(element, "until", "date");
    Initialise();
    mBuilder->SetElement(element);
    Row("width")->SetValue("0");
    std::string message;
    EXPECT_FALSE(mBuilder->Validate(message));
    EXPECT_EQ(message, "You must provide a value for name\nYou must provide a value for colour\n"
                       "You must provide a value for bare\n");
}

TEST_F(ElementBuilderTest, ARequiredValueThatWasEmptiedAgainIsMissing) {
    Initialise();
    mBuilder->SetElement(Definition("comment"));
    mBuilder->Load(MakeElement({{"type", "comment"}, {"tag", "##"}}));
    std::string message;
    EXPECT_TRUE(mBuilder->Validate(message));
    mBuilder->prpProperties->SetSelectedItem(Row("tag"));
    mBuilder->prpProperties->UserClear();
    EXPECT_FALSE(mBuilder->Validate(message));
    EXPECT_EQ(message, "You must provide a value for tag\n");
    mBuilder->Load(MakeElement({{"TAG", ""}}));
    EXPECT_FALSE(mBuilder->Validate(message));
}

TEST_F(ElementBuilderTest, ATextThatIsNoColourIsToldOfAndKept) {
    Initialise();
    mBuilder->SetElement(Definition("comment"));
    for (const std::string& text :
         {std::string("reddish"), std::string("#12345"), std::string("#GGGGGG"),
          std::string("256,0,0"), std::string("\x01"), std::string(100'000, 'f')}) {
        auto element = MakeElement({{"type", "comment"}, {"tag", "##"}, {"edge", text}});
        mBuilder->Load(element);
        EXPECT_NE(Row("edge")->GetProblem().find(" is no color. Type a name"), std::string::npos);
        EXPECT_LT(Row("edge")->GetProblem().size(), 200u) << "the text is cut in the sentence";
        std::string message;
        EXPECT_TRUE(mBuilder->Validate(message));
        mBuilder->Save(element);
        EXPECT_EQ(element->Attributes.Item("edge")->Value, text);
    }
    EXPECT_EQ(Messages(), "");
}

TEST_F(ElementBuilderTest, AListIsPickedFromAndNotTyped) {
    Initialise();
    auto element = AddElement("picked", "Page");
    AddAttribute(element, "row", "list", "values", "red:#FF0000,blue");
    mBuilder->SetElement(element);
    mBuilder->prpProperties->SetSelectedItem(Row("row"));
    ASSERT_TRUE(mBuilder->prpProperties->BeginEdit());
    mBuilder->prpProperties->UserType("#FF0000");
    mBuilder->prpProperties->UserType("green");
    mBuilder->prpProperties->UserType("red");
    mBuilder->prpProperties->EndEdit();
    EXPECT_EQ(Row("row")->GetValue(), "#FF0000");
}

TEST_F(ElementBuilderTest, WithoutADefinitionNothingIsValid) {
    std::string message = "as it was";
    EXPECT_FALSE(mBuilder->Validate(message));
    EXPECT_EQ(message, "as it was");
}

TEST_F(ElementBuilderTest, AFileRowAsksForTheFileBeforeItIsEdited) {
    Initialise();
    mBuilder->SetElement(Definition("comment"));
    mServices.Picker->Answer = "/elsewhere/page.html";
    mBuilder->prpProperties->SetSelectedItem(Row("file"));
    EXPECT_FALSE(mBuilder->prpProperties->BeginEdit());
    EXPECT_EQ(mServices.Picker->Title, "Locate file");
    EXPECT_EQ(mServices.Picker->Filter, "All files (*.*)|*.*");
    EXPECT_EQ(mServices.Picker->StartFolder, "/templates/plain");
    EXPECT_EQ(Row("file")->GetValue(), "/elsewhere/page.html");
    mBuilder->prpProperties->BeginEdit();
    EXPECT_EQ(mServices.Picker->StartFolder, "/elsewhere");
}

TEST_F(ElementBuilderTest, AFileOfTheTemplateIsNamedByItsPathBelowTheFolder) {
    Initialise();
    mBuilder->SetElement(Definition("comment"));
    mServices.Picker->Answer = "/templates/plain/parts/foot.html";
    mBuilder->prpProperties->SetSelectedItem(Row("file"));
    mBuilder->prpProperties->BeginEdit();
    EXPECT_EQ(Row("file")->GetValue(), "parts/foot.html");
    mBuilder->prpProperties->BeginEdit();
    EXPECT_EQ(mServices.Picker->StartFolder, "/templates/plain/parts");
}

TEST_F(ElementBuilderTest, CancellingTheFileLeavesTheValueAndLetsThePathBeTyped) {
    Initialise();
    mBuilder->SetElement(Definition("comment"));
    Row("file")->SetValue("a.css");
    mBuilder->prpProperties->SetSelectedItem(Row("file"));
    EXPECT_TRUE(mBuilder->prpProperties->BeginEdit());
    EXPECT_EQ(Row("file")->GetValue(), "a.css");
    mBuilder->prpProperties->UserType("a.css,b.css");
    mBuilder->prpProperties->EndEdit();
    EXPECT_EQ(Row("file")->GetValue(), "a.css,b.css");
    EXPECT_EQ(mServices.Picker->Runs, 1);
}

TEST_F(ElementBuilderTest, OtherRowsAskForNoFile) {
    Initialise();
    mBuilder->SetElement(Definition("comment"));
    mBuilder->prpProperties->SetSelectedItem(Row("caption"));
    EXPECT_TRUE(mBuilder->prpProperties->BeginEdit());
    EXPECT_EQ(mServices.Picker->Runs, 0);
}

TEST_F(ElementBuilderTest, WithoutAFilePickerTheFailureIsToldAndTheValueStays) {
    CurrentServices().CreateFilePicker = {};
    Initialise();
    mBuilder->SetElement(Definition("comment"));
    Row("file")->SetValue("kept");
    mBuilder->prpProperties->SetSelectedItem(Row("file"));
    mBuilder->prpProperties->BeginEdit();
    EXPECT_EQ(Row("file")->GetValue(), "kept");
    EXPECT_NE(Messages().find("(429)"), std::string::npos);
}

TEST_F(ElementBuilderTest, TheElementStringIsAlwaysEmpty) {
    mBuilder->SetElementString("<!--KITEMETADATA start-->");
    EXPECT_EQ(mBuilder->GetElementString(), "");
    EXPECT_FALSE(mBuilder->GetElementDef());
}

TEST_F(ElementBuilderTest, StoresItsPropertiesInTheBag) {
    PropertyBag bag;
    mBuilder->UserControl_ReadProperties(bag);
    EXPECT_TRUE(mBuilder->GetShowTree());
    EXPECT_TRUE(mBuilder->GetShowTipBox());
    mBuilder->SetShowTree(false);
    mBuilder->SetShowTipBox(false);
    mBuilder->SetStartTagPrefix("<!--");
    mBuilder->SetStartTagSuffix("-->");
    mBuilder->SetEndTag("<!--end-->");
    mBuilder->UserControl_WriteProperties(bag);
    ElementBuilder other;
    other.UserControl_ReadProperties(bag);
    EXPECT_FALSE(other.GetShowTree());
    EXPECT_FALSE(other.GetShowTipBox());
    EXPECT_EQ(other.GetStartTagPrefix() + other.GetStartTagSuffix() + other.GetEndTag(),
              "<!----><!--end-->");
}

TEST_F(ElementBuilderTest, ThePanelsFollowTheTreeAndTheTipBox) {
    const auto& builder = *mBuilder;
    EXPECT_EQ(builder.sltRoot->GetFirstPane(), builder.tvwElements);
    EXPECT_EQ(builder.sltEdit->GetSecondPane(), builder.lblTip);
    mBuilder->SetShowTree(false);
    mBuilder->SetShowTipBox(false);
    EXPECT_EQ(builder.sltRoot->GetFirstPane(), builder.sltEdit);
    EXPECT_FALSE(builder.sltRoot->GetSecondPane());
    EXPECT_FALSE(builder.sltEdit->GetSecondPane());
}

TEST_F(ElementBuilderTest, WorksOnAfterOddCalls) {
    mBuilder->Initialise(nullptr, nullptr);
    EXPECT_EQ(mBuilder->tvwElements->Nodes.Count(), 0u);
    mBuilder->Initialise(MakeRef<NamespaceDefs>(), mTemplate);
    EXPECT_TRUE(mBuilder->tvwElements->Nodes.Contains("E:comment"));
    EXPECT_EQ(Messages(), "");
    mBuilder->Load(nullptr);
    mBuilder->Save(nullptr);
    EXPECT_NE(Messages(), "");
    mBuilder->Terminate();
    mBuilder->Terminate();
    EXPECT_EQ(mBuilder->prpProperties->Count(), 0u);
    EXPECT_FALSE(mBuilder->GetElement());
    Initialise();
    EXPECT_TRUE(mBuilder->GetElement());
}

TEST_F(ElementBuilderTest, AHandlerMayChooseAnotherElement) {
    Initialise();
    auto tie = mBuilder->Events.SelectionChanged.Connect([this](const Ref<ElementDef>& chosen) {
        if (chosen && chosen->Name == "note") mBuilder->SetElement(Definition("comment"));
    });
    mBuilder->tvwElements->UserClick(Node("E:note"));
    EXPECT_EQ(mBuilder->GetElement(), Definition("comment"));
    EXPECT_EQ(mBuilder->GetSelectedElement(), Definition("comment"));
    EXPECT_EQ(mBuilder->prpProperties->Count(), 7u);
}

} // namespace
} // namespace paperkite::test
