#include "authoring/InPlaceEditor.h"

#include "foundation/ScopeExit.h"
#include "foundation/Services.h"
#include "foundation/Text.h"
#include "foundation/Utilities.h"

namespace paperkite {

namespace {

constexpr std::string_view kPlaceId = "TaggedComment";
constexpr const char* kSeparator = "|";
constexpr const char* kOverloads = "##OVERLOADS";
constexpr const char* kBlank = "&nbsp;";
constexpr const char* kEmptiedSpan = "<p>&nbsp;</p>";
constexpr const char* kMisspelled = "kiteMisspelled";
// A host whose comments are held in this way lists the overloads of the project only.
constexpr int kProjectOverloads = 2;

bool IsPlace(const Ref<HTMLElement>& span) {
    return span->GetId().starts_with(kPlaceId);
}

std::string NameIn(const Ref<HTMLElement>& span) {
    return Utilities::Token(span->GetId(), kSeparator, 2);
}

std::string TagIn(const Ref<HTMLElement>& span) {
    return Utilities::Token(span->GetId(), kSeparator, 3);
}

std::string WithoutOuterBlanks(std::string text) {
    const std::string_view blank = kBlank;
    if (text.starts_with(blank)) text.erase(0, blank.size());
    if (text.ends_with(blank)) text.erase(text.size() - blank.size());
    return text;
}

// What was taken out of the document while its places were made is none of them any more.
bool StandsIn(const HTMLDocument& document, const Ref<HTMLElement>& element) {
    Ref<HTMLElement> top = element;
    while (const auto parent = top->GetParentElement())
        top = parent;
    return top == document.GetDocumentElement();
}

bool IsProjectOf(const Ref<Object>& item, const std::string& extension) {
    if (!IsType(item, "CodeProject") && !IsType(item, "ProjectItem")) return false;
    std::string found;
    Ignoring([&] {
        found =
            item->Get("Assembly").ToObject()->Get("FileName").ToObject()->Get("Extension").ToText();
    });
    return LowerCase(found) == extension;
}

bool IsBlock(const Ref<Object>& item) {
    ControlHelper& helper = Required(CurrentServices().ControlHelper);
    return helper.IsType(item, "Block") || helper.IsType(item, "BlockElement");
}

} // namespace

void InPlaceEditor::ed_DocumentComplete() {
    // A place that fails must not leave the page deaf, nor those who wait for it waiting.
    zMakePlacesEditable();
    zDeleteScratchFile();
    mResetUndo = true;
    mLoading = false;
    Procedure(*this, "ed_DocumentComplete", [&](Frame&) { Events.DocumentComplete.Raise(); });
}

void InPlaceEditor::zMakePlacesEditable() {
    Procedure(*this, "ed_DocumentComplete", [&](Frame&) {
        const auto document = ed->GetDocument();
        for (const auto& span : document->Tags("SPAN"))
            if (IsPlace(span) && StandsIn(*document, span)) zMakePlaceEditable(span);
    });
}

void InPlaceEditor::zMakePlaceEditable(const Ref<HTMLElement>& span) {
    if (InPopupBubble(span)) {
        span->GetParentElement()->SetInnerHTML({});
        return;
    }
    const auto obj = zHost().ICommentDesignerHost_GetObjectFromQualifiedName(NameIn(span));
    if (!obj) return;
    const std::string TagIdentifier = TagIn(span);
    const auto tc = FindTaggedComment(obj, TagIdentifier);
    if (zIsSkipped(obj, TagIdentifier)) {
        span->GetParentElement()->GetParentElement()->SetOuterHTML({});
        return;
    }
    if (!tc) return;
    const auto place = ed->GetDocument()->CreateElement("SPAN");
    place->SetInnerHTML(tc->GetText());
    place->SetAttribute("contenteditable", "true");
    place->SetId(span->GetId());
    place->SetAttribute("style", "width: 100%");
    if (const auto hint = span->GetAttribute("data-placeholder"))
        place->SetAttribute("data-placeholder", *hint);
    const int tCommentState = tc->GetState();
    tc->SetNormalisedText(place->GetInnerHTML());
    tc->SetState(tCommentState);
    span->InsertAdjacentElement(InsertPosition::AfterEnd, place);
    span->SetOuterHTML({});
}

bool InPlaceEditor::zIsSkipped(const Ref<Object>& obj, const std::string& TagIdentifier) const {
    if (IsProjectOf(obj, "csproj")) return true;
    if (!EqualIgnoringCase(TagIdentifier, kOverloads) || !IsBlock(obj)) return false;
    const bool ofProject =
        static_cast<int>(zHost().ICommentDesignerHost_CommentType()) == kProjectOverloads;
    return !obj->Get(ofProject ? "HasOverloadsInProject" : "HasOverloads").ToBoolean();
}

bool InPlaceEditor::InPopupBubble(const Ref<HTMLElement>& Element) const {
    return Procedure<bool>(*this, "InPopupBubble", [&](bool& result, Frame& frame) {
        Watch watchElement(frame, "Element", Element);
        for (Ref<HTMLElement> at = Element; at && !result; at = at->GetParentElement())
            result =
                EqualIgnoringCase(at->GetTagName(), "DIV") && at->GetClassName() == "popupbubble";
    });
}

Ref<TaggedComment> InPlaceEditor::FindTaggedComment(const Ref<Object>& Item,
                                                    const std::string& TagIdentifier) const {
    Ref<TaggedComment> found;
    zFindTaggedComment(Item, TagIdentifier, found);
    return found;
}

bool InPlaceEditor::zFindTaggedComment(const Ref<Object>& Item, const std::string& TagIdentifier,
                                       Ref<TaggedComment>& found) const {
    return Procedure<bool>(*this, "FindTaggedComment", [&](bool& result, Frame& frame) {
        Watch watchItem(frame, "Item", Item);
        Watch watchTag(frame, "TagIdentifier", TagIdentifier);
        const auto all = Item->Get("TaggedComments").ToObjectOf<TaggedCommentCollection>();
        // What UnDeletedTaggedComments holds, without a collection for each place of a page.
        for (const auto& comment : *all) {
            if (comment->GetState() == kTaggedCommentTombstone ||
                !EqualIgnoringCase(comment->GetTagIdentifier(), TagIdentifier))
                continue;
            found = comment;
            break;
        }
        result = true;
    });
}

Ref<TaggedComment> InPlaceEditor::NewTaggedComment(const std::string& TagIdentifier,
                                                   const std::string& Text) {
    return Procedure<Ref<TaggedComment>>(*this, "NewTaggedComment",
                                         [&](Ref<TaggedComment>& result, Frame& frame) {
                                             Watch watchTag(frame, "TagIdentifier", TagIdentifier);
                                             Watch watchText(frame, "Text", Text);
                                             result = MakeRef<TaggedComment>();
                                             result->SetItem(mCodeElement);
                                             result->SetTagIdentifier(TagIdentifier);
                                             result->SetText(Text);
                                             result->SetState(kTaggedCommentNew);
                                         });
}

void InPlaceEditor::ed_EditableSpanChanged(const Ref<HTMLElement>& Span) {
    Procedure(*this, "ed_EditableSpanChanged", [&](Frame& frame) {
        Watch watchSpan(frame, "Span", Span);
        if (mLoading || mIgnoreChanges || !IsPlace(Span)) return;
        const auto obj = zHost().ICommentDesignerHost_GetObjectFromQualifiedName(NameIn(Span));
        if (!obj) return;
        const std::string TagIdentifier = TagIn(Span);
        Ref<TaggedComment> tc;
        // A second comment beside one that could not be found would be worse than none.
        if (!zFindTaggedComment(obj, TagIdentifier, tc)) return;
        const std::string OldText = tc ? TrimBlanks(tc->GetText()) : std::string();
        const std::string NewText = WithoutOuterBlanks(TrimBlanks(GetStrippedHTML(Span)));
        if (NewText != OldText) zStoreText(obj, TagIdentifier, NewText);
    });
}

void InPlaceEditor::zStoreText(const Ref<Object>& obj, const std::string& TagIdentifier,
                               const std::string& NewText) {
    Ref<TaggedComment> tc;
    if (!zFindTaggedComment(obj, TagIdentifier, tc)) return;
    const bool cleared = NewText.empty() || EqualIgnoringCase(NewText, kEmptiedSpan);
    if (!cleared && !tc) {
        tc = NewTaggedComment(TagIdentifier, NewText);
        tc->SetItem(obj);
        zHost().ICommentDesignerHost_TaggedCommentAdded(obj, tc);
    } else if (!cleared) {
        tc->SetText(NewText);
        zHost().ICommentDesignerHost_TaggedCommentChanged(obj, tc);
    } else if (tc) {
        zHost().ICommentDesignerHost_TaggedCommentDeleted(obj, tc);
    }
}

std::string InPlaceEditor::GetStrippedHTML(const Ref<HTMLElement>& Element) {
    return Procedure<std::string>(*this, "GetStrippedHTML", [&](std::string& result, Frame& frame) {
        Watch watchElement(frame, "Element", Element);
        mIgnoreChanges = true;
        const ScopeExit heedChanges([this] { mIgnoreChanges = false; });
        const auto clone = ed->GetDocument()->CreateElement(Element->GetTagName());
        clone->SetInnerHTML(Element->GetInnerHTML());
        for (const auto& span : clone->Tags("SPAN"))
            if (span->GetClassName() == kMisspelled) ed->RemoveElementKeepContents(span);
        result = clone->GetInnerHTML();
    });
}

} // namespace paperkite
