#include "authoring/DesignersFixture.h"

#include "foundation/SpellEngine.h"

namespace paperkite::test {
namespace {

class CommentEditorDesignersTest : public DesignersFixture {
protected:
    static std::string KeysOf(const DataCells& cells) {
        std::string keys;
        for (std::size_t position = 1; position <= cells.Count(); ++position)
            keys += cells.KeyAt(position) + " ";
        return keys;
    }
};

TEST_F(CommentEditorDesignersTest, TheFirstVisitOfATabMakesItsDesigner) {
    mItem->Comment("#one", "first", "1");
    mItem->Comment("#two", "other", "2");
    mItem->Comment("#one", "gone", "3", kTaggedCommentTombstone);
    Start("other");
    Open("#one");
    EXPECT_EQ(mCalls.Take(), "create(Lib.dsrA) A.SetSpellObject(nothing) "
                             "A.Initialize(P~A,#one,first) A.Refresh(P~A,#one,first) "
                             "A.SetEditFocus");
    const auto control = mEditor.DesignerContainer->Controls.Find("LibdsrA");
    ASSERT_TRUE(control);
    EXPECT_TRUE(control->GetVisible());
    EXPECT_TRUE(mEditor.ActiveDesigner == ControlOf("A").Designer);
    EXPECT_EQ(mEditor.ActiveTaggedCommentDef->TagIdentifier, "#one");
    EXPECT_EQ(FrontSurface(), "DesignerContainer");
    EXPECT_TRUE(Designer("A").Host == &mEditor);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorDesignersTest, ATabThatIsOpenedFromThePageHidesThePage) {
    AddTemplate({{"class.html", "Test:Class"}});
    Load();
    ASSERT_TRUE(mEditor.InPlaceEditor->GetVisible());
    mEditor.SetForeColorByName("red");
    ASSERT_EQ(mEditor.GetForeColorName(), "red");
    Open("#one");
    EXPECT_FALSE(mEditor.InPlaceEditor->GetVisible());
    EXPECT_EQ(FrontSurface(), "DesignerContainer");
    // Commands go to the page no longer.
    EXPECT_EQ(mEditor.GetForeColorName(), "");
}

TEST_F(CommentEditorDesignersTest, TheListsStayVisibleBehindATab) {
    Start("other");
    Open("#one");
    EXPECT_EQ(FrontSurface(), "DesignerContainer");
    EXPECT_TRUE(mEditor.prpTags->GetVisible());
    ChooseCommand("flags");
    ASSERT_EQ(FrontSurface(), "prpFlags");
    Open("#two");
    EXPECT_EQ(FrontSurface(), "DesignerContainer");
    EXPECT_TRUE(mEditor.prpFlags->GetVisible());
}

TEST_F(CommentEditorDesignersTest, ATabIsGivenTheSizeOfTheTagList) {
    Start("other");
    mEditor.prpTags->Move(3, 4, 321, 123);
    Open("#one");
    EXPECT_EQ(ControlOf("A").GetBounds(), (Bounds{0, 0, 321, 123}));
    Open("#zero");
    EXPECT_EQ(ControlOf("Z").GetBounds(), (Bounds{0, 0, 321, 123}));
}

TEST_F(CommentEditorDesignersTest, AnotherTabHidesTheDesignerThatWasShown) {
    Start("#one");
    Open("#two");
    EXPECT_EQ(mCalls.Take(), "A.CommitEdit A.Deactivate create(Lib.dsrB) B.SetSpellObject(nothing) "
                             "B.Initialize(P~A,#two) B.Refresh(P~A,#two) B.SetEditFocus");
    EXPECT_FALSE(ControlOf("A").GetVisible());
    EXPECT_TRUE(ControlOf("B").GetVisible());
    Open("#one");
    EXPECT_EQ(mCalls.Take(), "B.CommitEdit B.Deactivate A.Active(True) A.Refresh(P~A,#one) "
                             "A.SetEditFocus");
    EXPECT_TRUE(ControlOf("A").GetVisible());
    EXPECT_FALSE(ControlOf("B").GetVisible());
    EXPECT_EQ(ControlOf("A").GetZOrder(), 0);
}

TEST_F(CommentEditorDesignersTest, TwoTagsOfOneClassShareItsControl) {
    mItem->Comment("#same", "text of same", "s");
    Start("#one");
    Open("#same");
    EXPECT_EQ(mCalls.Take(),
              "A.CommitEdit A.Active(True) A.Refresh(P~A,#same,text of same) A.SetEditFocus");
    EXPECT_TRUE(ControlOf("A").GetVisible());
    EXPECT_EQ(mEditor.GetDesigners()->Count(), 3u);
}

TEST_F(CommentEditorDesignersTest, AnEmptyClassIsTheConfiguredOneOrTheFixedDesigner) {
    Start("other");
    Open("#plain");
    EXPECT_TRUE(mEditor.ActiveDesigner == ControlOf("fixed").Designer);
    GlobalConfig().TaggedCommentDefs->SetDefaultDesignerProgID("Lib.dsrB");
    Open("other");
    Open("#plain");
    EXPECT_TRUE(mEditor.ActiveDesigner == ControlOf("B").Designer);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorDesignersTest, TheFixedDesignerIsInitialisedOnceAndNeverMadeAgain) {
    mItem->Comment("#plain", "text", "p");
    Load();
    EXPECT_EQ(mCalls.Take().find("create(GlossmakerDesigners.dsrHTMLEdit)"), 0u);
    Open("other");
    mCalls.Take();
    EXPECT_EQ(ControlOf("fixed").GetName(), "GlossmakerDesignersdsrHTMLEdit");
    EXPECT_LT(ControlOf("fixed").GetLeft(), 0);
    EXPECT_EQ(ControlOf("fixed").GetTag(), "");
    Open("#plain");
    EXPECT_EQ(mCalls.Take(), "fixed.Active(True) fixed.SetSpellObject(nothing) "
                             "fixed.Initialize(P~A,#plain,text) fixed.SetEditFocus");
    EXPECT_EQ(ControlOf("fixed").GetTag(), "Done");
    Open("other");
    EXPECT_EQ(mCalls.Take(), "fixed.CommitEdit fixed.Active(False) fixed.Deactivate");
    Open("#plain");
    EXPECT_EQ(mCalls.Take(), "fixed.Active(True) fixed.Refresh(P~A,#plain,text) "
                             "fixed.SetEditFocus");
}

TEST_F(CommentEditorDesignersTest, ATagWithoutDesignerHasNoTab) {
    Load();
    EXPECT_EQ(mEditor.eb->GetGroup("Texts")->Find("#tab"), nullptr);
    EXPECT_EQ(mEditor.eb->GetGroup("Texts")->Count(), 5u);
}

TEST_F(CommentEditorDesignersTest, TheCellsTellWhatTheDesignerWorksOn) {
    mEditor.SetModules({"ModA", "ModB"});
    mEditor.SetProjectName("Library");
    mEditor.SetBaseURL("file:///base/");
    mEditor.SetAppName("Kite");
    Start("#one");
    const auto cells = Designer("A").Cells;
    ASSERT_TRUE(cells);
    EXPECT_EQ(KeysOf(*cells), "ModuleNames ProjectName CodeElement AppName BaseURL TagIdentifier ");
    EXPECT_EQ(cells->Item("ProjectName")->GetValue().ToText(), "Library");
    EXPECT_EQ(cells->Item("AppName")->GetValue().ToText(), "Kite");
    EXPECT_EQ(cells->Item("BaseURL")->GetValue().ToText(), "file:///base/");
    EXPECT_EQ(cells->Item("TagIdentifier")->GetValue().ToText(), "#one");
    EXPECT_TRUE(cells->Item("CodeElement")->GetObjectValue() == mItem);
    const auto modules = cells->Item("ModuleNames")->GetValue().ToArray();
    ASSERT_EQ(modules.Entries.size(), 2u);
    EXPECT_EQ(modules.Entries[0].ToText() + modules.Entries[1].ToText(), "ModAModB");
}

TEST_F(CommentEditorDesignersTest, ACommentUnderTheTagAsKeyIsACell) {
    mItem->Comment("#note", "keyed by chance", "#one");
    Start("#one");
    const auto cells = Designer("A").Cells;
    EXPECT_EQ(KeysOf(*cells),
              "ModuleNames ProjectName CodeElement AppName BaseURL TagIdentifier TaggedComment ");
    EXPECT_TRUE(cells->Item("TaggedComment")->GetObjectValue() == mItem->Comments()->Item("#one"));
}

TEST_F(CommentEditorDesignersTest, DesignersUseTheEngineOfTheHost) {
    struct Engine : Object {
        std::string TypeName() const override { return "Engine"; }
        void Set(std::string_view, const Value&) override {}
    };
    mEditor.SetSpellObject(MakeRef<Engine>());
    Load();
    mCalls.Take();
    Open("#one");
    EXPECT_NE(mCalls.Take().find("create(Lib.dsrA) A.SetSpellObject(Engine) A.Initialize"),
              std::string::npos);
}

TEST_F(CommentEditorDesignersTest, WithoutOneOfTheHostTheyUseTheEditorsOwnEngine) {
    class Engine : public SpellEngine {
    public:
        void SetOptions(const SpellOptions&) override {}
        const SpellOptions& GetOptions() const override { return mOptions; }
        std::string GetProblem() const override { return {}; }
        void SetProject(ProjectSpelling) override {}
        bool Check(const std::string&) override { return true; }
        std::vector<std::string> Suggest(const std::string&) override { return {}; }
        void AddIgnoreAll(const std::string&) override {}
        void AddToCustomDictionary(const std::string&) override {}

    private:
        SpellOptions mOptions;
    };
    CurrentServices().Spelling = MakeRef<Engine>();
    Start("other");
    Open("#one");
    EXPECT_NE(mCalls.Take().find("create(Lib.dsrA) A.SetSpellObject(SpellEngine) A.Initialize"),
              std::string::npos);
}

TEST_F(CommentEditorDesignersTest, TheFixedDesignerIsThereBeforeTheFirstElement) {
    CommentEditor editor;
    EXPECT_EQ(mCalls.Take(), "create(GlossmakerDesigners.dsrHTMLEdit)");
    const auto designers = editor.GetDesigners();
    ASSERT_EQ(designers->Count(), 1u);
    EXPECT_TRUE(designers->Item(1) == ControlOf("fixed").Designer);
    EXPECT_FALSE(ControlOf("fixed").GetVisible());
    editor.Initialize();
    EXPECT_EQ(mCalls.Take(), "");
    EXPECT_EQ(ControlOf("fixed").GetLeft(), -2000);
    EXPECT_EQ(editor.GetDesigners()->Count(), 1u);
    editor.Terminate();
    EXPECT_EQ(mCalls.Take(), "fixed.Detach");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorDesignersTest, TheDesignersAreListedFromTheFixedOneInTheOrderOfTheirMaking) {
    Start("#two");
    Open("#one");
    const auto designers = mEditor.GetDesigners();
    ASSERT_EQ(designers->Count(), 4u);
    EXPECT_TRUE(designers->Item(1) == ControlOf("fixed").Designer);
    EXPECT_TRUE(designers->Item(2) == ControlOf("Z").Designer);
    EXPECT_TRUE(designers->Item(3) == ControlOf("B").Designer);
    EXPECT_TRUE(designers->Item(4) == ControlOf("A").Designer);
    EXPECT_FALSE(mEditor.GetDesigners() == designers);
}

TEST_F(CommentEditorDesignersTest, AnotherElementIsShownByTheSameDesigner) {
    GlobalConfig().KeepLastCommentTab = true;
    mModel.Item("P~B")->Comment("#one", "text of B", "b");
    Start("#one");
    Load("P~B");
    EXPECT_EQ(mCalls.Take(), "A.Active(False) A.Deactivate A.Active(True) "
                             "A.Refresh(P~B,#one,text of B)");
    EXPECT_EQ(mEditor.eb->GetSelectedItem()->GetKey(), "#one");
}

TEST_F(CommentEditorDesignersTest, AnotherNamespaceKeepsTheDesigners) {
    Start("#one");
    Load("P~A~Run");
    Open("#one");
    EXPECT_EQ(mCalls.Take().find("create"), std::string::npos);
    EXPECT_TRUE(mEditor.DesignerContainer->Controls.Contains("LibdsrA"));
}

TEST_F(CommentEditorDesignersTest, TheActiveCommentsAreThoseOfTheTabExactly) {
    mItem->Comment("#one", "mine", "1");
    mItem->Comment("#ONE", "another case", "2");
    mItem->Comment("#note", "note", "3");
    Start("other");
    Load();
    EXPECT_FALSE(mEditor.ActiveTaggedCommentDef);
    EXPECT_EQ(mEditor.GetActiveTaggedComments()->Count(), 3u);
    Open("#one");
    const auto comments = mEditor.GetActiveTaggedComments();
    ASSERT_EQ(comments->Count(), 1u);
    EXPECT_TRUE(comments->Contains("1"));
}

TEST_F(CommentEditorDesignersTest, CommittingReachesTheActiveDesignerOnly) {
    Start("#one");
    Open("#two");
    mCalls.Take();
    mEditor.CommitEdit();
    EXPECT_EQ(mCalls.Take(), "B.CommitEdit");
    Open("other");
    mCalls.Take();
    mEditor.CommitEdit();
    EXPECT_EQ(mCalls.Take(), "");
}

TEST_F(CommentEditorDesignersTest, TheEndDetachesAllInOrderAndKeepsTheFixedOne) {
    Start("#two");
    Open("#one");
    mCalls.Take();
    mEditor.Terminate();
    EXPECT_EQ(mCalls.Take(), "Z.Detach B.Detach A.Detach fixed.Detach");
    EXPECT_FALSE(mEditor.DesignerContainer->Controls.Contains("LibdsrA"));
    EXPECT_FALSE(mEditor.DesignerContainer->Controls.Contains("LibdsrB"));
    EXPECT_TRUE(mEditor.DesignerContainer->Controls.Contains("GlossmakerDesignersdsrHTMLEdit"));
    EXPECT_FALSE(mEditor.ActiveDesigner);
    mEditor.Terminate();
    EXPECT_EQ(mCalls.Take(), "");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorDesignersTest, ADesignerThatCannotEndLetsTheOthersEnd) {
    Start("#two");
    Open("#one");
    Designer("B").OnCall = [](const std::string& call) {
        if (call == "Detach") RaiseError(ErrorNumber::InvalidCall);
    };
    mCalls.Take();
    mEditor.Terminate();
    EXPECT_EQ(mCalls.Take(), "Z.Detach B.Detach A.Detach fixed.Detach");
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.Terminate (5)\n");
}

TEST_F(CommentEditorDesignersTest, AnUnknownClassIsReportedAndTheSurfaceStays) {
    DefineTab("#bad", "Bad", "No.such");
    EventLog wrapped;
    mEditor.BindToWrapper(MakeRef<TestWrapper>(wrapped));
    Start("#one");
    wrapped.Take();
    Open("#bad");
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.zCreateDesignerControl (429)\n");
    EXPECT_FALSE(mEditor.ActiveDesigner);
    EXPECT_EQ(FrontSurface(), "DesignerContainer");
    EXPECT_TRUE(ControlOf("A").GetVisible());
    EXPECT_EQ(wrapped.Take(), "lockrefresh unlockrefreshabsolute");
    Open("#two");
    EXPECT_TRUE(mEditor.ActiveDesigner == ControlOf("B").Designer);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorDesignersTest, AnUnknownClassLeavesAListInFront) {
    DefineTab("#bad", "Bad", "No.such");
    Start("other");
    Open("#bad");
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.zCreateDesignerControl (429)\n");
    EXPECT_EQ(FrontSurface(), "prpTags");
    EXPECT_TRUE(mEditor.prpTags->GetVisible());
}

TEST_F(CommentEditorDesignersTest, AnUnknownKeyLeavesAllAsItWas) {
    Start("#one");
    ChooseCommand("#nowhere");
    EXPECT_EQ(mServices.TakeReports(), "");
    EXPECT_FALSE(mEditor.ActiveTaggedCommentDef);
    EXPECT_TRUE(mEditor.ActiveDesigner == ControlOf("A").Designer);
    EXPECT_EQ(FrontSurface(), "DesignerContainer");
    EXPECT_TRUE(ControlOf("A").GetVisible());
}

TEST_F(CommentEditorDesignersTest, TheWrapperIsLockedWhileATabOpens) {
    EventLog wrapped;
    mEditor.BindToWrapper(MakeRef<TestWrapper>(wrapped));
    Start("other");
    wrapped.Take();
    Open("#one");
    EXPECT_EQ(wrapped.Take(), "lockrefresh unlockrefreshabsolute");
    EXPECT_NE(mCalls.Take().find("A.BindToWrapper(CommandWrapper)"), std::string::npos);
    Open("#plain");
    EXPECT_EQ(wrapped.Take(), "lockrefresh");
    ControlOf("fixed").DesignerEvents.DocumentComplete.Raise();
    EXPECT_EQ(wrapped.Take(), "unlockrefresh");
}

TEST_F(CommentEditorDesignersTest, TheWrapperIsBoundAtTheEndOfOpeningATab) {
    mEditor.BindToWrapper(MakeRef<TestWrapper>(mCalls));
    Start("other");
    Open("#one");
    EXPECT_EQ(mCalls.Take(), "lockrefresh create(Lib.dsrA) A.SetSpellObject(nothing) "
                             "A.Initialize(P~A,#one) A.Refresh(P~A,#one) "
                             "A.BindToWrapper(CommandWrapper) unlockrefreshabsolute "
                             "A.SetEditFocus");
    Open("#plain");
    EXPECT_EQ(mCalls.Take(), "A.CommitEdit lockrefresh A.Deactivate fixed.Active(True) "
                             "fixed.SetSpellObject(nothing) fixed.Initialize(P~A,#plain) "
                             "fixed.BindToWrapper(CommandWrapper) fixed.SetEditFocus");
}

TEST_F(CommentEditorDesignersTest, EventsOfTheFixedDesignerArePassedOn) {
    Load();
    EventLog log;
    auto& events = mEditor.Events;
    log.Keep(events.DocumentComplete.Connect([&] { log.Add("complete"); }));
    log.Keep(events.HyperlinkClick.Connect([&](const auto& href) { log.Add("click " + href); }));
    log.Keep(
        events.SpellIgnoreWordAdded.Connect([&](const auto& word) { log.Add("word " + word); }));
    log.Keep(events.InsertHyperLinkRequest.Connect(
        [&](const auto& text, std::string& link, bool& cancel) {
            log.Add("insert " + text + " " + link);
            link = "new";
            cancel = true;
        }));
    auto& from = ControlOf("fixed").DesignerEvents;
    from.DocumentComplete.Raise();
    from.HyperlinkClick.Raise("there");
    from.SpellIgnoreWordAdded.Raise("kite");
    std::string link = "old";
    bool cancel = false;
    from.InsertHyperLinkRequest.Raise("text", link, cancel);
    EXPECT_EQ(log.Take(), "complete click there word kite insert text old");
    EXPECT_EQ(link, "new");
    EXPECT_TRUE(cancel);
}

TEST_F(CommentEditorDesignersTest, EditControlsFollowTheRows) {
    Start("#one");
    ControlOf("A").SetTag("EDIT");
    mEditor.Clear();
    EXPECT_FALSE(ControlOf("A").GetEnabled());
    mItem->Comment("#note", "text", "n");
    mEditor.Refresh(false);
    mEditor.SetSelectedItem(mEditor.prpTags->Item("n"));
    EXPECT_TRUE(ControlOf("A").GetEnabled());
    mEditor.SetSelectedItem(Offer("#remarks"));
    EXPECT_FALSE(ControlOf("A").GetEnabled());
}

// Designers and handlers that misbehave

TEST_F(CommentEditorDesignersTest, ADesignerThatFailsAtItsBeginningIsReportedAndNotActive) {
    Load();
    const auto make = CurrentServices().CreateDesigner;
    CurrentServices().CreateDesigner = [&](const std::string& progID) {
        const auto control = make(progID);
        if (progID == "Lib.dsrA")
            Designer("A").OnCall = [](const std::string& call) {
                if (call.starts_with("Initialize")) RaiseError(ErrorNumber::InvalidCall);
            };
        return control;
    };
    Open("#one");
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.zCreateDesignerControl (5)\n");
    EXPECT_FALSE(mEditor.ActiveDesigner);
    Designer("A").OnCall = nullptr;
    Open("other");
    Open("#one");
    EXPECT_EQ(mServices.TakeReports(), "");
    EXPECT_TRUE(mEditor.ActiveDesigner == ControlOf("A").Designer);
}

TEST_F(CommentEditorDesignersTest, ADesignerThatCannotLeaveDoesNotKeepTheEditor) {
    Start("#one");
    Designer("A").OnCall = [](const std::string& call) {
        if (call != "SetEditFocus") RaiseError(ErrorNumber::InvalidCall);
    };
    Open("other");
    EXPECT_EQ(FrontSurface(), "prpTags");
    EXPECT_FALSE(mEditor.ActiveDesigner);
    EXPECT_EQ(mServices.TakeReports(),
              "CommentEditor.CommitEdit (5)\nCommentEditor.HideActiveDesigner (5)\n");
    Open("#two");
    EXPECT_TRUE(mEditor.ActiveDesigner == ControlOf("B").Designer);
    Load("P~B");
    EXPECT_TRUE(mEditor.GetCurrentCodeElement() == mModel.Item("P~B"));
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorDesignersTest, ADesignerThatCannotTakeTheFocusIsReportedAndStaysActive) {
    Start("#one");
    Designer("A").OnCall = [](const std::string& call) {
        if (call.starts_with("SetEditFocus")) RaiseError(ErrorNumber::InvalidCall);
    };
    mEditor.SetEditFocus();
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.InternalSetEditFocus (5)\n");
    EXPECT_TRUE(mEditor.ActiveDesigner == ControlOf("A").Designer);
}

TEST_F(CommentEditorDesignersTest, AFailureDeepInsideIsReportedThereAndOnlyThere) {
    Start("#plain");
    GlobalConfig().TaggedCommentDefs = nullptr;
    mEditor.DesignerContainer->SetWidth(123);
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.DesignerForTaggedComment (91)\n");
}

TEST_F(CommentEditorDesignersTest, AFailingDesignerDoesNotStopARefresh) {
    GlobalConfig().KeepLastCommentTab = true;
    Start("#one");
    Designer("A").OnCall = [](const std::string& call) {
        if (call == "Active(False)") RaiseError(ErrorNumber::InvalidCall);
    };
    Load("P~B");
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.HideActiveDesigner (5)\n");
    EXPECT_TRUE(mEditor.ActiveDesigner == ControlOf("A").Designer);
    EXPECT_EQ(Rows(), "[Existing Comments] [Available to add] ##+ #remarks+ #note+");
}

TEST_F(CommentEditorDesignersTest, ADesignerMayStoreACommentWhileItCommits) {
    Start("#one");
    Designer("A").OnCall = [this](const std::string& call) {
        if (call != "CommitEdit" || mItem->Comments()->Count() > 0) return;
        const auto comment = MakeRef<TaggedComment>("new");
        comment->SetTagIdentifier("#one");
        comment->SetText("typed");
        comment->SetItem(mItem);
        mEditor.ICommentDesignerHost_TaggedCommentAdded(mItem, comment);
    };
    Open("other");
    EXPECT_EQ(mItem->Comments()->Item("new")->GetText(), "typed");
    EXPECT_TRUE(mEditor.eb->GetGroup("Texts")->Item("#one")->GetBold());
    EXPECT_TRUE(mEditor.GetDirty());
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorDesignersTest, ADesignerMayLoadAnotherElementWhileItIsRefreshed) {
    GlobalConfig().KeepLastCommentTab = true;
    Start("#one");
    bool done = false;
    Designer("A").OnCall = [&](const std::string& call) {
        if (call.starts_with("Refresh(P~B") && !std::exchange(done, true)) Load("P~C");
    };
    Load("P~B");
    EXPECT_TRUE(mEditor.GetCurrentCodeElement() == mModel.Item("P~C"));
    EXPECT_EQ(mServices.TakeReports(), "");
    Designer("A").OnCall = nullptr;
    Load("P~B");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorDesignersTest, ADesignerMayEndTheEditor) {
    Start("#one");
    Designer("A").OnCall = [this](const std::string& call) {
        if (call == "Deactivate") mEditor.Terminate();
    };
    EXPECT_NO_THROW(Open("#two"));
    EXPECT_NO_THROW(Load("P~B"));
    EXPECT_NO_THROW(mEditor.Terminate());
}

} // namespace
} // namespace paperkite::test
