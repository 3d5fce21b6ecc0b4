#include "authoring/CommentEditor.h"

#include "foundation/GlobalConfig.h"
#include "foundation/ScopeExit.h"
#include "foundation/Text.h"

#include <utility>

namespace paperkite {

namespace {

constexpr const char* kFlagType = "f";
constexpr const char* kHiddenOption = "x";
constexpr const char* kNoDesigner = "{None}";
constexpr const char* kOffer = "Click to add this tag...";
constexpr const char* kNotYetAdded =
    "This tag has not be added to the selected code element, but is available for insertion if "
    "required.<BR><BR>Click the \"Add Tag\" button to the right of the tag description to insert "
    "this tag.";
constexpr const char* kAlreadyAdded =
    "This tag has already been added to the selected code element, but may be inserted again if "
    "required.<BR><BR>Click the \"Add Tag\" button to the right of the tag description to insert "
    "another copy of this tag.";
bool IsFlag(const TaggedCommentDef& definition) {
    return definition.TagType == kFlagType;
}

const std::string& FirstOf(const std::string& wanted, const std::string& otherwise) {
    return wanted.empty() ? otherwise : wanted;
}

} // namespace

void CommentEditor::Refresh(bool JustRepopulatePL) {
    Procedure(*this, "Refresh", [&](Frame& frame) {
        Watch watchJust(frame, "JustRepopulatePL", JustRepopulatePL);
        mNoSetFocus = true;
        ScopeExit allowFocus([this] { mNoSetFocus = false; });
        std::string LastGroupItemCaption;
        std::string selectedKey;
        zKeepSelection(LastGroupItemCaption, selectedKey);
        HideActiveDesigner();
        ActiveDesigner = nullptr;
        ActiveTaggedCommentDef = nullptr;
        if (!mCurrentCodeElement) {
            zHideSurfaces();
            return;
        }
        mPopulating = true;
        eb->SuspendPainting();
        DockCommentTypes->SuspendPainting();
        ScopeExit endPopulating([this] {
            mPopulating = false;
            eb->ResumePainting();
            DockCommentTypes->ResumePainting();
        });
        (mShowCombo ? Ref<Control>(DockCommentTypes) : Ref<Control>(eb))->SetVisible(true);
        if (std::exchange(mNamespaceChanged, false)) zRemoveNamedControls();
        if (!JustRepopulatePL) zRemoveTabs();
        zFillLists(JustRepopulatePL, LastGroupItemCaption);
        Ref<GroupItem> selected = eb->GetSelectedItem();
        if (selected && selected->GetKey() == "other") zReselectRow(selectedKey);
        PopulateToolbar();
        UpdateGroupItemStatus();
        endPopulating.Run();
        selected = eb->GetSelectedItem();
        SelectCommentType(selected ? selected->GetKey() : std::string(), true);
    });
}

void CommentEditor::zFillLists(bool JustRepopulatePL, const std::string& LastGroupItemCaption) {
    prpTags->SuspendUpdates();
    prpFlags->SuspendUpdates();
    ScopeExit resumeUpdates([this] {
        prpTags->ResumeUpdates();
        prpFlags->ResumeUpdates();
    });
    Clear();
    if (!JustRepopulatePL) prpFlags->Clear();
    prpTags->SetText("Working, please wait...");
    zAddHeader("ExistingHeader", "Existing Comments");
    zListExistingComments();
    zAddHeader("NewHeader", "Available to add");
    zListDefinitions(zNamespaceName(), JustRepopulatePL);
    if (!JustRepopulatePL) zRefreshGroups(LastGroupItemCaption);
    tagsContainer_Resize();
}

void CommentEditor::zKeepSelection(std::string& LastGroupItemCaption,
                                   std::string& selectedKey) const {
    const auto item = eb->GetSelectedItem();
    if (item && (GlobalConfig().KeepLastCommentTab || item->GetTag().empty()))
        LastGroupItemCaption = item->GetCaption();
    const auto row = prpTags->GetSelectedItem();
    if (row && !row->GetReadOnly()) selectedKey = row->GetKey();
}

void CommentEditor::zHideSurfaces() {
    eb->SetVisible(false);
    DockCommentTypes->SetVisible(false);
    InPlaceEditor->SetVisible(false);
    DesignerContainer->SetVisible(false);
    prpFlags->SetVisible(false);
    prpTags->SetVisible(false);
}

void CommentEditor::zRemoveNamedControls() {
    for (const auto& group : eb->GetGroups())
        for (const auto& item : *group) {
            const std::string name = ReplaceAll(item->GetTag(), "#", "");
            if (!name.empty() && DesignerContainer->Controls.Contains(name))
                DesignerContainer->Controls.Remove(name);
        }
}

void CommentEditor::zRemoveTabs() {
    const auto groups = eb->GetGroups();
    for (const auto& group : groups) {
        const std::string& key = group->GetKey();
        if (key != "other" && key != "main" && key != "flags") {
            eb->RemoveGroup(key);
            continue;
        }
        for (std::size_t position = group->Count(); position >= 1; --position) {
            const std::string& item = group->Item(position)->GetKey();
            if (item != "other" && item != "flags" && item != "checkboxcontainer")
                group->Remove(position);
        }
    }
    UnloadFlagCheckboxes();
}

void CommentEditor::Clear() {
    Procedure(*this, "Clear", [&](Frame&) {
        prpTags->Clear();
        mFirstRowOfCaption.clear();
        zSetTagControls("edit", false);
    });
}

std::string CommentEditor::zNamespaceName() const {
    const std::string& name = mCurrentNamespaceDef->Name;
    if (name == "Kite:Variable" &&
        !EqualIgnoringCase(mCurrentNamespaceDef->GetParentDefs()->GetName(), "kite.vbsource"))
        return "Kite:Property";
    return name;
}

Ref<PropertyItem> CommentEditor::zAddHeader(const char* key, const char* caption) {
    return prpTags->Add(key, caption, PropertyItemType::Header);
}

void CommentEditor::zRememberCaption(const Ref<PropertyItem>& row) {
    mFirstRowOfCaption.try_emplace(row->GetCaption(), row->GetIndex());
}

std::size_t CommentEditor::PLCaptionToIndex(const std::string& Caption) const {
    const auto found = mFirstRowOfCaption.find(Caption);
    return found == mFirstRowOfCaption.end() ? 0 : found->second;
}

void CommentEditor::zListExistingComments() {
    TaggedCommentCount = 0;
    const auto all = GetTaggedComments();
    if (!all) return;
    const auto comments = all->UnDeletedTaggedComments();
    const bool needsXMLTags = mCommentType == CommentType::XMLCommentTags;
    for (const auto& comment : *comments) {
        if (comment->GetItem() != mCurrentCodeElement) continue;
        const auto definition = comment->GetTaggedCommentDef();
        if (!definition || IsFlag(*definition) || !definition->TabName.empty()) continue;
        if (needsXMLTags && definition->XMLTags.empty()) continue;
        const auto row = prpTags->Add(comment->GetId(), comment->GetTagIdentifier());
        row->SetDisplayText(definition->DisplayName);
        row->SetDescription(definition->Tip);
        row->SetValue(comment->GetText());
        zRememberCaption(row);
        ++TaggedCommentCount;
    }
}

void CommentEditor::zListDefinitions(const std::string& NamespaceName, bool JustRepopulatePL) {
    const bool needsXMLTags = mCommentType == CommentType::XMLCommentTags;
    for (const auto& definition : *GlobalConfig().TaggedCommentDefs) {
        const bool IncludeTC =
            ContainsNamespace(definition->Namespaces, NamespaceName) &&
            (mDesignFlag.empty() || !ContainsIgnoringCase(definition->TagType, mDesignFlag)) &&
            (!needsXMLTags || !definition->XMLTags.empty());
        if (!IncludeTC) continue;
        if (IsFlag(*definition)) {
            if (!JustRepopulatePL) zListFlag(definition);
            continue;
        }
        const bool hasTab = !definition->TabName.empty();
        if (!hasTab && !ContainsIgnoringCase(definition->Options, kHiddenOption) &&
            (definition->LegacyName.empty() || mShowLegacyTags))
            zListOffer(definition);
        if (!JustRepopulatePL && hasTab && definition->DesignerProgID != kNoDesigner &&
            (definition->LegacyName.empty() || zIsLegacyInUse(definition->TagIdentifier)))
            zListTab(definition);
    }
}

void CommentEditor::zListFlag(const Ref<TaggedCommentDef>& definition) {
    const std::string& tag = definition->TagIdentifier;
    const auto row = prpFlags->Add(tag, FirstOf(definition->TabName, tag));
    row->SetDescription(FirstOf(definition->Tip, definition->DisplayName));
    mPostingtoCheckboxes = true;
    const ScopeExit donePosting([this] { mPostingtoCheckboxes = false; });
    const auto container = eb->GetGroup("flags")->Item("checkboxcontainer");
    mCheckBoxes.AddCheckbox(*eb, *container, FirstOf(definition->TabName, tag), tag,
                            definition->Tip);
}

void CommentEditor::zListOffer(const Ref<TaggedCommentDef>& definition) {
    const auto row = prpTags->Add({}, definition->TagIdentifier);
    row->SetDisplayText(definition->DisplayName);
    row->SetReadOnly(true);
    zRememberCaption(row);
    SetCommonProperties(row);
}

void CommentEditor::SetCommonProperties(const Ref<PropertyItem>& row) {
    row->SetValue(kOffer);
    row->SetValueColour(ValueColour::GrayText);
    row->SetValueType(PropertyValueType::String);
    row->SetValueLocked(true);
    const std::size_t FindIndex = PLCaptionToIndex(row->GetCaption());
    const bool isFirst = FindIndex == 0 || FindIndex == row->GetIndex();
    row->SetDescription(isFirst ? kNotYetAdded : kAlreadyAdded);
}

void CommentEditor::zTickFlags() {
    if (prpFlags->Count() == 0) return;
    // An element whose comments cannot be read was reported with the list.
    const auto all = GetTaggedComments();
    if (!all) return;
    const auto comments = all->UnDeletedTaggedComments();
    for (const auto& comment : *comments) {
        const auto definition = comment->GetTaggedCommentDef();
        if (!definition || !IsFlag(*definition)) continue;
        // A flag that does not apply to this element has no row.
        const auto row = prpFlags->Find(definition->TagIdentifier);
        if (!row) continue;
        row->SetChecked(true);
        TickFlagCheckbox(comment->GetTagIdentifier());
    }
}

void CommentEditor::zRefreshGroups(const std::string& LastGroupItemCaption) {
    zTickFlags();
    eb->GetGroup("flags")->SetVisible(prpFlags->Count() > 0);
    if (prpFlags->Count() > 0) mCheckBoxes.ResizeCheckboxes(*eb);
    const auto other = eb->GetGroup("other")->Item("other");
    other->SetVisible(prpTags->Count() > 2);
    other->SetBold(TaggedCommentCount > 0);
    other->SetIcon(TaggedCommentCount > 0 ? "tick" : "");
    if (!other->GetVisible()) other->SetSelected(false);
    bool anyVisible = false;
    for (const auto& item : *eb->GetGroup("other"))
        anyVisible = anyVisible || item->GetVisible();
    eb->GetGroup("other")->SetVisible(anyVisible);
    zListPages();
    zSelectGroupItem(LastGroupItemCaption);
}

void CommentEditor::zSelectGroupItem(const std::string& LastGroupItemCaption) {
    for (const auto& group : eb->GetGroups())
        for (const auto& item : *group)
            if (item->GetKey() != "checkboxcontainer" &&
                item->GetCaption() == LastGroupItemCaption && item->GetVisible() &&
                item->GetEnabled()) {
                // Carried over once, it goes on to the next element as well.
                item->SetTag({});
                item->SetSelected(true);
                return;
            }
    const auto main = eb->GetGroup("main");
    const auto fallback = main->Count() > 0 ? main->Item(1) : eb->GetGroup(3)->Item(1);
    fallback->SetSelected(true);
    fallback->SetTag("x");
}

void CommentEditor::zReselectRow(const std::string& selectedKey) {
    if (const auto row = prpTags->Find(selectedKey)) {
        prpTags->SetSelectedItem(row);
        prpTags_SelChange(row);
    }
    if (prpTags->GetSelectedItem()) return;
    for (const auto& row : *prpTags) {
        if (row->IsHeader()) continue;
        prpTags->SetSelectedItem(row);
        return;
    }
}

void CommentEditor::UnloadFlagCheckboxes() {
    Procedure(*this, "UnloadFlagCheckboxes", [&](Frame&) {
        if (const auto frame = eb->GetGroup("flags")->Item("checkboxcontainer")->GetControl())
            frame->SetTag({});
        eb->SetTag({});
        mCheckBoxes.Clear();
    });
}

void CommentEditor::TickFlagCheckbox(const std::string& TagID) {
    Procedure(*this, "TickFlagCheckbox", [&](Frame& frame) {
        Watch watchTag(frame, "TagID", TagID);
        mPostingtoCheckboxes = true;
        const ScopeExit donePosting([this] { mPostingtoCheckboxes = false; });
        // A view that is told of a tick may rebuild the boxes.
        const auto boxes = mCheckBoxes.GetCheckBoxes();
        for (const auto& box : boxes)
            if (EqualIgnoringCase(box->GetTag(), TagID)) box->SetChecked(true);
    });
}

} // namespace paperkite
