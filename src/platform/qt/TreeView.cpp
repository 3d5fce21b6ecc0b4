#include "platform/qt/TreeView.h"

#include "platform/qt/ControlView.h"
#include "platform/qt/Conversions.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

#include <algorithm>

namespace paperkite {

namespace {

// Rows of one height that fits the font, and no native ground under a selected row: the view paints
// the row's whole width itself.
class TreeRowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        return QSize(size.width() + 8, std::max(23, option.fontMetrics.height() + 6));
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const auto* view = qobject_cast<const QAbstractItemView*>(parent());
        const bool selected = option->state & QStyle::State_Selected;
        const bool strong = selected && view && view->hasFocus();
        if (strong)
            option->palette.setColor(QPalette::Text,
                                     option->palette.color(QPalette::HighlightedText));
        option->state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
    }
};

} // namespace

TreeView::TreeView(const Ref<TreeControl>& tree, QWidget* parent)
    : QTreeView(parent), mTree(tree), mItems(new TreeItemModel(tree, this)) {
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setItemDelegate(new TreeRowDelegate(this));
    setMouseTracking(true);
    mItems->RowsUpdated = [this](const QModelIndex& above) {
        FollowExpansion(above);
        ShowSelection();
    };
    mItems->ExpandersChanged = [this] { scheduleDelayedItemsLayout(); };
    setModel(mItems);
    FitRows();
    connect(this, &QTreeView::expanded, [this](const auto& index) { UserExpanded(index, true); });
    connect(this, &QTreeView::collapsed, [this](const auto& index) { UserExpanded(index, false); });
    ControlView::Attach(tree, this);
    mTie = tree->Observe(*this);
    FollowExpansion({});
    ShowSelection();
}

TreeView::~TreeView() = default;

void TreeView::ControlChanged(Control&) {
    setIndentation(mTree->GetIndentation());
    setFrameShape(mTree->GetBorderStyle() == 0 ? QFrame::NoFrame : QFrame::StyledPanel);
    setCursor(mTree->GetMousePointer() == MousePointer::Hourglass ? Qt::WaitCursor
                                                                  : Qt::ArrowCursor);
    setEditTriggers(mTree->GetLabelEdit() == LabelEditMode::Automatic
                        ? QAbstractItemView::EditKeyPressed
                        : QAbstractItemView::NoEditTriggers);
    viewport()->update();
}

void TreeView::FollowExpansion(const QModelIndex& above) {
    const QScopedValueRollback following(mFollowing, true);
    for (const QModelIndex& index : mItems->OpenRows(above)) {
        const Ref<TreeNode> node = mItems->NodeOf(index);
        const bool expanded = node->IsAttached() && node->GetExpanded();
        if (isExpanded(index) != expanded) setExpanded(index, expanded);
        if (expanded) FollowExpansion(index);
    }
}

void TreeView::NodeExpansionChanged(const Ref<TreeNode>& node) {
    const QModelIndex index = mItems->IndexOf(node.get());
    if (!index.isValid()) return;
    const QScopedValueRollback following(mFollowing, true);
    setExpanded(index, node->GetExpanded());
    if (node->GetExpanded()) FollowExpansion(index);
}

void TreeView::UserExpanded(const QModelIndex& index, bool expanded) {
    mItems->NoteOpen(index, expanded);
    if (mFollowing) return;
    const Ref<TreeNode> node = mItems->NodeOf(index);
    if (!node->IsAttached() || node->GetExpanded() == expanded) return;
    const QPersistentModelIndex kept(index);
    mTree->UserToggle(node);
    if (!kept.isValid() || !node->IsAttached()) return;
    const QScopedValueRollback following(mFollowing, true);
    setExpanded(kept, node->GetExpanded());
}

void TreeView::SelectionChanged() {
    ShowSelection();
}

void TreeView::ShowSelection() {
    const QScopedValueRollback following(mFollowing, true);
    const QModelIndex index = mItems->MakeIndexOf(mTree->GetSelectedItem());
    if (index == currentIndex() && selectionModel()->isSelected(index) == index.isValid()) return;
    if (!index.isValid()) {
        selectionModel()->clear();
        return;
    }
    const bool inSight = IsInSight(index);
    setCurrentIndex(index);
    // What was out of sight comes with its surroundings.
    scrollTo(index, inSight ? EnsureVisible : PositionAtCenter);
}

bool TreeView::IsInSight(const QModelIndex& index) const {
    // A row below a closed one has no place, and its rectangle is empty.
    const QRect row = visualRect(index);
    return !row.isEmpty() && viewport()->rect().contains(row.center());
}

void TreeView::NodeWantsToBeSeen(const Ref<TreeNode>& node) {
    const QModelIndex index = mItems->MakeIndexOf(node);
    if (!index.isValid()) return;
    scrollTo(index, IsInSight(index) ? EnsureVisible : PositionAtCenter);
}

void TreeView::LabelEditWanted(const Ref<TreeNode>& node) {
    const QModelIndex index = mItems->MakeIndexOf(node);
    if (index.isValid()) edit(index, AllEditTriggers, nullptr);
}

bool TreeView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool wanted = trigger == AllEditTriggers || (trigger & editTriggers());
    const bool checking = !wanted || trigger == NoEditTriggers;
    if (!checking && !mTree->UserBeginLabelEdit(mItems->NodeOf(index))) return false;
    return QTreeView::edit(index, trigger, event);
}

void TreeView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    mTree->UserCancelLabelEdit();
    QTreeView::closeEditor(editor, hint);
}

void TreeView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTreeView::currentChanged(current, previous);
    if (mFollowing || mInPress || !current.isValid()) return;
    mTree->UserSelect(mItems->NodeOf(current));
    ShowSelection();
}

void TreeView::drawRow(QPainter* painter, const QStyleOptionViewItem& options,
                       const QModelIndex& index) const {
    if (selectionModel()->isSelected(index)) {
        const auto role = hasFocus() ? QPalette::Highlight : QPalette::Midlight;
        painter->fillRect(QRect(0, options.rect.y(), viewport()->width(), options.rect.height()),
                          palette().color(role));
    }
    // The style fills the place of the branches by itself, and knows nothing of the focus.
    QStyleOptionViewItem quiet = options;
    if (!hasFocus())
        quiet.palette.setColor(QPalette::Highlight, palette().color(QPalette::Midlight));
    QTreeView::drawRow(painter, quiet, index);
}

void TreeView::focusInEvent(QFocusEvent* event) {
    {
        // Qt makes the first row the current one; that is no choice of the author's.
        const QScopedValueRollback following(mFollowing, true);
        QTreeView::focusInEvent(event);
    }
    // Lets a screen reader speak the row at once.
    if (currentIndex().isValid()) QTreeView::currentChanged(currentIndex(), QModelIndex());
    viewport()->update();
}

void TreeView::focusOutEvent(QFocusEvent* event) {
    QTreeView::focusOutEvent(event);
    viewport()->update();
}

void TreeView::keyPressEvent(QKeyEvent* event) {
    const int code = KeyCodeOf(*event);
    if (code != KeyNone && mTree->UserKeyDown(code, ShiftOf(event->modifiers())) == 0) return;
    const int character = event->text().isEmpty() ? 0 : event->text().at(0).unicode();
    if (character != 0 && mTree->UserKeyPress(character) == 0) return;
    QTreeView::keyPressEvent(event);
}

void TreeView::keyReleaseEvent(QKeyEvent* event) {
    const int code = KeyCodeOf(*event);
    if (!event->isAutoRepeat() && code != KeyNone &&
        mTree->UserKeyUp(code, ShiftOf(event->modifiers())) == 0)
        return;
    QTreeView::keyReleaseEvent(event);
}

void TreeView::mousePressEvent(QMouseEvent* event) {
    const QPoint position = event->pos();
    const int shift = ShiftOf(event->modifiers());
    mTree->UserMouseDown(ButtonOf(event->button()), shift, position.x(), position.y());
    const QModelIndex pressed = indexAt(position);
    const bool onItem = pressed.isValid() && position.x() >= visualRect(pressed).left();
    const Ref<TreeNode> node = onItem ? mItems->NodeOf(pressed) : Ref<TreeNode>();
    {
        const QScopedValueRollback inPress(mInPress, true);
        QTreeView::mousePressEvent(event);
    }
    if (!node || !node->IsAttached()) return;
    if (event->button() == Qt::LeftButton)
        mTree->UserClick(node);
    else
        mTree->UserSelect(node);
    ShowSelection();
}

void TreeView::mouseReleaseEvent(QMouseEvent* event) {
    QTreeView::mouseReleaseEvent(event);
    mTree->UserMouseUp(ButtonOf(event->button()), ShiftOf(event->modifiers()), event->pos().x(),
                       event->pos().y());
}

void TreeView::mouseMoveEvent(QMouseEvent* event) {
    {
        const QScopedValueRollback inPress(mInPress, true);
        QTreeView::mouseMoveEvent(event);
    }
    if (event->buttons() != Qt::NoButton) ShowSelection();
    const int buttons = (event->buttons() & Qt::LeftButton ? MouseLeft : 0) |
                        (event->buttons() & Qt::RightButton ? MouseRight : 0);
    mTree->UserMouseMove(buttons, ShiftOf(event->modifiers()), event->pos().x(), event->pos().y());
}

void TreeView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex pressed = indexAt(event->pos());
    const bool onItem = pressed.isValid() && event->pos().x() >= visualRect(pressed).left();
    const Ref<TreeNode> node = onItem ? mItems->NodeOf(pressed) : Ref<TreeNode>();
    {
        const QScopedValueRollback inPress(mInPress, true);
        QTreeView::mouseDoubleClickEvent(event);
    }
    if (node && node->IsAttached()) mTree->UserDblClick(node);
}

void TreeView::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (mTree->Nodes.Count() > 0 || mTree->GetEmptyText().empty()) return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(16, 16, -16, -16),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                     ToQString(mTree->GetEmptyText()));
}

void TreeView::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange) FitRows();
}

void TreeView::FitRows() {
    setIconSize(QSize(16, 16) * std::max(1.0, fontMetrics().height() / 17.0));
    scheduleDelayedItemsLayout();
}

} // namespace paperkite
