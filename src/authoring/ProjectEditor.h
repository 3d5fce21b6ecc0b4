#pragma once

#include "authoring/CommentEditor.h"
#include "foundation/BulwarkSupport.h"
#include "foundation/CommentPipe.h"
#include "foundation/DynamicHelp.h"
#include "itemtree/ProjectView.h"
#include "widgets/SplitPanel.h"

#include <cstdint>
#include <string>
#include <vector>

namespace paperkite {

/// The authoring screen: the item tree beside the comment editor, kept in step.
///
/// Clicking an item commits the comments of the last one and loads its own. A comment collection is
/// in the pipe's consolidated form exactly while its item is open. The host binds a command wrapper
/// before the first click, stores what was written, and calls Terminate at the end.
///
///     ProjectEditor editor;
///     editor.SetAppName("Paperkite");
///     editor.SetKiteProject(project);
///     editor.BindToWrapper(wrapper);
///     editor.LoadFromNamespaceDefs(definitions, "kite.source");
class ProjectEditor : public Shielded, public IDynamicHelpContext {
public:
    ProjectEditor();
    ~ProjectEditor() override;
    ProjectEditor(const ProjectEditor&) = delete;
    ProjectEditor& operator=(const ProjectEditor&) = delete;

    const char* ModuleName() const override { return "ProjectEditor"; }
    void DumpVariables(VariableDump& dump) const override;

    // Operations

    void LoadFromNamespaceDefs(const Ref<NamespaceDefs>& NamespaceDefs, const std::string& Moniker);
    void LoadFromNamespaceRootItem(const Ref<NamespaceDefs>& NamespaceDefs,
                                   const Ref<Object>& RootItem);
    void Clear();
    void Refresh();
    void ReloadSettings();
    /// Stores what is being edited and gives the comments back their stored form.
    void CommitEdit();
    void SetEditFocus();
    void NextItem(bool UnCommented);
    void PreviousItem(bool UnCommented);
    /// Checks the current item, or with CheckAll every item of the tree that has comments.
    void SpellCheck(bool CheckAll, bool& Cancel, const Ref<Object>& Spell = {});
    void CancelSpellCheck();
    /// Takes the late-bound calls lockrefresh, unlockrefresh and unlockrefreshabsolute.
    void BindToWrapper(const Ref<Object>& Wrapper);
    void Terminate();

    // Forwarded to the tree

    void HighlightCommentedNodes() { Project.HighlightCommentedNodes(); }
    Ref<Object> GetObjectFromQualifiedName(const std::string& QualifiedName) const {
        return Project.GetObjectFromQualifiedName(QualifiedName);
    }
    bool SelectItem(const std::string& QualifiedName) { return Project.SelectItem(QualifiedName); }
    ProjectView& GetProjectViewControl() { return Project; }

    // Forwarded to the comment editor

    const std::string& GetDesignFlag() const { return cEditor.GetDesignFlag(); }
    void SetDesignFlag(const std::string& value) { cEditor.SetDesignFlag(value); }
    const std::vector<std::string>& GetModules() const { return cEditor.GetModules(); }
    void SetModules(const std::vector<std::string>& value) { cEditor.SetModules(value); }
    const std::string& GetProjectName() const { return cEditor.GetProjectName(); }
    void SetProjectName(const std::string& value) { cEditor.SetProjectName(value); }
    bool GetEditInFocus() const { return cEditor.GetEditInFocus(); }
    void SetEditInFocus(bool value) { cEditor.SetEditInFocus(value); }
    void SetSpellObject(const Ref<Object>& value) { cEditor.SetSpellObject(value); }
    bool GetKeepTombstones() const { return cEditor.GetKeepTombstones(); }
    void SetKeepTombstones(bool value) { cEditor.SetKeepTombstones(value); }
    Ref<PageTemplate> GetInPlaceTemplate() { return cEditor.GetInPlaceTemplate(); }
    void SetInPlaceTemplate(const Ref<PageTemplate>& value) { cEditor.SetInPlaceTemplate(value); }
    bool GetShowCombo() const { return cEditor.GetShowCombo(); }
    void SetShowCombo(bool value) { cEditor.SetShowCombo(value); }
    void SetSpellOptions(const SpellOptions& value) { cEditor.SetSpellOptions(value); }
    CommentEditor& GetCommentEditorControl() { return cEditor; }

    // To both

    Ref<KiteProject> GetKiteProject() const { return mKiteProject.GetObject(); }
    void SetKiteProject(const Ref<KiteProject>& value);
    const std::string& GetAppName() const;
    /// Stored process-wide; also restores the splitter.
    void SetAppName(const std::string& value);
    /// The number of a ToolbarStyle.
    void SetToolbarStyle(int value);
    bool GetShowAllPropertyBlocks() const { return Project.GetShowAllPropertyBlocks(); }
    void SetShowAllPropertyBlocks(bool value) { Project.SetShowAllPropertyBlocks(value); }
    bool GetShowInherited() const { return Project.GetShowInherited(); }
    void SetShowInherited(bool value) { Project.SetShowInherited(value); }

    void PrepNamespaceDef(const Ref<NamespaceDef>& nd);
    /// Kept for hosts; no effect.
    bool GetNoLocks() const { return mNoLocks; }
    void SetNoLocks(bool value) { mNoLocks = value; }
    /// The tree's share in per cent; writing it keeps the setting.
    std::int16_t GetSplitPercent() const;
    void SetSplitPercent(std::int16_t value);
    /// Whether the control runs in a host, not in a form designer: only then it keeps its size.
    bool GetUserMode() const { return mUserMode; }
    void SetUserMode(bool value);

    void IDynamicHelpContext_Initialise(const Ref<DynamicHelpHost>& Notify) override;
    void IDynamicHelpContext_QueryContext(DynamicHelpQuery& query) override;

    struct {
        Event<const Ref<Object>&, const Ref<TaggedComment>&> TaggedCommentAdded;
        Event<const Ref<Object>&, const Ref<TaggedComment>&, const std::string&>
            TaggedCommentDeleted;
        Event<const Ref<Object>&, const Ref<TaggedComment>&, const std::string&>
            TaggedCommentChanged;
        Event<const Ref<TreeNode>&, const Ref<NamespaceDef>&> NodeClickNameSpaceDef;
        Event<const std::string&, std::string&, bool&> InsertHyperLinkRequest;
        Event<const std::string&, bool, std::string&, std::string&, bool, const std::string&,
              const std::string&, bool>
            BuildLinkRequest;
        Event<const std::string&> SpellIgnoreWordAdded;
        Event<> SpellingOptionsRequested;
        Event<> PropertiesRequested;
    } Events;

    // The parts, for views and hosts.

    Ref<SplitPanel> splitMain = MakeRef<SplitPanel>("splitMain");
    ProjectView Project;
    CommentEditor cEditor;

private:
    void Project_NodeClick(const Ref<TreeNode>& Node);
    void zLoadItem(const Ref<TreeNode>& Node, Ref<NamespaceDef>& nd, const Ref<Object>& obj);
    void zReleaseItem();
    void zUpdatePasteState();
    void Project_CopyCommentsRequested();
    void Project_PasteCommentsRequested();
    void Project_AfterCommand();
    void cEditor_HyperlinkClick(const std::string& hRef);
    void zSelectLayout(const std::string& sTmp, const std::string& PageLayoutSuffix);
    void cEditor_TaggedCommentAdded(const Ref<Object>& Item,
                                    const Ref<TaggedComment>& TaggedComment);
    void cEditor_TaggedCommentDeleted(const Ref<Object>& Item,
                                      const Ref<TaggedComment>& TaggedComment,
                                      const std::string& Key);
    void cEditor_DocumentComplete();
    void splitmain_AfterDrag();
    void zMove(void (ProjectView::*move)(bool), bool UnCommented);
    void zCallWrapper(const char* operation);
    bool zCheckNode(const Ref<Object>& Spell);
    void zConnect();

    InstanceCount mInstanceCount{"ProjectEditor", ComponentType::Control};
    bool mTerminated = false;
    ObjectHolder<KiteProject> mKiteProject;
    bool mCancelSpellCheck = false;
    Ref<CommentPipe> mCommentPipe;
    ObjectHolder<DynamicHelpHost> mDynamicHelpHost;
    Ref<Object> mWrapper;
    bool mNoLocks = false;
    bool mUserMode = false;
    std::vector<Connection> mConnections;
};

} // namespace paperkite
