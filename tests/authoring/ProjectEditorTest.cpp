#include "authoring/ProjectEditorFixture.h"

namespace paperkite::test {
namespace {

using ProjectEditorTest = ProjectEditorFixture;

TEST_F(ProjectEditorTest, AClickLoadsTheItemInConsolidatedForm) {
    EXPECT_TRUE(mEditor.SelectItem("P~A"));
    EXPECT_EQ(Current(), "P~A");
    EXPECT_TRUE(mModel.Item("P~A")->Comments()->GetConsolidated());
    EXPECT_EQ(mEditor.cEditor.GetTitleCaption(), "A");
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

TEST_F(ProjectEditorTest, AGroupEmptiesTheEditorAndLeavesPasteAsItWas) {
    mEditor.Project.SetGrouped(true);
    mModel.Def("Test:Class")->GroupInEditing = true;
    mEditor.LoadFromNamespaceDefs(mModel.Defs, "moniker");
    Node("P")->SetExpanded(true);
    mEditor.SelectItem("P~A");
    for (const bool enabled : {true, false}) {
        mEditor.Project.SetPasteCommentsEnabled(enabled);
        mEditor.Project.tvwProject->UserClick(Node("P_Test:Class"));
        EXPECT_EQ(Current(), "nothing");
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

TEST_F(ProjectEditorTest, TerminateRunsOnce) {
    mEditor.Terminate();
    mEditor.Terminate();
    EXPECT_EQ(mServices.TakeReports(), "");
}

} // namespace
} // namespace paperkite::test
