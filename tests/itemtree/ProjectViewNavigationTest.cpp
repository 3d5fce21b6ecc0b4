#include "itemtree/ProjectViewFixture.h"

namespace paperkite::test {
namespace {

class ProjectViewNavigationTest : public ProjectViewFixture {
protected:
    void LoadClasses() {
        Load();
        Open("P");
    }
    std::string Enabled() {
        return std::string(Command("Next")->GetEnabled() ? "next" : "-") + " " +
               (Command("Previous")->GetEnabled() ? "previous" : "-");
    }
};

TEST_F(ProjectViewNavigationTest, ALoadedItemIsSelectedByItsName) {
    LoadClasses();
    EXPECT_TRUE(mView.SelectItem("P~B"));
    EXPECT_EQ(Selected(), "P~B");
}

TEST_F(ProjectViewNavigationTest, TheAncestorsOfAnItemAreOpenedOnTheWay) {
    Load();
    EXPECT_TRUE(mView.SelectItem("P~A~Stop"));
    EXPECT_EQ(Selected(), "P~A~Stop");
    EXPECT_TRUE(Node("P~A")->GetExpanded());
}

TEST_F(ProjectViewNavigationTest, ANameWithAColonSelectsTheNodeOfItsPath) {
    Load();
    EXPECT_TRUE(mView.SelectItem("P~A:Get:Size"));
    EXPECT_EQ(Selected(), "P~A");
}

TEST_F(ProjectViewNavigationTest, AnEmptyNameIsNotFound) {
    LoadClasses();
    EXPECT_FALSE(mView.SelectItem(""));
    EXPECT_FALSE(mView.SelectItem(":x"));
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectViewNavigationTest, AMissingStepLeavesTheEarlierOnesOpenAndTheSelectionAlone) {
    Load();
    mView.SelectItem("P");
    EXPECT_FALSE(mView.SelectItem("P~A~None~More"));
    EXPECT_TRUE(Node("P~A")->GetExpanded());
    EXPECT_EQ(Selected(), "P");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectViewNavigationTest, NextAndPreviousStayAmongTheSiblings) {
    LoadClasses();
    Open("P~A");
    mView.SelectItem("P~A");
    mView.NextItem(false);
    EXPECT_EQ(Selected(), "P~B");
    mView.NextItem(false);
    mView.NextItem(false);
    EXPECT_EQ(Selected(), "P~C");
    mView.PreviousItem(false);
    mView.PreviousItem(false);
    mView.PreviousItem(false);
    EXPECT_EQ(Selected(), "P~A");
}

TEST_F(ProjectViewNavigationTest, UncommentedMovesSkipBoldNodes) {
    LoadClasses();
    mView.SelectItem("P~A");
    Node("P~B")->SetBold(true);
    mView.NextItem(true);
    EXPECT_EQ(Selected(), "P~C");
    mView.PreviousItem(true);
    EXPECT_EQ(Selected(), "P~A");
    Node("P~C")->SetBold(true);
    mView.NextItem(true);
    EXPECT_EQ(Selected(), "P~A");
}

TEST_F(ProjectViewNavigationTest, MovesSkipGroupsAndNeedASelection) {
    mView.SetGrouped(true);
    mModel.Def("Test:Method")->GroupInEditing = true;
    mModel.Add("P~A", "Width", "Test:Field", "MemberElement");
    LoadClasses();
    Open("P~A");
    mView.NextItem(false);
    EXPECT_EQ(Selected(), "nothing");
    mView.SelectItem("P~A~Size");
    mView.PreviousItem(false);
    EXPECT_EQ(Selected(), "P~A~Size");
    Open("P~A_Test:Method");
    mView.PreviousItem(false);
    EXPECT_EQ(Selected(), "P~A~Size");
}

TEST_F(ProjectViewNavigationTest, MovingRaisesTheClick) {
    LoadClasses();
    mView.SelectItem("P~A");
    std::string clicks;
    const auto tie = mView.Events.NodeClick.Connect(
        [&](const Ref<TreeNode>& node) { clicks += node->GetKey(); });
    mView.NextItem(false);
    EXPECT_EQ(clicks, "P~B");
}

TEST_F(ProjectViewNavigationTest, TheDepthFirstWalkLoadsWhatItPasses) {
    Load();
    std::string keys;
    for (auto node = Node("P"); node; node = mView.NextNode(node))
        keys += node->GetKey() + " ";
    EXPECT_EQ(keys, "P P~A P~A~Run P~A~Stop P~A~Size P~B P~B~Go P~C ");
    EXPECT_FALSE(mView.NextNode({}));
    EXPECT_FALSE(Node("P~A")->GetExpanded());
    EXPECT_EQ(mView.NextNode(Node("P~A"), true)->GetKey(), "P~B");
}

TEST_F(ProjectViewNavigationTest, TheWalkBackGoesToTheDeepestNodeOfTheSiblingBefore) {
    Load();
    mView.SelectItem("P~B~Go");
    mView.SelectItem("P~A~Run");
    EXPECT_EQ(mView.PreviousNode(Node("P~B"))->GetKey(), "P~A~Size");
    EXPECT_EQ(mView.PreviousNode(Node("P~A~Run"))->GetKey(), "P~A");
    EXPECT_EQ(mView.PreviousNode(Node("P~A~Stop"))->GetKey(), "P~A~Run");
    EXPECT_FALSE(mView.PreviousNode(Node("P")));
    EXPECT_FALSE(mView.PreviousNode({}));
}

TEST_F(ProjectViewNavigationTest, TheTreePathSurvivesARebuild) {
    Load();
    mView.SelectItem("P~A~Run");
    const std::string path = mView.GetTreePath();
    Load();
    mView.SetTreePath(path);
    EXPECT_EQ(Selected(), "P~A~Run");
    EXPECT_TRUE(Node("P~A")->GetExpanded());
    EXPECT_FALSE(Node("P~B")->GetExpanded());
}

TEST_F(ProjectViewNavigationTest, HighlightingOnlyAddsBoldnessByLivingComments) {
    LoadClasses();
    mModel.Item("P~A")->Comment("#remarks");
    mModel.Item("P~B")->Comment("#remarks", "", "t", kTaggedCommentTombstone);
    Node("P~C")->SetBold(true);
    mView.HighlightCommentedNodes();
    EXPECT_TRUE(Node("P~A")->GetBold());
    EXPECT_FALSE(Node("P~B")->GetBold());
    EXPECT_TRUE(Node("P~C")->GetBold());
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectViewNavigationTest, HighlightingAsksForNoPlaceholdersGroupsOrBoldNodes) {
    mView.SetGrouped(true);
    mModel.Def("Test:Class")->GroupInEditing = true;
    LoadClasses();
    Node("P~C")->SetBold(true);
    mModel.Log.Take();
    mView.HighlightCommentedNodes();
    std::string asked;
    for (const auto& call : Split(mModel.Log.Take(), " "))
        if (call.starts_with("GetItem(")) asked += call;
    EXPECT_EQ(asked, "GetItem(P)GetItem(P~A)GetItem(P~B)");
    mView.SetHighlightCommentedItems(false);
    mView.HighlightCommentedNodes();
    EXPECT_EQ(mModel.Log.Take(), "");
}

TEST_F(ProjectViewNavigationTest, TheFirstDefinitionsProviderIsAskedForAnItem) {
    EXPECT_FALSE(mView.GetObjectFromQualifiedName("P"));
    EXPECT_EQ(mServices.Messages->Shown.size(), 1u);
    mServices.TakeReports();
    Load();
    EXPECT_TRUE(mView.GetObjectFromQualifiedName("P~A") == mModel.Item("P~A"));
    EXPECT_EQ(mModel.Log.Take(), "NamespaceProvider(test) GetItem(P~A)");
    EXPECT_FALSE(mView.GetObjectFromQualifiedName("none"));
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectViewNavigationTest, AClickEnablesTheMovesByTheFirstAndLastNode) {
    mModel.Def("Test:Class")->SetChildDefs(MakeRef<NamespaceDefs>());
    LoadClasses();
    mView.SelectItem("P");
    EXPECT_EQ(Enabled(), "next -");
    mView.SelectItem("P~A");
    EXPECT_EQ(Enabled(), "next previous");
    mView.SelectItem("P~C");
    EXPECT_EQ(Enabled(), "- previous");
}

TEST_F(ProjectViewNavigationTest, WithOneNodeBothMovesAreDisabled) {
    mModel.Def("Test:Project")->SetChildDefs(MakeRef<NamespaceDefs>());
    Load();
    mView.SelectItem("P");
    EXPECT_EQ(Enabled(), "- -");
}

TEST_F(ProjectViewNavigationTest, AutoExpandOpensTheClickedNodeBeforeTheHostHears) {
    mView.SetAutoExpandChildren(true);
    Load();
    std::string heard;
    const auto tie = mView.Events.NodeClick.Connect([&](const Ref<TreeNode>& node) {
        heard += node->GetKey() + (node->GetExpanded() ? "+" : "");
    });
    mView.tvwProject->UserClick(Node("P"));
    EXPECT_EQ(heard, "P+");
}

TEST_F(ProjectViewNavigationTest, AHandlerOfTheClickMayRefresh) {
    LoadClasses();
    bool done = false;
    const auto tie = mView.Events.NodeClick.Connect([&](const Ref<TreeNode>&) {
        if (!std::exchange(done, true)) mView.Refresh();
    });
    mView.tvwProject->UserClick(Node("P~B"));
    EXPECT_EQ(Selected(), "P~B");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectViewNavigationTest, AHandlerThatFailsIsReportedOnce) {
    LoadClasses();
    const auto tie = mView.Events.NodeClick.Connect(
        [&](const Ref<TreeNode>&) { RaiseError(ErrorNumber::PermissionDenied); });
    mView.tvwProject->UserClick(Node("P~B"));
    EXPECT_EQ(mServices.TakeReports(), "ProjectView.tvwProject_NodeClick (70)\n");
    EXPECT_EQ(Selected(), "P~B");
}

} // namespace
} // namespace paperkite::test
