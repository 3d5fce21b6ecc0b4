#include "authoring/InPlaceEditor.h"

#include "foundation/Text.h"

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
    keep(from.BeforeShowContextMenuEx.Connect([this](int x, int y, const auto& object,
                                                     bool& cancelDefault, bool& showDefault,
                                                     HtmlMenuType type) {
        ed_BeforeShowContextMenuEx(x, y, object, cancelDefault, showDefault, type);
    }));
    keep(from.CommandClick.Connect(
        [this](const auto& name, bool& ignore) { ed_CommandClick(name, ignore); }));
    keep(from.ToolsRefreshed.Connect([this] { ed_ToolsRefreshed(); }));
    keep(from.GetURL.Connect([this](std::string& url, std::string& caption, bool& removeLink,
                                    bool showRemoveLink, bool showCaption, bool kiteLinks,
                                    bool& cancelDefault) {
        ed_GetURL(url, caption, removeLink, showRemoveLink, showCaption, kiteLinks, cancelDefault);
    }));
    keep(from.HyperlinkClick.Connect([this](const auto& href) { ed_HyperlinkClick(href); }));
    keep(from.InsertHyperLinkRequest.Connect(
        [this](const auto& selected, std::string& link, bool& cancel) {
            ed_InsertHyperLinkRequest(selected, link, cancel);
        }));
    keep(from.SpellIgnoreWordAdded.Connect(
        [this](const auto& word) { ed_SpellIgnoreWordAdded(word); }));
    keep(FlatStrip->Events.Change.Connect(
        [this](const auto& previous, const auto& tab) { FlatStrip_Change(previous, tab); }));
}

bool InPlaceEditor::zIsPreview() const {
    const auto& tab = FlatStrip->GetSelectedTab();
    return tab && tab->Key == kPreview;
}

void InPlaceEditor::FlatStrip_Change(const Ref<paperkite::FlatTab>& PreviousTab,
                                     const Ref<paperkite::FlatTab>& FlatTab) {
    Procedure(*this, "FlatStrip_Change", [&](Frame& frame) {
        Watch watchPrevious(frame, "PreviousTab", PreviousTab);
        Watch watchTab(frame, "FlatTab", FlatTab);
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

void InPlaceEditor::ed_BeforeShowContextMenuEx(int X, int Y, const Ref<HTMLElement>& ObjectAtPoint,
                                               bool& CancelDefault, bool& ShowDefault,
                                               HtmlMenuType MenuType) {
    Procedure(*this, "ed_BeforeShowContextMenuEx", [&](Frame& frame) {
        Watch watchX(frame, "X", X);
        Watch watchY(frame, "Y", Y);
        Watch watchObject(frame, "ObjectAtPoint", ObjectAtPoint);
        Watch watchCancel(frame, "CancelDefault", CancelDefault);
        Watch watchShow(frame, "ShowDefault", ShowDefault);
        Watch watchType(frame, "MenuType", MenuType);
        if (!zIsPreview()) return;
        CancelDefault = true;
        ShowDefault = true;
    });
}

void InPlaceEditor::ed_CommandClick(const std::string& CommandName, bool& Ignore) {
    Procedure(*this, "ed_CommandClick", [&](Frame& frame) {
        Watch watchName(frame, "CommandName", CommandName);
        Watch watchIgnore(frame, "Ignore", Ignore);
        if (EqualIgnoringCase(CommandName, "ViewSource")) {
            Ignore = true;
        } else if (EqualIgnoringCase(CommandName, "ViewPreview")) {
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

void InPlaceEditor::ed_GetURL(std::string& URL, std::string& Caption, bool& RemoveLink,
                              bool ShowRemoveLink, bool ShowCaption, bool EnabledKiteLinks,
                              bool& CancelDefault) {
    Procedure(*this, "ed_GetURL", [&](Frame& frame) {
        Watch watchURL(frame, "URL", URL);
        Watch watchCaption(frame, "Caption", Caption);
        Watch watchRemove(frame, "RemoveLink", RemoveLink);
        Watch watchShowRemove(frame, "ShowRemoveLink", ShowRemoveLink);
        Watch watchShowCaption(frame, "ShowCaption", ShowCaption);
        Watch watchKiteLinks(frame, "EnabledKiteLinks", EnabledKiteLinks);
        Watch watchCancel(frame, "CancelDefault", CancelDefault);
        // A handler of the link may have ended the page.
        if (mTerminated) return;
        CancelDefault = true;
        URL = zHost().ICommentDesignerHost_BuildLink(URL, ShowCaption, Caption, true, "Get URL",
                                                     "Link to", true);
    });
}

void InPlaceEditor::ed_HyperlinkClick(const std::string& hRef) {
    Procedure(*this, "ed_HyperlinkClick", [&](Frame& frame) {
        Watch watchLink(frame, "hRef", hRef);
        Events.HyperlinkClick.Raise(hRef);
    });
}

void InPlaceEditor::ed_InsertHyperLinkRequest(const std::string& SelectedText, std::string& Link,
                                              bool& Cancel) {
    Procedure(*this, "ed_InsertHyperLinkRequest", [&](Frame& frame) {
        Watch watchText(frame, "SelectedText", SelectedText);
        Watch watchLink(frame, "Link", Link);
        Watch watchCancel(frame, "Cancel", Cancel);
        Events.InsertHyperLinkRequest.Raise(SelectedText, Link, Cancel);
    });
}

void InPlaceEditor::ed_SpellIgnoreWordAdded(const std::string& Word) {
    Procedure(*this, "ed_SpellIgnoreWordAdded", [&](Frame& frame) {
        Watch watchWord(frame, "Word", Word);
        Events.SpellIgnoreWordAdded.Raise(Word);
    });
}

void InPlaceEditor::BindToWrapper(const Ref<Object>& Wrapper) {
    Procedure(*this, "BindToWrapper", [&](Frame& frame) {
        Watch watchWrapper(frame, "Wrapper", Wrapper);
        if (Wrapper) Wrapper->Call("BindTo", {Value(true), Value(Ref<Object>(ed))});
    });
}

void InPlaceEditor::DoSpellCheck(const Ref<Object>& PassedSpell, bool& Cancel) {
    Procedure(*this, "DoSpellCheck", [&](Frame& frame) {
        Watch watchSpell(frame, "PassedSpell", PassedSpell);
        Watch watchCancel(frame, "Cancel", Cancel);
        ed->DoSpellCheck(PassedSpell, Cancel);
    });
}

void InPlaceEditor::DoFind(const std::string& SearchFor, bool WholeWord, bool CaseSensitive,
                           bool SearchInHTML) {
    Procedure(*this, "DoFind", [&](Frame& frame) {
        Watch watchFor(frame, "SearchFor", SearchFor);
        Watch watchWhole(frame, "WholeWord", WholeWord);
        Watch watchCase(frame, "CaseSensitive", CaseSensitive);
        Watch watchHTML(frame, "SearchInHTML", SearchInHTML);
        ed->DoFind(SearchFor, WholeWord, CaseSensitive, SearchInHTML);
    });
}

void InPlaceEditor::DoReplace(const std::string& SearchFor, const std::string& ReplaceWith,
                              bool WholeWord, bool CaseSensitive, bool SearchInHTML) {
    Procedure(*this, "DoReplace", [&](Frame& frame) {
        Watch watchFor(frame, "SearchFor", SearchFor);
        Watch watchWith(frame, "ReplaceWith", ReplaceWith);
        Watch watchWhole(frame, "WholeWord", WholeWord);
        Watch watchCase(frame, "CaseSensitive", CaseSensitive);
        Watch watchHTML(frame, "SearchInHTML", SearchInHTML);
        ed->DoReplace(SearchFor, ReplaceWith, WholeWord, CaseSensitive, SearchInHTML);
    });
}

void InPlaceEditor::SetSpellOptions(const SpellOptions& Options) {
    Procedure(*this, "SetSpellOptions", [&](Frame& frame) {
        Watch watchOptions(frame, "Options", Options);
        ed->SetSpellOptions(Options);
    });
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
