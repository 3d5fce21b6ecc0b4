#include "authoring/CommentEditor.h"

#include "foundation/ScopeExit.h"
#include "foundation/Services.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

Ref<GroupItem> FindItem(const ExplorerBar& bar, const std::string& key) {
    for (const auto& group : bar.GetGroups())
        for (const auto& item : *group)
            if (EqualIgnoringCase(item->GetKey(), key)) return item;
    return {};
}

} // namespace

void CommentEditor::eb_SelChange(const Ref<GroupItem>& Item) {
    Procedure(*this, "eb_SelChange", [&](Frame&) {
        if (!Item || !mCurrentCodeElement || mPopulating) return;
        SelectCommentType(Item->GetKey(), false);
        SetEditFocus();
    });
}

void CommentEditor::SelectCommentType(const std::string& Key, bool ForceRefresh) {
    Procedure(*this, "SelectCommentType", [&](Frame& frame) {
        Watch watchKey(frame, "Key", Key);
        Watch watchForce(frame, "ForceRefresh", ForceRefresh);
        mPopulating = true;
        ScopeExit endPopulating([this] { mPopulating = false; });
        const auto item = Key.empty() ? Ref<GroupItem>() : FindItem(*eb, Key);
        if (Key.empty())
            eb->SetSelectedItem(nullptr);
        else if (item && !item->GetSelected())
            item->SetSelected(true);
        endPopulating.Run();
        CommentTypeSelected(Key);
    });
}

void CommentEditor::CommentTypeSelected(const std::string& Key) {
    Procedure(*this, "CommentTypeSelected", [&](Frame& frame) {
        Watch watchKey(frame, "Key", Key);
        if (EqualIgnoringCase(Key, "flags"))
            zShowList(prpFlags, prpTags);
        else if (Key == "other")
            zShowList(prpTags, prpFlags);
        if (mDynamicHelpHost) mDynamicHelpHost->ContextChanged();
    });
}

void CommentEditor::zShowList(const Ref<PropertiesList>& shown, const Ref<PropertiesList>& hidden) {
    hidden->SetVisible(false);
    shown->SetVisible(true);
    shown->BringToFront();
    if (mWrapper) mWrapper->Call("BindTo", {Value(true), Value(Ref<Object>())});
}

void CommentEditor::SetEditFocus() {
    Procedure(*this, "SetEditFocus", [&](Frame&) { InternalSetEditFocus(); });
}

void CommentEditor::InternalSetEditFocus() {
    if (mNoSetFocus) return;
    const auto item = eb->GetSelectedItem();
    if (!item) return;
    if (item->GetKey() == "other")
        prpTags->SetFocus();
    else if (item->GetKey() == "flags")
        prpFlags->SetFocus();
}

void CommentEditor::SelectInPlaceEditLayout(const std::string& PageLayoutName) {
    Procedure(*this, "SelectInPlaceEditLayout", [&](Frame& frame) {
        Watch watchName(frame, "PageLayoutName", PageLayoutName);
        eb->GetGroup("main")->Item("inplaceedit:" + PageLayoutName)->SetSelected(true);
    });
}

void CommentEditor::BindToWrapper(const Ref<Object>& Wrapper) {
    mWrapper = Wrapper;
}

bool CommentEditor::SpellCheck(bool ShowCompletionMessage, const Ref<Object>& PassedSpell) {
    return Procedure<bool>(*this, "SpellCheck", [&](bool& result, Frame& frame) {
        Watch watchShow(frame, "ShowCompletionMessage", ShowCompletionMessage);
        Watch watchSpell(frame, "PassedSpell", PassedSpell);
        mSpellCheckCancelled = false;
        // The tag list and the flag list are not checked, and nothing else is open.
        if (ShowCompletionMessage && GetTaggedComments()->Count() > 0)
            Required(CurrentServices().MessageBox)
                .Show("The spell check completed successfully", "Spelling",
                      MessageIcon::Information);
        result = !mSpellCheckCancelled;
    });
}

void CommentEditor::zSetTagControls(const std::string& TagIdentifier, bool Enabled) {
    for (const Ref<Control>& control :
         std::initializer_list<Ref<Control>>{splitMain, eb, tagsContainer, prpTags, prpFlags})
        if (EqualIgnoringCase(control->GetTag(), TagIdentifier)) control->SetEnabled(Enabled);
}

void CommentEditor::IDynamicHelpContext_Initialise(const Ref<DynamicHelpHost>& Notify) {
    mDynamicHelpHost = Notify;
}

void CommentEditor::IDynamicHelpContext_QueryContext(DynamicHelpQuery& query) {
    Procedure(*this, "IDynamicHelpContext_QueryContext", [&](Frame&) {
        if (!mCurrentCodeElement) return;
        query.Attributes.emplace_back("Kite.CommentEditor.Namespace", mCurrentNamespaceDef->Name);
        const auto item = eb->GetSelectedItem();
        if (!item) return;
        if (item->GetGroup()->GetKey() == "main") {
            query.KeywordCollection.push_back("Kite.CommentEditor.FullPageEdit");
            return;
        }
        query.KeywordCollection.push_back("Kite.CommentEditor." + item->GetCaption());
        query.Attributes.emplace_back("Kite.CommentEditor.CommentType", item->GetCaption());
        query.Attributes.emplace_back("Kite.CommentEditor.CommentID", item->GetKey());
    });
}

} // namespace paperkite
