#include "platform/qt/TreeView.h"

#include "platform/ViewTest.h"

#include <QAccessible>
#include <QLineEdit>

namespace paperkite {
namespace {

class TreeViewTest : public ViewTest {
protected:
    TreeViewTest() {
        mRoot = Add(nullptr, "root");
        mFirst = Add(mRoot, "alpha");
        mSecond = Add(mRoot, "beta");
    }

    Ref<TreeNode> Add(const Ref<TreeNode>& parent, const std::string& name) {
        return mTree->Nodes.Add(parent, TreeRelationship::Child, name, name, "class");
    }

    void Open() { mView = Show<TreeView>(mTree); }

    QModelIndex IndexOf(const Ref<TreeNode>& node) {
        return mView->GetItemModel().MakeIndexOf(node);
    }

    QPoint PlaceOf(const Ref<TreeNode>& node) { return mView->visualRect(IndexOf(node)).center(); }

    void Click(const Ref<TreeNode>& node) {
        QTest::mouseClick(mView->viewport(), Qt::LeftButton, {}, PlaceOf(node));
    }

    void ClickExpander(const Ref<TreeNode>& node) {
        const QRect row = mView->visualRect(IndexOf(node));
        QTest::mouseClick(mView->viewport(), Qt::LeftButton, {},
                          QPoint(row.left() - mView->indentation() / 2, row.center().y()));
    }

    std::string Shown(const QModelIndex& parent = {}) {
        std::string text;
        auto& items = mView->GetItemModel();
        for (int row = 0; row < items.rowCount(parent); ++row) {
            const QModelIndex index = items.index(row, 0, parent);
            text += index.data().toString().toStdString();
            if (mView->isExpanded(index)) text += "(" + Shown(index) + ")";
            text += " ";
        }
        return text;
    }

    Ref<TreeControl> mTree = MakeRef<TreeControl>("tvw");
    Ref<TreeNode> mRoot, mFirst, mSecond;
    TreeView* mView = nullptr;
};

TEST_F(TreeViewTest, AClickSelectsTheNodeAndRaisesOneNodeClick) {
    mRoot->SetExpanded(true);
    Open();
    std::string clicks;
    auto tie = mTree->Events.NodeClick.Connect([&](const auto& n) { clicks += n->GetKey(); });
    Click(mSecond);
    EXPECT_EQ(mTree->GetSelectedItem(), mSecond);
    EXPECT_EQ(clicks, "beta");
    Click(mSecond);
    EXPECT_EQ(clicks, "betabeta");
}

TEST_F(TreeViewTest, TheArrowKeysAndTypeAheadMoveTheSelection) {
    mRoot->SetExpanded(true);
    mRoot->SetSelected(true);
    Open();
    mView->setFocus();
    QTest::keyClick(mView, Qt::Key_Down);
    EXPECT_EQ(mTree->GetSelectedItem(), mFirst);
    QTest::keyClick(mView, Qt::Key_B);
    EXPECT_EQ(mTree->GetSelectedItem(), mSecond);
    QTest::keyClick(mView, Qt::Key_Left);
    EXPECT_EQ(mTree->GetSelectedItem(), mRoot);
    QTest::keyClick(mView, Qt::Key_Left);
    EXPECT_FALSE(mRoot->GetExpanded());
    QTest::keyClick(mView, Qt::Key_Right);
    EXPECT_TRUE(mRoot->GetExpanded());
}

TEST_F(TreeViewTest, OpeningANodeLetsItsHandlerBringTheChildren) {
    Add(mFirst, "alpha_dummy");
    auto tie = mTree->Events.Expanding.Connect([&](const auto& node) {
        if (node != mFirst) return;
        mTree->SetRedraw(false);
        Add(mFirst, "one");
        Add(mFirst, "two");
        mTree->Nodes.Item("alpha_dummy")->Delete();
        mTree->SetRedraw(true);
    });
    Open();
    ClickExpander(mRoot);
    ClickExpander(mFirst);
    EXPECT_TRUE(mFirst->GetExpanded());
    EXPECT_EQ(Shown(), "root(alpha(one two ) beta ) ");
}

TEST_F(TreeViewTest, ANodeThatItsHandlerEmptiesStaysClosed) {
    auto dummy = Add(mFirst, "alpha_dummy");
    mRoot->SetExpanded(true);
    Open();
    auto tie = mTree->Events.Expanding.Connect([&](const auto&) { dummy->Delete(); });
    ClickExpander(mFirst);
    EXPECT_FALSE(mFirst->GetExpanded());
    EXPECT_EQ(Shown(), "root(alpha beta ) ");
}

TEST_F(TreeViewTest, TheViewFollowsTheModelOneByOneAndUnderTheLock) {
    mRoot->SetExpanded(true);
    Open();
    mTree->Nodes.Add(mSecond, TreeRelationship::Previous, "between", "between");
    mFirst->Delete();
    EXPECT_EQ(Shown(), "root(between beta ) ");
    mTree->SetRedraw(false);
    mSecond->Delete();
    auto gamma = Add(mRoot, "gamma");
    Add(gamma, "inner");
    gamma->SetExpanded(true);
    mTree->Nodes.Add(nullptr, TreeRelationship::Last, "second root", "second root");
    EXPECT_EQ(mView->GetItemModel().data(IndexOf(mRoot), Qt::DisplayRole).toString(), "root");
    mTree->SetRedraw(true);
    EXPECT_EQ(Shown(), "root(between gamma(inner ) ) second root ");
    mTree->Nodes.Clear();
    EXPECT_EQ(Shown(), "");
}

TEST_F(TreeViewTest, PaintingUnderTheLockWhileNodesAreGoneDoesNoHarm) {
    mRoot->SetExpanded(true);
    Open();
    mTree->SetRedraw(false);
    mTree->Nodes.Clear();
    mView->viewport()->repaint();
    QTest::keyClick(mView, Qt::Key_Down);
    Click(mSecond);
    mTree->SetRedraw(true);
    EXPECT_EQ(Shown(), "");
}

TEST_F(TreeViewTest, ASelectionFromCodeOpensNothingAndIsShown) {
    mRoot->SetExpanded(true);
    Open();
    mSecond->SetSelected(true);
    EXPECT_EQ(mView->currentIndex(), IndexOf(mSecond));
    mTree->SetSelectedItem(nullptr);
    EXPECT_FALSE(mView->selectionModel()->hasSelection());
}

TEST_F(TreeViewTest, FocusThatEntersTheTreeSelectsNothingByItself) {
    Open();
    int changes = 0;
    auto tie = mTree->Events.SelectionChange.Connect([&] { ++changes; });
    mView->clearFocus();
    mView->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(mTree->HasFocus());
}

TEST_F(TreeViewTest, AClickOnTheBoxTicksAndRaisesNodeCheckOnce) {
    mTree->SetSupportsSelection(true);
    mRoot->SetExpanded(true);
    Open();
    int checks = 0;
    auto tie = mTree->Events.NodeCheck.Connect([&](const auto&) { ++checks; });
    const QRect row = mView->visualRect(IndexOf(mFirst));
    QTest::mouseClick(mView->viewport(), Qt::LeftButton, {},
                      QPoint(row.left() + 10, row.center().y()));
    EXPECT_TRUE(mFirst->GetChecked());
    EXPECT_EQ(checks, 1);
    mView->setFocus();
    QTest::keyClick(mView, Qt::Key_Space);
    EXPECT_FALSE(mFirst->GetChecked());
    EXPECT_EQ(checks, 2);
}

TEST_F(TreeViewTest, AKeyThatTheModelSwallowsMovesNothing) {
    mRoot->SetExpanded(true);
    mRoot->SetSelected(true);
    Open();
    auto tie = mTree->Events.KeyDown.Connect([](int& keyCode, int) { keyCode = 0; });
    QTest::keyClick(mView, Qt::Key_Down);
    EXPECT_EQ(mTree->GetSelectedItem(), mRoot);
}

TEST_F(TreeViewTest, F2EditsALabelWhereTheTreeAllowsIt) {
    mTree->SetLabelEdit(LabelEditMode::Automatic);
    mRoot->SetSelected(true);
    Open();
    mView->setFocus();
    QTest::keyClick(mView, Qt::Key_F2);
    auto* editor = mView->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    QTest::keyClicks(editor, "renamed");
    QTest::keyClick(editor, Qt::Key_Return);
    QTest::qWait(0);
    EXPECT_EQ(mRoot->GetText(), "renamed");
    EXPECT_FALSE(mTree->GetInLabelEdit());
}

TEST_F(TreeViewTest, StartLabelEditAsksTheModelFirst) {
    mRoot->SetSelected(true);
    Open();
    auto tie = mTree->Events.BeforeLabelEdit.Connect([](bool& cancel) { cancel = true; });
    mTree->StartLabelEdit();
    EXPECT_FALSE(mView->findChild<QLineEdit*>());
    tie.Disconnect();
    mTree->StartLabelEdit();
    auto* editor = mView->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    QTest::keyClick(editor, Qt::Key_Escape);
    EXPECT_EQ(mRoot->GetText(), "root");
    EXPECT_FALSE(mTree->GetInLabelEdit());
}

TEST_F(TreeViewTest, ARowSpeaksItsTextKindAndState) {
    mRoot->SetBold(true);
    TreeItemModel::SetStateText(
        [](const TreeNode& node) { return std::string(node.GetBold() ? "documented" : ""); });
    mTree->SetAccessibleName("Project");
    Open();
    auto* tree = QAccessible::queryAccessibleInterface(mView);
    ASSERT_TRUE(tree);
    EXPECT_EQ(tree->role(), QAccessible::Tree);
    EXPECT_EQ(tree->text(QAccessible::Name), "Project");
    auto* row = tree->tableInterface()->cellAt(0, 0);
    ASSERT_TRUE(row);
    EXPECT_EQ(row->role(), QAccessible::TreeItem);
    EXPECT_EQ(row->text(QAccessible::Name), "root, class, documented");
    TreeItemModel::SetStateText({});
    EXPECT_EQ(IndexOf(mRoot).data(Qt::AccessibleTextRole).toString(), "root, class");
}

TEST_F(TreeViewTest, AnExpanderComesWithTheFirstChildAndGoesWithTheLast) {
    mRoot->SetExpanded(true);
    Open();
    const auto expands = [&](const Ref<TreeNode>& node) {
        QTest::qWait(0);
        QTest::keyClick(mView, Qt::Key_Right);
        const bool open = node->GetExpanded();
        node->SetExpanded(false);
        return open;
    };
    mView->setFocus();
    mFirst->SetSelected(true);
    EXPECT_FALSE(expands(mFirst));
    auto child = Add(mFirst, "child");
    EXPECT_TRUE(expands(mFirst));
    child->Delete();
    EXPECT_FALSE(expands(mFirst));
    mTree->SetRedraw(false);
    Add(mFirst, "child");
    mTree->SetRedraw(true);
    EXPECT_TRUE(expands(mFirst));
}

TEST_F(TreeViewTest, ANodeOpenedUnderTheLockIsShownOpen) {
    mRoot->SetExpanded(true);
    Open();
    mTree->SetRedraw(false);
    Add(mFirst, "child");
    mFirst->SetExpanded(true);
    mTree->SetRedraw(true);
    EXPECT_EQ(Shown(), "root(alpha(child ) beta ) ");
    mSecond->SetText("last");
    Add(mSecond, "a");
    mSecond->SetExpanded(true);
    Add(mSecond, "b");
    EXPECT_EQ(Shown(), "root(alpha(child ) last(a b ) ) ");
}

TEST_F(TreeViewTest, RowsAreMadeOnlyForWhatIsOpened) {
    for (int at = 0; at < 100; ++at)
        Add(mFirst, "child" + std::to_string(at));
    Open();
    EXPECT_FALSE(mView->GetItemModel().IndexOf(mSecond.get()).isValid());
    mRoot->SetExpanded(true);
    EXPECT_TRUE(mView->GetItemModel().IndexOf(mSecond.get()).isValid());
    EXPECT_FALSE(mView->GetItemModel().IndexOf(mFirst->GetChild().get()).isValid());
}

} // namespace
} // namespace paperkite
