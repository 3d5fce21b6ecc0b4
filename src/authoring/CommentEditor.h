#pragma once

#include "authoring/EBCheckBoxes.h"
#include "authoring/InPlaceEditor.h"
#include "authoring/frmTipPopup.h"
#include "foundation/BulwarkSupport.h"
#include "foundation/CommentDesigner.h"
#include "foundation/CommentDesignerHost.h"
#include "foundation/CommentType.h"
#include "foundation/DynamicHelp.h"
#include "foundation/Enums.h"
#include "foundation/Event.h"
#include "foundation/KiteProject.h"
#include "foundation/PageTemplate.h"
#include "foundation/Procedure.h"
#include "foundation/SpellEngine.h"
#include "foundation/TaggedCommentCollection.h"
#include "foundation/TaggedCommentDef.h"
#include "widgets/DesignerControl.h"
#include "widgets/DockHost.h"
#include "widgets/ExplorerBar.h"
#include "widgets/PropertiesList.h"
#include "widgets/SplitPanel.h"
#include "widgets/StackPanel.h"

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace paperkite {

/// A control encapsulating functionality to create, edit and delete Tagged Comments of one code
/// element at a time.
///
/// It lists what the tag definitions of the element's namespace allow, shows what exists, and tells
/// its host through events. It keeps the element's collection, the comments' State and Dirty up to
/// date; storing is the host's. The host owns all model objects and calls Terminate at the end.
///
///     CommentEditor editor;
///     editor.SetAppName("Paperkite");
///     editor.SetKiteProject(project);
///     editor.Load(definition, item, rootItem);
class CommentEditor : public Shielded,
                      public IDynamicHelpContext,
                      public ICommentDesignerHost,
                      public ISimplePageHost {
public:
    CommentEditor();
    ~CommentEditor() override;
    CommentEditor(const CommentEditor&) = delete;
    CommentEditor& operator=(const CommentEditor&) = delete;

    const char* ModuleName() const override { return "CommentEditor"; }
    void DumpVariables(VariableDump& dump) const override;

    // What is edited

    /// Takes up an element, builds the lists, sets the title and clears Dirty, in this order.
    void Load(const Ref<NamespaceDef>& NamespaceDef, const Ref<Object>& Item,
              const Ref<Object>& RootItem, const Picture& TitleIcon = {},
              const std::string& TitleCaption = {});
    const Ref<Object>& GetCurrentCodeElement() const { return mCurrentCodeElement; }
    /// Nothing empties the control and hides its surfaces.
    void SetCurrentCodeElement(const Ref<Object>& value);
    const Ref<NamespaceDef>& GetCurrentNamespaceDef() const { return mCurrentNamespaceDef; }
    void SetCurrentNamespaceDef(const Ref<NamespaceDef>& value);
    /// The comments of the current element: set / return the collection of tagged comments we are
    /// dealing with. Nothing without an element.
    Ref<TaggedCommentCollection> GetTaggedComments() const;
    Ref<KiteProject> GetKiteProject() const { return mKiteProject; }
    /// Also given to the page surface.
    void SetKiteProject(const Ref<KiteProject>& value);

    Ref<paperkite::NamespaceDefs> NamespaceDefs;
    Ref<Object> CurrentRootItem;
    bool CancelSpellCheck = false;

    // Operations

    void Initialize();
    /// Rebuilds the list of tagged comments; with JustRepopulatePL the flags and the bar stay.
    void Refresh(bool JustRepopulatePL);
    /// Clear the control down, releasing CodeElement and TaggedComments handles.
    void Clear();
    /// Commit any edits in progress.
    void CommitEdit();
    /// Delete the specified Comment. An offered row, a header or an unknown key changes nothing.
    void DeleteCommentItem(const std::string& Key);
    /// Forces reloading of settings from the registry.
    void ReloadSettings();
    void Terminate();
    /// The host shows the control for the first time.
    void UserControl_Show();

    // What designers and the page surface report and ask.

    void ICommentDesignerHost_TaggedCommentAdded(const Ref<Object>& Item,
                                                 const Ref<TaggedComment>& TaggedComment) override;
    void
    ICommentDesignerHost_TaggedCommentChanged(const Ref<Object>& Item,
                                              const Ref<TaggedComment>& TaggedComment) override;
    void
    ICommentDesignerHost_TaggedCommentDeleted(const Ref<Object>& Item,
                                              const Ref<TaggedComment>& TaggedComment) override;
    std::string ICommentDesignerHost_AppName() const override { return GetAppName(); }
    std::vector<std::string>
    ICommentDesignerHost_ModuleNames(const std::string& ProjectName) const override;
    std::vector<std::string> ICommentDesignerHost_ProjectNames() const override;
    Ref<PageTemplate> ICommentDesignerHost_Template() override { return GetInPlaceTemplate(); }
    Ref<NamespaceDef> ICommentDesignerHost_NamespaceDef() const override {
        return mCurrentNamespaceDef;
    }
    Ref<Object> ICommentDesignerHost_CurrentParentItem() const override { return {}; }
    Ref<Object> ICommentDesignerHost_CurrentItem() const override { return mCurrentCodeElement; }
    Ref<Object> ICommentDesignerHost_CurrentRootItem() const override { return CurrentRootItem; }
    Ref<Object>
    ICommentDesignerHost_GetObjectFromQualifiedName(const std::string& QualifiedName) override;
    CommentType ICommentDesignerHost_CommentType() const override { return mCommentType; }
    bool ICommentDesignerHost_IsDotNet() const override;
    std::string ICommentDesignerHost_BuildLink(const std::string& ExistingLink, bool GetCaption,
                                               std::string& Caption, bool ShowExternalLinkTypes,
                                               const std::string& DialogCaption,
                                               const std::string& TipPrefix,
                                               bool AddHTMLExtension) override;
    std::string ICommentDesignerHost_BaseURL() const override { return mBaseURL; }
    Value ISimplePageHost_GetDataCell(const Value&) override { return {}; }

    /// The first comment of that Id, tombstones included, or nothing.
    Ref<TaggedComment> GetTaggedCommentByKey(const std::string& Key) const;

    // Properties

    CommentType GetCommentType() const { return mCommentType; }
    /// Also given to the page surface.
    void SetCommentType(CommentType value);
    bool GetDirty() const { return mDirty; }
    /// A different value raises DirtyStateChanged.
    void SetDirty(bool value);
    /// Deleted comments stay in the collection as tombstones.
    bool GetKeepTombstones() const { return mKeepTombstones; }
    void SetKeepTombstones(bool value) { mKeepTombstones = value; }
    /// The template of the page; where none was set, the first visible one that serves the
    /// namespace, or nothing.
    Ref<PageTemplate> GetInPlaceTemplate();
    void SetInPlaceTemplate(const Ref<PageTemplate>& value);
    const std::string& GetBaseURL() const { return mBaseURL; }
    void SetBaseURL(const std::string& value) { mBaseURL = value; }
    std::string GetTitleCaption() const;
    void SetTitleCaption(const std::string& value);
    const Picture& GetTitleIcon() const;
    void SetTitleIcon(const Picture& value);
    /// Specifies a design flag that is matched to each TaggedCommentDefs design flag to allow host
    /// specific filtering of the tagged comments that appear. It works by exclusion.
    const std::string& GetDesignFlag() const { return mDesignFlag; }
    void SetDesignFlag(const std::string& value) { mDesignFlag = value; }
    const std::string& GetProjectName() const { return mProjectName; }
    void SetProjectName(const std::string& value) { mProjectName = value; }
    const std::string& GetAppName() const;
    /// Stored process-wide; also restores the splitter.
    void SetAppName(const std::string& value);
    const std::vector<std::string>& GetModules() const { return mModules; }
    void SetModules(const std::vector<std::string>& value) { mModules = value; }
    /// When set to true, the ## tagged comment is listed as available. Stored and returned only.
    bool GetListImplicitTaggedCommentType() const { return mListImplicitTaggedCommentType; }
    void SetListImplicitTaggedCommentType(bool value) { mListImplicitTaggedCommentType = value; }
    /// When set to true, legacy tagged comment types will be listed as available for adding.
    bool GetShowLegacyTags() const { return mShowLegacyTags; }
    void SetShowLegacyTags(bool value) { mShowLegacyTags = value; }
    Ref<PropertyItem> GetSelectedItem() const { return prpTags->GetSelectedItem(); }
    void SetSelectedItem(const Ref<PropertyItem>& value);
    /// Returns true if a designer has focus.
    bool GetEditInFocus() const { return mEditInFocus; }
    void SetEditInFocus(bool value) { mEditInFocus = value; }
    bool GetAutoSetFocus() const { return mAutoSetFocus; }
    /// Also given to the page surface.
    void SetAutoSetFocus(bool value);
    /// Without the explorer bar: the surfaces fill the control.
    bool GetShowCombo() const { return mShowCombo; }
    void SetShowCombo(bool value);
    /// Returns a handle to the internal PropertiesList control.
    const Ref<PropertiesList>& GetPropertiesListControl() const { return prpTags; }
    /// The engine that spell checks use.
    const Ref<Object>& GetSpellObject() const { return mSpell; }
    /// Designers that are made from now on use it.
    void SetSpellObject(const Ref<Object>& value) { mSpell = value; }
    const SpellOptions& GetSpellOptions() const { return mSpellOptions; }
    /// Handed on to the page surface and the default designer.
    void SetSpellOptions(const SpellOptions& value);
    /// The default designer's object, then those of the designers that were made, in that order.
    Ref<ObjectCollection> GetDesigners() const;
    /// The comments that the active designer edits: those of its tag, or all without one.
    Ref<TaggedCommentCollection> GetActiveTaggedComments() const;
    void SetToolbarStyle(ToolbarStyle value);
    /// Whether the control runs in a host, not in a form designer: only then it keeps settings.
    bool GetUserMode() const { return mUserMode; }
    void SetUserMode(bool value) { mUserMode = value; }

    // Surfaces

    void SetEditFocus();
    /// Moves the focus when the surface has nothing else to do.
    void SetEditFocusQueued();
    /// The HTML editing widget of the active surface, or nothing.
    Ref<HtmlEdit> GetActiveHTMLEditor(bool Immediate) const;
    // Handed on to the page, or else to the default designer; other surfaces take none of these.
    void InsertTable(std::int32_t Rows, std::int32_t Cols);
    void SetForeColorByName(const std::string& ColorName);
    void SetFillColorByName(const std::string& ColorName);
    std::string GetForeColorName() const;
    std::string GetFillColorName() const;
    void ClickEditTool(const std::string& Name);
    /// Selects the page of that layout; an unknown one is reported.
    void SelectInPlaceEditLayout(const std::string& PageLayoutName);
    /// The host's command wrapper, which takes late-bound calls; nothing releases it.
    void BindToWrapper(const Ref<Object>& Wrapper);
    const Ref<Object>& GetCommandWrapper() const { return mWrapper; }
    /// True when the check ran to its end; an element without comments ends at once.
    bool SpellCheck(bool ShowCompletionMessage, const Ref<Object>& PassedSpell = {});
    bool GetSpellCheckInProgress() const;
    /// Lets the author change the options of spell checking; the engine takes them up at once.
    void ShowSpellingOptions();
    void AddIgnoreAll(const std::string& Word);
    /// Searches the page of the element, or else the designers of all tags that are in use.
    void DoFind(const std::string& SearchFor, bool WholeWord, bool CaseSensitive,
                bool SearchInHTML);
    void DoReplace(const std::string& SearchFor, const std::string& ReplaceWith, bool WholeWord,
                   bool CaseSensitive, bool SearchInHTML);

    void IDynamicHelpContext_Initialise(const Ref<DynamicHelpHost>& Notify) override;
    void IDynamicHelpContext_QueryContext(DynamicHelpQuery& query) override;

    struct {
        Event<const std::string&> HyperlinkClick; ///< hRef
        Event<const Ref<Object>&, const Ref<TaggedComment>&> TaggedCommentAdded;
        Event<const Ref<Object>&, const Ref<TaggedComment>&, const std::string&>
            TaggedCommentDeleted; ///< Item, TaggedComment, Key
        Event<const Ref<Object>&, const Ref<TaggedComment>&, const std::string&>
            TaggedCommentChanged; ///< Item, TaggedComment, Key
        Event<> SpellingOptionsRequested;
        Event<const std::string&> SpellIgnoreWordAdded; ///< Word
        Event<> DirtyStateChanged;
        Event<const std::string&, std::vector<MemberInfo>&> GetMemberNames;
        Event<const std::string&, std::string&, bool&> InsertHyperLinkRequest;
        Event<const std::string&, bool, std::string&, std::string&, bool, const std::string&,
              const std::string&, bool>
            BuildLinkRequest;
        Event<> DocumentComplete;
    } Events;

    // The widgets, for views and hosts.

    /// Holds all others; what a host puts into its window.
    Ref<Container> UserControl = MakeRef<Container>("UserControl");
    Ref<SplitPanel> splitMain = MakeRef<SplitPanel>("splitMain");
    Ref<ExplorerBar> eb = MakeRef<ExplorerBar>("eb");
    Ref<StackPanel> tagsContainer = MakeRef<StackPanel>("tagsContainer");
    Ref<PropertiesList> prpTags = MakeRef<PropertiesList>("prpTags");
    Ref<PropertiesList> prpFlags = MakeRef<PropertiesList>("prpFlags");
    Ref<paperkite::InPlaceEditor> InPlaceEditor = MakeRef<paperkite::InPlaceEditor>();
    Ref<StackPanel> DesignerContainer = MakeRef<StackPanel>("DesignerContainer");
    Ref<DockHost> DockCommentTypes = MakeRef<DockHost>("DockCommentTypes");

    /// The designer that shows the current tab, and the definition of that tab; nothing elsewhere.
    Ref<CommentDesigner> ActiveDesigner;
    Ref<TaggedCommentDef> ActiveTaggedCommentDef;

private:
    // Refreshing
    void zKeepSelection(std::string& LastGroupItemCaption, std::string& selectedKey) const;
    void zHideSurfaces();
    void zFillLists(bool JustRepopulatePL, const std::string& LastGroupItemCaption);
    void zRemoveTabs();
    void zRemoveNamedControls();
    void zListPages();
    void zListTab(const Ref<TaggedCommentDef>& definition);
    bool zIsLegacyInUse(const std::string& TagIdentifier) const;
    std::string zNamespaceName() const;
    void zListExistingComments();
    void zListDefinitions(const std::string& NamespaceName, bool JustRepopulatePL);
    void zListFlag(const Ref<TaggedCommentDef>& definition);
    void zListOffer(const Ref<TaggedCommentDef>& definition);
    void zTickFlags();
    void zRefreshGroups(const std::string& LastGroupItemCaption);
    void zSelectGroupItem(const std::string& LastGroupItemCaption);
    void zReselectRow(const std::string& selectedKey);
    Ref<PropertyItem> zAddHeader(const char* key, const char* caption);
    void zRememberCaption(const Ref<PropertyItem>& row);
    void SetCommonProperties(const Ref<PropertyItem>& row);
    std::size_t PLCaptionToIndex(const std::string& Caption) const;
    void UpdateGroupItemStatus();
    void UnloadFlagCheckboxes();
    void TickFlagCheckbox(const std::string& TagID);

    // The life of a comment
    void TaggedCommentAdded(const Ref<Object>& Item, const Ref<TaggedComment>& TaggedComment);
    void TaggedCommentDeleted(const Ref<Object>& Item, const Ref<TaggedComment>& TaggedComment,
                              const std::string& Key);
    void ItemChanged(const Ref<PropertyItem>& PropertyItem);
    void zAddSelectedTag();
    void zAddFlag(const std::string& tagIdentifier);
    void zDeleteSelectedTag();
    std::string zRowToSelectAfter(std::size_t position) const;

    // Widget events
    void prpTags_ButtonClick(const std::string& ButtonKey);
    void prpTags_AfterEdit(const Ref<PropertyItem>& PropertyItem, const std::string& NewValue);
    void prpTags_Change(const Ref<PropertyItem>& PropertyItem);
    void prpTags_SelChange(const Ref<PropertyItem>& PropertyItem);
    void prpTags_DblClick();
    void prpTags_KeyDown(int& KeyCode, int Shift);
    void prpFlags_ItemCheck(const Ref<PropertyItem>& PropertyItem);
    void chkExplorerBar_Click(std::size_t Index);
    void eb_SelChange(const Ref<GroupItem>& Item);

    // Navigation
    Ref<GroupItem> AddExplorerBarItem(const std::string& GroupName, const std::string& Key,
                                      const std::string& Caption);
    void PopulateToolbar();
    void ClearDockCommentTypes();
    void zAddGroupToToolbar(const ExplorerBarGroup& group);
    void zMarkItem(GroupItem& item, bool isUsed);
    void zShowCommandImage(const std::string& name, const std::string& image);
    void zShowTipCommand(bool visible);
    void DockCommentTypes_CommandClick(const Ref<DockCommand>& Command);
    void DockCommentTypes_PopupWindowShowing(const std::string& Name);

    // Surfaces
    void SelectCommentType(const std::string& Key, bool ForceRefresh);
    Ref<GroupItem> zFindItem(const std::string& Key) const;
    void zCheckCommands(const DockCommands& commands, const std::string& Key);
    void CommentTypeSelected(const std::string& Key);
    void zShowList(const Ref<PropertiesList>& shown, const Ref<PropertiesList>& hidden);
    void zShowPage(const std::string& Key);
    void InternalSetEditFocus(bool Immediate);
    std::vector<Ref<Control>> zChildControls() const;
    void zSetTagControls(const std::string& TagIdentifier, bool Enabled);
    Ref<HtmlEdit> zForwardTarget() const;
    void DocumentComplete();

    // Layout
    void UserControl_Resize();
    void DockCommentTypes_ClientResize();
    void tagsContainer_Resize();
    void DesignerContainer_Resize(int Width, int Height);

    // Designers
    std::string DesignerForTaggedComment(const Ref<TaggedCommentDef>& TaggedCommentDef) const;
    Ref<DesignerControl> zFindDesigner(const std::string& name) const;
    Ref<DesignerControl> zControlOf(const Ref<CommentDesigner>& designer) const;
    Ref<DesignerControl> ActiveDesignerControl() const;
    Ref<DesignerControl> zFixedDesigner() const;
    void zMakeFixedDesigner();
    void zOpenTab(const std::string& Key);
    Ref<DesignerControl> zCreateDesignerControl(const Ref<TaggedCommentDef>& TaggedCommentDef);
    void zShowNewDesigner();
    void SetActiveDesignerText();
    void HideActiveDesigner();
    Ref<DataCells> GetDataCells(const Ref<TaggedCommentDef>& TaggedCommentDef) const;
    Ref<Object> zSpellObject() const;
    void zReloadSpelling();
    void zEndDesigners();

    // Searching
    void DoFindReplace(const std::string& SearchFor, const std::string& ReplaceWith, bool WholeWord,
                       bool CaseSensitive, bool SearchInHTML, bool IsReplace);
    bool zGoToPage();
    std::vector<Ref<GroupItem>> zTabsInUse() const;
    void zCheckTabs(const Ref<Object>& PassedSpell);
    void spell_OptionBtnClick();

    // Lifecycle
    void InitControl();
    void zMakeGroups();
    void zMakeToolbar();
    void zConnectSurfaces();
    void zMakeButtons();
    void zConnectLists();
    void zReadDescriptionPane();
    void zLoadIcons();

    InstanceCount mInstanceCount{"CommentEditor", ComponentType::Control};
    bool mShowCombo = false;
    Ref<NamespaceDef> mCurrentNamespaceDef;
    bool mNamespaceChanged = false;
    bool mEditInFocus = false;
    bool mForceChange = false;
    bool mIgnoreReset = false;
    Ref<Object> mCurrentCodeElement;
    bool mShowLegacyTags = false;
    bool mListImplicitTaggedCommentType = false;
    std::string mDesignFlag;
    bool mSpellCheckCancelled = false;
    std::vector<std::string> mModules;
    std::string mProjectName;
    int AddButtonIndex = 0;
    int DeleteButtonIndex = 0;
    bool mNoSetFocus = false;
    Ref<PageTemplate> mInPlaceTemplate;
    Ref<Object> mWrapper;
    Ref<Object> mSpell;
    SpellOptions mSpellOptions;
    std::string mBaseURL;
    Ref<KiteProject> mKiteProject;
    bool mKeepTombstones = false;
    Ref<DynamicHelpHost> mDynamicHelpHost;
    CommentType mCommentType = CommentType::TaggedComments;
    bool mDirty = false;
    bool mAutoSetFocus = true;
    bool mTerminated = false;
    EBCheckBoxes mCheckBoxes;
    bool mPostingtoCheckboxes = false;
    bool mPopulating = false;
    bool mInitialized = false;
    bool mUserMode = false;
    bool mInPlaceEditorIsActive = false;
    std::size_t TaggedCommentCount = 0;
    /// Control names of the designers that were made, in that order.
    std::vector<std::string> CreatedDesigners;
    Ref<frmTipPopup> mTipPopup;
    // The first row of each caption; rows of one tag are told apart by it in one look-up.
    std::unordered_map<std::string, std::size_t> mFirstRowOfCaption;
    std::vector<Connection> mConnections;
    Connection mOptionButton;
};

/// Whether a comma-separated list has an entry that ends with a name; letter case ignored, only the
/// first occurrence is looked at.
bool ContainsNamespace(const std::string& Source, const std::string& NameSpace);

/// How many comments of a tag there are; letter case ignored.
std::size_t FindTaggedComments(const TaggedCommentCollection& Collection,
                               const std::string& TagIdentifier);

/// Whether a comment of that tag needs the name of its element as qualifier.
bool QualifierRequired(const std::string& TagIdentifier,
                       const Ref<TaggedCommentDef>& TaggedCommentDef,
                       const Ref<Object>& CodeElement);

/// The XML tag that a comment maps to, or an empty text.
std::string GetXMLCommentType(const TaggedComment& TaggedComment);

} // namespace paperkite
