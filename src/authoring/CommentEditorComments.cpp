#include "authoring/CommentEditor.h"

#include "foundation/ScopeExit.h"
#include "foundation/Services.h"
#include "foundation/Text.h"
#include "foundation/Utilities.h"
#include "widgets/Keys.h"

#include <utility>

namespace paperkite {

namespace {

constexpr const char* kGeneralTag = "##";
constexpr const char* kNoTagSelected =
    "Please select a tag which exists in the active code element";

bool IsGeneral(const TaggedComment& comment) {
    const auto definition = comment.GetTaggedCommentDef();
    return definition && definition->IsGeneral;
}

Ref<TaggedCommentCollection> CommentsOf(const Ref<Object>& item) {
    return item->Get("TaggedComments").ToObjectOf<TaggedCommentCollection>();
}

void SyncGeneralComment(const Ref<Object>& item, const TaggedComment& comment) {
    if (IsGeneral(comment))
        Required(CurrentServices().ControlHelper).SyncGeneralComment(item, false);
}

Ref<Object> ParentOf(const Ref<Object>& element) {
    return element->Get("Parent").ToObject();
}

} // namespace

bool ContainsNamespace(const std::string& Source, const std::string& NameSpace) {
    const std::size_t found = FindIgnoringCase(Source, NameSpace);
    if (found == std::string::npos) return false;
    const std::size_t end = found + NameSpace.size();
    return end == Source.size() || Source[end] == ',';
}

std::size_t FindTaggedComments(const TaggedCommentCollection& Collection,
                               const std::string& TagIdentifier) {
    std::size_t count = 0;
    for (const auto& comment : Collection)
        if (EqualIgnoringCase(comment->GetTagIdentifier(), TagIdentifier)) ++count;
    return count;
}

bool QualifierRequired(const std::string& TagIdentifier,
                       const Ref<TaggedCommentDef>& TaggedCommentDef,
                       const Ref<Object>& CodeElement) {
    if (!CodeElement) return false;
    const bool isMember = IsType(CodeElement, "MemberElement");
    if (TagIdentifier != kGeneralTag) {
        if (IsType(CodeElement, "ParameterElement") || IsType(CodeElement, "VariantElement"))
            return true;
        if (isMember && IsType(ParentOf(CodeElement), "UDT")) return true;
    }
    if (!TaggedCommentDef || TaggedCommentDef->LegacyName.empty()) return false;
    return (isMember && !IsType(ParentOf(CodeElement), "ModuleElement")) ||
           IsType(CodeElement, "BlockElement");
}

std::string GetXMLCommentType(const TaggedComment& TaggedComment) {
    if (TaggedComment.GetTagIdentifier() == kGeneralTag) return "summary";
    const auto definition = TaggedComment.GetTaggedCommentDef();
    return definition ? Token(definition->XMLTags, ",", 1) : std::string();
}

Ref<TaggedComment> CommentEditor::GetTaggedCommentByKey(const std::string& Key) const {
    return Procedure<Ref<TaggedComment>>(*this, "GetTaggedCommentByKey",
                                         [&](Ref<TaggedComment>& result, Frame& frame) {
                                             Watch watchKey(frame, "Key", Key);
                                             const auto comments = GetTaggedComments();
                                             if (!comments) return;
                                             for (const auto& comment : *comments) {
                                                 if (comment->GetId() != Key) continue;
                                                 result = comment;
                                                 return;
                                             }
                                         });
}

void CommentEditor::TaggedCommentAdded(const Ref<Object>& Item,
                                       const Ref<TaggedComment>& TaggedComment) {
    Procedure(*this, "TaggedCommentAdded", [&](Frame& frame) {
        Watch watchItem(frame, "Item", Item);
        Watch watchComment(frame, "TaggedComment", TaggedComment);
        CommentsOf(Item)->Add(TaggedComment, TaggedComment->GetId());
        // Hosts see the comment before it is completed.
        Events.TaggedCommentAdded.Raise(Item, TaggedComment);
        if (Item == mCurrentCodeElement) UpdateGroupItemStatus();
        if (QualifierRequired(TaggedComment->GetTagIdentifier(),
                              TaggedComment->GetTaggedCommentDef(), Item))
            TaggedComment->SetQualifier(Item->Get("Name").ToText());
        TaggedComment->SetItem(Item);
        if (mCommentType == CommentType::XMLCommentTags)
            TaggedComment->SetXMLCommentType(GetXMLCommentType(*TaggedComment));
        TaggedComment->SetState(kTaggedCommentNew);
        SetDirty(true);
    });
}

void CommentEditor::TaggedCommentDeleted(const Ref<Object>& Item,
                                         const Ref<TaggedComment>& TaggedComment,
                                         const std::string& Key) {
    Procedure(*this, "TaggedCommentDeleted", [&](Frame& frame) {
        Watch watchItem(frame, "Item", Item);
        Watch watchComment(frame, "TaggedComment", TaggedComment);
        Watch watchKey(frame, "Key", Key);
        if (mKeepTombstones && TaggedComment->GetState() != kTaggedCommentNew)
            TaggedComment->SetState(kTaggedCommentTombstone);
        else
            CommentsOf(Item)->Remove(TaggedComment->GetId());
        Events.TaggedCommentDeleted.Raise(Item, TaggedComment, TaggedComment->GetId());
        if (Item == mCurrentCodeElement) UpdateGroupItemStatus();
        SetDirty(true);
    });
}

void CommentEditor::ICommentDesignerHost_TaggedCommentAdded(
    const Ref<Object>& Item, const Ref<TaggedComment>& TaggedComment) {
    Procedure(*this, "ICommentDesignerHost_TaggedCommentAdded", [&](Frame& frame) {
        Watch watchItem(frame, "Item", Item);
        Watch watchComment(frame, "TaggedComment", TaggedComment);
        TaggedCommentAdded(Item, TaggedComment);
        SyncGeneralComment(Item, *TaggedComment);
    });
}

void CommentEditor::ICommentDesignerHost_TaggedCommentChanged(
    const Ref<Object>& Item, const Ref<TaggedComment>& TaggedComment) {
    Procedure(*this, "ICommentDesignerHost_TaggedCommentChanged", [&](Frame& frame) {
        Watch watchItem(frame, "Item", Item);
        Watch watchComment(frame, "TaggedComment", TaggedComment);
        Events.TaggedCommentChanged.Raise(Item, TaggedComment, TaggedComment->GetId());
        SyncGeneralComment(Item, *TaggedComment);
        SetDirty(true);
    });
}

void CommentEditor::ICommentDesignerHost_TaggedCommentDeleted(
    const Ref<Object>& Item, const Ref<TaggedComment>& TaggedComment) {
    Procedure(*this, "ICommentDesignerHost_TaggedCommentDeleted", [&](Frame& frame) {
        Watch watchItem(frame, "Item", Item);
        Watch watchComment(frame, "TaggedComment", TaggedComment);
        TaggedCommentDeleted(Item, TaggedComment, TaggedComment->GetId());
    });
}

void CommentEditor::zAddSelectedTag() {
    const auto row = prpTags->GetSelectedItem();
    const auto comment = MakeRef<TaggedComment>();
    comment->SetTagIdentifier(row->GetCaption());
    comment->SetItem(mCurrentCodeElement);
    TaggedCommentAdded(mCurrentCodeElement, comment);
    Refresh(false);
    prpTags->SetSelectedItem(prpTags->Item(comment->GetId()));
    prpTags->BeginEdit();
}

void CommentEditor::zAddFlag(const std::string& tagIdentifier) {
    const auto comment = MakeRef<TaggedComment>();
    comment->SetItem(mCurrentCodeElement);
    comment->SetTagIdentifier(tagIdentifier);
    TaggedCommentAdded(mCurrentCodeElement, comment);
}

void CommentEditor::ItemChanged(const Ref<PropertyItem>& PropertyItem) {
    Procedure(*this, "ItemChanged", [&](Frame&) {
        if (!PropertyItem || PropertyItem->GetKey().empty()) return;
        const auto comment = GetTaggedCommentByKey(PropertyItem->GetKey());
        comment->SetText(Utilities::TextOf(PropertyItem->GetValue()));
        comment->SetTagIdentifier(PropertyItem->GetCaption());
        ICommentDesignerHost_TaggedCommentChanged(mCurrentCodeElement, comment);
    });
}

void CommentEditor::CommitEdit() {
    Procedure(*this, "CommitEdit", [&](Frame&) {
        if (ActiveDesigner) ActiveDesigner->CommitEdit();
        // What was typed on the page last may still be on its way.
        if (mInPlaceEditorIsActive) InPlaceEditor->CommitEdit();
        if (!prpTags->GetInEdit()) return;
        const auto row = prpTags->GetSelectedItem();
        const auto comment = GetTaggedCommentByKey(row->GetKey());
        if (!comment) return;
        prpTags->EndEdit();
        if (comment->GetText() != row->GetValue()) ItemChanged(row);
    });
}

void CommentEditor::DeleteCommentItem(const std::string& Key) {
    Procedure(*this, "DeleteCommentItem", [&](Frame& frame) {
        Watch watchKey(frame, "Key", Key);
        // A handler of the deletion may rebuild or empty the list, so that selecting fails.
        prpTags->SuspendUpdates();
        const ScopeExit resumeUpdates([this] { prpTags->ResumeUpdates(); });
        const auto row = prpTags->Find(Key);
        if (!row || row->GetReadOnly() || row->IsHeader()) return;
        const ScopeExit heedChanges(
            [this, before = std::exchange(mIgnoreReset, true)] { mIgnoreReset = before; });
        const std::size_t position = row->GetIndex();
        const std::string ItemKey = zRowToSelectAfter(position);
        prpTags->Remove(position);
        ICommentDesignerHost_TaggedCommentDeleted(mCurrentCodeElement,
                                                  GetTaggedCommentByKey(row->GetKey()));
        zSetTagControls("edit", false);
        prpTags->SetSelectedItem(prpTags->Item(ItemKey));
    });
}

std::string CommentEditor::zRowToSelectAfter(std::size_t position) const {
    if (position < prpTags->Count()) {
        const auto next = prpTags->Item(position + 1);
        if (!next->GetReadOnly() && !next->IsHeader()) return next->GetKey();
    }
    return position > 1 ? prpTags->Item(position - 1)->GetKey() : std::string();
}

void CommentEditor::zDeleteSelectedTag() {
    const auto row = prpTags->GetSelectedItem();
    if (row)
        DeleteCommentItem(row->GetKey());
    else
        Required(CurrentServices().MessageBox)
            .Show(kNoTagSelected, "Paperkite", MessageIcon::Warning);
}

void CommentEditor::prpTags_ButtonClick(const std::string& ButtonKey) {
    Procedure(*this, "prpTags_ButtonClick", [&](Frame& frame) {
        Watch watchKey(frame, "ButtonKey", ButtonKey);
        if (ButtonKey == "AddButton")
            zAddSelectedTag();
        else if (ButtonKey == "DeleteButton")
            zDeleteSelectedTag();
    });
}

void CommentEditor::prpTags_DblClick() {
    Procedure(*this, "prpTags_DblClick", [&](Frame&) {
        const auto row = prpTags->GetSelectedItem();
        if (row && row->GetReadOnly()) zAddSelectedTag();
    });
}

void CommentEditor::prpTags_AfterEdit(const Ref<PropertyItem>& PropertyItem,
                                      const std::string& NewValue) {
    Procedure(*this, "prpTags_AfterEdit", [&](Frame& frame) {
        Watch watchValue(frame, "NewValue", NewValue);
        PropertyItem->SetValue(NewValue);
        ItemChanged(PropertyItem);
    });
}

void CommentEditor::prpTags_Change(const Ref<PropertyItem>& PropertyItem) {
    Procedure(*this, "prpTags_Change", [&](Frame&) {
        // Filling the list is no change of a comment.
        if (mPopulating || mIgnoreReset) return;
        if (!prpTags->GetInEdit() || mForceChange) ItemChanged(PropertyItem);
    });
}

void CommentEditor::prpTags_KeyDown(int& KeyCode, int Shift) {
    Procedure(*this, "prpTags_KeyDown", [&](Frame& frame) {
        Watch watchKey(frame, "KeyCode", KeyCode);
        Watch watchShift(frame, "Shift", Shift);
        const auto row = prpTags->GetSelectedItem();
        if (KeyCode == KeyReturn && row) {
            KeyCode = KeyNone;
            if (row->GetReadOnly())
                prpTags_DblClick();
            else if (prpTags->GetInEdit())
                prpTags->EndEdit();
            else
                prpTags->BeginEdit();
        } else if (KeyCode == KeyEscape && prpTags->GetInEdit()) {
            KeyCode = KeyNone;
            prpTags->CancelEdit();
        } else if (KeyCode == KeyDelete) {
            KeyCode = KeyNone;
            zDeleteSelectedTag();
        }
    });
}

void CommentEditor::prpTags_SelChange(const Ref<PropertyItem>& PropertyItem) {
    Procedure(*this, "prpTags_SelChange", [&](Frame&) {
        if (!PropertyItem) return;
        const bool isHeader = PropertyItem->IsHeader();
        if (!isHeader && mEditInFocus) return;
        const bool isOffer = PropertyItem->GetReadOnly();
        zSetTagControls("edit", !isHeader && !isOffer);
        prpTags->SetButtonVisible(AddButtonIndex, !isHeader && isOffer);
        prpTags->SetButtonVisible(DeleteButtonIndex, !isHeader && !isOffer);
    });
}

void CommentEditor::prpFlags_ItemCheck(const Ref<PropertyItem>& PropertyItem) {
    Procedure(*this, "prpFlags_ItemCheck", [&](Frame&) {
        if (mPopulating) return;
        if (PropertyItem->GetChecked()) {
            zAddFlag(PropertyItem->GetKey());
            return;
        }
        const auto comments = GetTaggedComments();
        for (const auto& comment : *comments) {
            if (comment->GetTagIdentifier() != PropertyItem->GetKey()) continue;
            const auto flag = comment;
            TaggedCommentDeleted(mCurrentCodeElement, flag, flag->GetId());
            return;
        }
    });
}

void CommentEditor::chkExplorerBar_Click(std::size_t Index) {
    Procedure(*this, "chkExplorerBar_Click", [&](Frame& frame) {
        Watch watchIndex(frame, "Index", Index);
        if (mPostingtoCheckboxes) return;
        const auto box = mCheckBoxes.Item(Index);
        if (box->GetChecked()) {
            zAddFlag(box->GetTag());
            return;
        }
        const auto comment = Required(CurrentServices().ControlHelper)
                                 .FindTaggedComment(GetTaggedComments(), box->GetTag());
        if (comment) TaggedCommentDeleted(mCurrentCodeElement, comment, comment->GetId());
    });
}

} // namespace paperkite
