#include "authoring/CommentEditorFixture.h"

namespace paperkite::test {
namespace {

class CommentEditorSurfacesTest : public CommentEditorFixture {
protected:
    /// An item of the bar that the author can choose beside "other".
    Ref<GroupItem> AddFlagsItem() {
        return mEditor.eb->GetGroup("flags")->Add("flags", "All flags");
    }
    Ref<GroupItem> OtherItem() { return mEditor.eb->GetGroup("other")->Item("other"); }
    std::string Selected() {
        const auto item = mEditor.eb->GetSelectedItem();
        return item ? item->GetKey() : "nothing";
    }
    std::string Shown() {
        return std::string(mEditor.prpTags->GetVisible() ? "tags " : "") +
               (mEditor.prpFlags->GetVisible() ? "flags" : "");
    }
    std::string Focused() {
        if (mEditor.prpTags->HasFocus()) return "tags";
        return mEditor.prpFlags->HasFocus() ? "flags" : "elsewhere";
    }
};

TEST_F(CommentEditorSurfacesTest, TheSelectedItemDecidesWhichListIsShownAndFocused) {
    Load();
    const auto flags = AddFlagsItem();
    EXPECT_EQ(Shown(), "tags ");
    mEditor.eb->UserClick(flags);
    EXPECT_EQ(Shown(), "flags");
    EXPECT_EQ(Focused(), "flags");
    mEditor.eb->UserClick(OtherItem());
    EXPECT_EQ(Shown(), "tags ");
    EXPECT_EQ(Focused(), "tags");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorSurfacesTest, TheBoxesOfFlagsAreNoSurface) {
    Load();
    mEditor.eb->UserClick(mEditor.eb->GetGroup("flags")->Item("checkboxcontainer"));
    EXPECT_EQ(Selected(), "other");
    EXPECT_EQ(Shown(), "tags ");
}

TEST_F(CommentEditorSurfacesTest, FocusFollowsTheSelectedItemOnly) {
    Load();
    const auto flags = AddFlagsItem();
    mEditor.eb->UserClick(flags);
    mEditor.prpFlags->UserFocus(false);
    mEditor.SetEditFocus();
    EXPECT_EQ(Focused(), "flags");
    mEditor.prpFlags->UserFocus(false);
    mEditor.eb->SetSelectedItem(nullptr);
    mEditor.SetEditFocus();
    EXPECT_EQ(Focused(), "elsewhere");
}

TEST_F(CommentEditorSurfacesTest, ARefreshTakesNoFocusAndAllowsItAfterwards) {
    Load();
    ASSERT_EQ(Focused(), "elsewhere");
    std::string heard;
    const auto tie = mEditor.prpTags->Events.SelChange.Connect([&](const auto& row) {
        if (!row) return;
        mEditor.SetEditFocus();
        heard += Focused() + " ";
    });
    mEditor.Refresh(false);
    EXPECT_EQ(heard, "elsewhere ");
    EXPECT_EQ(Focused(), "elsewhere");
    mEditor.SetEditFocus();
    EXPECT_EQ(Focused(), "tags");
}

TEST_F(CommentEditorSurfacesTest, AFailingRefreshAllowsFocusAgain) {
    Load();
    mItem->Without("TaggedComments");
    mEditor.Refresh(false);
    EXPECT_NE(mServices.TakeReports(), "");
    mEditor.SetEditFocus();
    EXPECT_EQ(Focused(), "tags");
    EXPECT_FALSE(mEditor.prpTags->GetUpdatesSuspended());
}

TEST_F(CommentEditorSurfacesTest, AListReleasesTheWrapper) {
    EventLog calls;
    const auto wrapper = MakeRef<TestWrapper>(calls);
    mEditor.BindToWrapper(wrapper);
    EXPECT_TRUE(mEditor.GetCommandWrapper() == wrapper);
    EXPECT_EQ(calls.Take(), "");
    Load();
    EXPECT_EQ(calls.Take(), "BindTo(True,nothing)");
    mEditor.eb->UserClick(AddFlagsItem());
    EXPECT_EQ(calls.Take(), "BindTo(True,nothing)");
    mEditor.BindToWrapper({});
    EXPECT_FALSE(mEditor.GetCommandWrapper());
    mEditor.eb->UserClick(OtherItem());
    EXPECT_EQ(calls.Take(), "");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorSurfacesTest, AChosenTabIsCarriedOverToTheNextElement) {
    Load();
    mEditor.eb->UserClick(AddFlagsItem());
    Load("P~B");
    EXPECT_EQ(Selected(), "flags");
    EXPECT_EQ(Shown(), "flags");
}

TEST_F(CommentEditorSurfacesTest, ATabThatTheCodeChoseIsNotCarriedOver) {
    Load();
    EXPECT_EQ(OtherItem()->GetTag(), "x");
    const auto flags = AddFlagsItem();
    mEditor.eb->UserClick(flags);
    flags->SetTag("x");
    Load("P~B");
    EXPECT_EQ(Selected(), "other");
}

TEST_F(CommentEditorSurfacesTest, TheOptionKeepsTheLastTabHoweverItWasChosen) {
    GlobalConfig().KeepLastCommentTab = true;
    Load();
    const auto flags = AddFlagsItem();
    mEditor.eb->UserClick(flags);
    flags->SetTag("x");
    Load("P~B");
    EXPECT_EQ(Selected(), "flags");
}

TEST_F(CommentEditorSurfacesTest, AHiddenOrDisabledTabIsNotCarriedOver) {
    Load();
    const auto flags = AddFlagsItem();
    for (const bool hidden : {true, false}) {
        flags->SetVisible(true);
        flags->SetEnabled(true);
        mEditor.eb->UserClick(flags);
        flags->SetTag({});
        ASSERT_EQ(Selected(), "flags");
        if (hidden)
            flags->SetVisible(false);
        else
            flags->SetEnabled(false);
        mEditor.Refresh(false);
        EXPECT_EQ(Selected(), "other");
    }
}

TEST_F(CommentEditorSurfacesTest, TheComboFormHasNoExplorerBar) {
    EXPECT_FALSE(mEditor.GetShowCombo());
    mEditor.SetShowCombo(true);
    EXPECT_TRUE(mEditor.GetShowCombo());
    Load();
    EXPECT_FALSE(mEditor.eb->GetVisible());
    EXPECT_EQ(Shown(), "tags ");
    mEditor.SetShowCombo(false);
    EXPECT_TRUE(mEditor.eb->GetVisible());
    EXPECT_TRUE(mEditor.splitMain->GetFirstPane() == mEditor.eb);
    EXPECT_TRUE(mEditor.splitMain->GetSecondPane() == mEditor.tagsContainer);
    mEditor.Refresh(false);
    EXPECT_TRUE(mEditor.eb->GetVisible());
}

TEST_F(CommentEditorSurfacesTest, AFailingHandlerOfTheBarLeavesItUsable) {
    Load();
    // The choice of an item whose key differs in letter case only goes to the first of them.
    const auto flags = AddFlagsItem();
    const auto twin = mEditor.eb->GetGroup("other")->Add("FLAGS", "All flags again");
    {
        const auto tie =
            mEditor.eb->Events.SelChange.Connect([&](const auto&, const auto& item, const auto&) {
                if (item == flags) RaiseError(ErrorNumber::InvalidCall);
            });
        mEditor.eb->UserClick(twin);
        EXPECT_EQ(mServices.TakeReports(), "CommentEditor.SelectCommentType (5)\n");
    }
    mEditor.eb->UserClick(OtherItem());
    EXPECT_EQ(Focused(), "tags");
    mEditor.prpTags->UserClick(Offer("#note"));
    mEditor.prpTags->UserClickButton("AddButton");
    mEditor.prpTags->UserType("typed");
    mEditor.CommitEdit();
    EXPECT_EQ(mItem->Comments()->Item(1)->GetText(), "typed");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorSurfacesTest, IconsOfCommentTypesStandUnderTheirLowerCaseNames) {
    mServices.Files->Files["/icons/commenttypes"] = {"Note", "REMARKS_Ticked"};
    mEditor.Initialize();
    const auto& images = *mEditor.eb->GetImageList();
    ASSERT_NE(images.Find("note"), nullptr);
    ASSERT_NE(images.Find("remarks_ticked"), nullptr);
    EXPECT_EQ(images.Find("note")->Path, "/program/icons/commenttypes/Note.ico");
    EXPECT_EQ(mServices.Files->Asked, std::vector<std::string>{"/program/icons/commenttypes|.ico"});
    mEditor.Initialize();
    EXPECT_EQ(mServices.Files->Asked.size(), 1u);
}

TEST_F(CommentEditorSurfacesTest, TheTitleIconReplacesTheSecondImage) {
    const Picture before = mEditor.eb->GetImageList()->Item(1);
    const Picture icon{"code-class", {}, "class"};
    mEditor.SetTitleIcon(icon);
    EXPECT_EQ(mEditor.eb->GetImageList()->Item(2), icon);
    EXPECT_EQ(*mEditor.eb->GetImageList()->Find("headerimage"), icon);
    EXPECT_EQ(mEditor.eb->GetGroup("main")->GetIcon(), "headerimage");
    EXPECT_EQ(mEditor.eb->GetImageList()->Item(1), before);
}

TEST_F(CommentEditorSurfacesTest, AnUnknownLayoutIsReportedAndChangesNothing) {
    Load();
    mEditor.SelectInPlaceEditLayout("none");
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.SelectInPlaceEditLayout (5)\n");
    EXPECT_EQ(Selected(), "other");
    EXPECT_EQ(Shown(), "tags ");
}

TEST_F(CommentEditorSurfacesTest, TheHelpHostHearsOfEveryChangeOfSurface) {
    struct Host : DynamicHelpHost {
        void ContextChanged() override { ++Changes; }
        void ShowTopic(const std::string&) override {}
        int Changes = 0;
    };
    const auto host = MakeRef<Host>();
    mEditor.IDynamicHelpContext_Initialise(host);
    Load();
    EXPECT_EQ(host->Changes, 1);
    mEditor.eb->UserClick(AddFlagsItem());
    EXPECT_EQ(host->Changes, 2);
}

TEST_F(CommentEditorSurfacesTest, HelpOnThePageNamesThePageOnly) {
    DynamicHelpQuery none;
    mEditor.IDynamicHelpContext_QueryContext(none);
    EXPECT_TRUE(none.KeywordCollection.empty() && none.Attributes.empty());
    Load();
    mEditor.eb->SetSelectedItem(
        mEditor.eb->GetGroup("main")->Add("inplaceedit:a", "Full Page Edit"));
    DynamicHelpQuery query;
    mEditor.IDynamicHelpContext_QueryContext(query);
    EXPECT_EQ(query.KeywordCollection, std::vector<std::string>{"Kite.CommentEditor.FullPageEdit"});
    ASSERT_EQ(query.Attributes.size(), 1u);
    EXPECT_EQ(query.Attributes[0].first, "Kite.CommentEditor.Namespace");
    EXPECT_EQ(query.Attributes[0].second, "Test:Class");
    mEditor.eb->SetSelectedItem(nullptr);
    DynamicHelpQuery unselected;
    mEditor.IDynamicHelpContext_QueryContext(unselected);
    EXPECT_TRUE(unselected.KeywordCollection.empty());
    EXPECT_EQ(unselected.Attributes.size(), 1u);
}

TEST_F(CommentEditorSurfacesTest, WhatAHostOnlyStoresComesBack) {
    EXPECT_FALSE(mEditor.GetListImplicitTaggedCommentType());
    Load();
    const std::string before = Rows();
    mEditor.SetModules({"ModA", "ModB"});
    mEditor.SetProjectName("Library");
    mEditor.SetBaseURL("file:///base/");
    mEditor.SetListImplicitTaggedCommentType(true);
    mEditor.SetAutoSetFocus(false);
    mEditor.Refresh(false);
    EXPECT_EQ(Rows(), before);
    EXPECT_EQ(mEditor.GetModules(), (std::vector<std::string>{"ModA", "ModB"}));
    EXPECT_EQ(mEditor.GetProjectName(), "Library");
    EXPECT_EQ(mEditor.GetBaseURL(), "file:///base/");
    EXPECT_TRUE(mEditor.GetListImplicitTaggedCommentType());
    EXPECT_FALSE(mEditor.GetAutoSetFocus());
}

TEST_F(CommentEditorSurfacesTest, SpellOptionsAreTakenAsTheyAre) {
    SpellOptions options;
    options.Suggest = false;
    options.IgnoreInMixedCase = true;
    options.MainDictionaryFile = "main.dct";
    options.CustomDictionaryFile = "own.dct";
    options.IgnoreWordList = "foo,bar";
    mEditor.SetSpellOptions(options);
    const SpellOptions& kept = mEditor.GetSpellOptions();
    EXPECT_FALSE(kept.Suggest);
    EXPECT_TRUE(kept.IgnoreInUpperCase);
    EXPECT_TRUE(kept.IgnoreInMixedCase);
    EXPECT_EQ(kept.MainDictionaryFile + kept.CustomDictionaryFile + kept.IgnoreWordList,
              "main.dctown.dctfoo,bar");
}

TEST_F(CommentEditorSurfacesTest, ACheckOfAnElementWithoutCommentsEndsAtOnceAndSilently) {
    Load();
    EXPECT_TRUE(mEditor.SpellCheck(true));
    EXPECT_TRUE(mServices.Messages->Shown.empty());
    mItem->Comment("#note", "text");
    EXPECT_TRUE(mEditor.SpellCheck(false));
    EXPECT_TRUE(mServices.Messages->Shown.empty());
    EXPECT_TRUE(mEditor.SpellCheck(true));
    EXPECT_EQ(
        mServices.Messages->Shown,
        std::vector<std::string>{"Spelling [information] The spell check completed successfully"});
}

} // namespace
} // namespace paperkite::test
