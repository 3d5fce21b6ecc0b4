#include "itemtree/ProjectViewFixture.h"

namespace paperkite::test {
namespace {

using ProjectViewFaultsTest = ProjectViewFixture;

TEST_F(ProjectViewFaultsTest, AFailingProviderIsReportedOnceAndTheNextOperationWorks) {
    Load();
    mModel.Provider->OnCall = [](const std::string& call) {
        if (call.starts_with("GetItems")) throw Error(53, "The source file is gone");
    };
    Open("P");
    EXPECT_EQ(mServices.TakeReports(), "ProjectView.AddChildNamespaceItems (53)\n");
    mModel.Provider->OnCall = {};
    Load();
    Open("P");
    EXPECT_TRUE(Has("P~C"));
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectViewFaultsTest, AFailureInsideANodeKeepsTheRedrawOff) {
    Load();
    mModel.Item("P~B")->Without("Name");
    Open("P");
    EXPECT_EQ(mServices.TakeReports(), "ProjectView.AddNamespaceItem (438)\n");
    EXPECT_FALSE(Has("P~B"));
    EXPECT_TRUE(Has("P~C"));
    EXPECT_FALSE(mView.tvwProject->GetRedraw());
}

TEST_F(ProjectViewFaultsTest, AProjectThatIsGoneIsReportedOnce) {
    mView.SetKiteProject({});
    mView.LoadFromNamespaceRootItem(mModel.Defs, mModel.Provider->Root, true);
    EXPECT_EQ(mServices.TakeReports(), "ProjectView.LoadFromNamespaceRootItem (91)\n");
    EXPECT_EQ(mView.GetNodes().Count(), 0u);
}

TEST_F(ProjectViewFaultsTest, AFailingHandlerOfClearedNodesDoesNotKeepTheRootItems) {
    Load();
    {
        const auto tie =
            mView.Events.NodesCleared.Connect([] { RaiseError(ErrorNumber::PermissionDenied); });
        mView.Clear();
        EXPECT_EQ(mServices.TakeReports(), "ProjectView.ClearNodes (70)\n");
    }
    const auto other = mModel.Add("", "Q", "Test:Project", "Library");
    mView.LoadFromNamespaceRootItem(mModel.Defs, other);
    int rebuilt = 0;
    const auto tie = mView.Events.NodesCleared.Connect([&] { ++rebuilt; });
    mView.Refresh();
    // Once before the roots are loaded, and once for the one root.
    EXPECT_EQ(rebuilt, 2);
    EXPECT_EQ(Shape(), "Q\n  Q_dummy\n");
}

TEST_F(ProjectViewFaultsTest, AnItemWithoutAQualifiedNameIsPassedOverQuietly) {
    Load();
    mModel.Item("P~B")->Without("QualifiedName");
    Open("P");
    EXPECT_EQ(mServices.TakeReports(), "");
    EXPECT_FALSE(Has("P~B"));
    EXPECT_TRUE(Has("P~C"));
    EXPECT_TRUE(mView.tvwProject->GetRedraw());
}

TEST_F(ProjectViewFaultsTest, TenThousandChildrenLoadInOrder) {
    for (int index = 0; index < 10000; ++index)
        mModel.Add("P~C", "m" + std::to_string(index), "Test:Method", "BlockElement");
    Load();
    Open("P");
    Open("P~C");
    EXPECT_EQ(Node("P~C")->GetChildren().Count(), 10000u);
    EXPECT_EQ(Node("P~C")->GetChild()->GetKey(), "P~C~m0");
    EXPECT_EQ(Node("P~C")->GetLastChild()->GetKey(), "P~C~m9999");
}

TEST_F(ProjectViewFaultsTest, AHandlerOfExpandingMayClearTheTree) {
    Load();
    const auto tie =
        mView.tvwProject->Events.Expanding.Connect([&](const Ref<TreeNode>&) { mView.Clear(); });
    const auto node = Node("P");
    node->SetExpanded(true);
    EXPECT_EQ(mView.GetNodes().Count(), 0u);
    EXPECT_FALSE(node->IsAttached());
}

TEST_F(ProjectViewFaultsTest, AProviderThatClearsTheTreeUnderTheLoadIsSurvived) {
    Load();
    mModel.Provider->OnCall = [&](const std::string& call) {
        if (call.starts_with("GetItems")) mView.Clear();
    };
    Open("P");
    mServices.TakeReports();
    mModel.Provider->OnCall = {};
    Load();
    EXPECT_EQ(Shape(), "P\n  P_dummy\n");
}

TEST_F(ProjectViewFaultsTest, TerminateLetsGoOfEverythingAndMayRunTwice) {
    Load();
    mView.Terminate();
    EXPECT_FALSE(mView.GetNamespaceDefs());
    EXPECT_FALSE(mView.GetExclusions());
    mView.Terminate();
    EXPECT_EQ(mServices.TakeReports(), "");
}

} // namespace
} // namespace paperkite::test
