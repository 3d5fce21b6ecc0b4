#include "authoring/ProjectEditorFixture.h"

namespace paperkite::test {
namespace {

class ProjectEditorTest : public ProjectEditorFixture {
protected:
    /// Begins to edit the one comment of an item, and leaves the edit open.
    Ref<TaggedComment> TypeIntoCommentOfA() {
        const auto comment = mModel.Item("P~A")->Comment("#note", "old", "n1", 1);
        mEditor.SelectItem("P~A");
        auto& list = *mEditor.cEditor.prpTags;
        list.SetSelectedItem(list.Item("n1"));
        list.BeginEdit();
        list.UserType("typed");
        return comment;
    }
};

TEST_F(ProjectEditorTest, AClickLoadsTheItemInConsolidatedForm) {
    EXPECT_TRUE(mEditor.SelectItem("P~A"));
    EXPECT_EQ(Current(), "P~A");
    EXPECT_TRUE(mModel.Item("P~A")->Comments()->GetConsolidated());
    EXPECT_EQ(mEditor.cEditor.GetTitleCaption(), "A");
    EXPECT_EQ(mEditor.cEditor.GetTitleIcon(), *mImages->Find("Class"));
    EXPECT_TRUE(mEditor.cEditor.CurrentRootItem == mModel.Item("P"));
    EXPECT_EQ(mWrapperLog.Take(), "lockrefresh BindTo(True,nothing) unlockrefreshabsolute");
    mEditor.SelectItem("P~B");
    EXPECT_FALSE(mModel.Item("P~A")->Comments()->GetConsolidated());
    EXPECT_TRUE(mModel.Item("P~B")->Comments()->GetConsolidated());
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectEditorTest, TheHostHearsOfTheDefinitionBeforeTheItemIsLoaded) {
    std::string heard;
    const auto tie =
        mEditor.Events.NodeClickNameSpaceDef.Connect([&](const auto& node, const auto& nd) {
            heard += node->GetKey() + "/" + nd->Name + "/" + Current();
        });
    mEditor.SelectItem("P~B");
    EXPECT_EQ(heard, "P~B/Test:Class/P~A~Run");
}

TEST_F(ProjectEditorTest, TheToolbarStyleReachesBothHalves) {
    mEditor.SetToolbarStyle(static_cast<int>(ToolbarStyle::TextBesideIcons));
    EXPECT_EQ(mEditor.Project.Dock->GetToolbarStyle(), ToolbarStyle::TextBesideIcons);
    EXPECT_EQ(mEditor.cEditor.DockCommentTypes->GetToolbarStyle(), ToolbarStyle::TextBesideIcons);
    EXPECT_EQ(mEditor.cEditor.InPlaceEditor->GetEditControl()->GetContextToolbarStyle(), 3);
}

TEST_F(ProjectEditorTest, AGroupEmptiesTheEditorAndLeavesPasteAsItWas) {
    mEditor.Project.SetGrouped(true);
    mModel.Def("Test:Class")->GroupInEditing = true;
    mEditor.LoadFromNamespaceDefs(mModel.Defs, "moniker");
    Node("P")->SetExpanded(true);
    mEditor.SelectItem("P~A");
    for (const bool enabled : {true, false}) {
        mEditor.Project.SetCopyCommentsEnabled(enabled);
        mEditor.Project.SetPasteCommentsEnabled(enabled);
        mEditor.Project.tvwProject->UserClick(Node("P_Test:Class"));
        EXPECT_EQ(Current(), "nothing");
        EXPECT_EQ(mEditor.Project.GetCopyCommentsEnabled(), enabled);
        EXPECT_EQ(mEditor.Project.GetPasteCommentsEnabled(), enabled);
    }
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectEditorTest, AnItemThatIsGoneEmptiesTheEditor) {
    mModel.Provider->Items.erase("P~B");
    mEditor.SelectItem("P~B");
    EXPECT_EQ(Current(), "nothing");
    EXPECT_FALSE(mEditor.Project.GetPasteCommentsEnabled());
    EXPECT_TRUE(mEditor.Project.GetCopyCommentsEnabled());
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectEditorTest, AnItemThatNobodyServesEmptiesTheEditorUnannounced) {
    mEditor.SelectItem("P~A");
    mModel.Project->Providers.clear();
    std::string heard;
    const auto tie = mEditor.Events.NodeClickNameSpaceDef.Connect(
        [&](const auto& node, const auto&) { heard += node->GetKey(); });
    mEditor.Project.tvwProject->UserClick(Node("P~B"));
    EXPECT_EQ(heard, "");
    EXPECT_EQ(Current(), "nothing");
    EXPECT_EQ(mEditor.cEditor.prpTags->Count(), 0u);
    EXPECT_TRUE(mEditor.Project.GetCopyCommentsEnabled());
    EXPECT_FALSE(mEditor.Project.GetPasteCommentsEnabled());
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectEditorTest, WhatWasLockedForALoadIsUnlockedWhateverWrapperTheEditorHas) {
    EventLog others;
    mEditor.cEditor.BindToWrapper(MakeRef<TestWrapper>(others));
    mEditor.SelectItem("P~A");
    EXPECT_EQ(mWrapperLog.Take(), "lockrefresh unlockrefreshabsolute");
    EXPECT_EQ(others.Take(), "BindTo(True,nothing)");
}

TEST_F(ProjectEditorTest, TheOldItemIsSavedBeforeAnythingChanges) {
    const auto comment = TypeIntoCommentOfA();
    std::string heard;
    const auto tie = mEditor.Events.NodeClickNameSpaceDef.Connect([&](const auto&, const auto&) {
        heard = comment->GetText() +
                (mModel.Item("P~A")->Comments()->GetConsolidated() ? " consolidated" : "");
    });
    mEditor.SelectItem("P~B");
    EXPECT_EQ(heard, "typed");
}

TEST_F(ProjectEditorTest, RefreshingCommitsThenEmptiesTheListAndLoadsTheTreeAgain) {
    const auto comment = TypeIntoCommentOfA();
    const auto tie = mEditor.cEditor.Events.TaggedCommentChanged.Connect(
        [&](const auto&, const auto&, const auto&) { mModel.Log.Add("committed"); });
    mModel.Log.Take();
    mEditor.Refresh();
    EXPECT_EQ(comment->GetText(), "typed");
    const std::string log = mModel.Log.Take();
    EXPECT_LT(log.find("committed"), log.find("GetItems(Test:Class")) << log;
    EXPECT_NE(log.find("GetItems(Test:Class"), std::string::npos) << log;
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectEditorTest, WithoutAWrapperTheFirstClickIsReported) {
    mEditor.BindToWrapper({});
    mEditor.SelectItem("P~B");
    EXPECT_EQ(mServices.Messages->Shown.size(), 1u);
}

TEST_F(ProjectEditorTest, CommentsArePastedOntoAnotherItemOfTheSameTypeOnly) {
    mModel.Item("P~A")->Comment("#note", "copied");
    mEditor.SelectItem("P~A");
    mEditor.Project.Dock->UserClick("Copy");
    mEditor.SelectItem("P~A~Run");
    EXPECT_FALSE(mEditor.Project.GetPasteCommentsEnabled());
    mEditor.SelectItem("P~A");
    EXPECT_FALSE(mEditor.Project.GetPasteCommentsEnabled());
    mEditor.SelectItem("P~B");
    EXPECT_TRUE(mEditor.Project.GetPasteCommentsEnabled());
    mEditor.Project.Dock->UserClick("Paste");
    EXPECT_EQ(mModel.Item("P~B")->Comments()->Count(), 1u);
    EXPECT_TRUE(Node("P~B")->GetBold());
    EXPECT_EQ(mEditor.cEditor.prpTags->Item(2)->GetValue(), "copied");
}

TEST_F(ProjectEditorTest, TheNodeIsBoldWhileTheItemHasLivingComments) {
    mEditor.SetKeepTombstones(true);
    mEditor.SelectItem("P~B");
    const auto comment = MakeRef<TaggedComment>("n1");
    comment->SetTagIdentifier("#note");
    std::string heard;
    const auto added = mEditor.Events.TaggedCommentAdded.Connect(
        [&](const auto&, const auto&) { heard += Node("P~B")->GetBold() ? "bold " : "plain "; });
    const auto deleted = mEditor.Events.TaggedCommentDeleted.Connect(
        [&](const auto&, const auto&, const std::string& key) {
            heard += key + (Node("P~B")->GetBold() ? " bold" : " plain");
        });
    mEditor.cEditor.ICommentDesignerHost_TaggedCommentAdded(mModel.Item("P~B"), comment);
    comment->SetState(1);
    mEditor.cEditor.ICommentDesignerHost_TaggedCommentDeleted(mModel.Item("P~B"), comment);
    EXPECT_EQ(heard, "bold n1 plain");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectEditorTest, WithoutHighlightingNoNodeChanges) {
    mEditor.SelectItem("P~B");
    mEditor.Project.SetHighlightCommentedItems(false);
    const bool before = Node("P~B")->GetBold();
    const auto comment = MakeRef<TaggedComment>("n1");
    comment->SetTagIdentifier("#note");
    mEditor.cEditor.ICommentDesignerHost_TaggedCommentAdded(mModel.Item("P~B"), comment);
    EXPECT_EQ(Node("P~B")->GetBold(), before);
    Node("P~B")->SetBold(true);
    mEditor.cEditor.ICommentDesignerHost_TaggedCommentDeleted(mModel.Item("P~B"), comment);
    EXPECT_TRUE(Node("P~B")->GetBold());
}

TEST_F(ProjectEditorTest, AnItemThatTheTreeDoesNotShowIsNoFault) {
    const auto stranger = mModel.Add("", "Elsewhere", "Test:Class", "ModuleElement");
    std::string heard;
    const auto added = mEditor.Events.TaggedCommentAdded.Connect(
        [&](const auto& item, const auto&) { heard += "added " + item->TypeName(); });
    const auto deleted = mEditor.Events.TaggedCommentDeleted.Connect(
        [&](const auto&, const auto&, const std::string& key) { heard += " deleted " + key; });
    const auto comment = MakeRef<TaggedComment>("n1");
    comment->SetTagIdentifier("#note");
    mEditor.cEditor.ICommentDesignerHost_TaggedCommentAdded(stranger, comment);
    mEditor.cEditor.ICommentDesignerHost_TaggedCommentDeleted(stranger, comment);
    EXPECT_EQ(heard, "added ModuleElement deleted n1");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectEditorTest, WhatBelongsToOneHalfIsForwarded) {
    mEditor.SetDesignFlag("q");
    mEditor.SetModules({"One", "Two"});
    mEditor.SetProjectName("Library");
    mEditor.SetEditInFocus(true);
    mEditor.SetKeepTombstones(true);
    mEditor.SetShowCombo(true);
    mEditor.SetShowInherited(true);
    mEditor.SetShowAllPropertyBlocks(true);
    SpellOptions options;
    options.IgnoreWordList = "kite";
    mEditor.SetSpellOptions(options);
    const auto spell = MakeRef<TestWrapper>(mWrapperLog);
    mEditor.SetSpellObject(spell);
    const auto pages = MakeRef<PageTemplate>();
    mEditor.SetInPlaceTemplate(pages);
    EXPECT_EQ(mEditor.cEditor.GetDesignFlag(), "q");
    EXPECT_EQ(mEditor.cEditor.GetModules(), (std::vector<std::string>{"One", "Two"}));
    EXPECT_EQ(mEditor.cEditor.GetProjectName(), "Library");
    EXPECT_TRUE(mEditor.cEditor.GetEditInFocus());
    EXPECT_TRUE(mEditor.cEditor.GetKeepTombstones());
    EXPECT_TRUE(mEditor.cEditor.GetShowCombo());
    EXPECT_TRUE(mEditor.Project.GetShowInherited());
    EXPECT_TRUE(mEditor.Project.GetShowAllPropertyBlocks());
    EXPECT_EQ(mEditor.cEditor.GetSpellOptions().IgnoreWordList, "kite");
    EXPECT_TRUE(mEditor.cEditor.GetSpellObject() == spell);
    EXPECT_TRUE(mEditor.cEditor.GetInPlaceTemplate() == pages);
    EXPECT_TRUE(mEditor.cEditor.GetKiteProject() == mModel.Project);
    EXPECT_TRUE(mEditor.GetObjectFromQualifiedName("P~B") == mModel.Item("P~B"));
    EXPECT_EQ(&mEditor.GetProjectViewControl(), &mEditor.Project);
    EXPECT_EQ(&mEditor.GetCommentEditorControl(), &mEditor.cEditor);
}

TEST_F(ProjectEditorTest, MovesLockTheWrapper) {
    mEditor.SelectItem("P~A");
    mWrapperLog.Take();
    mEditor.NextItem(false);
    EXPECT_EQ(Current(), "P~B");
    EXPECT_EQ(mWrapperLog.Take(),
              "lockrefresh lockrefresh BindTo(True,nothing) unlockrefreshabsolute unlockrefresh");
    mEditor.PreviousItem(true);
    EXPECT_EQ(Current(), "P~A");
}

TEST_F(ProjectEditorTest, TheSplitterIsKeptUnderItsSetting) {
    mEditor.SetSplitPercent(33);
    EXPECT_EQ(mEditor.GetSplitPercent(), 33);
    EXPECT_EQ(mServices.Registry->Calls.back(),
              "write Software\\Brindlewick\\Test\\Layout|ViewSplitterPercentage|1|33");
    mEditor.splitMain->UserDrag(61);
    EXPECT_EQ(mServices.Registry->Calls.back(),
              "write Software\\Brindlewick\\Test\\Layout|ViewSplitterPercentage|1|61");
    mServices.Registry->Values.clear();
    mEditor.ReloadSettings();
    EXPECT_EQ(mEditor.GetSplitPercent(), 40);
}

TEST_F(ProjectEditorTest, TheSplitterIsReadWithTheAppNameAndWrittenAtTheEndInAHost) {
    mServices.Registry->Values[MemoryRegistry::Name(
        HKEY_CURRENT_USER, "Software\\Brindlewick\\Test", "ProjectEditorSplitSize")] = "27";
    const std::string written = "write Software\\Brindlewick\\Test|ProjectEditorSplitSize|1|27";
    const auto writes = [&] {
        const auto& calls = mServices.Registry->Calls;
        return std::count(calls.begin(), calls.end(), written);
    };
    for (const bool userMode : {false, true}) {
        {
            ProjectEditor editor;
            editor.SetUserMode(userMode);
            editor.SetAppName("Test");
            EXPECT_EQ(editor.GetSplitPercent(), 27);
        }
        EXPECT_EQ(writes(), userMode ? 1 : 0);
    }
}

TEST_F(ProjectEditorTest, ClearEmptiesBothHalves) {
    mEditor.Clear();
    EXPECT_EQ(mEditor.Project.GetNodes().Count(), 0u);
    EXPECT_EQ(Current(), "nothing");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectEditorTest, CheckingAllWithoutCommentsSelectsNothing) {
    const auto before = mEditor.Project.GetSelectedItem();
    bool cancel = false;
    mEditor.SpellCheck(true, cancel);
    EXPECT_TRUE(mEditor.Project.GetSelectedItem() == before);
    EXPECT_FALSE(cancel);
    EXPECT_TRUE(mEditor.Project.GetEnabled());
}

TEST_F(ProjectEditorTest, HelpNamesTheScreenAndTheProfile) {
    DynamicHelpQuery query;
    mEditor.IDynamicHelpContext_QueryContext(query);
    ASSERT_FALSE(query.KeywordCollection.empty());
    EXPECT_EQ(query.KeywordCollection[0], "Kite.CommentProjectEditor");
    EXPECT_EQ(query.Attributes[0].first, "Kite.CommentProjectEditor.NamespaceProfile");
    mEditor.Clear();
    DynamicHelpQuery empty;
    mEditor.IDynamicHelpContext_QueryContext(empty);
    EXPECT_TRUE(empty.KeywordCollection.empty());
}

TEST_F(ProjectEditorTest, ALoadTellsTheHelpHost) {
    struct Host : DynamicHelpHost {
        void ContextChanged() override { ++Changes; }
        void ShowTopic(const std::string&) override {}
        int Changes = 0;
    };
    const auto host = MakeRef<Host>();
    mEditor.IDynamicHelpContext_Initialise(host);
    mEditor.LoadFromNamespaceDefs(mModel.Defs, "moniker");
    const int loaded = host->Changes;
    EXPECT_GE(loaded, 1);
    // The editor has the same host.
    mEditor.SelectItem("P~B");
    EXPECT_GT(host->Changes, loaded);
    mEditor.Terminate();
    const int ended = host->Changes;
    mEditor.LoadFromNamespaceDefs(mModel.Defs, "moniker");
    EXPECT_EQ(host->Changes, ended);
}

TEST_F(ProjectEditorTest, TerminateRunsOnce) {
    mEditor.Terminate();
    mEditor.Terminate();
    EXPECT_FALSE(mEditor.cEditor.GetCommandWrapper());
    EXPECT_EQ(mServices.TakeReports(), "");
}

} // namespace
} // namespace paperkite::test
