#pragma once

#include "platform/qt/TreeItemModel.h"
#include "widgets/TreeControl.h"

#include <QTreeView>

namespace paperkite {

/// Shows a TreeControl. The author's gestures go to the control first; what it makes of them is
/// what is shown.
class TreeView : public QTreeView, private TreeControlObserver {
public:
    TreeView(const Ref<TreeControl>& tree, QWidget* parent);
    ~TreeView() override;

    TreeItemModel& GetItemModel() const { return *mItems; }

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& options,
                 const QModelIndex& index) const override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void changeEvent(QEvent* event) override;

private:
    void ControlChanged(Control& control) override;
    void NodeExpansionChanged(const Ref<TreeNode>& node) override;
    void SelectionChanged() override;
    void NodeWantsToBeSeen(const Ref<TreeNode>& node) override;
    void LabelEditWanted(const Ref<TreeNode>& node) override;

    void FollowExpansion(const QModelIndex& parent);
    void ShowSelection();
    bool IsInSight(const QModelIndex& index) const;
    void UserExpanded(const QModelIndex& index, bool expanded);
    void FitRows();

    Ref<TreeControl> mTree;
    TreeItemModel* mItems;
    // While set, the view is being brought into step and its signals are no gestures.
    bool mFollowing = false;
    bool mInPress = false;
    Connection mTie;
};

} // namespace paperkite
