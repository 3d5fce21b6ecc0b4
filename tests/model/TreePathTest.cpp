#include "model/TreePath.h"

#include <gtest/gtest.h>

namespace paperkite {

namespace {

/// A tree of three levels whose children come when their parent opens.
class LazyTree {
public:
    LazyTree() {
        mTie = Tree->Events.Expanding.Connect([this](const Ref<TreeNode>& node) { Load(node); });
        Build();
    }

    void Build() {
        Tree->Nodes.Clear();
        AddUnder(nullptr, "root");
    }

    void Load(const Ref<TreeNode>& node) {
        const Ref<TreeNode> child = node->GetChild();
        if (!child || !child->GetKey().ends_with("_dummy")) return;
        const std::string key = node->GetKey();
        for (const char* step : {"a", "b\nnew line", "open:c"})
            if (key + "~" + step != Missing) AddUnder(node, key + "~" + step);
        child->Delete();
    }

    std::string Open() const {
        std::string keys;
        for (const Ref<TreeNode> node : Tree->Nodes)
            if (node->GetExpanded()) keys += node->GetKey() + "|";
        return keys;
    }

    std::string Selected() const {
        return Tree->GetSelectedItem() ? Tree->GetSelectedItem()->GetKey() : "none";
    }

    void Expand(const std::string& key) const { Tree->Nodes.Item(key)->SetExpanded(true); }

    Ref<TreeControl> Tree = MakeRef<TreeControl>("tvw");
    std::string Missing;

private:
    void AddUnder(const Ref<TreeNode>& parent, const std::string& key) const {
        const auto node = Tree->Nodes.Add(
            parent, parent ? TreeRelationship::Child : TreeRelationship::Last, key, key);
        Tree->Nodes.Add(node, TreeRelationship::Child, key + "_dummy", "");
    }

    Connection mTie;
};

} // namespace

TEST(TreePath, OpenNodesAndSelectionSurviveARebuild) {
    LazyTree tree;
    tree.Expand("root");
    tree.Expand("root~open:c");
    tree.Expand("root~b\nnew line");
    tree.Tree->Nodes.Item("root~open:c~b\nnew line")->SetSelected(true);
    const std::string text = TreePath::Of(*tree.Tree).ToText();

    tree.Build();
    ASSERT_EQ(tree.Open(), "");
    TreePath::FromText(text).Apply(*tree.Tree);
    EXPECT_EQ(tree.Open(), "root|root~b\nnew line|root~open:c|");
    EXPECT_EQ(tree.Selected(), "root~open:c~b\nnew line");
}

TEST(TreePath, NodesThatWereClosedAreClosedAgain) {
    LazyTree tree;
    tree.Tree->Nodes.Item("root")->SetSelected(true);
    const TreePath path = TreePath::Of(*tree.Tree);
    tree.Expand("root");
    path.Apply(*tree.Tree);
    EXPECT_EQ(tree.Open(), "");
}

TEST(TreePath, WhatIsGoneIsPassedOverAndItsParentSelected) {
    LazyTree tree;
    tree.Expand("root");
    tree.Expand("root~a");
    tree.Tree->Nodes.Item("root~a~a")->SetSelected(true);
    const TreePath path = TreePath::Of(*tree.Tree);
    tree.Missing = "root~a";
    tree.Build();
    path.Apply(*tree.Tree);
    EXPECT_EQ(tree.Open(), "root|");
    EXPECT_EQ(tree.Selected(), "root");
}

TEST(TreePath, ASelectionIsFoundWhereAStepInBetweenIsGone) {
    const TreePath path = TreePath::FromText("open:root\nselected:root\nselected:root_group\n"
                                             "selected:root~a\n");
    LazyTree tree;
    path.Apply(*tree.Tree);
    EXPECT_EQ(tree.Selected(), "root~a");
}

TEST(TreePath, ASelectionInAClosedParentIsFoundAgain) {
    const TreePath path = TreePath::FromText("open:root\nselected:root\nselected:root~a\n"
                                             "selected:root~a~a\n");
    LazyTree tree;
    path.Apply(*tree.Tree);
    EXPECT_EQ(tree.Selected(), "root~a~a");
    EXPECT_EQ(tree.Open(), "root|");
}

TEST(TreePath, AnEmptyOrStrangeTextLeavesTheTreeAlone) {
    LazyTree tree;
    tree.Expand("root");
    for (const char* text : {"", "\n\n", "something else"})
        TreePath::FromText(text).Apply(*tree.Tree);
    EXPECT_EQ(tree.Open(), "root|");
    EXPECT_EQ(tree.Selected(), "none");
}

} // namespace paperkite
