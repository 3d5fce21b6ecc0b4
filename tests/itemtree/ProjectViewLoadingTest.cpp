#include "itemtree/ProjectViewFixture.h"

namespace paperkite::test {
namespace {

using ProjectViewLoadingTest = ProjectViewFixture;

const std::string kPublic = "IgnoreNamespaceIncludeFlag=true,scope=public+protected,"
                            "IncludeInherited=False";

TEST_F(ProjectViewLoadingTest, ARootComesWithAPlaceholderForItsChildren) {
    mView.LoadFromNamespaceDefs(mModel.Defs, "moniker", true);
    EXPECT_TRUE(mModel.Log.Take().starts_with(
        "NamespaceProvider(test) GetRootItem(Test:Project,moniker) NamespaceProvider(test)"));
    EXPECT_EQ(Text(), "P<P>Projectv\n  <P_dummy>\n");
    EXPECT_EQ(Node("P")->GetTag(), "project");
    EXPECT_EQ(Node("P")->GetExpandedImage(), "");
    EXPECT_EQ(Node("P_dummy")->GetTag(), "");
    EXPECT_TRUE(mModel.Def("Test:Project")->Prepared);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectViewLoadingTest, NothingIsFetchedBeforeItsNodeOpens) {
    mView.LoadFromNamespaceDefs(mModel.Defs, "moniker", true);
    EXPECT_EQ(mModel.Log.Take().find("GetItems("), std::string::npos);
    Open("P");
    const std::string log = mModel.Log.Take();
    EXPECT_NE(log.find("GetItems(Test:Class,P,"), std::string::npos);
    EXPECT_EQ(log.find("GetItems(Test:Method"), std::string::npos);
    Open("P~B");
    EXPECT_EQ(mModel.Log.Take().find(",P~A,"), std::string::npos);
}

TEST_F(ProjectViewLoadingTest, ANewTreeIsEmptyAndExcludesNothing) {
    ASSERT_TRUE(mView.GetExclusions());
    EXPECT_EQ(mView.GetExclusions()->Count(), 0u);
    EXPECT_TRUE(mView.GetHighlightCommentedItems());
    EXPECT_FALSE(mView.GetSupportsSelection());
    EXPECT_FALSE(mView.OnlyTopicItems);
    EXPECT_FALSE(mView.GetShowInherited());
    EXPECT_FALSE(mView.GetNamespaceDefs());
    EXPECT_EQ(mView.GetNodes().Count(), 0u);
}

TEST_F(ProjectViewLoadingTest, OpeningANodeFetchesItsChildrenOnce) {
    Load();
    mServices.Pointer->Pointers.clear();
    Open("P");
    EXPECT_EQ(mServices.Pointer->Pointers, (std::vector<int>{11, 0}));
    EXPECT_EQ(Text(), "P<P>Projectv+\n"
                      "  A<P~A>Classv\n    <P~A_dummy>\n"
                      "  B<P~B>Classv\n    <P~B_dummy>\n"
                      "  C<P~C>Classv\n    <P~C_dummy>\n");
    EXPECT_NE(mModel.Log.Take().find("GetItems(Test:Class,P," + kPublic + ")"), std::string::npos);
    Node("P")->SetExpanded(false);
    Open("P");
    EXPECT_EQ(mModel.Log.Take().find("GetItems"), std::string::npos);
    EXPECT_EQ(Node("P")->GetChildren().Count(), 3u);
}

TEST_F(ProjectViewLoadingTest, ALeafHasNoPlaceholderAndAnEmptyNodeLosesIt) {
    Load();
    Open("P");
    Open("P~A");
    EXPECT_FALSE(Node("P~A~Run")->GetIsExpandable());
    EXPECT_FALSE(Has("P~A~Run_dummy"));
    Open("P~C");
    EXPECT_EQ(Node("P~C")->GetChildren().Count(), 0u);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectViewLoadingTest, RootItemsAreTakenFromTheTreeItself) {
    Load();
    mModel.Provider->Items.erase("P");
    Open("P");
    EXPECT_EQ(Node("P")->GetChildren().Count(), 3u);
    mModel.Log.Take();
    Open("P~A");
    EXPECT_NE(mModel.Log.Take().find("GetItem(P~A)"), std::string::npos);
}

TEST_F(ProjectViewLoadingTest, TheFilterNamesTheWantedScope) {
    const std::string start = "IgnoreNamespaceIncludeFlag=true,scope=";
    const auto filter = [&](bool isPrivate, bool isFriend, bool isProtected) {
        mView.SetShowPrivate(isPrivate);
        mView.SetShowFriend(isFriend);
        mView.SetShowProtected(isProtected);
        return mView.GetFilter();
    };
    EXPECT_EQ(filter(false, false, false), start + "public,IncludeInherited=False");
    EXPECT_EQ(filter(false, true, false), start + "public+friend,IncludeInherited=False");
    EXPECT_EQ(filter(false, false, true), start + "public+protected,IncludeInherited=False");
    EXPECT_EQ(filter(false, true, true), start + "public+friend+protected,IncludeInherited=False");
    for (const bool other : {false, true})
        EXPECT_EQ(filter(true, other, !other),
                  start + "private+public+friend+protected,IncludeInherited=False");
    mView.SetShowInherited(true);
    EXPECT_TRUE(mView.GetFilter().ends_with(",IncludeInherited=True"));
}

TEST_F(ProjectViewLoadingTest, AFilterPrefixStandsInFrontAsItIs) {
    EXPECT_EQ(mView.GetSpecificFilter(), "");
    mView.SetFilter("kind=class,");
    EXPECT_EQ(mView.GetFilter(), "kind=class," + kPublic);
    EXPECT_EQ(mView.GetSpecificFilter(), "kind=class,");
    Load();
    Open("P");
    EXPECT_NE(mModel.Log.Take().find(",kind=class," + kPublic + ")"), std::string::npos);
}

TEST_F(ProjectViewLoadingTest, OptionsAreSharedByAllTreesButInheritedIsNot) {
    ProjectView other;
    mView.SetShowPrivate(true);
    mView.SetShowFriend(true);
    mView.SetShowProtected(false);
    mView.SetAutoExpandChildren(true);
    mView.SetFolderView(true);
    mView.SetShowInherited(true);
    mView.SetShowAllPropertyBlocks(true);
    EXPECT_TRUE(other.GetShowPrivate() && other.GetShowFriend() && !other.GetShowProtected());
    EXPECT_TRUE(other.GetAutoExpandChildren() && other.GetGrouped());
    EXPECT_TRUE(GlobalConfig().ProjectViewOptions.Grouped);
    EXPECT_FALSE(other.GetShowInherited());
    EXPECT_FALSE(other.GetShowAllPropertyBlocks());
    EXPECT_TRUE(mView.GetShowAllPropertyBlocks());
}

TEST_F(ProjectViewLoadingTest, GroupsStandBetweenAnItemAndItsChildren) {
    mView.SetGrouped(true);
    mModel.Def("Test:Method")->GroupInEditing = true;
    Load();
    Open("P");
    Open("P~A");
    EXPECT_EQ(Text().substr(0, Text().find("  B<")), "P<P>Projectv+\n"
                                                     "  A<P~A>Classv+\n"
                                                     "    Methods<P~A_Test:Method>Closedv\n"
                                                     "      Run<P~A~Run>Methodv\n"
                                                     "      Stop<P~A~Stop>Methodv\n"
                                                     "    Size<P~A~Size>Fieldv\n");
    EXPECT_EQ(Node("P~A_Test:Method")->GetExpandedImage(), "Open");
    EXPECT_EQ(Node("P~A_Test:Method")->GetTag(), "");
}

TEST_F(ProjectViewLoadingTest, EachModeHasItsOwnGroupSwitch) {
    mView.SetGrouped(true);
    mModel.Def("Test:Class")->GroupInSelection = true;
    Load();
    Open("P");
    EXPECT_FALSE(Has("P_Test:Class"));
    mView.SetSupportsSelection(true);
    Load();
    Open("P");
    EXPECT_TRUE(Has("P_Test:Class"));
    mView.SetGrouped(false);
    Load();
    Open("P");
    EXPECT_FALSE(Has("P_Test:Class"));
}

TEST_F(ProjectViewLoadingTest, GroupsOfOneCaptionAndTwoNamesAreTwo) {
    mView.SetGrouped(true);
    for (const char* name : {"Test:Method", "Test:Field"}) {
        mModel.Def(name)->GroupInEditing = true;
        mModel.Def(name)->GroupCaption = "Members";
    }
    Load();
    Open("P");
    Open("P~A");
    EXPECT_EQ(Node("P~A_Test:Method")->GetText(), "Members");
    EXPECT_EQ(Node("P~A_Test:Field")->GetText(), "Members");
}

TEST_F(ProjectViewLoadingTest, ALaterItemOfAGroupDoesNotTickItAgain) {
    mView.SetGrouped(true);
    mView.SetSupportsSelection(true);
    mModel.Def("Test:Method")->GroupInSelection = true;
    Load();
    Open("P");
    mModel.Provider->OnCall = [&](const std::string& call) {
        if (call == "GetItem(P~A~Run)") Node("P~A_Test:Method")->SetChecked(false);
    };
    for (const char* name : {"P~A~Run", "P~A~Stop"})
        mView.GetExclusions()->Add(name, name);
    Open("P~A");
    EXPECT_FALSE(Node("P~A_Test:Method")->GetChecked());
    EXPECT_EQ(Node("P~A_Test:Method")->GetChildren().Count(), 2u);
}

TEST_F(ProjectViewLoadingTest, TreeFlagsSayWhatIsListedAndCaseCounts) {
    mView.OnlyTopicItems = true;
    mModel.Def("Test:Class")->TreeFlags = "f";
    mModel.Def("Test:Field")->TreeFlags = "F";
    Load();
    Open("P");
    EXPECT_EQ(Node("P")->GetChildren().Count(), 3u);
    Open("P~A");
    EXPECT_EQ(Node("P~A")->GetChildren().Count(), 0u);
    mView.OnlyTopicItems = false;
    mModel.Def("Test:Field")->TreeFlags = "ft";
    mModel.Def("Test:Method")->TreeFlags = "T";
    Load();
    Open("P");
    Open("P~A");
    EXPECT_FALSE(Has("P~A~Size"));
    EXPECT_TRUE(Has("P~A~Run"));
}

TEST_F(ProjectViewLoadingTest, SelectionListsOnlySelectableDefinitions) {
    mView.SetSupportsSelection(true);
    mModel.Def("Test:Field")->Selectable = false;
    Load();
    Open("P");
    Open("P~A");
    EXPECT_FALSE(Has("P~A~Size"));
    mModel.Def("Test:Method")->Selectable = false;
    Load();
    Open("P");
    EXPECT_FALSE(Node("P~A")->GetIsExpandable());
    mView.SetSupportsSelection(false);
    Load();
    Open("P");
    EXPECT_TRUE(Has("P~A_dummy"));
}

TEST_F(ProjectViewLoadingTest, ADefinitionWithoutProviderOrItemsIsSkipped) {
    mModel.Def("Test:Method")->Moniker = "elsewhere";
    Load();
    Open("P");
    Open("P~A");
    EXPECT_FALSE(Has("P~A~Run"));
    EXPECT_TRUE(Has("P~A~Size"));
    mModel.Def("Test:Method")->Moniker = "test";
    mModel.Provider->Silent.insert("Test:Field");
    Load();
    Open("P");
    Open("P~A");
    EXPECT_TRUE(Has("P~A~Run"));
    EXPECT_FALSE(Has("P~A~Size"));
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectViewLoadingTest, AProviderMayReplaceTheDefinitionOfItems) {
    const auto other = MakeDef("Test:Struct");
    mModel.Provider->Replacements["Test:Class"] = other;
    mModel.Defs->Add(other, other->Name);
    Load();
    Open("P");
    EXPECT_EQ(Node("P~A")->GetTag(), "struct");
    EXPECT_EQ(Node("P~A")->GetImage(), "Struct");
}

TEST_F(ProjectViewLoadingTest, ARootWithATextTemplateShowsNoText) {
    mModel.Def("Test:Project")->ItemTextTemplate = "%%Name%%";
    mView.LoadFromNamespaceDefs(mModel.Defs, "moniker", true);
    EXPECT_EQ(Node("P")->GetText(), "");
    const std::string log = mModel.Log.Take();
    EXPECT_NE(log.find("SetCurrentItem(Test:Project,P,project,nothing)"), std::string::npos);
    EXPECT_EQ(log.find("Parse("), std::string::npos);
}

TEST_F(ProjectViewLoadingTest, ATextTemplateIsFilledInBelowItsParent) {
    mModel.Def("Test:Class")->ItemTextTemplate = "class %%Name%%";
    mModel.Def("Test:Method")->ItemTextTemplate = "%%Name%%()";
    Load();
    Open("P");
    EXPECT_EQ(Node("P~B")->GetText(), "class B");
    std::string log = mModel.Log.Take();
    EXPECT_NE(log.find("GetItem(P) CurrentRootItem(P) SetCurrentItem(Test:Class,P~A,class,P) "
                       "Parse(class %%Name%%)"),
              std::string::npos)
        << log;
    Open("P~A");
    EXPECT_EQ(Node("P~A~Run")->GetText(), "Run()");
    EXPECT_EQ(mModel.Log.Take().find("CurrentRootItem"), std::string::npos);
}

TEST_F(ProjectViewLoadingTest, TheDefinitionThatCameBackGivesTemplateImageAndTag) {
    mModel.Def("Test:Class")->ItemTextTemplate = "class %%Name%%";
    const auto other = MakeDef("Test:Struct");
    other->ItemTextTemplate = "struct %%Name%%";
    mModel.Defs->Add(other, other->Name);
    mModel.Provider->Data->Replacement = other;
    Load();
    Open("P");
    EXPECT_EQ(Node("P~A")->GetText(), "struct A");
    EXPECT_EQ(Node("P~A")->GetTag(), "struct");
    EXPECT_FALSE(Node("P~A")->GetIsExpandable());
}

TEST_F(ProjectViewLoadingTest, PrivateItemsAreGrey) {
    mModel.Item("P~A")->With("Access", "pRIVATE");
    mModel.Item("P~B")->Without("Access");
    Load();
    Open("P");
    EXPECT_EQ(Node("P~A")->GetForeColor(), Colour(0x808080));
    EXPECT_EQ(Node("P~B")->GetForeColor(), Colour());
    EXPECT_EQ(Node("P~C")->GetForeColor(), Colour());
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectViewLoadingTest, CommentedItemsAreBoldAlsoByTombstones) {
    mModel.Item("P~A")->Comment("#remarks");
    mModel.Item("P~B")->Comment("#remarks", "", "t", kTaggedCommentTombstone);
    mModel.Item("P~C")->Without("TaggedComments");
    Load();
    Open("P");
    EXPECT_TRUE(Node("P~A")->GetBold());
    EXPECT_TRUE(Node("P~B")->GetBold());
    EXPECT_FALSE(Node("P~C")->GetBold());
    EXPECT_EQ(mServices.TakeReports(), "");
    mView.SetHighlightCommentedItems(false);
    Load();
    Open("P");
    EXPECT_FALSE(Node("P~A")->GetBold());
}

TEST_F(ProjectViewLoadingTest, InSelectionRootsAreBoldAndCommentedItemsAreNot) {
    mView.SetSupportsSelection(true);
    mModel.Item("P~A")->Comment("#remarks");
    mModel.Item("P~B")->With("RootFlag", true);
    mModel.Item("P~C")->Without("RootFlag");
    Load();
    Open("P");
    EXPECT_FALSE(Node("P~A")->GetBold());
    EXPECT_TRUE(Node("P~B")->GetBold());
    EXPECT_FALSE(Node("P~C")->GetBold());
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectViewLoadingTest, TicksFollowTheExclusionsAndTheParent) {
    mView.SetSupportsSelection(true);
    mView.GetExclusions()->Add("P~A", "P~A");
    Load();
    Open("P");
    EXPECT_FALSE(Node("P~A")->GetChecked());
    EXPECT_TRUE(Node("P~B")->GetChecked());
    EXPECT_TRUE(mModel.Item("P~A")->Flag("ExcludeFlag"));
    EXPECT_TRUE(mModel.Item("P~B")->Flag("IncludeFlag"));
    Open("P~A");
    EXPECT_FALSE(Node("P~A~Run")->GetChecked());
}

TEST_F(ProjectViewLoadingTest, WhatCannotBeExcludedIsTickedBelowAnUntickedParent) {
    mView.SetSupportsSelection(true);
    mModel.Def("Test:Field")->Excludable = false;
    mView.GetExclusions()->Add("P~A", "P~A");
    Load();
    Open("P");
    Open("P~A");
    EXPECT_TRUE(Node("P~A~Size")->GetChecked());
}

TEST_F(ProjectViewLoadingTest, AutoExpandOnLoadLeavesTheNodeOpen) {
    mModel.Def("Test:Project")->AutoExpandOnLoad = true;
    mModel.Def("Test:Project")->PreloadChildren = true;
    Load();
    EXPECT_EQ(Shape(), "P+\n  P~A\n    P~A_dummy\n  P~B\n    P~B_dummy\n  P~C\n    P~C_dummy\n");
    EXPECT_TRUE(mView.tvwProject->GetRedraw());
}

TEST_F(ProjectViewLoadingTest, PreloadedNodesAreClosedAndTheirGroupToo) {
    mView.SetGrouped(true);
    mModel.Def("Test:Project")->AutoExpandOnLoad = true;
    mModel.Def("Test:Class")->PreloadChildren = true;
    mModel.Def("Test:Class")->GroupInEditing = true;
    Load();
    EXPECT_TRUE(Has("P~A~Run"));
    EXPECT_FALSE(Node("P~A")->GetExpanded());
    EXPECT_FALSE(Node("P_Test:Class")->GetExpanded());
    EXPECT_TRUE(Node("P")->GetExpanded());
}

TEST_F(ProjectViewLoadingTest, PreloadInSelectionIsForSelectionOnly) {
    mModel.Def("Test:Project")->PreloadChildrenInSelection = true;
    Load();
    EXPECT_TRUE(Has("P_dummy"));
    mView.SetSupportsSelection(true);
    Load();
    EXPECT_TRUE(Has("P~A"));
    EXPECT_FALSE(Node("P")->GetExpanded());
}

TEST_F(ProjectViewLoadingTest, ACodeProjectIsPreparedWhenItHasAGroupAndIsEdited) {
    const auto modules = MakeRef<ObjectCollection>();
    for (const char* name : {"M1", "M2"})
        modules->Add(MakeRef<TestItem>(mModel.Log, "CodeModule", name));
    mModel.Provider->Root->With("Modules", Value(modules));
    const auto calls = [&] {
        mView.LoadFromNamespaceRootItem(mModel.Defs, mModel.Provider->Root, true);
        std::string kept;
        for (const auto& call : Split(mModel.Log.Take(), " "))
            if (!call.starts_with("NamespaceProvider") && !call.starts_with("GetItem"))
                kept += call + " ";
        return kept;
    };
    EXPECT_EQ(calls(), "Analysed(M1)=True Analysed(M2)=True ");
    mModel.Provider->Root->With("VBProjectGroup", Value(modules));
    EXPECT_EQ(calls(), "Prepare(P) Load(P,True) Analysed(M1)=True Analysed(M2)=True ");
    mView.SetSupportsSelection(true);
    EXPECT_EQ(calls(), "Analysed(M1)=True Analysed(M2)=True ");
}

TEST_F(ProjectViewLoadingTest, PrivateModulesAreListedOnlyWithPrivateMembersOrInSelection) {
    mModel.Add("P", "M", "Test:Class", "CodeModule")->With("Access", "Private");
    mModel.Add("P", "N", "Test:Class", "CodeModule")->With("Access", "puBLic");
    Load();
    Open("P");
    EXPECT_FALSE(Has("P~M"));
    EXPECT_TRUE(Has("P~N"));
    mView.SetShowPrivate(true);
    Load();
    Open("P");
    EXPECT_TRUE(Has("P~M"));
    mView.SetShowPrivate(false);
    mView.SetSupportsSelection(true);
    Load();
    Open("P");
    EXPECT_TRUE(Has("P~M"));
}

TEST_F(ProjectViewLoadingTest, OpeningGivesTheScopeToTheProjectInEditingOnly) {
    mView.SetSupportsSelection(true);
    mView.SetShowPrivate(true);
    mView.SetShowFriend(true);
    Load();
    Open("P");
    EXPECT_EQ(mModel.Project->Scope(), "----");
    mView.SetSupportsSelection(false);
    Load();
    Open("P");
    EXPECT_EQ(mModel.Project->Scope(), "pftb");
    mView.SetShowPrivate(false);
    mView.SetShowProtected(false);
    Open("P~A");
    EXPECT_EQ(mModel.Project->Scope(), "-f--");
}

TEST_F(ProjectViewLoadingTest, ScopeFlagsDecideWhichScopeCommandsAreShown) {
    const auto shown = [&](const std::string& flags) {
        mModel.Defs->SetScopeFlags(flags);
        Load();
        std::string names;
        for (const char* name : {"ShowPrivate", "ShowInherited", "ShowFriend", "ShowProtected"})
            if (Command(name)->GetVisible()) names += std::string(name) + " ";
        return names;
    };
    EXPECT_EQ(shown("PiFt"), "ShowPrivate ShowInherited ShowFriend ShowProtected ");
    EXPECT_EQ(shown("p"), "ShowPrivate ");
    EXPECT_EQ(shown("I"), "ShowInherited ");
    EXPECT_EQ(shown("f"), "ShowFriend ");
    EXPECT_EQ(shown("t"), "ShowProtected ");
    mView.SetShowFriend(true);
    EXPECT_EQ(shown(""), "");
    EXPECT_TRUE(mView.GetShowFriend());
}

TEST_F(ProjectViewLoadingTest, ARootThatIsLoadedTwiceIsShownOnce) {
    for (int pass = 0; pass < 2; ++pass)
        mView.LoadFromNamespaceDefs(mModel.Defs, "moniker");
    EXPECT_EQ(Shape(), "P\n  P_dummy\n");
    EXPECT_TRUE(mView.tvwProject->GetRedraw());
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectViewLoadingTest, ARootThatIsLoadedTwiceIsHeldOnce) {
    for (int pass = 0; pass < 2; ++pass)
        mView.LoadFromNamespaceDefs(mModel.Defs, "moniker");
    int cleared = 0;
    const auto tie = mView.Events.NodesCleared.Connect([&] { ++cleared; });
    mView.Refresh();
    // Once before the roots are loaded, and once for the one root.
    EXPECT_EQ(cleared, 2);
}

TEST_F(ProjectViewLoadingTest, WithoutClearRootsJoinAndDefinitionsAreNotReplaced) {
    mView.LoadFromNamespaceDefs(mModel.Defs, "moniker");
    const auto defs = MakeRef<NamespaceDefs>("other");
    defs->Add(MakeDef("Test:Project"), "Test:Project");
    defs->Add(MakeDef("Test:Library"), "Test:Library");
    mView.LoadFromNamespaceRootItem(defs, mModel.Add("", "Q", "Test:Project", "Library"));
    EXPECT_EQ(Shape(), "P\n  P_dummy\nQ\n");
    EXPECT_FALSE(mView.GetNamespaceDefs() == mModel.Defs);
    EXPECT_EQ(mView.GetNamespaceDefs()->Count(), 2u);
    EXPECT_TRUE(mView.GetNamespaceDefs()->Item("Test:Project") == mModel.Def("Test:Project"));
    Load();
    EXPECT_TRUE(mView.GetNamespaceDefs() == mModel.Defs);
}

TEST_F(ProjectViewLoadingTest, ClearEmptiesTheTreeAndTellsTheHost) {
    Load();
    std::string events;
    const auto tie = mView.Events.NodesCleared.Connect(
        [&] { events += std::to_string(mView.GetNodes().Count()) + " nodes"; });
    mView.Clear();
    EXPECT_EQ(events, "0 nodes");
    mView.Refresh();
    EXPECT_EQ(mView.GetNodes().Count(), 0u);
}

TEST_F(ProjectViewLoadingTest, RefreshKeepsOpenNodesAndTheSelection) {
    Load();
    Open("P");
    Open("P~A");
    mView.SelectItem("P~A~Stop");
    mModel.Add("P~A", "Wait", "Test:Method", "BlockElement");
    mServices.Pointer->Pointers.clear();
    mView.Refresh();
    EXPECT_TRUE(Has("P~A~Wait"));
    EXPECT_EQ(Selected(), "P~A~Stop");
    EXPECT_TRUE(Node("P~A")->GetExpanded());
    EXPECT_EQ(mServices.Pointer->Pointers.front(), 11);
    EXPECT_EQ(mServices.Pointer->Pointer, MousePointer::Default);
}

TEST_F(ProjectViewLoadingTest, RefreshWithoutSelectionSelectsTheFirstNode) {
    mView.SetSupportsSelection(true);
    Load();
    mView.SetShowPrivate(true);
    mView.Refresh();
    EXPECT_EQ(Selected(), "P");
    EXPECT_EQ(mModel.Project->Scope(), "p-tb");
}

TEST_F(ProjectViewLoadingTest, RefreshOfSeveralRootsKeepsTheLastOneOnly) {
    mView.LoadFromNamespaceDefs(mModel.Defs, "moniker");
    mView.LoadFromNamespaceRootItem(mModel.Defs, mModel.Add("", "Q", "Test:Project", "Library"));
    mView.LoadFromNamespaceDefs(mModel.Defs, "moniker");
    mView.Refresh(); // P was loaded again, which moved it behind Q.
    EXPECT_EQ(Shape(), "P\n  P_dummy\n");
}

TEST_F(ProjectViewLoadingTest, RefreshWithoutARootFailsOnceAndLeavesThePointerBusy) {
    mView.Refresh();
    EXPECT_EQ(mView.GetNodes().Count(), 0u);
    EXPECT_EQ(mServices.TakeReports(), "ProjectView.Refresh (91)\n");
    EXPECT_EQ(mServices.Pointer->Pointer, MousePointer::Hourglass);
}

TEST_F(ProjectViewLoadingTest, TheCurrentRootItemIsAboveTheSelection) {
    Load();
    EXPECT_FALSE(mView.GetCurrentRootItem());
    Open("P");
    mView.SelectItem("P~B");
    EXPECT_TRUE(mView.GetCurrentRootItem() == mModel.Item("P"));
}

TEST_F(ProjectViewLoadingTest, ALoadOfAnyDepthPaintsOnce) {
    mModel.Def("Test:Project")->AutoExpandOnLoad = true;
    mModel.Def("Test:Class")->AutoExpandOnLoad = true;
    std::set<bool> redraws;
    mModel.Provider->OnCall = [&](const std::string& call) {
        if (call.starts_with("GetItems")) redraws.insert(mView.tvwProject->GetRedraw());
    };
    Load();
    EXPECT_EQ(redraws, std::set<bool>{false});
    EXPECT_TRUE(mView.tvwProject->GetRedraw());
}

} // namespace
} // namespace paperkite::test
