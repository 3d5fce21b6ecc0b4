#pragma once

#include "widgets/Control.h"
#include "widgets/Keys.h"
#include "widgets/TreeNode.h"
#include "widgets/TreeNodes.h"

#include <string>
#include <vector>

namespace paperkite {

/// Told beyond the common things: the nodes' coming, going and changing. While the tree's redraw
/// is off nothing is told; when it comes on, ChildrenChanged names each changed parent once.
class TreeControlObserver : public ControlObserver {
public:
    /// A node is about to stand behind `previous` (nothing: in front) below `parent` (nothing: at
    /// the top level).
    virtual void NodeAboutToCome(const Ref<TreeNode>& /*parent*/,
                                 const Ref<TreeNode>& /*previous*/) {}

    virtual void NodeCame(const Ref<TreeNode>& /*node*/) {}

    /// The node still stands, with all below it.
    virtual void NodeAboutToGo(const Ref<TreeNode>& /*node*/) {}

    virtual void NodeWent(const Ref<TreeNode>& /*parent*/) {}

    /// Text, image, colour, boldness or tick changed.
    virtual void NodeChanged(const Ref<TreeNode>& /*node*/) {}

    virtual void NodeExpansionChanged(const Ref<TreeNode>& /*node*/) {}

    /// Children of the parent (nothing: of the top level) came, went or changed in any way.
    /// Those that stayed stand in the order in which they stood.
    virtual void ChildrenChanged(const Ref<TreeNode>& /*parent*/) {}

    virtual void SelectionChanged() {}

    virtual void NodeWantsToBeSeen(const Ref<TreeNode>& /*node*/) {}

    virtual void LabelEditWanted(const Ref<TreeNode>& /*node*/) {}
};

/// Whether a click on the selected node's text begins to edit it.
enum class LabelEditMode { Automatic = 0, Manual = 1 };

/// A tree of nodes, with or without check boxes.
///
///     auto tree = MakeRef<TreeControl>("tvwProject");
///     auto root = tree->Nodes.Add(nullptr, TreeRelationship::Last, "leveldb", "leveldb");
///     tree->Nodes.Add(root, TreeRelationship::Child, "leveldb~DB", "DB", "class");
///     root->SetExpanded(true);
///
/// Writing the selection raises SelectionChange, then NodeClick for the node that is now selected;
/// the same node again raises nothing. The author's click raises NodeClick on the selected node
/// too.
class TreeControl : public Control {
public:
    explicit TreeControl(std::string name = {});
    ~TreeControl() override;

    TreeNodes Nodes{*this};

    /// The top-level nodes, in order.
    TreeChildren GetTopLevel() const { return TreeChildren(*this, nullptr); }

    /// Nothing when no node is selected.
    Ref<TreeNode> GetSelectedItem() const;
    /// Nothing takes the selection away, which raises SelectionChange only.
    void SetSelectedItem(const Ref<TreeNode>& node);

    bool GetRedraw() const { return mRedraw; }

    /// The switch that keeps a load of any depth down to one paint.
    void SetRedraw(bool value);

    /// The switch of the check boxes.
    bool GetSupportsSelection() const { return mSupportsSelection; }

    void SetSupportsSelection(bool value) { Assign(mSupportsSelection, value); }

    const Ref<ImageList>& GetImageList() const { return mImageList; }

    void SetImageList(const Ref<ImageList>& value) { Assign(mImageList, value); }

    /// 0 flat, 1 three-dimensional.
    int GetAppearance() const { return mAppearance; }

    void SetAppearance(int value) { Assign(mAppearance, value); }

    /// 0 none, 1 a single line.
    int GetBorderStyle() const { return mBorderStyle; }

    void SetBorderStyle(int value) { Assign(mBorderStyle, value); }

    /// Whether the selection is hidden while the focus is elsewhere.
    bool GetHideSelection() const { return mHideSelection; }

    void SetHideSelection(bool value) { Assign(mHideSelection, value); }

    /// Pixels a level.
    int GetIndentation() const { return mIndentation; }

    void SetIndentation(int value) { Assign(mIndentation, value); }

    /// 0 lines between siblings and their parent, 1 lines between top-level nodes too.
    int GetLineStyle() const { return mLineStyle; }

    void SetLineStyle(int value) { Assign(mLineStyle, value); }

    /// 0 to 7: which of lines, expanders, pictures and texts are shown; 7 shows all.
    int GetStyle() const { return mStyle; }

    void SetStyle(int value) { Assign(mStyle, value); }

    bool GetScroll() const { return mScroll; }

    void SetScroll(bool value) { Assign(mScroll, value); }

    LabelEditMode GetLabelEdit() const { return mLabelEdit; }

    void SetLabelEdit(LabelEditMode value) { Assign(mLabelEdit, value); }

    const Picture& GetMouseIcon() const { return mMouseIcon; }

    void SetMouseIcon(const Picture& value) { Assign(mMouseIcon, value); }

    MousePointer GetMousePointer() const { return mMousePointer; }

    void SetMousePointer(MousePointer value) { Assign(mMousePointer, value); }

    /// What stands in an empty tree: what this place is for and the one thing to do next.
    const std::string& GetEmptyText() const { return mEmptyText; }

    void SetEmptyText(const std::string& value) { Assign(mEmptyText, value); }

    /// Begins to edit the selected node's text; without a selection nothing happens.
    void StartLabelEdit();

    bool GetInLabelEdit() const { return mEditedNode != nullptr; }

    struct {
        Event<const Ref<TreeNode>&> NodeClick;
        Event<const Ref<TreeNode>&> NodeDblClick;
        Event<> SelectionChange;
        Event<const Ref<TreeNode>&> Expanding; ///< before a node opens
        Event<const Ref<TreeNode>&> Expand;    ///< after it opened
        Event<const Ref<TreeNode>&> Collapse;  ///< after it closed
        Event<const Ref<TreeNode>&> NodeCheck; ///< the author turned its tick
        Event<> Click;
        Event<> DblClick;
        Event<int&, int> KeyDown; ///< KeyCode, which a handler may set to 0; Shift
        Event<int&> KeyPress;     ///< character code, which a handler may set to 0
        Event<int&, int> KeyUp;
        Event<int, int, int, int> MouseDown; ///< Button, Shift, X and Y in pixels
        Event<int, int, int, int> MouseMove;
        Event<int, int, int, int> MouseUp;
        Event<bool&> BeforeLabelEdit;              ///< Cancel
        Event<bool&, std::string&> AfterLabelEdit; ///< Cancel, NewString
    } Events;

    /// Selects the node (raising SelectionChange if it was not), then NodeClick and Click.
    void UserClick(const Ref<TreeNode>& node);
    /// The keyboard moved to the node: as a write of the selection.
    void UserSelect(const Ref<TreeNode>& node);
    /// DblClick and NodeDblClick; opening the node is the view's own gesture.
    void UserDblClick(const Ref<TreeNode>& node);
    /// Opens a closed node, closes an open one.
    void UserToggle(const Ref<TreeNode>& node);
    /// Turns the tick and raises NodeCheck; without check boxes nothing happens.
    void UserCheck(const Ref<TreeNode>& node);
    /// What the handlers left of the key; 0 means that it was swallowed.
    int UserKeyDown(int keyCode, int shift);
    int UserKeyPress(int character);
    int UserKeyUp(int keyCode, int shift);
    void UserMouseDown(int button, int shift, int x, int y);
    void UserMouseMove(int button, int shift, int x, int y);
    void UserMouseUp(int button, int shift, int x, int y);
    /// Raises BeforeLabelEdit; false when a handler cancelled it.
    bool UserBeginLabelEdit(const Ref<TreeNode>& node);
    /// Ends the edit: AfterLabelEdit, then the text is stored unless a handler cancelled.
    void UserEndLabelEdit(const std::string& text);
    void UserCancelLabelEdit();

private:
    friend class TreeChildren;
    friend class TreeNode;
    friend class TreeNodes;

    void TellComing(TreeNode* parent, TreeNode* previous);
    void TellCame(TreeNode& node);
    void TellGoing(TreeNode& node);
    void TellWent(TreeNode* parent);
    void TellNodeChanged(TreeNode& node);
    void TellExpansionChanged(TreeNode& node);
    void TouchChildrenOf(TreeNode* parent);
    void TellTouchedParents();
    void Open(const Ref<TreeNode>& node);
    void Close(const Ref<TreeNode>& node);
    void TellClearing();
    void TellCleared();
    void TellWantsToBeSeen(const Ref<TreeNode>& node);
    bool HasSelectionBelow(const TreeNode& node) const;
    void SelectionLost();
    void TellSelectionChanged();
    bool Select(const Ref<TreeNode>& node);
    bool IsOwn(const Ref<TreeNode>& node) const;

    Ref<ImageList> mImageList;
    Picture mMouseIcon;
    std::string mEmptyText;
    TreeNode* mSelected = nullptr;
    TreeNode* mEditedNode = nullptr;
    // Parents whose children changed while the redraw was off, each once.
    std::vector<Ref<TreeNode>> mTouchedParents;
    bool mTopLevelTouched = false;
    bool mSelectionTouched = false;
    bool mRedraw = true;
    bool mSupportsSelection = false;
    bool mHideSelection = true;
    bool mScroll = true;
    int mAppearance = 1;
    int mBorderStyle = 1;
    int mIndentation = 20;
    int mLineStyle = 1;
    int mStyle = 7;
    LabelEditMode mLabelEdit = LabelEditMode::Manual;
    MousePointer mMousePointer = MousePointer::Default;
};

} // namespace paperkite
