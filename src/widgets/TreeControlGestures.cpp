#include "widgets/TreeControl.h"

// The author's gestures.

namespace paperkite {

void TreeControl::UserClick(const Ref<TreeNode>& node) {
    if (!AcceptsGestures() || !IsOwn(node)) return;
    Select(node);
    if (node->IsAttached() && mSelected == node.get()) Events.NodeClick.Raise(node);
    Events.Click.Raise();
}

void TreeControl::UserSelect(const Ref<TreeNode>& node) {
    if (AcceptsGestures() && IsOwn(node)) SetSelectedItem(node);
}

void TreeControl::UserDblClick(const Ref<TreeNode>& node) {
    if (!AcceptsGestures() || !IsOwn(node)) return;
    Events.DblClick.Raise();
    if (node->IsAttached()) Events.NodeDblClick.Raise(node);
}

void TreeControl::UserToggle(const Ref<TreeNode>& node) {
    if (AcceptsGestures() && IsOwn(node)) node->SetExpanded(!node->GetExpanded());
}

void TreeControl::UserCheck(const Ref<TreeNode>& node) {
    if (!AcceptsGestures() || !mSupportsSelection || !IsOwn(node)) return;
    node->SetChecked(!node->GetChecked());
    Events.NodeCheck.Raise(node);
}

int TreeControl::UserKeyDown(int keyCode, int shift) {
    if (AcceptsGestures()) Events.KeyDown.Raise(keyCode, shift);
    return keyCode;
}

int TreeControl::UserKeyPress(int character) {
    if (AcceptsGestures()) Events.KeyPress.Raise(character);
    return character;
}

int TreeControl::UserKeyUp(int keyCode, int shift) {
    if (AcceptsGestures()) Events.KeyUp.Raise(keyCode, shift);
    return keyCode;
}

void TreeControl::UserMouseDown(int button, int shift, int x, int y) {
    if (AcceptsGestures()) Events.MouseDown.Raise(button, shift, x, y);
}

void TreeControl::UserMouseMove(int button, int shift, int x, int y) {
    if (AcceptsGestures()) Events.MouseMove.Raise(button, shift, x, y);
}

void TreeControl::UserMouseUp(int button, int shift, int x, int y) {
    if (AcceptsGestures()) Events.MouseUp.Raise(button, shift, x, y);
}

bool TreeControl::UserBeginLabelEdit(const Ref<TreeNode>& node) {
    if (!AcceptsGestures() || !IsOwn(node)) return false;
    bool cancel = false;
    Events.BeforeLabelEdit.Raise(cancel);
    if (cancel || !node->IsAttached()) return false;
    mEditedNode = node.get();
    return true;
}

void TreeControl::UserEndLabelEdit(const std::string& text) {
    if (!mEditedNode) return;
    const Ref<TreeNode> node = mEditedNode->Self();
    bool cancel = false;
    std::string newText = text;
    Events.AfterLabelEdit.Raise(cancel, newText);
    mEditedNode = nullptr;
    if (!cancel && node->IsAttached()) node->SetText(newText);
}

void TreeControl::UserCancelLabelEdit() {
    mEditedNode = nullptr;
}

} // namespace paperkite
