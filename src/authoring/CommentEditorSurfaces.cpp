#include "authoring/CommentEditor.h"

#include "foundation/ScopeExit.h"
#include "foundation/Services.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

constexpr std::string_view kPageKey = "inplaceedit";

} // namespace

Ref<GroupItem> CommentEditor::zFindItem(const std::string& Key) const {
    for (const auto& group : eb->GetGroups())
        for (const auto& item : *group)
            if (EqualIgnoringCase(item->GetKey(), Key)) return item;
    return {};
}

void CommentEditor::eb_SelChange(const Ref<GroupItem>& Item) {
    Procedure(*this, "eb_SelChange", [&](Frame&) {
        if (!Item || !mCurrentCodeElement || mPopulating) return;
        // The author's choice is carried over to the next element.
        Item->SetTag({});
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
        const auto item = Key.empty() ? Ref<GroupItem>() : zFindItem(Key);
        if (Key.empty())
            eb->SetSelectedItem(nullptr);
        else if (item && !item->GetSelected())
            item->SetSelected(true);
        endPopulating.Run();
        {
            DockCommentTypes->SuspendPainting();
            const ScopeExit resume([this] { DockCommentTypes->ResumePainting(); });
            zCheckCommands(DockCommentTypes->Commands, Key);
        }
        CommentTypeSelected(Key);
    });
}

void CommentEditor::zCheckCommands(const DockCommands& commands, const std::string& Key) {
    for (const auto& command : commands) {
        if (command->GetIsPopup())
            zCheckCommands(command->GetPopupCommands(), Key);
        else if (const auto check = command.As<DockCheckCommand>())
            check->SetChecked(EqualIgnoringCase(check->GetName(), Key) ? 1 : 0);
    }
}

void CommentEditor::CommentTypeSelected(const std::string& Key) {
    Procedure(*this, "CommentTypeSelected", [&](Frame& frame) {
        Watch watchKey(frame, "Key", Key);
        if (ActiveDesigner || mInPlaceEditorIsActive) CommitEdit();
        if (EqualIgnoringCase(Key, "flags"))
            zShowList(prpFlags, prpTags);
        else if (Key == "other")
            zShowList(prpTags, prpFlags);
        else if (LowerCase(Key.substr(0, kPageKey.size())) == kPageKey)
            zShowPage(Key);
        else if (Key != "checkboxcontainer")
            zOpenTab(Key);
        if (mDynamicHelpHost) mDynamicHelpHost->ContextChanged();
    });
}

void CommentEditor::zShowList(const Ref<PropertiesList>& shown, const Ref<PropertiesList>& hidden) {
    InPlaceEditor->SetVisible(false);
    mInPlaceEditorIsActive = false;
    hidden->SetVisible(false);
    shown->SetVisible(true);
    shown->BringToFront();
    HideActiveDesigner();
    if (mWrapper) mWrapper->Call("BindTo", {Value(true), Value(Ref<Object>())});
    ActiveDesigner = nullptr;
    zShowTipCommand(false);
}

void CommentEditor::zShowPage(const std::string& Key) {
    if (InPlaceEditor->GetTag().empty()) {
        InPlaceEditor->Initialize(this, GetAppName(), mBaseURL);
        InPlaceEditor->SetTag("Done");
    }
    if (mWrapper) mWrapper->Call("lockrefresh", {});
    InPlaceEditor->CommentType = mCommentType;
    InPlaceEditor->Load(mCurrentCodeElement, AfterColon(Key));
    HideActiveDesigner();
    if (mWrapper) InPlaceEditor->BindToWrapper(mWrapper);
    prpTags->SetVisible(false);
    prpFlags->SetVisible(false);
    InPlaceEditor->SetVisible(true);
    mInPlaceEditorIsActive = true;
    InPlaceEditor->BringToFront();
    ActiveDesigner = nullptr;
    zShowTipCommand(false);
}

void CommentEditor::DocumentComplete() {
    Procedure(*this, "DocumentComplete", [&](Frame&) {
        if (mWrapper) mWrapper->Call("unlockrefresh", {});
        Events.DocumentComplete.Raise();
    });
}

void CommentEditor::SetEditFocus() {
    Procedure(*this, "SetEditFocus", [&](Frame&) { InternalSetEditFocus(true); });
}

void CommentEditor::SetEditFocusQueued() {
    Procedure(*this, "SetEditFocusQueued", [&](Frame&) { InternalSetEditFocus(false); });
}

void CommentEditor::InternalSetEditFocus(bool Immediate) {
    Procedure(*this, "InternalSetEditFocus", [&](Frame& frame) {
        Watch watchImmediate(frame, "Immediate", Immediate);
        if (mNoSetFocus) return;
        const auto item = eb->GetSelectedItem();
        if (!item) return;
        const std::string& key = item->GetKey();
        if (key == "other")
            prpTags->SetFocus();
        else if (key == "flags")
            prpFlags->SetFocus();
        else if (key.starts_with(kPageKey))
            Immediate ? InPlaceEditor->SetEditFocus() : InPlaceEditor->SetEditFocusQueued();
        else if (ActiveDesigner)
            ActiveDesigner->Call(Immediate ? "SetEditFocus" : "SetEditFocusQueued", {});
    });
}

Ref<HtmlEdit> CommentEditor::GetActiveHTMLEditor(bool) const {
    return Procedure<Ref<HtmlEdit>>(
        *this, "GetActiveHTMLEditor", [&](Ref<HtmlEdit>& result, Frame&) {
            const auto item = eb->GetSelectedItem();
            if (!item || item->GetKey() == "other" || item->GetKey() == "flags") return;
            if (item->GetKey().starts_with(kPageKey))
                result = InPlaceEditor->GetEditControl();
            else if (const auto control =
                         ActiveDesigner ? zControlOf(ActiveDesigner) : Ref<DesignerControl>())
                result = control->GetEditor();
        });
}

Ref<HtmlEdit> CommentEditor::zForwardTarget() const {
    if (mInPlaceEditorIsActive) return InPlaceEditor->GetEditControl();
    const auto fixed = zFixedDesigner();
    if (!fixed || !ActiveDesigner || ActiveDesigner != fixed->GetObject()) return {};
    return fixed->GetEditor();
}

void CommentEditor::InsertTable(std::int32_t Rows, std::int32_t Cols) {
    Procedure(*this, "InsertTable", [&](Frame& frame) {
        Watch watchRows(frame, "Rows", Rows);
        Watch watchCols(frame, "Cols", Cols);
        if (const auto target = zForwardTarget()) target->InsertTable(Rows, Cols);
    });
}

void CommentEditor::SetForeColorByName(const std::string& ColorName) {
    Procedure(*this, "SetForeColorByName", [&](Frame& frame) {
        Watch watchName(frame, "ColorName", ColorName);
        if (const auto target = zForwardTarget()) target->SetForeColorByName(ColorName);
    });
}

void CommentEditor::SetFillColorByName(const std::string& ColorName) {
    Procedure(*this, "SetFillColorByName", [&](Frame& frame) {
        Watch watchName(frame, "ColorName", ColorName);
        if (const auto target = zForwardTarget()) target->SetFillColorByName(ColorName);
    });
}

std::string CommentEditor::GetForeColorName() const {
    return Procedure<std::string>(*this, "GetForeColorName", [&](std::string& result, Frame&) {
        if (const auto target = zForwardTarget()) result = target->GetForeColorName();
    });
}

std::string CommentEditor::GetFillColorName() const {
    return Procedure<std::string>(*this, "GetFillColorName", [&](std::string& result, Frame&) {
        if (const auto target = zForwardTarget()) result = target->GetFillColorName();
    });
}

void CommentEditor::ClickEditTool(const std::string& Name) {
    Procedure(*this, "ClickEditTool", [&](Frame& frame) {
        Watch watchName(frame, "Name", Name);
        if (const auto target = zForwardTarget()) target->ClickEditTool(Name);
    });
}

void CommentEditor::SetToolbarStyle(ToolbarStyle value) {
    Procedure(*this, "ToolbarStyle", [&](Frame&) {
        const int style = static_cast<int>(value);
        Required(CurrentServices().ControlHelper).ApplyToolbarStyle(*DockCommentTypes, style);
        InPlaceEditor->GetEditControl()->SetContextToolbarStyle(style);
        const auto fixed = zFixedDesigner();
        if (fixed && fixed->GetEditor()) fixed->GetEditor()->SetContextToolbarStyle(style);
    });
}

void CommentEditor::SelectInPlaceEditLayout(const std::string& PageLayoutName) {
    Procedure(*this, "SelectInPlaceEditLayout", [&](Frame& frame) {
        Watch watchName(frame, "PageLayoutName", PageLayoutName);
        eb->GetGroup("main")->Item("inplaceedit:" + PageLayoutName)->SetSelected(true);
    });
}

void CommentEditor::BindToWrapper(const Ref<Object>& Wrapper) {
    Procedure(*this, "BindToWrapper", [&](Frame&) {
        mWrapper = Wrapper;
        if (!Wrapper) return;
        if (ActiveDesigner)
            ActiveDesigner->BindToWrapper(Wrapper);
        else if (mInPlaceEditorIsActive)
            InPlaceEditor->BindToWrapper(Wrapper);
    });
}

std::vector<Ref<Control>> CommentEditor::zChildControls() const {
    std::vector<Ref<Control>> controls{
        splitMain,       eb, tagsContainer, prpTags, prpFlags, InPlaceEditor, DesignerContainer,
        DockCommentTypes};
    for (const auto& designer : DesignerContainer->Controls)
        controls.push_back(designer);
    return controls;
}

void CommentEditor::zSetTagControls(const std::string& TagIdentifier, bool Enabled) {
    Procedure(*this, "zSetTagControls", [&](Frame& frame) {
        Watch watchTag(frame, "TagIdentifier", TagIdentifier);
        Watch watchEnabled(frame, "Enabled", Enabled);
        for (const auto& control : zChildControls())
            if (EqualIgnoringCase(control->GetTag(), TagIdentifier)) control->SetEnabled(Enabled);
    });
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
