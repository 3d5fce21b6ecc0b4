#include "itemtree/ProjectViewFixture.h"

#include "widgets/Keys.h"

namespace paperkite::test {
namespace {

class ProjectViewCheckingTest : public ProjectViewFixture {
protected:
    ProjectViewCheckingTest() {
        mView.SetSupportsSelection(true);
        Load();
        Open("P");
        Open("P~A");
        mModel.Log.Take();
    }
    void Click(const std::string& key) { mView.tvwProject->UserCheck(Node(key)); }
    std::string Ticked() {
        std::string keys;
        for (const auto& node : mView.GetNodes())
            if (node->GetChecked()) keys += node->GetKey() + " ";
        return keys;
    }
    std::string Flags(const std::string& name) {
        const auto item = mModel.Item(name);
        return std::string(item->Flag("IncludeFlag") ? "i" : "-") +
               (item->Flag("ExcludeFlag") ? "e" : "-") + (item->Flag("RootFlag") ? "r" : "-");
    }
};

TEST_F(ProjectViewCheckingTest, UntickingALeafRecordsItAndTickingItAgainForgetsIt) {
    Click("P~A~Run");
    EXPECT_EQ(Exclusions(), "P~A~Run");
    EXPECT_EQ(Flags("P~A~Run"), "-e-");
    Click("P~A~Run");
    EXPECT_EQ(Exclusions(), "");
    EXPECT_EQ(Flags("P~A~Run"), "i--");
}

TEST_F(ProjectViewCheckingTest, UntickingAParentRecordsItAndLeavesWhatIsBelow) {
    Click("P~A");
    EXPECT_EQ(Exclusions(), "P~A");
    EXPECT_EQ(Flags("P~A"), "-e-");
    EXPECT_TRUE(Node("P~A~Stop")->GetChecked());
}

TEST_F(ProjectViewCheckingTest, TickingAParentTicksAllBelow) {
    Click("P~A~Run");
    Click("P~A");
    Click("P~A");
    EXPECT_EQ(Exclusions(), "");
    EXPECT_TRUE(Node("P~A~Run")->GetChecked());
    EXPECT_EQ(Flags("P~A~Run"), "i--");
}

TEST_F(ProjectViewCheckingTest, BelowAnUntickedParentAnEntryOfItsOwnIsSuperfluous) {
    Click("P~A~Run");
    Click("P~A");
    EXPECT_EQ(Exclusions(), "P~A~Run P~A");
    Click("P~A~Stop");
    EXPECT_EQ(Exclusions(), "P~A~Run P~A");
    EXPECT_EQ(Flags("P~A~Stop"), "-e-");
}

TEST_F(ProjectViewCheckingTest, UntickingTheRootRecordsTheRoot) {
    Click("P");
    EXPECT_EQ(Exclusions(), "P");
    EXPECT_EQ(Flags("P"), "-e-");
}

TEST_F(ProjectViewCheckingTest, TickingAChildOfAnUntickedItemBringsTheParentInWithThisChildOnly) {
    mView.GetExclusions()->Add("P~A", "P~A");
    Load();
    Open("P");
    Open("P~A");
    EXPECT_FALSE(Node("P~A~Run")->GetChecked());
    Click("P~A~Run");
    EXPECT_TRUE(Node("P~A")->GetChecked());
    EXPECT_EQ(Exclusions(), "P~A~Stop P~A~Size");
    EXPECT_EQ(Flags("P~A"), "i--");
    EXPECT_EQ(Flags("P~A~Run"), "i--");
    EXPECT_EQ(Flags("P~A~Stop"), "-e-");
    EXPECT_EQ(Flags("P~A~Size"), "-e-");
}

TEST_F(ProjectViewCheckingTest, UntickingAnItemThatCannotBeExcludedTicksItAgain) {
    mModel.Def("Test:Method")->Excludable = false;
    Click("P~A~Run");
    EXPECT_TRUE(Node("P~A~Run")->GetChecked());
    EXPECT_EQ(Exclusions(), "");
    EXPECT_EQ(Flags("P~A~Run"), "i--");
}

TEST_F(ProjectViewCheckingTest, TheHostHearsOfATickBeforeItIsProcessed) {
    std::string heard;
    const auto tie = mView.Events.NodeCheck.Connect(
        [&](const Ref<TreeNode>& node) { heard += node->GetKey() + ":" + Exclusions(); });
    Click("P~A~Run");
    EXPECT_EQ(heard, "P~A~Run:");
    EXPECT_EQ(Exclusions(), "P~A~Run");
}

TEST_F(ProjectViewCheckingTest, AGroupGivesItsTickToItsItems) {
    mView.SetGrouped(true);
    mModel.Def("Test:Method")->GroupInSelection = true;
    Load();
    Open("P");
    Open("P~A");
    Click("P~A_Test:Method");
    EXPECT_EQ(Exclusions(), "P~A~Run P~A~Stop");
    EXPECT_EQ(Flags("P~A~Stop"), "-e-");
    Click("P~A~Run");
    EXPECT_TRUE(Node("P~A_Test:Method")->GetChecked());
    EXPECT_EQ(Exclusions(), "P~A~Stop");
}

TEST_F(ProjectViewCheckingTest, CheckAllTicksEverythingAndForgetsTheExclusions) {
    for (const char* key : {"P~A~Run", "P~B", "P"})
        Click(key);
    mView.CheckAll();
    EXPECT_EQ(Exclusions(), "");
    EXPECT_TRUE(Node("P~B")->GetChecked());
    EXPECT_TRUE(Node("P~A~Run")->GetChecked());
}

TEST_F(ProjectViewCheckingTest, CheckAllTouchesOnlyThePlaceholderOfAnUnopenedNode) {
    mView.GetExclusions()->Add("P~B", "P~B");
    mView.GetExclusions()->Add("P~B~Go", "P~B~Go");
    mView.CheckAll();
    EXPECT_EQ(Exclusions(), "P~B~Go");
    EXPECT_TRUE(Has("P~B_dummy"));
    Open("P~B");
    EXPECT_FALSE(Node("P~B~Go")->GetChecked());
}

TEST_F(ProjectViewCheckingTest, UnCheckAllKeepsTheTopLevelTicked) {
    mView.UnCheckAll();
    EXPECT_EQ(Ticked(), "P ");
    for (const char* name : {"P~A", "P~B", "P~C"}) {
        EXPECT_TRUE(mView.GetExclusions()->Contains(name)) << name;
        EXPECT_EQ(Flags(name), "-e-");
    }
}

TEST_F(ProjectViewCheckingTest, CheckByAccessTicksOneAccessAndLeavesItemsWithoutAlone) {
    mModel.Item("P~A~Run")->With("Access", "Private");
    mModel.Item("P~A~Size")->Without("Access");
    mView.CheckByAccess("pUBLIC");
    EXPECT_EQ(Ticked(), "P P~A P~B P~B_dummy P~C P~C_dummy P~A~Stop P~A~Size ");
    EXPECT_EQ(Exclusions(), "P~A~Run");
}

TEST_F(ProjectViewCheckingTest, OnlyDefinitionsFlaggedRootMayBeRoots) {
    EXPECT_TRUE(mView.CanSetRoot(Node("P~A")));
    EXPECT_FALSE(mView.CanSetRoot(Node("P")));
    mModel.Def("Test:Class")->TreeFlags = "R";
    EXPECT_FALSE(mView.CanSetRoot(Node("P~A")));
    mView.SetGrouped(true);
    mModel.Def("Test:Class")->TreeFlags = "r";
    mModel.Def("Test:Class")->GroupInSelection = true;
    Load();
    Open("P");
    EXPECT_FALSE(mView.CanSetRoot(Node("P_Test:Class")));
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectViewCheckingTest, ARootIsTheOnlyOneAmongItsSiblings) {
    mView.SetRoot(Node("P~A"), true);
    mView.SetRoot(Node("P~B"), true);
    EXPECT_EQ(Flags("P~A"), "i--");
    EXPECT_EQ(Flags("P~B"), "i-r");
    EXPECT_FALSE(Node("P~A")->GetBold());
    EXPECT_TRUE(Node("P~B")->GetBold());
}

TEST_F(ProjectViewCheckingTest, TakingARootAwayLeavesItBold) {
    mView.SetRoot(Node("P~A"), true);
    mView.SetRoot(Node("P~B"), false);
    EXPECT_EQ(Flags("P~A"), "i--");
    EXPECT_EQ(Flags("P~B"), "i--");
    EXPECT_FALSE(Node("P~A")->GetBold());
    EXPECT_TRUE(Node("P~B")->GetBold());
}

TEST_F(ProjectViewCheckingTest, WhatMayNotBeARootIsLeftAlone) {
    mView.SetRoot(Node("P~A~Run"), true);
    EXPECT_EQ(Flags("P~A~Run"), "i--");
    EXPECT_FALSE(Node("P~A~Run")->GetBold());
}

TEST_F(ProjectViewCheckingTest, SetRootOfNothingClearsTheTopLevel) {
    mModel.Item("P")->With("RootFlag", true);
    mModel.Item("P~A")->With("RootFlag", true);
    mView.SetRoot({}, true);
    EXPECT_EQ(Flags("P"), "i--");
    EXPECT_EQ(Flags("P~A"), "i-r");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectViewCheckingTest, ControlNDoesNotReachTheHost) {
    std::string keys;
    const auto tie = mView.Events.KeyUp.Connect(
        [&](int& key, int shift) { keys += std::to_string(key) + "/" + std::to_string(shift); });
    EXPECT_EQ(mView.tvwProject->UserKeyUp(KeyN, ShiftControl), 0);
    EXPECT_EQ(mView.tvwProject->UserKeyUp(KeyN, ShiftControl | ShiftShift), 0);
    EXPECT_EQ(keys, "");
    EXPECT_EQ(mView.tvwProject->UserKeyUp(KeyN, ShiftNone), 78);
    EXPECT_EQ(mView.tvwProject->UserKeyUp(KeyP, ShiftControl), 80);
    EXPECT_EQ(keys, "78/080/2");
}

TEST_F(ProjectViewCheckingTest, ExclusionsSurviveClearAndRefresh) {
    Click("P~A~Run");
    mView.SelectItem("P~A~Run");
    mView.Refresh();
    EXPECT_FALSE(Node("P~A~Run")->GetChecked());
    mView.Clear();
    EXPECT_EQ(Exclusions(), "P~A~Run");
}

TEST_F(ProjectViewCheckingTest, AHostsOwnCollectionIsUsedByReference) {
    const auto own = MakeRef<TextCollection>();
    mView.SetExclusions(own);
    Click("P~B");
    EXPECT_EQ(TextsOf(*own), "P~B");
}

TEST_F(ProjectViewCheckingTest, TickingAClosedGroupTicksItsItemsAndLeavesTheirChildrenUnloaded) {
    mView.SetGrouped(true);
    mModel.Def("Test:Class")->GroupInSelection = true;
    Load();
    Open("P");
    const std::string group = "P_Test:Class";
    Node(group)->SetExpanded(false);
    mModel.Log.Take();
    Click(group);
    EXPECT_EQ(Exclusions(), "P~A P~B P~C");
    Click(group);
    EXPECT_EQ(Exclusions(), "");
    for (const char* name : {"P~A", "P~B", "P~C"}) {
        EXPECT_TRUE(Node(name)->GetChecked()) << name;
        EXPECT_EQ(Flags(name), "i--") << name;
    }
    EXPECT_TRUE(Has("P~A_dummy"));
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectViewCheckingTest, WithoutACollectionOfExclusionsEverythingIsTicked) {
    mView.SetExclusions(nullptr);
    Load();
    Open("P");
    EXPECT_EQ(mServices.TakeReports(), "");
    EXPECT_TRUE(Has("P~C"));
    EXPECT_TRUE(Node("P~A")->GetChecked());
    Click("P~A");
    EXPECT_EQ(Flags("P~A"), "-e-");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectViewCheckingTest, AnItemThatTheModelLostIsReportedOnce) {
    mModel.Provider->Items.erase("P~A~Run");
    Click("P~A~Run");
    EXPECT_EQ(mServices.TakeReports(), "ProjectView.NodeChecked (91)\n");
    Click("P~A~Stop");
    EXPECT_EQ(Exclusions(), "P~A~Stop");
}

TEST_F(ProjectViewCheckingTest, SiblingsWithoutFlagsAreExcludedQuietly) {
    mView.GetExclusions()->Add("P~A", "P~A");
    Load();
    Open("P");
    Open("P~A");
    mModel.Item("P~A~Stop")->Without("IncludeFlag");
    mModel.Item("P~A")->Without("ExcludeFlag");
    mModel.Provider->Items.erase("P~A~Size");
    Click("P~A~Run");
    EXPECT_EQ(mServices.TakeReports(), "");
    EXPECT_EQ(Exclusions(), "P~A~Stop P~A~Size");
    EXPECT_TRUE(mModel.Item("P~A~Stop")->Flag("ExcludeFlag"));
    EXPECT_TRUE(mModel.Item("P~A")->Flag("IncludeFlag"));
}

TEST_F(ProjectViewCheckingTest, ATickedItemWithoutFlagsIsReportedOnce) {
    mModel.Item("P~A~Run")->Without("IncludeFlag");
    Click("P~A~Run");
    EXPECT_EQ(mServices.TakeReports(), "ProjectView.NodeChecked (438)\n");
    EXPECT_FALSE(Node("P~A~Run")->GetChecked());
    EXPECT_EQ(Exclusions(), "");
}

TEST_F(ProjectViewCheckingTest, SiblingsWithoutARootFlagDoNotKeepOthersFromBeingMarked) {
    mModel.Item("P~A")->Without("RootFlag");
    mModel.Provider->Items.erase("P~C");
    Node("P~C")->SetBold(true);
    mView.SetRoot(Node("P~B"), true);
    EXPECT_EQ(mServices.TakeReports(), "");
    EXPECT_EQ(Flags("P~B"), "i-r");
    EXPECT_FALSE(Node("P~C")->GetBold());
}

TEST_F(ProjectViewCheckingTest, SetRootOfNothingClearsEveryTopLevelItem) {
    mView.LoadFromNamespaceRootItem(mModel.Defs, mModel.Add("", "Q", "Test:Project", "Library"));
    for (const char* name : {"P", "Q"}) {
        mModel.Item(name)->With("RootFlag", true);
        Node(name)->SetBold(true);
    }
    mView.SetRoot(nullptr, true);
    for (const char* name : {"P", "Q"}) {
        EXPECT_FALSE(mModel.Item(name)->Flag("RootFlag")) << name;
        EXPECT_FALSE(Node(name)->GetBold()) << name;
    }
}

TEST_F(ProjectViewCheckingTest, CheckByAccessLeavesAnItemThatTheModelLostAlone) {
    mModel.Provider->Items.erase("P~B");
    mView.CheckByAccess("Private");
    EXPECT_EQ(mServices.TakeReports(), "");
    EXPECT_TRUE(Node("P~B")->GetChecked());
    EXPECT_FALSE(Node("P~C")->GetChecked());
}

TEST_F(ProjectViewCheckingTest, InEditingATickWritesNothing) {
    mView.SetSupportsSelection(false);
    Load();
    Open("P");
    EXPECT_EQ(mModel.Log.Take().find("GetItem(P~A)"), std::string::npos);
    EXPECT_EQ(Exclusions(), "");
}

TEST_F(ProjectViewCheckingTest, EachItemOfADeepTreeIsTickedOnce) {
    // Classes within classes within groups, each level twice as dear as the one before if the tick
    // of a node went down more than once.
    mModel.Def("Test:Class")->GetChildDefs()->Add(mModel.Def("Test:Class"), "Test:Class");
    constexpr int kLevels = 40;
    std::string name = "P~A";
    for (int level = 0; level < kLevels; ++level) {
        mModel.Add(name, "D", "Test:Class", "ClassElement");
        name += "~D";
    }
    mView.Refresh();
    Open("P");
    name = "P~A";
    for (int level = 0; level < kLevels; ++level) {
        Open(name);
        name += "~D";
    }
    ASSERT_TRUE(Has(name));
    for (const bool wanted : {false, true}) {
        mModel.Log.Take();
        if (wanted)
            mView.CheckAll();
        else
            mView.UnCheckAll();
        const std::string log = mModel.Log.Take();
        EXPECT_EQ(Node(name)->GetChecked(), wanted);
        EXPECT_EQ(Flags(name), wanted ? "i--" : "-e-");
        const std::string call = "GetItem(" + name + ")";
        const std::size_t first = log.find(call);
        ASSERT_NE(first, std::string::npos);
        EXPECT_EQ(log.find(call, first + 1), std::string::npos);
    }
}

} // namespace
} // namespace paperkite::test
