#include "authoring/PageFixture.h"

#include "foundation/ScopeExit.h"
#include "foundation/VariableDump.h"

namespace paperkite::test {
namespace {

/// Tells when a file is deleted.
class WatchedFiles : public ScriptedFileSystem {
public:
    void DeleteFile(const std::string& path) override {
        ScriptedFileSystem::DeleteFile(path);
        if (OnDelete) OnDelete(path);
    }
    std::function<void(const std::string&)> OnDelete;
};

/// Tells when a document is made.
class WatchedFactory : public HTMLDOMFactory {
public:
    Ref<HTMLDocument> CreateFromString(const std::string& html, const Ref<Object>& own) override {
        if (OnCreate) OnCreate();
        return mInner->CreateFromString(html, own);
    }
    Ref<HTMLDocument> CreateFromFile(const std::string& path, const Ref<Object>& own) override {
        return mInner->CreateFromFile(path, own);
    }
    std::function<void()> OnCreate;

private:
    std::shared_ptr<HTMLDOMFactory> mInner = MakeHTMLDOMFactory();
};

/// Places on a page, and what is typed into them.
class InPlaceEditorPageTest : public PageFixture {
protected:
    void LoadPage(const std::string& body, const std::string& name = "P~A") {
        Write("class.html", body);
        Write("method.html", body);
        Load(name);
        mPageLog.Take();
        ASSERT_TRUE(Page().GetVisible()) << mServices.TakeReports();
    }
    /// The fields that say how far a page has come.
    std::string State() {
        VariableDump dump;
        Page().DumpVariables(dump);
        const auto isOn = [&](const std::string& name) {
            return dump.GetText().find("<" + name + ">True<") != std::string::npos;
        };
        return std::string(isOn("mLoading") ? "loading" : "loaded") +
               (isOn("mResetUndo") ? ",reset" : ",kept");
    }
};

TEST_F(InPlaceEditorPageTest, APlaceHoldsTheCommentOfItsTag) {
    mItem->Comment("#note", "<b>text</b>", "n", 1);
    LoadPage(PlaceTag("P~A", "#note"));
    const auto span = Span("P~A", "#note");
    ASSERT_TRUE(span);
    EXPECT_EQ(span->GetInnerHTML(), "<b>text</b>");
    EXPECT_EQ(span->GetAttribute("contenteditable"), "true");
    EXPECT_NE(span->GetAttribute("style").value_or("").find("width: 100%"), std::string::npos);
    EXPECT_EQ(CountOf(Body(), "TaggedComment|"), 1u);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorPageTest, APlaceWithoutCommentKeepsWhatTheParserWrote) {
    LoadPage(PlaceTag("P~A", "#note", "write here"));
    EXPECT_EQ(Span("P~A", "#note")->GetInnerHTML(), "write here");
    EXPECT_EQ(mItem->Comments()->Count(), 0u);
}

TEST_F(InPlaceEditorPageTest, LoadingChangesNeitherDirtyNorStateButNormalisesTheText) {
    const auto comment = mItem->Comment("#note", "<B>bold<br/>", "n", 7);
    LoadPage(PlaceTag("P~A", "#note"));
    EXPECT_FALSE(mEditor.GetDirty());
    EXPECT_EQ(comment->GetState(), 7);
    EXPECT_EQ(comment->GetText(), "<b>bold<br></b>");
    EXPECT_EQ(comment->GetWrittenText(), "<B>bold<br/>");
    EXPECT_EQ(mLog.Take(), "");
}

TEST_F(InPlaceEditorPageTest, TheFirstCommentOfATagIsTheOneOfThePlace) {
    mItem->Comment("#NOTE", "gone", "1", kTaggedCommentTombstone);
    const auto first = mItem->Comment("#NOTE", "first", "2", 1);
    const auto second = mItem->Comment("#note", "second", "3", 1);
    LoadPage(PlaceTag("P~A", "#note"));
    EXPECT_EQ(Span("P~A", "#note")->GetInnerHTML(), "first");
    Type("P~A", "#note", "changed");
    EXPECT_EQ(first->GetText(), "changed");
    EXPECT_EQ(second->GetText(), "second");
}

TEST_F(InPlaceEditorPageTest, TypingAddsChangesAndDeletesAtOnce) {
    LoadPage(PlaceTag("P~A", "#note"));
    Type("P~A", "#note", "<b>new</b>");
    EXPECT_EQ(mLog.Take(), "added(#note///2) dirty");
    ASSERT_EQ(mItem->Comments()->Count(), 1u);
    const auto comment = mItem->Comments()->Item(1);
    EXPECT_EQ(comment->GetText(), "<b>new</b>");
    EXPECT_EQ(comment->GetState(), kTaggedCommentNew);
    EXPECT_TRUE(comment->GetItem() == mItem);
    Type("P~A", "#note", "newer");
    EXPECT_EQ(mLog.Take(), "changed(" + comment->GetId() + ",newer)");
    Type("P~A", "#note", "");
    EXPECT_EQ(mLog.Take(), "deleted(" + comment->GetId() + ",2)");
    EXPECT_EQ(mItem->Comments()->Count(), 0u);
    Type("P~A", "#note", "again");
    EXPECT_EQ(mItem->Comments()->Count(), 1u);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorPageTest, BlanksAloneAndTheEmptiedParagraphDelete) {
    for (const char* emptied :
         {"   ", "&nbsp;", "  &nbsp; ", "&nbsp;&nbsp;", "<p>&nbsp;</p>", "<P>&nbsp;</P>"}) {
        mItem->Comment("#note", "text", "n", 1);
        LoadPage(PlaceTag("P~A", "#note"));
        Type("P~A", "#note", emptied);
        EXPECT_EQ(mItem->Comments()->Count(), 0u) << emptied;
        mEditor.SetCurrentCodeElement(nullptr);
    }
    LoadPage(PlaceTag("P~A", "#note", "hint"));
    mLog.Take();
    for (const char* nothing : {"  ", "<p>&nbsp;</p>", "<P>&nbsp;</P> ", "&nbsp;"}) {
        Type("P~A", "#note", nothing);
        EXPECT_EQ(mItem->Comments()->Count(), 0u) << nothing;
        EXPECT_EQ(mLog.Take(), "") << nothing;
    }
    Type("P~A", "#note", "<p>&nbsp;.</p>");
    EXPECT_EQ(mItem->Comments()->Count(), 1u);
}

TEST_F(InPlaceEditorPageTest, SpansThatChangeWhileAPageLoadsAreNoComments) {
    const auto comment = mItem->Comment("#note", "text", "n", 1);
    LoadPage(PlaceTag("P~A", "#note"));
    const auto factory = std::make_shared<WatchedFactory>();
    CurrentServices().HTMLDOMFactory = factory;
    const auto changed = Widget().GetDocument()->CreateElement("SPAN");
    changed->SetId("TaggedComment|P~A|#note");
    changed->SetInnerHTML("changed by code");
    int raised = 0;
    const auto raise = [&] {
        ++raised;
        Widget().Events.EditableSpanChanged.Raise(changed);
    };
    const ScopeExit unhook([] { TestItem::OnUse = nullptr; });
    factory->OnCreate = [&] {
        raise();
        bool inside = false;
        TestItem::OnUse = [&, inside](const std::string&) mutable {
            if (!std::exchange(inside, true)) raise();
        };
    };
    Page().Load(mItem, "class.html");
    TestItem::OnUse = nullptr;
    EXPECT_GE(raised, 2) << "while the text becomes a document, and while its places are made";
    EXPECT_EQ(comment->GetText(), "text");
    EXPECT_EQ(mLog.Take(), "");
    raise();
    EXPECT_EQ(comment->GetText(), "changed by code");
}

TEST_F(InPlaceEditorPageTest, APageIsLoadedBeforeItIsReported) {
    const auto files = std::make_shared<WatchedFiles>();
    files->Texts = mServices.Files->Texts;
    LoadPage(PlaceTag("P~A", "#note"));
    files->Texts = mServices.Files->Texts;
    CurrentServices().FileSystem = files;
    EventLog log;
    files->OnDelete = [&](const std::string& path) {
        EXPECT_EQ(path, "/data\\PreviewTemp\\kitePreview.html");
        log.Add("deleted:" + State());
    };
    log.Keep(Page().Events.DocumentComplete.Connect([&] { log.Add("complete:" + State()); }));
    Page().Load(mItem, "class.html");
    EXPECT_EQ(log.Take(), "deleted:loading,kept complete:loaded,reset");
    EXPECT_EQ(State(), "loaded,kept") << "the tools were refreshed";
    files->OnDelete = nullptr;
}

TEST_F(InPlaceEditorPageTest, OneOuterBlankOnEachSideIsNoChange) {
    const auto comment = mItem->Comment("#note", "  text ", "n", 1);
    LoadPage(PlaceTag("P~A", "#note"));
    for (const char* same : {"&nbsp;text", "text&nbsp;", " &nbsp;text&nbsp; ", "text "}) {
        Type("P~A", "#note", same);
        EXPECT_EQ(mLog.Take(), "") << same;
        EXPECT_EQ(comment->GetWrittenText(), "  text ") << same;
    }
    EXPECT_FALSE(mEditor.GetDirty());
    Type("P~A", "#note", "&nbsp;&nbsp;text");
    EXPECT_EQ(mLog.Take(), "changed(n,&nbsp;text) dirty");
}

TEST_F(InPlaceEditorPageTest, SpellMarksNeverReachTheModel) {
    LoadPage(PlaceTag("P~A", "#note"));
    Type("P~A", "#note",
         "a <span class=\"kiteMisspelled\">wrnog</span> <span class=\"other\">word</span> "
         "<span class=\"kiteMisspelled\"><b>twcie</b></span>");
    ASSERT_EQ(mItem->Comments()->Count(), 1u);
    EXPECT_EQ(mItem->Comments()->Item(1)->GetText(),
              "a wrnog <span class=\"other\">word</span> <b>twcie</b>");
    EXPECT_NE(Body().find("kiteMisspelled"), std::string::npos);
}

TEST_F(InPlaceEditorPageTest, OnePageShowsPlacesOfOtherElements) {
    mModel.Item("P~A~Run")->Comment("#note", "of Run", "r", 1);
    LoadPage(PlaceTag("P~A", "#note") + PlaceTag("P~A~Run", "#note") + PlaceTag("P~B", "#note"));
    Type("P~A~Run", "#note", "of Run, changed");
    EXPECT_EQ(mModel.Item("P~A~Run")->Comments()->Item("r")->GetText(), "of Run, changed");
    Type("P~B", "#note", "of B");
    ASSERT_EQ(mModel.Item("P~B")->Comments()->Count(), 1u);
    EXPECT_TRUE(mModel.Item("P~B")->Comments()->Item(1)->GetItem() == mModel.Item("P~B"));
    EXPECT_EQ(mItem->Comments()->Count(), 0u);
}

TEST_F(InPlaceEditorPageTest, ANameThatNobodyKnowsStaysAsWrittenAndItsEditsAreDropped) {
    LoadPage(PlaceTag("P~gone", "#note", "as written") + PlaceTag("P~A", "#note"));
    EXPECT_EQ(Span("P~gone", "#note")->GetInnerHTML(), "as written");
    Type("P~gone", "#note", "typed");
    EXPECT_EQ(mLog.Take(), "");
    Type("P~A", "#note", "typed");
    EXPECT_EQ(mItem->Comments()->Count(), 1u);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorPageTest, OnlyTheExactBeginningMakesAPlace) {
    mItem->Comment("#note", "text", "n", 1);
    LoadPage("<span id=\"taggedcomment|P~A|#note\" contenteditable=\"true\">no</span>"
             "<span id=\"TaggedComments|P~A|#note\">yes</span>"
             "<div id=\"TaggedComment|P~A|#note\" contenteditable=\"true\">no</div>");
    EXPECT_NE(
        Body().find("<span id=\"taggedcomment|P~A|#note\" contenteditable=\"true\">no</span>"),
        std::string::npos);
    EXPECT_EQ(CountOf(Body(), ">text</span>"), 1u);
    EXPECT_NE(Body().find("contenteditable=\"true\">no</div>"), std::string::npos);
    Widget().UserSpanChanged(0, "typed");
    EXPECT_EQ(mLog.Take(), "");
}

TEST_F(InPlaceEditorPageTest, PopUpBubblesAreEmptied) {
    mItem->Comment("#note", "text", "n", 1);
    LoadPage("<div class=\"popupbubble\"><p>before " + PlaceTag("P~A", "#note") +
             PlaceTag("P~A", "##") + " behind</p><p>stays</p></div>" +
             "<div class=\"popupbubble other\"><p>" + PlaceTag("P~A", "#note") + "</p></div>");
    EXPECT_NE(Body().find("<div class=\"popupbubble\"><p></p><p>stays</p></div>"),
              std::string::npos)
        << Body();
    EXPECT_EQ(CountOf(Body(), ">text</span>"), 1u);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorPageTest, RowsOfProjectsOfOneKindGo) {
    const auto fileName = MakeRef<TestItem>(mModel.Log, "File", "file");
    const auto assembly = MakeRef<TestItem>(mModel.Log, "Assembly", "assembly");
    assembly->With("FileName", Value(fileName));
    mModel.Item("P")->With("Assembly", Value(assembly));
    const std::string row =
        "<table><tbody><tr id=\"row\"><td>" + PlaceTag("P", "#note") + "</td></tr></tbody></table>";
    fileName->With("Extension", "CsProj");
    LoadPage(row);
    EXPECT_EQ(Body().find("id=\"row\""), std::string::npos);
    fileName->With("Extension", "vbproj");
    LoadPage(row);
    EXPECT_NE(Body().find("id=\"row\""), std::string::npos);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorPageTest, RowsOfOverloadsStandOnlyWhereThereAreOverloads) {
    const std::string row = "<table><tbody><tr id=\"row\"><td>" +
                            PlaceTag("P~A~Run", "##Overloads") + "</td></tr></tbody></table>";
    const auto isShown = [&](CommentType type, bool here, bool inProject) {
        mModel.Item("P~A~Run")->With("HasOverloads", here).With("HasOverloadsInProject", inProject);
        mEditor.SetCommentType(type);
        LoadPage(row);
        return Body().find("id=\"row\"") != std::string::npos;
    };
    EXPECT_TRUE(isShown(CommentType::TaggedComments, true, false));
    EXPECT_FALSE(isShown(CommentType::TaggedComments, false, true));
    EXPECT_TRUE(isShown(static_cast<CommentType>(2), false, true));
    EXPECT_FALSE(isShown(static_cast<CommentType>(2), true, false));
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorPageTest, OverloadsOfOtherThanBlocksAreOrdinaryPlaces) {
    LoadPage("<table><tbody><tr id=\"row\"><td>" + PlaceTag("P~A", "##OVERLOADS") +
             "</td></tr></tbody></table>");
    EXPECT_NE(Body().find("id=\"row\""), std::string::npos);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorPageTest, DoubledPlacesShowAndTakeTheSameComment) {
    mItem->Comment("#note", "text", "n", 1);
    LoadPage(PlaceTag("P~A", "#note") + "<hr>" + PlaceTag("P~A", "#note"));
    ASSERT_EQ(Widget().GetPlaces().size(), 2u);
    Widget().UserSpanChanged(1, "from the second");
    EXPECT_EQ(mItem->Comments()->Item("n")->GetText(), "from the second");
    Widget().UserSpanChanged(0, "from the first");
    EXPECT_EQ(mItem->Comments()->Item("n")->GetText(), "from the first");
    EXPECT_EQ(mItem->Comments()->Count(), 1u);
    Widget().UserSpanChanged(1, "");
    Widget().UserSpanChanged(0, "");
    EXPECT_EQ(mItem->Comments()->Count(), 0u);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorPageTest, ARemovedPlaceLosesNothing) {
    mItem->Comment("#note", "text", "n", 1);
    LoadPage(PlaceTag("P~A", "#note") + PlaceTag("P~A", "##"));
    Span("P~A", "#note")->SetOuterHTML({});
    Type("P~A", "##", "said");
    mEditor.CommitEdit();
    EXPECT_EQ(mItem->Comments()->Item("n")->GetText(), "text");
    EXPECT_EQ(mItem->Comments()->Count(), 2u);
}

TEST_F(InPlaceEditorPageTest, ATextThatLooksLikeAPlaceStaysText) {
    const std::string text = "see <span id=\"TaggedComment|P~B|#note\">this</span>";
    const auto comment = mItem->Comment("#note", text, "n", 1);
    mModel.Item("P~B")->Comment("#note", "of B", "b", 1);
    LoadPage(PlaceTag("P~A", "#note"));
    EXPECT_EQ(comment->GetText(), text);
    EXPECT_EQ(Span("P~A", "#note")->GetInnerHTML(), text);
    EXPECT_EQ(Widget().GetPlaces().size(), 1u);
    Type("P~A", "#note", text + " and more");
    EXPECT_EQ(comment->GetText(), text + " and more");
    EXPECT_EQ(mModel.Item("P~B")->Comments()->Item("b")->GetText(), "of B");
}

TEST_F(InPlaceEditorPageTest, APlaceThatFailsIsReportedAndThePageIsAlive) {
    mModel.Item("P~B")->Comment("#note", "of B", "b", 1);
    mModel.Item("P~C")->Without("TaggedComments");
    mItem->Comment("##", "general", "g", 1);
    Write("class.html", "<span id=\"TaggedComment|P~C|#note\"></span>" + PlaceTag("P~A", "#note") +
                            "<span id=\"TaggedComment|P~A|##\">old</span>");
    EventLog log;
    log.Keep(mEditor.Events.DocumentComplete.Connect([&] { log.Add("complete"); }));
    Load();
    EXPECT_EQ(mServices.TakeReports(), "InPlaceEditor.FindTaggedComment (438)\n");
    EXPECT_EQ(log.Take(), "complete");
    EXPECT_EQ(Span("P~A", "##")->GetInnerHTML(), "general") << "the places behind it are made";
    Type("P~A", "#note", "typed");
    EXPECT_EQ(mItem->Comments()->Count(), 2u);
}

TEST_F(InPlaceEditorPageTest, ALookUpThatFailsAddsNoSecondComment) {
    mItem->Comment("#note", "text", "n", 1);
    LoadPage(PlaceTag("P~A", "#note"));
    const ScopeExit unhook([] { TestItem::OnUse = nullptr; });
    int failed = 0;
    TestItem::OnUse = [&](const std::string& use) {
        if (use != "Get(TaggedComments)" || failed++ > 0) return;
        RaiseError(ErrorNumber::InvalidCall);
    };
    Type("P~A", "#note", "typed");
    EXPECT_EQ(mServices.TakeReports(), "InPlaceEditor.FindTaggedComment (5)\n");
    EXPECT_EQ(mItem->Comments()->Count(), 1u);
    Type("P~A", "#note", "typed again");
    EXPECT_EQ(mItem->Comments()->Item("n")->GetText(), "typed again");
    EXPECT_EQ(mServices.TakeReports(), "");
}

// Handlers that come back

TEST_F(InPlaceEditorPageTest, AHandlerMayLoadAnotherItemWhileATextIsStored) {
    LoadPage(PlaceTag("P~A", "#note") + PlaceTag("P~B", "#note"));
    {
        const auto tie = mEditor.Events.TaggedCommentAdded.Connect(
            [this](const auto&, const auto&) { Load("P~B"); });
        Type("P~A", "#note", "of A");
    }
    EXPECT_EQ(mModel.Item("P~A")->Comments()->Count(), 1u);
    EXPECT_EQ(mModel.Item("P~B")->Comments()->Count(), 0u);
    Type("P~B", "#note", "of B");
    EXPECT_EQ(mModel.Item("P~B")->Comments()->Item(1)->GetText(), "of B");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorPageTest, AHandlerMayChangeTheCommentThatIsStored) {
    const auto comment = mItem->Comment("#note", "old", "n", 1);
    LoadPage(PlaceTag("P~A", "#note"));
    {
        const auto tie = mEditor.Events.TaggedCommentChanged.Connect(
            [](const auto&, const auto& changed, const auto&) { changed->SetText("corrected"); });
        Type("P~A", "#note", "new");
    }
    EXPECT_EQ(comment->GetText(), "corrected");
    Type("P~A", "#note", "newer");
    EXPECT_EQ(comment->GetText(), "newer");
}

TEST_F(InPlaceEditorPageTest, AHandlerMayEndTheEditor) {
    mItem->Comment("#note", "old", "n", 1);
    LoadPage(PlaceTag("P~A", "#note"));
    const auto tie = mEditor.Events.TaggedCommentChanged.Connect(
        [this](const auto&, const auto&, const auto&) { mEditor.Terminate(); });
    EXPECT_NO_THROW(Type("P~A", "#note", "new"));
    EXPECT_EQ(mItem->Comments()->Item("n")->GetText(), "new");
    EXPECT_NO_THROW(Widget().UserSpanChanged(0, "later"));
    EXPECT_EQ(mItem->Comments()->Item("n")->GetText(), "new");
}

TEST_F(InPlaceEditorPageTest, AFailingHandlerIsReportedOnceAndTheTextIsKept) {
    LoadPage(PlaceTag("P~A", "#note"));
    const auto tie = mEditor.Events.TaggedCommentAdded.Connect(
        [](const auto&, const auto&) { RaiseError(ErrorNumber::InvalidCall); });
    Type("P~A", "#note", "typed");
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.TaggedCommentAdded (5)\n");
    ASSERT_EQ(mItem->Comments()->Count(), 1u);
    EXPECT_EQ(mItem->Comments()->Item(1)->GetText(), "typed");
}

// Many places

TEST_F(InPlaceEditorPageTest, TheCostOfOneKeyDoesNotGrowWithThePage) {
    const auto usesOfOneKey = [this](int count) {
        std::string body = PlaceTag("P~A", "#note");
        for (int number = 0; number < count; ++number)
            body += PlaceTag("P~B", "#extra" + std::to_string(number), "hint");
        LoadPage(body);
        Type("P~A", "#note", "warm");
        int uses = 0;
        TestItem::OnUse = [&](const std::string&) { ++uses; };
        Type("P~A", "#note", "typed " + std::to_string(count));
        TestItem::OnUse = nullptr;
        mEditor.SetCurrentCodeElement(nullptr);
        return uses;
    };
    const int few = usesOfOneKey(10);
    EXPECT_GT(few, 0);
    EXPECT_EQ(usesOfOneKey(2500), few);
    EXPECT_EQ(mServices.TakeReports(), "");
}

} // namespace
} // namespace paperkite::test
