#pragma once

#include "foundation/Ref.h"
#include "widgets/TreeControl.h"

#include <QAbstractItemModel>
#include <QHash>

#include <functional>
#include <memory>
#include <vector>

namespace paperkite {

/// Follows a TreeControl for Qt's views. A row is made when a view first asks for its parent's
/// children, so that a large tree costs what is seen of it. A row holds its node, which may be
/// detached while the tree's redraw is off; such a row is empty until the tree tells the change.
class TreeItemModel : public QAbstractItemModel, private TreeControlObserver {
public:
    explicit TreeItemModel(const Ref<TreeControl>& tree, QObject* parent = nullptr);
    ~TreeItemModel() override;

    /// Says a node's state for screen readers ("documented", "private"); may be empty.
    using StateText = std::function<std::string(const TreeNode&)>;

    static void SetStateText(StateText stateText);

    /// The node of an index, or nothing for an invalid one.
    Ref<TreeNode> NodeOf(const QModelIndex& index) const;
    /// The index of a node whose parents' rows have been made; invalid otherwise.
    QModelIndex IndexOf(const TreeNode* node) const;
    /// As IndexOf, and makes the rows that are missing.
    QModelIndex MakeIndexOf(const Ref<TreeNode>& node);

    /// The rows below a parent whose nodes are open, or that the view has open (see NoteOpen): few,
    /// however many rows there are.
    std::vector<QModelIndex> OpenRows(const QModelIndex& parent) const;
    /// The view opened or closed a row.
    void NoteOpen(const QModelIndex& index, bool open) { RowOf(index).OpenInView = open; }

    /// Called after the rows below a parent were brought up to date.
    std::function<void(const QModelIndex&)> RowsUpdated;

    /// Called when a row whose children nobody has asked for may have gained its first child or
    /// lost its last one: its expander is to be drawn anew.
    std::function<void()> ExpandersChanged;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// What a screen reader says for the column: the tree's own name.
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row {
        Ref<TreeNode> Node;
        Row* Parent = nullptr;
        int Position = 0;
        bool Populated = false;
        bool OpenInView = false;
        /// Whether mRows holds its children: not before somebody looks for one of them.
        bool Indexed = false;
        std::vector<std::unique_ptr<Row>> Children;
    };

    void NodeCame(const Ref<TreeNode>& node) override;
    void NodeAboutToGo(const Ref<TreeNode>& node) override;
    void NodeWent(const Ref<TreeNode>& parent) override;
    void NodeChanged(const Ref<TreeNode>& node) override;
    void ChildrenChanged(const Ref<TreeNode>& parent) override;

    Row& RowOf(const QModelIndex& index) const;
    Row* FindRow(const TreeNode* node) const;
    void IndexChildren(Row& row) const;
    QModelIndex IndexOf(const Row& row) const;
    TreeChildren ChildrenOf(const Row& row) const;
    void Populate(Row& row) const;
    std::unique_ptr<Row> MakeRow(Row& parent, const Ref<TreeNode>& node) const;
    void Insert(Row& parent, int at, const std::vector<Ref<TreeNode>>& nodes);
    void Remove(Row& parent, int first, int last);
    void TellUnpopulated(const Row& row);
    void RemoveVanished(Row& parent);
    void InsertNewcomers(Row& parent);
    void Forget(const Row& row);
    static void Renumber(Row& parent, std::size_t from);
    QString AccessibleText(const TreeNode& node) const;
    QVariant Decoration(const TreeNode& node) const;

    Ref<TreeControl> mTree;
    mutable Row mRoot;
    mutable QHash<const TreeNode*, Row*> mRows;
    Connection mTie;
};

} // namespace paperkite
