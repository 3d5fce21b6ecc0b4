#include "authoring/InPlaceEditor.h"

namespace paperkite {

namespace {

constexpr const char* kNormal = "normal";
constexpr const char* kSource = "htmlsource";
constexpr const char* kPreview = "preview";

} // namespace

void InPlaceEditor::zConnect() {
    const auto keep = [this](Connection connection) {
        mConnections.push_back(std::move(connection));
    };
    auto& from = ed->Events;
    keep(from.DocumentComplete.Connect([this] { ed_DocumentComplete(); }));
    keep(from.EditableSpanChanged.Connect(
        [this](const auto& span) { ed_EditableSpanChanged(span); }));
    keep(from.BeforeShowContextMenuEx.Connect(
        [this](int, int, const auto&, bool& cancelDefault, bool& showDefault, HtmlMenuType) {
            ed_BeforeShowContextMenuEx(cancelDefault, showDefault);
        }));
    keep(from.CommandClick.Connect(
        [this](const auto& name, bool& ignore) { ed_CommandClick(name, ignore); }));
    keep(from.ToolsRefreshed.Connect([this] { ed_ToolsRefreshed(); }));
    keep(from.GetURL.Connect(
        [this](std::string& url, std::string& caption, bool&, bool, bool showCaption, bool,
               bool& cancelDefault) { ed_GetURL(url, caption, showCaption, cancelDefault); }));
    const auto passOn = [&]<class... A>(Event<A...>& source, Event<A...>& to, const char* name) {
        keep(source.Connect([this, &to, name](A... arguments) {
            Procedure(*this, name, [&](Frame&) { to.Raise(arguments...); });
        }));
    };
    passOn(from.HyperlinkClick, Events.HyperlinkClick, "ed_HyperlinkClick");
    passOn(from.InsertHyperLinkRequest, Events.InsertHyperLinkRequest, "ed_InsertHyperLinkRequest");
    passOn(from.SpellIgnoreWordAdded, Events.SpellIgnoreWordAdded, "ed_SpellIgnoreWordAdded");
    keep(FlatStrip->Events.Change.Connect(
        [this](const auto& previous, const auto& tab) { FlatStrip_Change(previous, tab); }));
}

bool InPlaceEditor::zIsPreview() const {
    const auto& tab = FlatStrip->GetSelectedTab();
    return tab && tab->Key == kPreview;
}

void InPlaceEditor::FlatStrip_Change(const Ref<FlatTab>&, const Ref<FlatTab>& FlatTab) {
    Procedure(*this, "FlatStrip_Change", [&](Frame&) {
        if (!FlatTab) return;
        // What was typed belongs to the model before the page is built again.
        CommitEdit();
        if (FlatTab->Key == kNormal || FlatTab->Key == kPreview)
            ed->SetView(HtmlView::Normal);
        else if (FlatTab->Key == kSource)
            ed->SetView(HtmlView::Source);
        Load(mCodeElement, mLayoutFileName);
        ed->SetEditFocus();
    });
}

void InPlaceEditor::ed_BeforeShowContextMenuEx(bool& CancelDefault, bool& ShowDefault) {
    if (!zIsPreview()) return;
    CancelDefault = true;
    ShowDefault = true;
}

void InPlaceEditor::ed_CommandClick(const std::string& CommandName, bool& Ignore) {
    Procedure(*this, "ed_CommandClick", [&](Frame& frame) {
        Watch watchName(frame, "CommandName", CommandName);
        if (CommandName == "ViewSource") {
            Ignore = true;
        } else if (CommandName == "ViewPreview") {
            const auto previous = FlatStrip->GetSelectedTab();
            const auto preview = FlatStrip->Item(kPreview);
            FlatStrip->SetSelectedTab(preview);
            FlatStrip_Change(previous, preview);
            Ignore = true;
        }
    });
}

void InPlaceEditor::ed_ToolsRefreshed() {
    Procedure(*this, "ed_ToolsRefreshed", [&](Frame&) {
        if (!mResetUndo) return;
        // Clearing refreshes the tools once more.
        mResetUndo = false;
        ed->ClearUndo();
    });
}

void InPlaceEditor::ed_GetURL(std::string& URL, std::string& Caption, bool ShowCaption,
                              bool& CancelDefault) {
    Procedure(*this, "ed_GetURL", [&](Frame& frame) {
        Watch watchURL(frame, "URL", URL);
        // A handler of the link may have ended the page.
        if (mTerminated) return;
        CancelDefault = true;
        URL = zHost().ICommentDesignerHost_BuildLink(URL, ShowCaption, Caption, true, "Get URL",
                                                     "Link to", true);
    });
}

void InPlaceEditor::BindToWrapper(const Ref<Object>& Wrapper) {
    Procedure(*this, "BindToWrapper", [&](Frame&) {
        if (Wrapper) Wrapper->Call("BindTo", {Value(true), Value(Ref<Object>(ed))});
    });
}

void InPlaceEditor::DoSpellCheck(const Ref<Object>& PassedSpell, bool& Cancel) {
    Procedure(*this, "DoSpellCheck", [&](Frame&) { ed->DoSpellCheck(PassedSpell, Cancel); });
}

void InPlaceEditor::DoFind(const std::string& SearchFor, bool WholeWord, bool CaseSensitive,
                           bool SearchInHTML) {
    Procedure(*this, "DoFind", [&](Frame& frame) {
        Watch watchFor(frame, "SearchFor", SearchFor);
        ed->DoFind(SearchFor, WholeWord, CaseSensitive, SearchInHTML);
    });
}

void InPlaceEditor::DoReplace(const std::string& SearchFor, const std::string& ReplaceWith,
                              bool WholeWord, bool CaseSensitive, bool SearchInHTML) {
    Procedure(*this, "DoReplace", [&](Frame& frame) {
        Watch watchFor(frame, "SearchFor", SearchFor);
        Watch watchWith(frame, "ReplaceWith", ReplaceWith);
        ed->DoReplace(SearchFor, ReplaceWith, WholeWord, CaseSensitive, SearchInHTML);
    });
}

void InPlaceEditor::SetSpellOptions(const SpellOptions& Options) {
    Procedure(*this, "SetSpellOptions", [&](Frame&) { ed->SetSpellOptions(Options); });
}

void InPlaceEditor::AddIgnoreAll(const std::string& Word) {
    Procedure(*this, "AddIgnoreAll", [&](Frame& frame) {
        Watch watchWord(frame, "Word", Word);
        ed->AddIgnoreAll(Word);
    });
}

void InPlaceEditor::SetEditFocus() {
    Procedure(*this, "SetEditFocus", [&](Frame&) { ed->SetEditFocus(); });
}

void InPlaceEditor::SetEditFocusQueued() {
    Procedure(*this, "SetEditFocusQueued", [&](Frame&) { ed->SetEditFocusQueued(); });
}

} // namespace paperkite
