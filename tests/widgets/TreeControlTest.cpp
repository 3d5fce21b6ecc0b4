#include "widgets/TreeControl.h"
#include "support/EventLog.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace paperkite {
namespace {

class TreeControlTest : public testing::Test {
protected:
    Ref<TreeNode> Top(const std::string& key) {
        return mTree->Nodes.Add(nullptr, TreeRelationship::Last, key, key);
    }

    Ref<TreeNode> Below(const Ref<TreeNode>& parent, const std::string& key) {
        return mTree->Nodes.Add(parent, TreeRelationship::Child, key, key);
    }

    std::string Keys(const TreeChildren& children) {
        std::string keys;
        for (const auto& child : children)
            keys += child->GetKey();
        return keys;
    }

    void LogAll() {
        auto& events = mTree->Events;
        mLog.Keep(events.SelectionChange.Connect([this] { mLog.Add("change"); }));
        mLog.Keep(
            events.NodeClick.Connect([this](const auto& n) { mLog.Add("click:" + n->GetKey()); }));
        mLog.Keep(events.Expanding.Connect(
            [this](const auto& n) { mLog.Add("expanding:" + n->GetKey()); }));
        mLog.Keep(
            events.Expand.Connect([this](const auto& n) { mLog.Add("expand:" + n->GetKey()); }));
        mLog.Keep(events.Collapse.Connect(
            [this](const auto& n) { mLog.Add("collapse:" + n->GetKey()); }));
        mLog.Keep(
            events.NodeCheck.Connect([this](const auto& n) { mLog.Add("check:" + n->GetKey()); }));
        mLog.Keep(events.Click.Connect([this] { mLog.Add("Click"); }));
    }

    Ref<TreeControl> mTree = MakeRef<TreeControl>("tvw");
    EventLog mLog;
};

TEST_F(TreeControlTest, ChildrenStandWhereTheirRelationshipPutsThem) {
    auto top = Top("t");
    auto b = Below(top, "b");
    mTree->Nodes.Add(b, TreeRelationship::Next, "d", "");
    mTree->Nodes.Add(b, TreeRelationship::Previous, "a", "");
    mTree->Nodes.Add(b, TreeRelationship::Next, "c", "");
    mTree->Nodes.Add(b, TreeRelationship::Last, "e", "");
    mTree->Nodes.Add(b, TreeRelationship::First, "0", "");
    EXPECT_EQ(Keys(top->GetChildren()), "0abcde");
    EXPECT_EQ(top->GetChildren().Count(), 6u);
    EXPECT_EQ(top->GetChildren().Item(2)->GetKey(), "a");
    EXPECT_EQ(top->GetChild()->GetKey(), "0");
    EXPECT_EQ(b->GetNext()->GetKey(), "c");
    EXPECT_EQ(b->GetPrevious()->GetKey(), "a");
    EXPECT_EQ(b->GetParent(), top);
}

TEST_F(TreeControlTest, ADuplicateKeyIsRefusedAndLeavesNothingBehind) {
    auto top = Top("t");
    EXPECT_EQ(ErrorNumberOf([&] { Below(top, "t"); }), 457);
    EXPECT_EQ(mTree->Nodes.Count(), 1u);
    EXPECT_FALSE(top->GetIsExpandable());
    EXPECT_EQ(mTree->Nodes.Item("t"), top);
}

TEST_F(TreeControlTest, NodesWithoutAKeyMayBeMany) {
    Top("");
    Top("");
    EXPECT_EQ(mTree->Nodes.Count(), 2u);
    EXPECT_FALSE(mTree->Nodes.Contains(""));
}

TEST_F(TreeControlTest, AnAbsentKeyOrPositionIsAnError) {
    Top("t");
    EXPECT_EQ(ErrorNumberOf([&] { mTree->Nodes.Item("x"); }), 5);
    EXPECT_EQ(ErrorNumberOf([&] { mTree->Nodes.Item(0); }), 9);
    EXPECT_EQ(ErrorNumberOf([&] { mTree->Nodes.Item(2); }), 9);
    EXPECT_FALSE(mTree->Nodes.Find("x"));
}

TEST_F(TreeControlTest, PositionsFollowTheOrderOfAddingAlsoAfterDeletions) {
    auto a = Top("a");
    auto b = Top("b");
    auto c = Below(a, "c");
    EXPECT_EQ(mTree->Nodes.Item(3), c);
    b->Delete();
    EXPECT_EQ(mTree->Nodes.Item(2), c);
    EXPECT_EQ(c->GetIndex(), 2u);
    EXPECT_EQ(mTree->Nodes.Count(), 2u);
}

TEST_F(TreeControlTest, FirstIsTheFirstTopLevelNodeAndLastTheOneAddedLast) {
    EXPECT_FALSE(mTree->Nodes.GetFirst());
    EXPECT_FALSE(mTree->Nodes.GetLast());
    auto a = Top("a");
    auto b = mTree->Nodes.Add(a, TreeRelationship::Previous, "b", "");
    auto c = Below(b, "c");
    EXPECT_EQ(mTree->Nodes.GetFirst(), b);
    EXPECT_EQ(mTree->Nodes.GetLast(), c);
    c->Delete();
    EXPECT_EQ(mTree->Nodes.GetLast(), b);
}

TEST_F(TreeControlTest, ADeletedNodeAndAllBelowItAreDetached) {
    auto top = Top("t");
    auto child = Below(top, "c");
    auto grandchild = Below(child, "g");
    child->Delete();
    EXPECT_FALSE(grandchild->IsAttached());
    EXPECT_EQ(ErrorNumberOf([&] { child->GetText(); }), 91);
    EXPECT_EQ(ErrorNumberOf([&] { grandchild->SetExpanded(true); }), 91);
    EXPECT_EQ(ErrorNumberOf([&] { grandchild->Delete(); }), 91);
    EXPECT_EQ(ErrorNumberOf([&] { Below(child, "x"); }), 91);
    EXPECT_EQ(mTree->Nodes.Count(), 1u);
    EXPECT_FALSE(mTree->Nodes.Contains("g"));
    EXPECT_FALSE(top->GetIsExpandable());
}

TEST_F(TreeControlTest, NodesOutliveNeitherClearNorTheirTree) {
    auto a = Top("a");
    mTree->Nodes.Clear();
    EXPECT_EQ(ErrorNumberOf([&] { a->GetKey(); }), 91);
    auto b = Top("a");
    mTree = nullptr;
    EXPECT_EQ(ErrorNumberOf([&] { b->SetBold(true); }), 91);
}

TEST_F(TreeControlTest, AMillionLevelsAreDeletedWithoutRecursion) {
    auto node = Top("");
    const auto top = node;
    for (int depth = 0; depth < 1000000; ++depth)
        node = Below(node, "");
    top->Delete();
    EXPECT_EQ(mTree->Nodes.Count(), 0u);
    EXPECT_FALSE(node->IsAttached());
}

TEST_F(TreeControlTest, WritingTheSelectionRaisesTheChangeThenTheClick) {
    auto a = Top("a");
    auto b = Top("b");
    LogAll();
    a->SetSelected(true);
    EXPECT_EQ(mLog.Take(), "change click:a");
    a->SetSelected(true);
    mTree->SetSelectedItem(a);
    EXPECT_EQ(mLog.Take(), "");
    mTree->SetSelectedItem(b);
    EXPECT_EQ(mLog.Take(), "change click:b");
    EXPECT_FALSE(a->GetSelected());
    mTree->SetSelectedItem(nullptr);
    EXPECT_EQ(mLog.Take(), "change");
    EXPECT_FALSE(mTree->GetSelectedItem());
}

TEST_F(TreeControlTest, TheAuthorsClickRaisesNodeClickOnTheSelectedNodeToo) {
    auto a = Top("a");
    LogAll();
    mTree->UserClick(a);
    EXPECT_EQ(mLog.Take(), "change click:a Click");
    mTree->UserClick(a);
    EXPECT_EQ(mLog.Take(), "click:a Click");
    mTree->SetEnabled(false);
    mTree->UserClick(a);
    EXPECT_EQ(mLog.Take(), "");
}

TEST_F(TreeControlTest, OpeningRaisesExpandingBeforeAndExpandAfter) {
    auto a = Top("a");
    Below(a, "b");
    LogAll();
    bool openMeanwhile = true;
    auto tie = mTree->Events.Expanding.Connect(
        [&](const auto& node) { openMeanwhile = node->GetExpanded(); });
    a->SetExpanded(true);
    EXPECT_FALSE(openMeanwhile);
    a->SetExpanded(true);
    a->SetExpanded(false);
    EXPECT_EQ(mLog.Take(), "expanding:a expand:a collapse:a");
}

TEST_F(TreeControlTest, AHandlerOfExpandingMayReplaceTheChildren) {
    auto a = Top("a");
    Below(a, "a_dummy");
    auto tie = mTree->Events.Expanding.Connect([&](const auto& node) {
        Below(node, "b");
        mTree->Nodes.Item("a_dummy")->Delete();
    });
    mTree->UserToggle(a);
    EXPECT_TRUE(a->GetExpanded());
    EXPECT_EQ(Keys(a->GetChildren()), "b");
}

TEST_F(TreeControlTest, AHandlerOfExpandingMayDeleteTheNodeItself) {
    auto a = Top("a");
    Below(a, "b");
    LogAll();
    auto tie = mTree->Events.Expanding.Connect([](const auto& node) { node->Delete(); });
    a->SetExpanded(true);
    EXPECT_EQ(mLog.Take(), "expanding:a");
    EXPECT_FALSE(a->IsAttached());
}

TEST_F(TreeControlTest, TicksAreRaisedForTheAuthorOnly) {
    auto a = Top("a");
    LogAll();
    a->SetChecked(true);
    EXPECT_EQ(mLog.Take(), "");
    mTree->UserCheck(a);
    EXPECT_TRUE(a->GetChecked()) << "a tree without check boxes has nothing to turn";
    mTree->SetSupportsSelection(true);
    mTree->UserCheck(a);
    EXPECT_FALSE(a->GetChecked());
    EXPECT_EQ(mLog.Take(), "check:a");
}

TEST_F(TreeControlTest, DeletingTheSelectedNodeOrAnAncestorTakesTheSelectionAway) {
    auto a = Top("a");
    auto b = Below(a, "b");
    b->SetSelected(true);
    LogAll();
    a->Delete();
    EXPECT_EQ(mLog.Take(), "change");
    EXPECT_FALSE(mTree->GetSelectedItem());
}

TEST_F(TreeControlTest, AKeyThatAHandlerSwallowsComesBackAsNothing) {
    auto tie = mTree->Events.KeyUp.Connect([](int& keyCode, int shift) {
        if (keyCode == KeyN && (shift & ShiftControl)) keyCode = 0;
    });
    EXPECT_EQ(mTree->UserKeyUp(KeyN, ShiftControl), 0);
    EXPECT_EQ(mTree->UserKeyUp(KeyN, ShiftNone), KeyN);
}

TEST_F(TreeControlTest, ALabelEditCanBeRefusedChangedAndUndone) {
    auto a = Top("a");
    bool refuse = true;
    auto before = mTree->Events.BeforeLabelEdit.Connect([&](bool& cancel) { cancel = refuse; });
    EXPECT_FALSE(mTree->UserBeginLabelEdit(a));
    refuse = false;
    EXPECT_TRUE(mTree->UserBeginLabelEdit(a));
    auto after = mTree->Events.AfterLabelEdit.Connect([](bool& cancel, std::string& text) {
        cancel = text.empty();
        text += "!";
    });
    mTree->UserEndLabelEdit("new");
    EXPECT_EQ(a->GetText(), "new!");
    EXPECT_TRUE(mTree->UserBeginLabelEdit(a));
    mTree->UserEndLabelEdit("");
    EXPECT_EQ(a->GetText(), "new!");
}

TEST_F(TreeControlTest, WalkingIsSafeWhileNodesComeAndGo) {
    auto a = Top("a");
    auto b = Top("b");
    Top("c");
    std::string walked;
    for (const auto& node : mTree->Nodes) {
        walked += node->GetKey();
        if (node == a) {
            b->Delete();
            Top("d");
            EXPECT_EQ(mTree->Nodes.Item(2)->GetKey(), "c");
        }
    }
    EXPECT_EQ(walked, "acd");
}

class TellLog : public TreeControlObserver {
public:
    void NodeAboutToCome(const Ref<TreeNode>& parent, const Ref<TreeNode>& previous) override {
        Log.Add("coming:" + Name(parent) + "/" + Name(previous));
    }

    void NodeCame(const Ref<TreeNode>& node) override { Log.Add("came:" + Name(node)); }

    void NodeAboutToGo(const Ref<TreeNode>& node) override { Log.Add("going:" + Name(node)); }

    void NodeWent(const Ref<TreeNode>& parent) override { Log.Add("went:" + Name(parent)); }

    void NodeChanged(const Ref<TreeNode>& node) override { Log.Add("changed:" + Name(node)); }

    void NodeExpansionChanged(const Ref<TreeNode>& node) override {
        Log.Add("expansion:" + Name(node));
    }

    void ChildrenChanged(const Ref<TreeNode>& parent) override {
        Log.Add("children:" + Name(parent));
    }

    void SelectionChanged() override { Log.Add("selection"); }

    static std::string Name(const Ref<TreeNode>& node) { return node ? node->GetKey() : "-"; }

    EventLog Log;
};

TEST_F(TreeControlTest, AViewFollowsEveryChange) {
    TellLog view;
    auto tie = mTree->Observe(view);
    auto a = Top("a");
    auto b = Below(a, "b");
    EXPECT_EQ(view.Log.Take(), "coming:-/- came:a coming:a/- came:b");
    b->SetBold(true);
    b->SetBold(true);
    a->SetExpanded(true);
    b->SetSelected(true);
    EXPECT_EQ(view.Log.Take(), "changed:b expansion:a selection");
    b->Delete();
    EXPECT_EQ(view.Log.Take(), "going:b went:a selection");
    mTree->Nodes.Clear();
    EXPECT_EQ(view.Log.Take(), "children:-");
}

TEST_F(TreeControlTest, UnderTheRedrawLockEachChangedParentIsToldOnceAtItsEnd) {
    auto a = Top("a");
    auto b = Below(a, "b");
    TellLog view;
    auto tie = mTree->Observe(view);
    mTree->SetRedraw(false);
    Below(a, "c");
    Below(a, "d")->SetBold(true);
    auto gone = Below(b, "e");
    Below(gone, "f");
    gone->Delete();
    Top("g")->SetSelected(true);
    EXPECT_EQ(view.Log.Take(), "");
    mTree->SetRedraw(true);
    EXPECT_EQ(view.Log.Take(), "children:- children:a children:b selection");
    mTree->SetRedraw(false);
    mTree->SetRedraw(true);
    EXPECT_EQ(view.Log.Take(), "");
}

TEST_F(TreeControlTest, ADetachedViewIsToldNothing) {
    TellLog view;
    auto tie = mTree->Observe(view);
    tie.Disconnect();
    Top("a");
    EXPECT_EQ(view.Log.Take(), "");
}

/// Asks for the selection whenever it is told of rows.
class SelectionAsker : public TreeControlObserver {
public:
    explicit SelectionAsker(const TreeControl& tree) : mTree(tree) {}
    void NodeWent(const Ref<TreeNode>&) override { Ask(); }
    void ChildrenChanged(const Ref<TreeNode>&) override { Ask(); }

    EventLog Log;

private:
    void Ask() { Log.Add(TellLog::Name(mTree.GetSelectedItem())); }

    const TreeControl& mTree;
};

TEST_F(TreeControlTest, AViewThatAsksSeesNoSelectionThatIsGone) {
    SelectionAsker view(*mTree);
    auto tie = mTree->Observe(view);
    Below(Top("a"), "b")->SetSelected(true);
    mTree->Nodes.Item("a")->Delete();
    EXPECT_EQ(view.Log.Take(), "-");
    Top("c")->SetSelected(true);
    mTree->Nodes.Clear();
    EXPECT_EQ(view.Log.Take(), "-");
}

TEST_F(TreeControlTest, EnsureVisibleOpensTheAncestors) {
    auto a = Top("a");
    auto b = Below(a, "b");
    auto c = Below(b, "c");
    LogAll();
    c->EnsureVisible();
    EXPECT_EQ(mLog.Take(), "expanding:a expand:a expanding:b expand:b");
}

TEST(TreeNodes, KeysAreFoundWhateverCameAndWent) {
    const auto tree = MakeRef<TreeControl>("tree");
    std::set<std::string> there;
    std::mt19937 random(5);
    for (int round = 0; round < 20000; ++round) {
        const std::string key = "k" + std::to_string(random() % 700);
        if (there.insert(key).second) {
            tree->Nodes.Add(nullptr, TreeRelationship::Last, key, "text " + key);
        } else if (random() % 2) {
            tree->Nodes.Remove(key);
            there.erase(key);
        }
        // Looking a position up closes the gaps that deletions left.
        if (round % 97 == 0 && !there.empty()) tree->Nodes.Item(std::size_t{1});
    }
    ASSERT_EQ(tree->Nodes.Count(), there.size());
    for (int number = 0; number < 700; ++number) {
        const std::string key = "k" + std::to_string(number);
        const Ref<TreeNode> node = tree->Nodes.Find(key);
        ASSERT_EQ(bool(node), there.contains(key)) << key;
        EXPECT_EQ(node ? node->GetText() : "text " + key, "text " + key);
    }
}

} // namespace
} // namespace paperkite
