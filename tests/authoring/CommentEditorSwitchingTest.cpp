#include "authoring/DesignersFixture.h"

namespace paperkite::test {
namespace {

struct CountingHelp : DynamicHelpHost {
    void ContextChanged() override { ++Changes; }
    void ShowTopic(const std::string&) override {}
    int Changes = 0;
};

/// What happens between two surfaces, and in which order.
class CommentEditorSwitchingTest : public DesignersFixture {
protected:
    CommentEditorSwitchingTest() {
        AddTemplate({{"class.html", "Test:Class"}});
        mEditor.IDynamicHelpContext_Initialise(mHelp);
    }
    HtmlEdit& Page() { return *mEditor.InPlaceEditor->GetEditControl(); }
    bool TipIsVisible() {
        return mEditor.DockCommentTypes->Commands.Item("TipPopup")->GetVisible();
    }
    /// From here on the log tells what the wrapper is called, too.
    void LogWrapper() {
        mEditor.BindToWrapper(MakeRef<TestWrapper>(mCalls));
        mCalls.Take();
    }
    std::string Shown() {
        std::string names;
        for (const auto& surface :
             std::initializer_list<Ref<Control>>{mEditor.prpTags, mEditor.prpFlags,
                                                 mEditor.InPlaceEditor, mEditor.DesignerContainer})
            if (surface->GetVisible()) names += surface->GetName() + " ";
        return names;
    }

    Ref<CountingHelp> mHelp = MakeRef<CountingHelp>();
};

TEST_F(CommentEditorSwitchingTest, WithNothingSelectedARefreshOpensNothing) {
    Start("other");
    ASSERT_EQ(Checked(), "other ");
    mEditor.eb->SetSelectedItem(nullptr);
    mHelp->Changes = 0;
    mEditor.Refresh(true);
    EXPECT_EQ(Selected(), "nothing");
    EXPECT_EQ(Checked(), "");
    EXPECT_EQ(FrontSurface(), "prpTags");
    EXPECT_FALSE(mEditor.ActiveDesigner);
    EXPECT_EQ(mHelp->Changes, 1);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorSwitchingTest, TheFlagListTakesTheTabsPlace) {
    Start("#one");
    LogWrapper();
    const auto flags = mEditor.eb->GetGroup("other")->Add("FLAGS", "All flags");
    mEditor.eb->UserClick(flags);
    EXPECT_EQ(mCalls.Take(), "A.CommitEdit A.Active(False) A.Deactivate BindTo(True,nothing)");
    EXPECT_EQ(FrontSurface(), "prpFlags");
    EXPECT_FALSE(mEditor.prpTags->GetVisible());
    EXPECT_FALSE(mEditor.InPlaceEditor->GetVisible());
    EXPECT_FALSE(mEditor.ActiveDesigner);
    EXPECT_FALSE(TipIsVisible());
}

TEST_F(CommentEditorSwitchingTest, TheTagListTakesTheTabsPlace) {
    Start("#one");
    ChooseCommand("flags");
    Open("#two");
    LogWrapper();
    Open("other");
    EXPECT_EQ(mCalls.Take(), "B.CommitEdit B.Active(False) B.Deactivate BindTo(True,nothing)");
    EXPECT_EQ(FrontSurface(), "prpTags");
    EXPECT_FALSE(mEditor.prpFlags->GetVisible());
    EXPECT_FALSE(mEditor.ActiveDesigner);
    EXPECT_FALSE(TipIsVisible());
}

TEST_F(CommentEditorSwitchingTest, AListTakesTheCommandsFromThePage) {
    Load();
    mEditor.SetForeColorByName("red");
    ASSERT_EQ(mEditor.GetForeColorName(), "red");
    Open("other");
    EXPECT_FALSE(mEditor.InPlaceEditor->GetVisible());
    EXPECT_EQ(mEditor.GetForeColorName(), "");
}

TEST_F(CommentEditorSwitchingTest, ThePageIsOpenedInWhateverCaseItsKeyBegins) {
    Start("other");
    ChooseCommand("INPLACEEDIT:class.html");
    EXPECT_EQ(FrontSurface(), "InPlaceEditor");
    EXPECT_EQ(Selected(), "inplaceedit:class.html");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorSwitchingTest, ThePageIsInitialisedAtItsFirstVisitOnly) {
    EXPECT_EQ(mEditor.InPlaceEditor->GetTag(), "");
    Page().SetSpellAsYouType(true);
    Load();
    EXPECT_EQ(mEditor.InPlaceEditor->GetTag(), "Done");
    EXPECT_FALSE(Page().GetSpellAsYouType());
    Page().SetSpellAsYouType(true);
    Open("other");
    Open("inplaceedit:class.html");
    EXPECT_TRUE(Page().GetSpellAsYouType());
}

TEST_F(CommentEditorSwitchingTest, ThePageTakesTheTabsPlace) {
    Start("#one");
    LogWrapper();
    Open("inplaceedit:class.html");
    EXPECT_EQ(mCalls.Take(), "A.CommitEdit lockrefresh unlockrefresh A.Active(False) A.Deactivate "
                             "BindTo(True,HtmlEdit)");
    EXPECT_EQ(FrontSurface(), "InPlaceEditor");
    EXPECT_FALSE(mEditor.prpTags->GetVisible());
    EXPECT_FALSE(mEditor.prpFlags->GetVisible());
    EXPECT_FALSE(mEditor.ActiveDesigner);
    EXPECT_FALSE(TipIsVisible());
}

TEST_F(CommentEditorSwitchingTest, ThePageHidesTheListThatWasShown) {
    for (const char* list : {"other", "flags"}) {
        Load();
        ChooseCommand(list);
        ChooseCommand("inplaceedit:class.html");
        EXPECT_FALSE(mEditor.prpTags->GetVisible()) << list;
        EXPECT_FALSE(mEditor.prpFlags->GetVisible()) << list;
        EXPECT_TRUE(mEditor.InPlaceEditor->GetVisible()) << list;
    }
}

TEST_F(CommentEditorSwitchingTest, TheBoxesOfFlagsChangeNoSurface) {
    Start("#one");
    const std::string shown = Shown();
    mHelp->Changes = 0;
    ChooseCommand("checkboxcontainer");
    EXPECT_EQ(mCalls.Take(), "A.CommitEdit A.SetEditFocus");
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(FrontSurface(), "DesignerContainer");
    EXPECT_TRUE(mEditor.ActiveDesigner == ControlOf("A").Designer);
    EXPECT_EQ(mHelp->Changes, 1);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorSwitchingTest, HelpHearsOfEveryKey) {
    Load();
    for (const char* key :
         {"#one", "other", "flags", "inplaceedit:class.html", "checkboxcontainer", "#nowhere"}) {
        mHelp->Changes = 0;
        ChooseCommand(key);
        EXPECT_EQ(mHelp->Changes, 1) << key;
    }
}

TEST_F(CommentEditorSwitchingTest, TheWrapperIsReleasedBeforeTheHostHearsOfTheDocument) {
    Start("#plain");
    LogWrapper();
    const auto tie = mEditor.Events.DocumentComplete.Connect([this] { mCalls.Add("complete"); });
    ControlOf("fixed").DesignerEvents.DocumentComplete.Raise();
    EXPECT_EQ(mCalls.Take(), "unlockrefresh complete");
    mEditor.InPlaceEditor->Events.DocumentComplete.Raise();
    EXPECT_EQ(mCalls.Take(), "unlockrefresh complete");
    mEditor.BindToWrapper({});
    mEditor.InPlaceEditor->Events.DocumentComplete.Raise();
    EXPECT_EQ(mCalls.Take(), "complete");
}

TEST_F(CommentEditorSwitchingTest, WithoutAnElementTheBarOpensNothing) {
    mEditor.Initialize();
    const auto other = mEditor.eb->GetGroup("other")->Item("other");
    mEditor.eb->SetSelectedItem(other);
    EXPECT_EQ(Shown(), "");
    EXPECT_FALSE(mEditor.prpTags->HasFocus());
    EXPECT_EQ(mHelp->Changes, 0);
    Load();
    mEditor.SetCurrentCodeElement(nullptr);
    mEditor.eb->SetSelectedItem(mEditor.eb->GetGroup("Texts")->Item("#one"));
    EXPECT_FALSE(mEditor.ActiveDesigner);
    EXPECT_EQ(Shown(), "");
}

TEST_F(CommentEditorSwitchingTest, WhileTheBarIsFilledNothingIsOpened) {
    int selections = 0;
    const auto tie =
        mEditor.eb->Events.SelChange.Connect([&](const auto&, const auto& item, const auto&) {
            ++selections;
            mEditor.DockCommentTypes->Events.CommandClick.Raise(MakeRef<DockCommand>("other"));
            EXPECT_EQ(Shown(), "") << (item ? item->GetKey() : "nothing");
        });
    Load();
    EXPECT_EQ(selections, 1);
    EXPECT_EQ(mHelp->Changes, 1);
    EXPECT_EQ(FrontSurface(), "InPlaceEditor");
}

} // namespace
} // namespace paperkite::test
