#include "authoring/CommentEditor.h"

#include "authoring/ScaleModes.h"
#include "authoring/SplitSetting.h"
#include "foundation/GlobalConfig.h"
#include "foundation/Services.h"
#include "foundation/Settings.h"
#include "foundation/Text.h"
#include "widgets/FramePanel.h"

namespace paperkite {

namespace {

constexpr const char* kSplitSize = "CommentEditorSplitSize";
constexpr const char* kDescriptionPane = "Layout\\DescriptionPane";
constexpr const char* kIconFolder = "/icons/commenttypes";
constexpr const char* kHiddenOption = "x";
constexpr const char* kTitleImage = "headerimage";
constexpr std::size_t kTitleImagePosition = 2;
constexpr int kShownDescriptionHeight = 49;
constexpr int kHighestDescription = 1000;
constexpr int kBarPercentage = 28;
constexpr int kOffScreen = -2000;
constexpr const char* kTipPopup = "TipPopup";
constexpr const char* kNoPage =
    "Full Page Edit is not available for this item. You can either edit this item using the parent "
    "items Full Page Edit, or edit comments individually";

bool ServesNamespace(const PageTemplate& pageTemplate, const std::string& name) {
    for (const auto& entry : pageTemplate.Namespaces)
        if (EqualIgnoringCase(entry->Moniker, name)) return true;
    return false;
}

} // namespace

CommentEditor::CommentEditor() {
    Procedure(*this, "UserControl_Initialize", [&](Frame&) {
        mNamespaceChanged = true;
        splitMain->SetPercentage(kBarPercentage);
        splitMain->SetSecondPane(tagsContainer);
        for (const auto& surface : std::initializer_list<Ref<Control>>{
                 prpTags, prpFlags, InPlaceEditor, DesignerContainer})
            tagsContainer->Controls.Add(surface);
        UserControl->Controls.Add(splitMain);
        UserControl->Controls.Add(DockCommentTypes);
        DockCommentTypes->SetVisible(false);
        DesignerContainer->SetVisible(false);
        eb->SetScaleMode(static_cast<int>(ScaleMode::Pixels));
        prpFlags->SetCheckBoxes(true);
        prpTags->SetAccessibleName("Tags");
        prpFlags->SetAccessibleName("Flags");
        eb->SetAccessibleName("Comment types");
        zHideSurfaces();
        mCheckBoxes.SetClickHandler([this](std::size_t index) { chkExplorerBar_Click(index); });
        mCheckBoxes.SetupExplorerBar(*eb);
        zMakeGroups();
        zMakeToolbar();
        zConnectLists();
        zConnectSurfaces();
        zMakeFixedDesigner();
    });
}

CommentEditor::~CommentEditor() {
    Procedure(*this, "UserControl_Terminate", [&](Frame&) {
        if (mUserMode) WriteSplitSetting(*splitMain, kSplitSize);
        Terminate();
    });
}

void CommentEditor::zMakeGroups() {
    const auto images = MakeRef<ImageList>();
    images->Add("tick", {"dialog-ok-apply", {}, "in use"});
    images->Add(kTitleImage, {});
    eb->SetImageList(images);
    const auto main = eb->AddGroup("main", "{Item Name}");
    main->SetIcon(kTitleImage);
    main->SetEmptyText(kNoPage);
    eb->AddGroup("flags", "Flags")->Add("checkboxcontainer", {});
    eb->AddGroup("other", "Other")->Add("other", "Other Information");
}

void CommentEditor::zConnectLists() {
    auto& tags = prpTags->Events;
    mConnections.push_back(
        tags.ButtonClick.Connect([this](const auto& key) { prpTags_ButtonClick(key); }));
    mConnections.push_back(
        tags.AfterEdit.Connect([this](const auto& row, const auto& value, const auto&, bool&) {
            prpTags_AfterEdit(row, value);
        }));
    mConnections.push_back(tags.Change.Connect([this](const auto& row) { prpTags_Change(row); }));
    mConnections.push_back(
        tags.SelChange.Connect([this](const auto& row) { prpTags_SelChange(row); }));
    mConnections.push_back(tags.DblClick.Connect([this] { prpTags_DblClick(); }));
    mConnections.push_back(
        tags.KeyDown.Connect([this](int& key, int shift) { prpTags_KeyDown(key, shift); }));
    mConnections.push_back(
        tags.BeforeExtendedEdit.Connect([](const auto&, bool& cancel) { cancel = true; }));
    // The headers cannot be folded.
    mConnections.push_back(tags.Collapse.Connect([](const auto& row) { row->SetExpanded(true); }));
    mConnections.push_back(
        prpFlags->Events.ItemCheck.Connect([this](const auto& row) { prpFlags_ItemCheck(row); }));
    mConnections.push_back(eb->Events.SelChange.Connect(
        [this](const auto&, const auto& item, const auto&) { eb_SelChange(item); }));
}

void CommentEditor::zMakeToolbar() {
    DockCommentTypes->SetImageList(eb->GetImageList());
    DockCommentTypes->SetAccessibleName("Comment types");
    DockCommentTypes->AddToolbar("Comment types");
    const auto tip = DockCommentTypes->Commands.Add(kTipPopup, "Tip", "help-hint");
    tip->SetToolTipText("Show a popup tip describing the active comment type");
    tip->SetVisible(false);
}

void CommentEditor::zConnectSurfaces() {
    const auto keep = [this](Connection connection) {
        mConnections.push_back(std::move(connection));
    };
    keep(DockCommentTypes->Events.CommandClick.Connect(
        [this](const auto& command) { DockCommentTypes_CommandClick(command); }));
    keep(DockCommentTypes->Events.PopupWindowShowing.Connect(
        [this](const auto& name) { DockCommentTypes_PopupWindowShowing(name); }));
    keep(
        DockCommentTypes->Events.ClientResize.Connect([this] { DockCommentTypes_ClientResize(); }));
    keep(UserControl->ControlEvents.Resize.Connect([this](int, int) { UserControl_Resize(); }));
    keep(tagsContainer->ControlEvents.Resize.Connect([this](int, int) { tagsContainer_Resize(); }));
    keep(DesignerContainer->ControlEvents.Resize.Connect(
        [this](int width, int height) { DesignerContainer_Resize(width, height); }));
    keep(eb->ControlEvents.Resize.Connect([this](int, int) {
        Procedure(*this, "eb_Resize", [&](Frame&) { mCheckBoxes.ResizeCheckboxes(*eb); });
    }));
    const auto passOn = [&]<class... A>(Event<A...>& from, Event<A...>& to, const char* name) {
        keep(from.Connect([this, &to, name](A... arguments) {
            Procedure(*this, name, [&](Frame&) { to.Raise(arguments...); });
        }));
    };
    auto& page = InPlaceEditor->Events;
    keep(page.DocumentComplete.Connect([this] { DocumentComplete(); }));
    passOn(page.HyperlinkClick, Events.HyperlinkClick, "InPlaceEditor_HyperlinkClick");
    passOn(page.InsertHyperLinkRequest, Events.InsertHyperLinkRequest,
           "InPlaceEditor_InsertHyperLinkRequest");
    passOn(page.SpellIgnoreWordAdded, Events.SpellIgnoreWordAdded,
           "InPlaceEditor_SpellIgnoreWordAdded");
}

void CommentEditor::Initialize() {
    InitControl();
}

void CommentEditor::InitControl() {
    Procedure(*this, "InitControl", [&](Frame&) {
        if (mInitialized) return;
        eb->GetGroup("flags")
            ->Item("checkboxcontainer")
            ->SetControl(MakeRef<FramePanel>("fraExplorerBar"));
        splitMain->SetFirstPane(mShowCombo ? Ref<Control>() : Ref<Control>(eb));
        zMakeFixedDesigner();
        if (const auto fixed = zFixedDesigner()) fixed->SetLeft(kOffScreen);
        if (const auto engine = CurrentServices().Spelling)
            mOptionButton =
                engine->Events.OptionBtnClick.Connect([this] { spell_OptionBtnClick(); });
        InPlaceEditor->SetLeft(kOffScreen);
        InPlaceEditor->SetVisible(false);
        mNamespaceChanged = true;
        zMakeButtons();
        prpTags->SetColumnCaption("Name", "Tag");
        prpTags->SetColumnCaption("Value", "Value");
        zReadDescriptionPane();
        zLoadIcons();
        mTipPopup = MakeRef<frmTipPopup>();
        DockCommentTypes->PopupWindow(kTipPopup).Content = mTipPopup;
        CreatedDesigners.clear();
        mInitialized = true;
    });
}

void CommentEditor::zMakeButtons() {
    // An initialisation that failed behind this is tried again.
    if (AddButtonIndex != 0) return;
    AddButtonIndex =
        prpTags->AddButton("AddButton", "Click to add this tag", "list-add", "Add Tag");
    DeleteButtonIndex = prpTags->AddButton("DeleteButton", "Delete Tag", "edit-delete");
    prpTags->SetButtonVisible(AddButtonIndex, false);
    prpTags->SetButtonVisible(DeleteButtonIndex, false);
}

void CommentEditor::zReadDescriptionPane() {
    prpTags->SetDescriptionVisible(
        GetAppValue("Visible", 1, kConvertToNumber, kDescriptionPane).ToBoolean());
    prpTags->SetDescriptionHeight(
        GetAppNumber("Height", 75, 0, kHighestDescription, kDescriptionPane));
}

void CommentEditor::zLoadIcons() {
    if (!CurrentServices().FileSystem) return;
    const std::string folder = CurrentServices().ApplicationFolder + kIconFolder;
    const auto names = CurrentServices().FileSystem->FilesWithExtension(folder, ".ico");
    for (const std::string& name : names)
        if (!eb->GetImageList()->Contains(LowerCase(name)))
            eb->GetImageList()->Add(LowerCase(name), {{}, folder + "/" + name + ".ico", {}});
}

void CommentEditor::UserControl_Show() {
    Procedure(*this, "UserControl_Show", [&](Frame&) {
        for (const auto& list : {prpTags, prpFlags}) {
            list->SetDescriptionHeightFixed(true);
            list->SetDescriptionHeight(kShownDescriptionHeight);
        }
        tagsContainer->FillControls();
    });
}

void CommentEditor::ReloadSettings() {
    Procedure(*this, "ReloadSettings", [&](Frame&) {
        zReloadSpelling();
        zReadDescriptionPane();
    });
}

void CommentEditor::Terminate() {
    if (mTerminated) return;
    mTerminated = true;
    mOptionButton.Disconnect();
    Procedure(*this, "Terminate", [&](Frame&) {
        NamespaceDefs = nullptr;
        CurrentRootItem = nullptr;
        UnloadFlagCheckboxes();
        eb->GetGroup("flags")->Item("checkboxcontainer")->SetControl(nullptr);
        zEndDesigners();
        InPlaceEditor->Terminate();
        mCurrentCodeElement = nullptr;
        mCurrentNamespaceDef = nullptr;
        mKiteProject = nullptr;
        mInPlaceTemplate = nullptr;
        mWrapper = nullptr;
        mSpell = nullptr;
        mDynamicHelpHost = nullptr;
        DockCommentTypes->PopupWindow(kTipPopup).Content = nullptr;
        mTipPopup = nullptr;
    });
}

void CommentEditor::SetKiteProject(const Ref<KiteProject>& value) {
    mKiteProject = value;
    InPlaceEditor->SetKiteProject(value);
}

void CommentEditor::SetCommentType(CommentType value) {
    mCommentType = value;
    InPlaceEditor->CommentType = value;
}

void CommentEditor::SetAutoSetFocus(bool value) {
    mAutoSetFocus = value;
    InPlaceEditor->AutoSetFocus = value;
}

void CommentEditor::Load(const Ref<paperkite::NamespaceDef>& NamespaceDef, const Ref<Object>& Item,
                         const Ref<Object>& RootItem, const Picture& TitleIcon,
                         const std::string& TitleCaption) {
    Procedure(*this, "Load", [&](Frame& frame) {
        Watch watchDef(frame, "NamespaceDef", NamespaceDef);
        Watch watchItem(frame, "Item", Item);
        Watch watchRoot(frame, "RootItem", RootItem);
        Watch watchCaption(frame, "TitleCaption", TitleCaption);
        SetCurrentNamespaceDef(NamespaceDef);
        CurrentRootItem = RootItem;
        SetCurrentCodeElement(Item);
        SetTitleCaption(TitleCaption);
        SetTitleIcon(TitleIcon);
        SetDirty(false);
    });
}

void CommentEditor::SetCurrentCodeElement(const Ref<Object>& value) {
    Procedure(*this, "CurrentCodeElement", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        if (!mInitialized) InitControl();
        mCurrentCodeElement = value;
        if (mCurrentCodeElement)
            Required(CurrentServices().ControlHelper).SyncGeneralComment(mCurrentCodeElement, true);
        Refresh(false);
    });
}

void CommentEditor::SetCurrentNamespaceDef(const Ref<NamespaceDef>& value) {
    if (mCurrentNamespaceDef == value) return;
    mCurrentNamespaceDef = value;
    mNamespaceChanged = true;
}

Ref<TaggedCommentCollection> CommentEditor::GetTaggedComments() const {
    return Procedure<Ref<TaggedCommentCollection>>(
        *this, "TaggedComments", [&](Ref<TaggedCommentCollection>& result, Frame&) {
            if (!mCurrentCodeElement) return;
            result =
                mCurrentCodeElement->Get("TaggedComments").ToObjectOf<TaggedCommentCollection>();
        });
}

void CommentEditor::SetDirty(bool value) {
    if (mDirty == value) return;
    mDirty = value;
    Procedure(*this, "Dirty", [&](Frame&) { Events.DirtyStateChanged.Raise(); });
}

Ref<PageTemplate> CommentEditor::GetInPlaceTemplate() {
    return Procedure<Ref<PageTemplate>>(
        *this, "InPlaceTemplate", [&](Ref<PageTemplate>& result, Frame&) {
            if (!mInPlaceTemplate && mCurrentNamespaceDef) {
                const std::string name = mCurrentNamespaceDef->GetParentDefs()->GetName();
                for (const auto& candidate : GlobalConfig().Templates) {
                    if (ContainsIgnoringCase(candidate->Options, kHiddenOption)) continue;
                    if (!ServesNamespace(*candidate, name)) continue;
                    mInPlaceTemplate = candidate;
                    break;
                }
            }
            result = mInPlaceTemplate;
        });
}

void CommentEditor::SetInPlaceTemplate(const Ref<PageTemplate>& value) {
    mInPlaceTemplate = value;
    if (!InPlaceEditor->GetTag().empty()) {
        InPlaceEditor->CommitEdit();
        InPlaceEditor->Initialize(this, GetAppName(), mBaseURL);
    }
    Refresh(false);
}

std::string CommentEditor::GetTitleCaption() const {
    return eb->GetGroup(1)->GetCaption();
}

void CommentEditor::SetTitleCaption(const std::string& value) {
    eb->GetGroup(1)->SetCaption(value);
}

const Picture& CommentEditor::GetTitleIcon() const {
    return eb->GetImageList()->Item(kTitleImagePosition);
}

void CommentEditor::SetTitleIcon(const Picture& value) {
    eb->GetImageList()->Replace(kTitleImagePosition, value);
}

const std::string& CommentEditor::GetAppName() const {
    return mAppName;
}

void CommentEditor::SetAppName(const std::string& value) {
    Procedure(*this, "AppName", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        mAppName = value;
        ReadSplitSetting(*splitMain, kSplitSize);
    });
}

void CommentEditor::SetSelectedItem(const Ref<PropertyItem>& value) {
    Procedure(*this, "SelectedItem", [&](Frame&) { prpTags->SetSelectedItem(value); });
}

void CommentEditor::DumpVariables(VariableDump& dump) const {
    dump.Add("NamespaceDefs", NamespaceDefs)
        .Add("CurrentRootItem", CurrentRootItem)
        .Add("CancelSpellCheck", CancelSpellCheck)
        .Add("mShowCombo", mShowCombo)
        .Add("mCurrentNamespaceDef", mCurrentNamespaceDef)
        .Add("mNamespaceChanged", mNamespaceChanged)
        .Add("mEditInFocus", mEditInFocus)
        .Add("mForceChange", mForceChange)
        .Add("mIgnoreReset", mIgnoreReset)
        .Add("mCurrentCodeElement", mCurrentCodeElement)
        .Add("mShowLegacyTags", mShowLegacyTags)
        .Add("mListImplicitTaggedCommentType", mListImplicitTaggedCommentType)
        .Add("mDesignFlag", mDesignFlag)
        .Add("mSpellCheckCancelled", mSpellCheckCancelled)
        .Add("mModules", Value::ArrayOfTexts(mModules))
        .Add("mProjectName", mProjectName)
        .Add("ActiveDesigner", ActiveDesigner)
        .Add("ActiveTaggedCommentDef", ActiveTaggedCommentDef)
        .Add("AddButtonIndex", AddButtonIndex)
        .Add("DeleteButtonIndex", DeleteButtonIndex)
        .Add("mNoSetFocus", mNoSetFocus)
        .Add("mInPlaceTemplate", mInPlaceTemplate)
        .Add("mWrapper", mWrapper)
        .Add("mSpell", mSpell)
        .Add("CreatedDesigners", Value::ArrayOfTexts(CreatedDesigners))
        .Add("mBaseURL", mBaseURL)
        .Add("mKiteProject", mKiteProject)
        .Add("mInPlaceEditorIsActive", mInPlaceEditorIsActive)
        .Add("mKeepTombstones", mKeepTombstones)
        .Add("mDynamicHelpHost", mDynamicHelpHost)
        .Add("mCommentType", static_cast<int>(mCommentType))
        .Add("mTipPopup", mTipPopup)
        .Add("mDirty", mDirty)
        .Add("mAutoSetFocus", mAutoSetFocus)
        .Add("mTerminated", mTerminated);
    dump.Append(DumpFixed("mCheckBoxes", "{EBCheckBoxes}"));
    dump.Add("mPostingtoCheckboxes", mPostingtoCheckboxes)
        .Add("mPopulating", mPopulating)
        .Add("mInitialized", mInitialized);
}

} // namespace paperkite
