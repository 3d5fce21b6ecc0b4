#include "authoring/ProjectEditor.h"

#include "authoring/SplitSetting.h"
#include "foundation/Services.h"
#include "foundation/Settings.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

constexpr const char* kSplitSize = "ProjectEditorSplitSize";
constexpr const char* kSplitPercentage = "ViewSplitterPercentage";
constexpr const char* kLayoutPath = "Layout";
constexpr int kDefaultPercentage = 40;
constexpr int kFirstPercentage = 30;

/// The comments of an item, as their collection or as the member that holds it.
Ref<TaggedCommentCollection> CommentsOf(const Ref<Object>& item) {
    return item->Get("TaggedComments").ToObjectOf<TaggedCommentCollection>();
}

} // namespace

ProjectEditor::ProjectEditor() {
    Procedure(*this, "UserControl_Initialize", [&](Frame&) {
        splitMain->SetPercentage(kFirstPercentage);
        splitMain->SetFirstPane(Project.Dock);
        splitMain->SetSecondPane(cEditor.UserControl);
        zConnect();
        if (!CurrentServices().CreateCommentPipe)
            RaiseError(ErrorNumber::CannotCreateComponent, "No comment pipe can be created");
        mCommentPipe = CurrentServices().CreateCommentPipe();
    });
}

ProjectEditor::~ProjectEditor() {
    Procedure(*this, "UserControl_Terminate", [&](Frame&) {
        if (mUserMode) WriteSplitSetting(*splitMain, kSplitSize);
        if (!mTerminated) Terminate();
    });
}

void ProjectEditor::zConnect() {
    const auto keep = [this](Connection connection) {
        mConnections.push_back(std::move(connection));
    };
    const auto passOn = [&]<class... A>(Event<A...>& from, Event<A...>& to, const char* name) {
        keep(from.Connect([this, &to, name](A... arguments) {
            Procedure(*this, name, [&](Frame&) { to.Raise(arguments...); });
        }));
    };
    auto& tree = Project.Events;
    keep(tree.NodeClick.Connect([this](const auto& node) { Project_NodeClick(node); }));
    keep(tree.AfterCommand.Connect([this] { Project_AfterCommand(); }));
    keep(tree.CopyCommentsRequested.Connect([this] { Project_CopyCommentsRequested(); }));
    keep(tree.PasteCommentsRequested.Connect([this] { Project_PasteCommentsRequested(); }));
    passOn(tree.PropertiesRequested, Events.PropertiesRequested, "Project_PropertiesRequested");

    auto& editor = cEditor.Events;
    keep(editor.HyperlinkClick.Connect([this](const auto& href) { cEditor_HyperlinkClick(href); }));
    keep(editor.TaggedCommentAdded.Connect([this](const auto& item, const auto& comment) {
        cEditor_TaggedCommentAdded(item, comment);
    }));
    keep(editor.TaggedCommentDeleted.Connect(
        [this](const auto& item, const auto& comment, const auto& key) {
            cEditor_TaggedCommentDeleted(item, comment, key);
        }));
    keep(editor.DocumentComplete.Connect([this] { cEditor_DocumentComplete(); }));
    passOn(editor.TaggedCommentChanged, Events.TaggedCommentChanged,
           "cEditor_TaggedCommentChanged");
    passOn(editor.InsertHyperLinkRequest, Events.InsertHyperLinkRequest,
           "cEditor_InsertHyperLinkRequest");
    passOn(editor.BuildLinkRequest, Events.BuildLinkRequest, "cEditor_BuildLinkRequest");
    passOn(editor.SpellIgnoreWordAdded, Events.SpellIgnoreWordAdded,
           "cEditor_SpellIgnoreWordAdded");
    passOn(editor.SpellingOptionsRequested, Events.SpellingOptionsRequested,
           "cEditor_SpellingOptionsRequested");
    keep(splitMain->Events.AfterDrag.Connect([this] { splitmain_AfterDrag(); }));
}

void ProjectEditor::LoadFromNamespaceDefs(const Ref<NamespaceDefs>& NamespaceDefs,
                                          const std::string& Moniker) {
    Procedure(*this, "LoadFromNamespaceDefs", [&](Frame& frame) {
        Watch watchDefs(frame, "NamespaceDefs", NamespaceDefs);
        Watch watchMoniker(frame, "Moniker", Moniker);
        LoadFromNamespaceRootItem(NamespaceDefs,
                                  GetRootItem(GetKiteProject(), NamespaceDefs, Moniker));
    });
}

void ProjectEditor::LoadFromNamespaceRootItem(const Ref<NamespaceDefs>& NamespaceDefs,
                                              const Ref<Object>& RootItem) {
    Procedure(*this, "LoadFromNamespaceRootItem", [&](Frame& frame) {
        Watch watchDefs(frame, "NamespaceDefs", NamespaceDefs);
        Watch watchRoot(frame, "RootItem", RootItem);
        Project.LoadFromNamespaceRootItem(NamespaceDefs, RootItem, true);
        if (const auto host = mDynamicHelpHost.GetObject()) host->ContextChanged();
    });
}

void ProjectEditor::Clear() {
    Procedure(*this, "Clear", [&](Frame&) {
        Project.Clear();
        zReleaseItem();
    });
}

void ProjectEditor::zReleaseItem() {
    cEditor.Clear();
    cEditor.SetCurrentCodeElement(nullptr);
}

void ProjectEditor::Refresh() {
    Procedure(*this, "Refresh", [&](Frame&) {
        cEditor.CommitEdit();
        cEditor.Clear();
        Project.Refresh();
    });
}

void ProjectEditor::ReloadSettings() {
    Procedure(*this, "ReloadSettings", [&](Frame&) {
        cEditor.CommitEdit();
        cEditor.ReloadSettings();
        splitMain->SetPercentage(
            GetAppNumber(kSplitPercentage, kDefaultPercentage, 0, 100, kLayoutPath));
    });
}

void ProjectEditor::CommitEdit() {
    Procedure(*this, "CommitEdit", [&](Frame&) {
        const auto element = cEditor.GetCurrentCodeElement();
        if (!element) return;
        cEditor.CommitEdit();
        const auto comments = CommentsOf(element);
        if (comments->GetConsolidated())
            element->Set("TaggedComments", mCommentPipe->Separate(comments));
    });
}

void ProjectEditor::Project_NodeClick(const Ref<TreeNode>& Node) {
    Procedure(*this, "Project_NodeClick", [&](Frame& frame) {
        Watch watchNode(frame, "Node", Node);
        CommitEdit();
        if (IsGroupNode(*Node)) {
            zReleaseItem();
            return;
        }
        Ref<NamespaceDef> nd = FirstDefinitionForType(Project.GetNamespaceDefs(), Node->GetTag());
        const auto provider = GetKiteProject()->NamespaceProvider(nd->Moniker);
        Ref<Object> obj;
        if (provider) {
            Events.NodeClickNameSpaceDef.Raise(Node, nd);
            obj = provider->GetItem(Node->GetKey());
        }
        if (obj)
            zLoadItem(Node, nd, obj);
        else
            zReleaseItem();
        Project.SetCopyCommentsEnabled(true);
        zUpdatePasteState();
    });
}

void ProjectEditor::zLoadItem(const Ref<TreeNode>& Node, Ref<NamespaceDef>& nd,
                              const Ref<Object>& obj) {
    cEditor.CommitEdit();
    const auto comments = CommentsOf(obj);
    if (!comments->GetConsolidated())
        obj->Set("TaggedComments", mCommentPipe->Consolidate(comments));
    // A host binds its wrapper before the first click.
    mWrapper->Call("lockrefresh", {});
    const auto selected = Project.GetSelectedItem();
    const Ref<TreeNode> shown = selected ? selected : Node;
    cEditor.Load(nd, obj, Project.GetCurrentRootItem(), Project.Icon(shown->GetImage()),
                 shown->GetText());
    SetEditFocus();
    if (mWrapper) mWrapper->Call("unlockrefreshabsolute", {});
}

void ProjectEditor::zUpdatePasteState() {
    const auto element = cEditor.GetCurrentCodeElement();
    bool enabled = false;
    if (element) {
        const ControlHelper& helper = Required(CurrentServices().ControlHelper);
        enabled = helper.GetClipboardHasComments() &&
                  element->TypeName() == helper.GetClipboardItemType() &&
                  helper.GetClipboardQualifiedName() != element->Get("QualifiedName").ToText();
    }
    Project.SetPasteCommentsEnabled(enabled);
}

void ProjectEditor::zCallWrapper(const char* operation) {
    const Ref<Object> wrapper = cEditor.GetCommandWrapper();
    wrapper->Call(operation, {});
}

void ProjectEditor::SetEditFocus() {
    Ignoring([&] { cEditor.SetEditFocus(); });
}

void ProjectEditor::zMove(void (ProjectView::*move)(bool), bool UnCommented) {
    zCallWrapper("lockrefresh");
    (Project.*move)(UnCommented);
    zCallWrapper("unlockrefresh");
}

void ProjectEditor::NextItem(bool UnCommented) {
    Procedure(*this, "NextItem", [&](Frame& frame) {
        Watch watchUnCommented(frame, "UnCommented", UnCommented);
        zMove(&ProjectView::NextItem, UnCommented);
    });
}

void ProjectEditor::PreviousItem(bool UnCommented) {
    Procedure(*this, "PreviousItem", [&](Frame& frame) {
        Watch watchUnCommented(frame, "UnCommented", UnCommented);
        zMove(&ProjectView::PreviousItem, UnCommented);
    });
}

void ProjectEditor::Project_AfterCommand() {
    Procedure(*this, "Project_AfterCommand", [&](Frame&) {
        zCallWrapper("lockrefresh");
        cEditor.SetEditFocus();
        zCallWrapper("unlockrefresh");
    });
}

void ProjectEditor::Project_CopyCommentsRequested() {
    Procedure(*this, "Project_CopyCommentsRequested", [&](Frame&) {
        Required(CurrentServices().ControlHelper).CopyComments(cEditor.GetCurrentCodeElement());
    });
}

void ProjectEditor::Project_PasteCommentsRequested() {
    Procedure(*this, "Project_PasteCommentsRequested", [&](Frame&) {
        const auto element = cEditor.GetCurrentCodeElement();
        const std::size_t n = CommentsOf(element)->Count();
        Required(CurrentServices().ControlHelper).PasteComments(element);
        if (CommentsOf(element)->Count() <= n) return;
        const auto node = Project.GetSelectedItem();
        node->SetBold(true);
        Project_NodeClick(node);
    });
}

void ProjectEditor::cEditor_TaggedCommentAdded(const Ref<Object>& Item,
                                               const Ref<TaggedComment>& TaggedComment) {
    Procedure(*this, "cEditor_TaggedCommentAdded", [&](Frame&) {
        if (Project.GetHighlightCommentedItems())
            Ignoring([&] {
                Project.GetNodes().Item(Item->Get("QualifiedName").ToText())->SetBold(true);
            });
        Events.TaggedCommentAdded.Raise(Item, TaggedComment);
    });
}

void ProjectEditor::cEditor_TaggedCommentDeleted(const Ref<Object>& Item,
                                                 const Ref<TaggedComment>& TaggedComment,
                                                 const std::string& Key) {
    Procedure(*this, "cEditor_TaggedCommentDeleted", [&](Frame&) {
        if (Project.GetHighlightCommentedItems())
            Ignoring([&] {
                const bool any = CommentsOf(Item)->UnDeletedTaggedComments()->Count() > 0;
                Project.GetNodes().Item(Item->Get("QualifiedName").ToText())->SetBold(any);
            });
        Events.TaggedCommentDeleted.Raise(Item, TaggedComment, Key);
    });
}

void ProjectEditor::cEditor_DocumentComplete() {
    Procedure(*this, "cEditor_DocumentComplete", [&](Frame&) { cEditor.SetEditFocus(); });
}

void ProjectEditor::SpellCheck(bool CheckAll, bool& Cancel, const Ref<Object>& Spell) {
    Procedure(*this, "SpellCheck", [&](Frame& frame) {
        Watch watchAll(frame, "CheckAll", CheckAll);
        Watch watchCancel(frame, "Cancel", Cancel);
        Watch watchSpell(frame, "Spell", Spell);
        Project.SetEnabled(false);
        mCancelSpellCheck = false;
        cEditor.CancelSpellCheck = false;
        if (!CheckAll) {
            const auto comments = cEditor.GetTaggedComments();
            if (comments && comments->Count() != 0) Cancel = !zCheckNode(Spell);
        } else {
            for (std::size_t index = 1; index <= Project.GetNodes().Count(); ++index) {
                const auto n = Project.GetNodes().Item(index);
                if (!n->GetBold()) continue;
                Project.SetSelectedItem(n);
                Cancel = !zCheckNode(Spell);
                if (Cancel || mCancelSpellCheck) break;
            }
        }
        Project.SetEnabled(true);
    });
}

bool ProjectEditor::zCheckNode(const Ref<Object>& Spell) {
    return cEditor.SpellCheck(false, Spell);
}

void ProjectEditor::CancelSpellCheck() {
    mCancelSpellCheck = true;
    cEditor.CancelSpellCheck = true;
}

void ProjectEditor::SetKiteProject(const Ref<KiteProject>& value) {
    mKiteProject.SetObject(value);
    Project.SetKiteProject(value);
    cEditor.SetKiteProject(value);
}

const std::string& ProjectEditor::GetAppName() const {
    return mAppName;
}

void ProjectEditor::SetAppName(const std::string& value) {
    Procedure(*this, "AppName", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        mAppName = value;
        Project.SetAppName(value);
        cEditor.SetAppName(value);
        ReadSplitSetting(*splitMain, kSplitSize);
    });
}

void ProjectEditor::SetToolbarStyle(int value) {
    Project.SetToolbarStyle(value);
    cEditor.SetToolbarStyle(static_cast<ToolbarStyle>(value));
}

void ProjectEditor::PrepNamespaceDef(const Ref<NamespaceDef>& nd) {
    Procedure(*this, "PrepNamespaceDef", [&](Frame&) { paperkite::PrepNamespaceDef(nd); });
}

std::int16_t ProjectEditor::GetSplitPercent() const {
    return static_cast<std::int16_t>(splitMain->GetPercentage());
}

void ProjectEditor::SetSplitPercent(std::int16_t value) {
    Procedure(*this, "SplitPercent", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        splitMain->SetPercentage(value);
        SetAppValue(kSplitPercentage, splitMain->GetPercentage(), kLayoutPath);
    });
}

void ProjectEditor::splitmain_AfterDrag() {
    SetSplitPercent(GetSplitPercent());
}

void ProjectEditor::SetUserMode(bool value) {
    mUserMode = value;
    cEditor.SetUserMode(value);
}

void ProjectEditor::BindToWrapper(const Ref<Object>& Wrapper) {
    mWrapper = Wrapper;
    cEditor.BindToWrapper(Wrapper);
}

void ProjectEditor::Terminate() {
    if (mTerminated) return;
    mWrapper = nullptr;
    mDynamicHelpHost.SetObject(nullptr);
    Ignoring([&] { Project.Terminate(); });
    Ignoring([&] { cEditor.Terminate(); });
    mTerminated = true;
}

void ProjectEditor::IDynamicHelpContext_Initialise(const Ref<DynamicHelpHost>& Notify) {
    mDynamicHelpHost.SetObject(Notify);
    cEditor.IDynamicHelpContext_Initialise(Notify);
}

void ProjectEditor::IDynamicHelpContext_QueryContext(DynamicHelpQuery& query) {
    Procedure(*this, "IDynamicHelpContext_QueryContext", [&](Frame&) {
        if (Project.GetNodes().Count() == 0) return;
        query.KeywordCollection.push_back("Kite.CommentProjectEditor");
        query.Attributes.emplace_back("Kite.CommentProjectEditor.NamespaceProfile",
                                      Project.GetNamespaceDefs()->GetName());
        cEditor.IDynamicHelpContext_QueryContext(query);
    });
}

void ProjectEditor::DumpVariables(VariableDump& dump) const {
    dump.Add("mTerminated", mTerminated)
        .Add("mKiteProject", mKiteProject)
        .Add("mCancelSpellCheck", mCancelSpellCheck)
        .Add("mCommentPipe", mCommentPipe)
        .Add("mDynamicHelpHost", mDynamicHelpHost)
        .Add("mWrapper", mWrapper)
        .Add("mNoLocks", mNoLocks);
}

} // namespace paperkite
