#include "platform/qt/TreeItemModel.h"

#include "platform/qt/Conversions.h"
#include "platform/qt/Icons.h"

#include <QApplication>
#include <QFont>
#include <QPalette>

#include <algorithm>

namespace paperkite {

namespace {

TreeItemModel::StateText& CurrentStateText() {
    static TreeItemModel::StateText stateText;
    return stateText;
}

} // namespace

TreeItemModel::TreeItemModel(const Ref<TreeControl>& tree, QObject* parent)
    : QAbstractItemModel(parent), mTree(tree) {
    mTie = tree->Observe(*this);
}

TreeItemModel::~TreeItemModel() = default;

void TreeItemModel::SetStateText(StateText stateText) {
    CurrentStateText() = std::move(stateText);
}

Ref<TreeNode> TreeItemModel::NodeOf(const QModelIndex& index) const {
    return index.isValid() ? RowOf(index).Node : Ref<TreeNode>();
}

TreeItemModel::Row& TreeItemModel::RowOf(const QModelIndex& index) const {
    return index.isValid() ? *static_cast<Row*>(index.internalPointer()) : mRoot;
}

TreeItemModel::Row* TreeItemModel::FindRow(const TreeNode* node) const {
    if (!node) return &mRoot;
    if (Row* const row = mRows.value(node, nullptr)) return row;
    if (!node->IsAttached()) return nullptr;
    Row* const above = FindRow(node->GetParent().get());
    if (!above || !above->Populated || above->Indexed) return nullptr;
    IndexChildren(*above);
    return mRows.value(node, nullptr);
}

void TreeItemModel::IndexChildren(Row& row) const {
    row.Indexed = true;
    mRows.reserve(mRows.size() + static_cast<qsizetype>(row.Children.size()));
    for (const auto& child : row.Children)
        mRows.insert(child->Node.get(), child.get());
}

QModelIndex TreeItemModel::IndexOf(const Row& row) const {
    return &row == &mRoot ? QModelIndex() : createIndex(row.Position, 0, &row);
}

QModelIndex TreeItemModel::IndexOf(const TreeNode* node) const {
    const Row* row = node ? FindRow(node) : nullptr;
    return row ? IndexOf(*row) : QModelIndex();
}

QModelIndex TreeItemModel::MakeIndexOf(const Ref<TreeNode>& node) {
    if (!node || !node->IsAttached()) return {};
    if (!FindRow(node.get())) {
        const Ref<TreeNode> above = node->GetParent();
        if (above && !MakeIndexOf(above).isValid()) return {};
        Populate(*FindRow(above.get()));
    }
    return IndexOf(node.get());
}

TreeChildren TreeItemModel::ChildrenOf(const Row& row) const {
    return row.Node ? row.Node->GetChildren() : mTree->GetTopLevel();
}

void TreeItemModel::Populate(Row& row) const {
    if (row.Populated || (row.Node && !row.Node->IsAttached())) return;
    row.Populated = true;
    row.Children.reserve(ChildrenOf(row).Count());
    for (const auto& child : ChildrenOf(row))
        row.Children.push_back(MakeRow(row, child));
    Renumber(row, 0);
}

std::unique_ptr<TreeItemModel::Row> TreeItemModel::MakeRow(Row& parent,
                                                           const Ref<TreeNode>& node) const {
    auto row = std::make_unique<Row>();
    row->Node = node;
    row->Parent = &parent;
    if (parent.Indexed) mRows.insert(node.get(), row.get());
    return row;
}

void TreeItemModel::Renumber(Row& parent, std::size_t from) {
    for (std::size_t at = from; at < parent.Children.size(); ++at)
        parent.Children[at]->Position = static_cast<int>(at);
}

std::vector<QModelIndex> TreeItemModel::OpenRows(const QModelIndex& above) const {
    Row& parentRow = RowOf(above);
    Populate(parentRow);
    std::vector<QModelIndex> open;
    for (const auto& row : parentRow.Children)
        if (row->OpenInView || (row->Node->IsAttached() && row->Node->GetExpanded()))
            open.push_back(IndexOf(*row));
    return open;
}

QModelIndex TreeItemModel::index(int row, int column, const QModelIndex& above) const {
    Row& parentRow = RowOf(above);
    Populate(parentRow);
    if (column != 0 || row < 0 || row >= static_cast<int>(parentRow.Children.size())) return {};
    return createIndex(row, 0, parentRow.Children[static_cast<std::size_t>(row)].get());
}

QModelIndex TreeItemModel::parent(const QModelIndex& index) const {
    return index.isValid() ? IndexOf(*RowOf(index).Parent) : QModelIndex();
}

int TreeItemModel::rowCount(const QModelIndex& above) const {
    Row& row = RowOf(above);
    Populate(row);
    return static_cast<int>(row.Children.size());
}

int TreeItemModel::columnCount(const QModelIndex&) const {
    return 1;
}

bool TreeItemModel::hasChildren(const QModelIndex& above) const {
    const Row& row = RowOf(above);
    if (row.Populated) return !row.Children.empty();
    return !row.Node || (row.Node->IsAttached() && row.Node->GetIsExpandable());
}

QVariant TreeItemModel::data(const QModelIndex& index, int role) const {
    const Ref<TreeNode> node = NodeOf(index);
    if (!node || !node->IsAttached()) return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return ToQString(node->GetText());
    case Qt::DecorationRole:
        return Decoration(*node);
    case Qt::AccessibleTextRole:
        return AccessibleText(*node);
    case Qt::FontRole:
        if (node->GetBold()) {
            QFont font = QApplication::font("QTreeView");
            font.setBold(true);
            return font;
        }
        return {};
    case Qt::ForegroundRole:
        if (const Colour colour = node->GetForeColor())
            return TextColourOn(QApplication::palette(), *colour);
        return {};
    case Qt::CheckStateRole:
        if (!mTree->GetSupportsSelection()) return {};
        return node->GetChecked() ? Qt::Checked : Qt::Unchecked;
    default:
        return {};
    }
}

QVariant TreeItemModel::Decoration(const TreeNode& node) const {
    const bool open = node.GetExpanded() && !node.GetExpandedImage().empty();
    const QIcon icon =
        Icons::InList(mTree->GetImageList(), open ? node.GetExpandedImage() : node.GetImage());
    return icon.isNull() ? QVariant() : QVariant(icon);
}

QString TreeItemModel::AccessibleText(const TreeNode& node) const {
    QStringList parts{ToQString(node.GetText())};
    parts << ToQString(Icons::AccessibleName(mTree->GetImageList(), node.GetImage()));
    if (CurrentStateText()) parts << ToQString(CurrentStateText()(node));
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

bool TreeItemModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    const Ref<TreeNode> node = NodeOf(index);
    if (!node || !node->IsAttached()) return false;
    if (role == Qt::CheckStateRole) {
        mTree->UserCheck(node);
        return true;
    }
    if (role != Qt::EditRole) return false;
    mTree->UserEndLabelEdit(FromQString(value.toString()));
    return true;
}

Qt::ItemFlags TreeItemModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable;
    if (mTree->GetSupportsSelection()) flags |= Qt::ItemIsUserCheckable;
    return flags;
}

QVariant TreeItemModel::headerData(int, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return ToQString(mTree->GetAccessibleName());
}

void TreeItemModel::NodeCame(const Ref<TreeNode>& node) {
    const Ref<TreeNode> above = node->GetParent();
    Row* parentRow = FindRow(above.get());
    if (!parentRow) return;
    if (!parentRow->Populated) {
        TellUnpopulated(*parentRow);
        return;
    }
    const Ref<TreeNode> previous = node->GetPrevious();
    const Row* before = previous ? FindRow(previous.get()) : nullptr;
    Insert(*parentRow, before ? before->Position + 1 : 0, {node});
    if (RowsUpdated) RowsUpdated(IndexOf(*parentRow));
}

void TreeItemModel::NodeAboutToGo(const Ref<TreeNode>& node) {
    Row* row = FindRow(node.get());
    if (row) Remove(*row->Parent, row->Position, row->Position);
}

void TreeItemModel::NodeChanged(const Ref<TreeNode>& node) {
    const QModelIndex changed = IndexOf(node.get());
    if (changed.isValid()) emit dataChanged(changed, changed);
}

void TreeItemModel::ChildrenChanged(const Ref<TreeNode>& above) {
    Row* row = FindRow(above.get());
    if (!row) return;
    if (!row->Populated) {
        TellUnpopulated(*row);
        return;
    }
    RemoveVanished(*row);
    InsertNewcomers(*row);
    if (!row->Children.empty())
        emit dataChanged(IndexOf(*row->Children.front()), IndexOf(*row->Children.back()));
    if (RowsUpdated) RowsUpdated(IndexOf(*row));
}

void TreeItemModel::NodeWent(const Ref<TreeNode>& above) {
    const Row* row = FindRow(above.get());
    if (row && !row->Populated) TellUnpopulated(*row);
}

// A closed row's children stay unmade, however many there are.
void TreeItemModel::TellUnpopulated(const Row& row) {
    if (ExpandersChanged) ExpandersChanged();
    const bool open = !row.Node || (row.Node->IsAttached() && row.Node->GetExpanded());
    if (open && RowsUpdated) RowsUpdated(IndexOf(row));
}

void TreeItemModel::RemoveVanished(Row& parentRow) {
    const auto vanished = [&](int at) {
        return !parentRow.Children[static_cast<std::size_t>(at)]->Node->IsAttached();
    };
    for (int last = static_cast<int>(parentRow.Children.size()) - 1; last >= 0; --last) {
        if (!vanished(last)) continue;
        int first = last;
        while (first > 0 && vanished(first - 1))
            --first;
        Remove(parentRow, first, last);
        last = first;
    }
}

void TreeItemModel::InsertNewcomers(Row& parentRow) {
    int at = 0;
    std::vector<Ref<TreeNode>> newcomers;
    const auto insert = [&] {
        Insert(parentRow, at, newcomers);
        at += static_cast<int>(newcomers.size());
        newcomers.clear();
    };
    for (const auto& child : ChildrenOf(parentRow)) {
        if (!FindRow(child.get())) {
            newcomers.push_back(child);
            continue;
        }
        insert();
        ++at;
    }
    insert();
}

void TreeItemModel::Insert(Row& parentRow, int at, const std::vector<Ref<TreeNode>>& nodes) {
    if (nodes.empty()) return;
    beginInsertRows(IndexOf(parentRow), at, at + static_cast<int>(nodes.size()) - 1);
    std::vector<std::unique_ptr<Row>> rows;
    for (const auto& node : nodes)
        rows.push_back(MakeRow(parentRow, node));
    parentRow.Children.insert(parentRow.Children.begin() + at,
                              std::make_move_iterator(rows.begin()),
                              std::make_move_iterator(rows.end()));
    Renumber(parentRow, static_cast<std::size_t>(at));
    endInsertRows();
}

void TreeItemModel::Remove(Row& parentRow, int first, int last) {
    beginRemoveRows(IndexOf(parentRow), first, last);
    const auto from = parentRow.Children.begin() + first;
    const auto to = parentRow.Children.begin() + last + 1;
    std::for_each(from, to, [this](const auto& row) { Forget(*row); });
    parentRow.Children.erase(from, to);
    Renumber(parentRow, static_cast<std::size_t>(first));
    endRemoveRows();
}

void TreeItemModel::Forget(const Row& row) {
    mRows.remove(row.Node.get());
    for (const auto& child : row.Children)
        Forget(*child);
}

} // namespace paperkite
