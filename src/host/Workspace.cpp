#include "host/Workspace.h"

#include "foundation/Services.h"
#include "model/PreviewProject.h"

namespace paperkite {

namespace {

bool IsUndocumentedItem(const TreeNode& node) {
    return !IsGroupNode(node) && !IsPlaceholderKey(node.GetKey()) && !node.GetBold() &&
           node.GetParent();
}

} // namespace

Workspace::Workspace(std::unique_ptr<ProjectSession> session) : mSession(std::move(session)) {
    mEditor.SetAppName("Paperkite");
    mEditor.SetKiteProject(mSession->GetProject());
    // What is deleted stays in the collection until it was saved without it.
    mEditor.SetKeepTombstones(true);
    mEditor.BindToWrapper(mWrapper);
    mSpelling = std::make_unique<WorkspaceSpelling>(*mSession, mEditor);
    Load();
}

Workspace::~Workspace() {
    mEditor.Terminate();
}

void Workspace::Adopt(ProjectSession::ScannedCode code) {
    const std::string treePath = mEditor.Project.GetTreePath();
    mEditor.CommitEdit();
    mEditor.Clear();
    mSession->Adopt(std::move(code));
    mSpelling->CodeChanged();
    Load();
    mEditor.Project.SetTreePath(treePath);
}

void Workspace::Load() {
    mEditor.CommitEdit();
    mEditor.Project.SetImageList(mSession->GetImages());
    mEditor.cEditor.SetCurrentCodeElement(nullptr);
    GivePageProject();
    mEditor.LoadFromNamespaceDefs(mSession->GetDefinitions(), kSourceMoniker);
}

// Pages are made of a project of their own, so that looking at one changes nothing that is saved.
void Workspace::GivePageProject() {
    const auto project = MakeRef<PreviewProject>(Ref<KiteProject>(mSession->GetProject()));
    const auto data = mSession->GetProvider()->GetDataProvider();
    data->Set("Project", Value(Ref<Object>(project)));
    data->Set("PageLinks", Value(true));
    mEditor.cEditor.InPlaceEditor->SetKiteProject(project);
}

void Workspace::ShowChanged(const std::vector<std::string>& items) {
    const ProjectView& tree = mEditor.Project;
    const CommentStore& comments = *mSession->GetProject()->GetComments();
    if (tree.GetHighlightCommentedItems())
        for (const std::string& item : items)
            if (const auto node = tree.GetNodes().Find(item))
                node->SetBold(comments.IsDocumented(item));
    if (!mEditor.cEditor.GetCurrentCodeElement()) return;
    Required(CurrentServices().ControlHelper)
        .SyncGeneralComment(mEditor.cEditor.GetCurrentCodeElement(), false);
    mEditor.cEditor.Refresh(false);
}

std::unique_ptr<ProjectSession> Workspace::Release() {
    mEditor.CommitEdit();
    mEditor.cEditor.SetCurrentCodeElement(nullptr);
    mEditor.Clear();
    mSpelling.reset();
    return std::move(mSession);
}

bool Workspace::Select(const std::string& qualifiedName) {
    if (!mEditor.SelectItem(qualifiedName)) return false;
    const auto node = mEditor.Project.GetSelectedItem();
    if (!node || node->GetKey() != qualifiedName) return false;
    node->EnsureVisible();
    return true;
}

Ref<TreeNode> Workspace::NextUndocumented(const Ref<TreeNode>& after) {
    ProjectView& tree = mEditor.Project;
    Ref<TreeNode> node = after ? tree.NextNode(after) : tree.GetNodes().GetFirst();
    while (node && !IsUndocumentedItem(*node))
        node = tree.NextNode(node);
    return node;
}

Ref<TreeNode> Workspace::PreviousUndocumented(const Ref<TreeNode>& before) {
    ProjectView& tree = mEditor.Project;
    Ref<TreeNode> node = before ? tree.PreviousNode(before) : Ref<TreeNode>();
    while (node && !IsUndocumentedItem(*node))
        node = tree.PreviousNode(node);
    return node;
}

std::optional<FileProblem> Workspace::Save() {
    mEditor.CommitEdit();
    return mSession->GetProject()->Save();
}

} // namespace paperkite
