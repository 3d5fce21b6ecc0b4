#pragma once

#include "authoring/ProjectEditor.h"
#include "host/CommandWrapper.h"
#include "host/ProjectSession.h"
#include "host/WorkspaceSpelling.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace paperkite {

/// An open project on the authoring components, with or without a window around them: what the
/// command line and the desktop program share.
class Workspace {
public:
    explicit Workspace(std::unique_ptr<ProjectSession> session);
    ~Workspace();

    ProjectSession& GetSession() { return *mSession; }
    ProjectEditor& GetEditor() { return mEditor; }
    const Ref<CommandWrapper>& GetWrapper() const { return mWrapper; }

    /// Nothing after Release.
    WorkspaceSpelling* GetSpelling() { return mSpelling.get(); }

    /// Loads the tree anew.
    void Load();
    /// Takes newly scanned code: commits what is being edited, lets go of the old items, and loads
    /// the tree anew, opened and selected as it was as far as the items are still there.
    void Adopt(ProjectSession::ScannedCode code);
    /// Commits what is being edited and gives the session to the caller; the workspace is of no use
    /// then.
    std::unique_ptr<ProjectSession> Release();
    /// Opens the way to an item and selects it, grouped or not; false when the tree does not show
    /// it.
    bool Select(const std::string& qualifiedName);
    /// The next item in the tree without comments, behind a node (nothing: from the top), or
    /// nothing. Opens what must be loaded for it.
    Ref<TreeNode> NextUndocumented(const Ref<TreeNode>& after);
    Ref<TreeNode> PreviousUndocumented(const Ref<TreeNode>& before);

    /// After comments of items were changed past the components: brings the tree and the open item
    /// up to date.
    void ShowChanged(const std::vector<std::string>& items);

    /// Commits what is being edited, then saves.
    std::optional<FileProblem> Save();

private:
    void GivePageProject();

    std::unique_ptr<ProjectSession> mSession;
    Ref<CommandWrapper> mWrapper = MakeRef<CommandWrapper>();
    ProjectEditor mEditor;
    std::unique_ptr<WorkspaceSpelling> mSpelling;
};

} // namespace paperkite
