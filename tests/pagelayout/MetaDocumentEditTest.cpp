#include "pagelayout/MetaDocumentEditFixture.h"

// The control, its views and its properties.

namespace paperkite::test {
namespace {

class MetaDocumentEditTest : public MetaDocumentEditFixture {
protected:
    void Choose(int tab) { mEdit.fstView->UserClick(static_cast<std::size_t>(tab)); }
    /// How the editor stands whenever a text comes into it.
    Connection LogTexts(std::string& log) {
        return mEdit.dedDocument->Events.DocumentComplete.Connect([this, &log] {
            log += std::to_string(static_cast<int>(mEdit.dedDocument->GetView())) + " of " +
                   std::to_string(mEdit.GetView()) +
                   (mEdit.dedDocument->GetVisible() ? " shown;" : " hidden;");
        });
    }
};

std::string Names(DockCommands& commands) {
    std::string names;
    for (const auto& command : commands)
        names += command->GetName() + " ";
    return names;
}

TEST_F(MetaDocumentEditTest, OffersItsCommandsWithTheirWords) {
    struct Row {
        const char* Name;
        const char* Caption;
        const char* Tip;
        const char* Status;
    };
    for (const Row& row : std::initializer_list<Row>{
             {"btnMetaAdd", "&Add Element...", "Add Element", "Adds a new element"},
             {"btnMetaEdit", "&Edit Element...", "Edit Element",
              "Edits the properties of this element"},
             {"btnMetaDelete", "&Delete Element", "Delete Element", "Deletes this element"},
             {"btnMetaHelp", "&Help on this meta data...", "Help",
              "Displays help on using this meta data"}}) {
        const auto command = mEdit.dksUI->Commands.Item(row.Name);
        EXPECT_EQ(command->GetCaption(), row.Caption);
        EXPECT_EQ(command->GetToolTipText(), row.Tip);
        EXPECT_EQ(command->GetStatusText(), row.Status);
    }
}

TEST_F(MetaDocumentEditTest, OffersItsThreeViews) {
    std::string tabs;
    for (std::size_t tab = 1; tab <= mEdit.fstView->Count(); ++tab) {
        const auto& view = *mEdit.fstView->Item(tab);
        tabs += view.Caption + "|" + view.Key + "|" + view.ToolTipText + ";";
    }
    EXPECT_EQ(tabs, "Normal|normal|HTML Edit View;HTML|htmlsource|HTML Source View;"
                    "Preview|preview|Preview;");
    EXPECT_EQ(Tab(), "normal");
    EXPECT_EQ(mEdit.GetView(), 0);
}

TEST_F(MetaDocumentEditTest, TheMenuOfASpanIsAnotherOne) {
    const auto plain = mEdit.dksUI->Commands.Item("mnuContext");
    const auto meta = mEdit.dksUI->Commands.Item("mnuMetaContext");
    EXPECT_TRUE(plain->GetIsPopup() && meta->GetIsPopup());
    EXPECT_EQ(plain->GetCaption(), "{Context}");
    EXPECT_EQ(meta->GetCaption(), "{Meta Data Context}");
    EXPECT_EQ(Names(plain->GetPopupCommands()).find("btnMetaDelete"), std::string::npos)
        << "what deletes is offered over a span only";
    for (const char* name : {"btnMetaEdit", "btnMetaDelete", "btnMetaHelp"})
        EXPECT_NE(Names(meta->GetPopupCommands()).find(name), std::string::npos) << name;
}

TEST_F(MetaDocumentEditTest, TheWarningHasItsWordsAndStaysHidden) {
    EXPECT_EQ(mEdit.hdrElements->GetText(),
              "Some elements in this document cannot be edited in this view");
    Open("<table><tr>" + kNameTag + "<td>excluded</td></tr></table>");
    for (const int tab : {2, 1, 3, 1}) {
        Choose(tab);
        EXPECT_FALSE(mEdit.hdrElements->GetVisible()) << tab;
    }
}

TEST_F(MetaDocumentEditTest, InitializeTurnsMarksOffAndMakesItselfKnownToPages) {
    MetaDocumentEdit edit;
    edit.dedDocument->SetSpellAsYouType(true);
    EXPECT_EQ(edit.dedDocument->GetExternal(), nullptr);
    edit.Initialize();
    EXPECT_FALSE(edit.dedDocument->GetSpellAsYouType());
    EXPECT_EQ(edit.dedDocument->GetExternal(), &edit);
}

TEST_F(MetaDocumentEditTest, AWrittenLayoutIsShownWithSpansAndReadAsALayout) {
    Open("<p>A " + kNameTag + " b</p>");
    EXPECT_EQ(Numbers(Shown()), "1 ");
    EXPECT_EQ(Shown().find("KITEMETADATA"), std::string::npos);
    EXPECT_EQ(Body(), "<p>A " + kNameTag + " b</p>");
    EXPECT_FALSE(mEdit.GetDirty());
    EXPECT_EQ(TakeLog().find("Change;"), std::string::npos);
}

TEST_F(MetaDocumentEditTest, TheSourceViewHoldsTheLayoutAndIsReadAsItStands) {
    Open("<p>" + kNameTag + "</p>");
    const std::string layout = mEdit.GetDocumentHTML();
    Choose(2);
    EXPECT_EQ(mEdit.GetView(), 1);
    EXPECT_EQ(Shown(), layout);
    EXPECT_EQ(mEdit.GetDocumentHTML(), layout);
    const std::string malformed = "<p><!--KITEMETADATA start type=\"property-->\n\n<b>x";
    mEdit.dedDocument->UserSourceChanged(malformed, true);
    EXPECT_EQ(mEdit.GetDocumentHTML(), malformed);
    EXPECT_EQ(Reports(), "");
}

TEST_F(MetaDocumentEditTest, ALayoutWrittenInTheSourceViewIsShownItself) {
    Open("<p>first</p>");
    Choose(2);
    const std::string second = Page("<p>second " + kNameTag + "</p>");
    mEdit.SetDocumentHTML(second);
    EXPECT_EQ(mEdit.GetView(), 1);
    EXPECT_EQ(Shown(), second);
    EXPECT_EQ(mEdit.GetDocumentHTML(), second);
    Choose(1);
    EXPECT_EQ(Body(), "<p>second " + kNameTag + "</p>");
}

TEST_F(MetaDocumentEditTest, TheEditorIsHiddenWhileTheSourceComesIn) {
    Open("<p>text</p>");
    std::string log;
    const auto tie = LogTexts(log);
    Choose(2);
    EXPECT_EQ(log, "1 of 0 hidden;");
    EXPECT_TRUE(mEdit.dedDocument->GetVisible());
    log.clear();
    Choose(1);
    EXPECT_EQ(log, "0 of 1 shown;");
    EXPECT_EQ(mEdit.GetView(), 0);
}

TEST_F(MetaDocumentEditTest, TheViewThatIsShownIsNotConvertedAgain) {
    Open("<p>text</p>");
    std::string log;
    const auto tie = LogTexts(log);
    Choose(1);
    EXPECT_EQ(log, "");
    Choose(3);
    EXPECT_EQ(mEdit.GetView(), 2);
    EXPECT_EQ(log, "0 of 0 shown;") << "the preview is rendered";
    Choose(3);
    EXPECT_EQ(log, "0 of 0 shown;");
}

TEST_F(MetaDocumentEditTest, AViewAndBackNumbersTheSpansAnew) {
    Open("<p id=\"p\">" + kNameTag + "</p><p>" + kKindTag + "</p>");
    mAuthor = AddName;
    Point("p");
    ASSERT_TRUE(mEdit.InsertMetaData());
    EXPECT_EQ(Numbers(Shown()), "1 3 2 ");
    const std::string layout = mEdit.GetDocumentHTML();
    Choose(2);
    Choose(1);
    EXPECT_EQ(Numbers(Shown()), "1 2 3 ");
    EXPECT_EQ(mEdit.GetDocumentHTML(), layout);
    Choose(3);
    EXPECT_EQ(Numbers(Shown()), "1 2 3 ");
}

TEST_F(MetaDocumentEditTest, WhatIsWrittenInTheSourceViewIsParsedOnTheWayBack) {
    Open("<p>x</p>");
    Choose(2);
    mEdit.dedDocument->UserSourceChanged(Page("<p>" + kKindTag + kNameTag + "</p>"), true);
    EXPECT_TRUE(mEdit.GetDirty());
    Choose(1);
    EXPECT_EQ(Numbers(Shown()), "1 2 ");
    EXPECT_EQ(mEdit.GetSpanProvider()->Elements.Count(), 2u);
    EXPECT_EQ(Body(), "<p>" + kKindTag + kNameTag + "</p>");
}

TEST_F(MetaDocumentEditTest, AMalformedTagIsToldOnTheWayBackAndNothingIsLost) {
    Open("<p>x</p>");
    Choose(2);
    mEdit.dedDocument->UserSourceChanged(
        Page("<p>kept<!--KITEMETADATA start type=\"property-->word</p>"), true);
    Choose(1);
    EXPECT_NE(Messages().find("Page Layout Errors"), std::string::npos);
    EXPECT_NE(Body().find("kept<!--KITEMETADATA start type=\"property-->word"), std::string::npos)
        << Body();
}

TEST_F(MetaDocumentEditTest, ALayoutThatCannotBeConvertedBackStaysInItsView) {
    Open("<p id=\"p\">written " + kNameTag + "</p>");
    Element("p")->InsertAdjacentHTML(InsertPosition::BeforeEnd,
                                     "<span id=\"metaspanstart9\">copied from elsewhere</span>");
    const std::string shown = Shown();
    for (const int tab : {2, 3}) {
        Choose(tab);
        EXPECT_EQ(Reports(), "MetaDocumentEdit.ConvertSpanDocumentToMetaDocument (9)\n");
        EXPECT_EQ(mEdit.GetView(), 0);
        EXPECT_EQ(Tab(), "normal");
        EXPECT_TRUE(mEdit.dedDocument->GetVisible());
        EXPECT_EQ(mEdit.dedDocument->GetView(), HtmlView::Normal);
        EXPECT_EQ(Shown(), shown);
    }
    EXPECT_EQ(mEdit.GetDocumentHTML(), "") << "a host is told by the empty text";
    Reports();
    Element("metaspanstart9")->SetOuterHTML("");
    Choose(2);
    EXPECT_EQ(mEdit.GetView(), 1);
    EXPECT_EQ(Body(), "<p id=\"p\">written " + kNameTag + "</p>");
}

TEST_F(MetaDocumentEditTest, ALayoutThatCannotBeShownLeavesTheOldOneAndItsElements) {
    Open("<p>written " + kNameTag + "</p>");
    const std::string shown = Shown();
    std::string deep = kKindTag;
    for (int level = 0; level < 100000; ++level)
        deep += "<div>";
    EXPECT_FALSE(mEdit.SetDocumentHTML(Page(deep)));
    EXPECT_EQ(Reports(), "MetaDocumentEdit.DocumentHTML (5)\n");
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(Body(), "<p>written " + kNameTag + "</p>");
    Choose(2);
    EXPECT_TRUE(mEdit.SetDocumentHTML(Page(deep))) << "as a text it can be";
    Choose(1);
    EXPECT_EQ(Reports(), "MetaDocumentEdit.zSetView (5)\n");
    EXPECT_EQ(mEdit.GetView(), 1);
    EXPECT_EQ(Tab(), "htmlsource");
    EXPECT_EQ(mEdit.dedDocument->GetView(), HtmlView::Source);
    EXPECT_EQ(mEdit.GetDocumentHTML(), Page(deep));
}

TEST_F(MetaDocumentEditTest, AFailingConversionLeavesTheOldLayoutAndItsElements) {
    Open("<p>written " + kNameTag + "</p>");
    const auto create = std::exchange(CurrentServices().CreateParserTemplate, {});
    EXPECT_FALSE(mEdit.SetDocumentHTML(Page("<p>other</p>")));
    EXPECT_EQ(Reports(), "MetaDocumentEdit.CreateParserTemplate (429)\n");
    EXPECT_EQ(mEdit.ConvertMetaDocumentToSpanDocument(Page("<p>other</p>")), "");
    Reports();
    CurrentServices().CreateParserTemplate = create;
    EXPECT_EQ(Body(), "<p>written " + kNameTag + "</p>");
}

TEST_F(MetaDocumentEditTest, AnEmptyLayoutIsShownInEveryView) {
    mEdit.SetDocumentHTML("");
    for (const int tab : {2, 3, 1}) {
        Choose(tab);
        EXPECT_EQ(mEdit.GetView(), tab - 1);
    }
    EXPECT_EQ(Reports(), "");
    EXPECT_EQ(Body(), "");
    EXPECT_FALSE(mEdit.GetDirty());
}

TEST_F(MetaDocumentEditTest, WithoutADocumentViewsAreNoMoreThanViews) {
    for (const int tab : {2, 1, 3, 1})
        Choose(tab);
    EXPECT_NO_THROW(mEdit.GetDocumentHTML());
    Reports();
    Open("<p>" + kNameTag + "</p>");
    EXPECT_EQ(Body(), "<p>" + kNameTag + "</p>");
}

TEST_F(MetaDocumentEditTest, ALayoutOfThousandsOfElementsKeepsThemAll) {
    std::string body;
    for (int number = 0; number < 3000; ++number)
        body += "<p>" + std::to_string(number) + " " + kNameTag + "</p>";
    Open(body);
    Choose(2);
    Choose(1);
    EXPECT_EQ(mEdit.GetSpanProvider()->Elements.Count(), 3000u);
    EXPECT_EQ(Body(), body);
}

TEST_F(MetaDocumentEditTest, AnotherLayoutTakesThePlaceOfTheFirst) {
    Open("<p>" + kNameTag + kNameTag + "</p>");
    Open("<p>" + kKindTag + "</p>");
    EXPECT_EQ(mEdit.GetSpanProvider()->Elements.Count(), 1u);
    EXPECT_EQ(Body(), "<p>" + kKindTag + "</p>");
}

TEST_F(MetaDocumentEditTest, AHandlerMaySwitchTheView) {
    Open("<p id=\"p\">text " + kNameTag + "</p>");
    const auto tie = mEdit.Events.Change.Connect([this] { Choose(2); });
    PointAtSpan(1);
    mEdit.DeleteMetaData();
    EXPECT_EQ(mEdit.GetView(), 1);
    EXPECT_EQ(Tab(), "htmlsource");
    EXPECT_EQ(Body(), "<p id=\"p\">text</p>");
    EXPECT_TRUE(mEdit.GetDirty());
    EXPECT_EQ(Reports(), "");
}

TEST_F(MetaDocumentEditTest, TellsItsBagOfTheTemplateTheLayoutAndTheBase) {
    auto layout = MakeRef<PageLayout>();
    mEdit.SetTemplate(mTemplate);
    mEdit.SetLayout(layout);
    EXPECT_EQ(mEdit.GetTemplate(), mTemplate);
    EXPECT_EQ(mEdit.GetLayout(), layout);
    EXPECT_EQ(TakeLog(), "PropertyChanged Template;PropertyChanged Layout;");
    mEdit.SetBaseURL("file:///a/");
    EXPECT_EQ(TakeLog(), "PropertyChanged BaseURL;");
    mEdit.SetBaseURL("file:///a/");
    EXPECT_EQ(TakeLog(), "");
    EXPECT_EQ(mEdit.dedDocument->GetBaseURL(), "file:///a/");
    mEdit.dedDocument->SetBaseURL("file:///b/");
    EXPECT_EQ(mEdit.GetBaseURL(), "file:///b/") << "it is the editor's";
}

TEST_F(MetaDocumentEditTest, HoldsTheTemplateAndTheLayoutWeakly) {
    auto owner = MakeRef<PageTemplate>();
    auto layout = MakeRef<PageLayout>();
    mEdit.SetTemplate(owner);
    mEdit.SetLayout(layout);
    owner = {};
    layout = {};
    EXPECT_FALSE(mEdit.GetTemplate());
    EXPECT_FALSE(mEdit.GetLayout());
}

TEST_F(MetaDocumentEditTest, TheBagKeepsTheBaseAddress) {
    mEdit.SetBaseURL("file:///kept/");
    PropertyBag bag;
    mEdit.UserControl_WriteProperties(bag);
    EXPECT_EQ(bag.ReadProperty("BaseURL", Value("none")).ToText(), "file:///kept/");
    MetaDocumentEdit other;
    other.UserControl_ReadProperties(bag);
    EXPECT_EQ(other.GetBaseURL(), "file:///kept/");
    other.UserControl_ReadProperties({});
    EXPECT_EQ(other.GetBaseURL(), "");
}

TEST_F(MetaDocumentEditTest, ForwardsTheStyleOfTheContextToolbarAndTheDirtyMark) {
    mEdit.SetContextToolbarStyle(2);
    EXPECT_EQ(mEdit.dedDocument->GetContextToolbarStyle(), 2);
    EXPECT_EQ(mEdit.GetContextToolbarStyle(), 2);
    EXPECT_EQ(mEdit.GetDHTMLEdControl(), mEdit.dedDocument);
    mEdit.SetDirty(true);
    EXPECT_TRUE(mEdit.GetDirty());
    EXPECT_EQ(TakeLog(), "") << "a host that writes it is told nothing";
    mEdit.SetDirty(false);
    EXPECT_FALSE(mEdit.GetDirty());
}

TEST_F(MetaDocumentEditTest, TerminateLetsGoOfEverythingAndDoesNoHarmTwice) {
    mEdit.SetLayout(MakeRef<PageLayout>());
    Open("<p>" + kNameTag + "</p>");
    TakeLog();
    for (int time = 0; time < 2; ++time) {
        mEdit.Terminate();
        EXPECT_FALSE(mEdit.GetTemplate());
        EXPECT_FALSE(mEdit.GetLayout());
        EXPECT_EQ(mEdit.dedDocument->GetExternal(), nullptr);
        EXPECT_FALSE(mEdit.dedDocument->GetDocument());
    }
    mEdit.dedDocument->UserDocumentTouched(true);
    EXPECT_FALSE(Report(HtmlEventId::kDoubleClick, {}));
    EXPECT_EQ(TakeLog(), "");
    EXPECT_EQ(Reports(), "");
}

TEST_F(MetaDocumentEditTest, NothingIsEditedAfterTheEnd) {
    Open("<p>" + kNameTag + "</p>");
    PointAtSpan(1);
    mEdit.Terminate();
    EXPECT_FALSE(mEdit.InsertMetaData());
    EXPECT_FALSE(mEdit.EditMetaData());
    EXPECT_FALSE(mEdit.DeleteMetaData());
    EXPECT_EQ(Reports(), "MetaDocumentEdit.InsertMetaData (91)\n"
                         "MetaDocumentEdit.EditMetaData (91)\n"
                         "MetaDocumentEdit.DeleteMetaData (91)\n");
    EXPECT_EQ(mDialogs, 0);
    EXPECT_FALSE(mEdit.GetDirty());
}

TEST_F(MetaDocumentEditTest, WhatReportsDumpStandsInItsOrder) {
    VariableDump dump;
    mEdit.DumpVariables(dump);
    const std::string text = dump.GetText();
    std::size_t last = 0;
    for (const char* name :
         {"mDirty", "pTemplate", "pLayout", "ioTheme", "iThemed", "iRawChanged", "iView",
          "iWarningVisible", "mParserTemplate", "mSpanProvider", "mFirstLoad"}) {
        const std::size_t at = text.find(std::string("<") + name);
        ASSERT_NE(at, std::string::npos) << name;
        EXPECT_GE(at, last) << name;
        last = at;
    }
}

} // namespace
} // namespace paperkite::test
