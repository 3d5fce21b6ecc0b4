#include "designers/dsrHTMLEdit.h"

#include "designers/HTMLEditDesigner.h"
#include "foundation/CommentDesignerHost.h"
#include "foundation/GlobalConfig.h"
#include "foundation/ScopeExit.h"
#include "foundation/TaggedCommentDef.h"
#include "foundation/Text.h"

#include <algorithm>

namespace paperkite {

namespace {

constexpr const char* kPlace = "comment";
constexpr std::string_view kTableSize = "table ";

// The colours come with the page's view, and follow the light and the dark scheme.
constexpr const char* kPage =
    "<!DOCTYPE html><html><head><style>"
    "body { margin: 8px 12px; font: 14px/1.5 sans-serif; background: var(--kite-base); "
    "color: var(--kite-text); }"
    "p { margin: 0 0 .6em; } ul, ol { margin: 0 0 .6em; padding-left: 1.8em; }"
    "h1, h2, h3, h4 { line-height: 1.25; margin: .8em 0 .4em; }"
    "a { color: var(--kite-link); }"
    "code, kbd, samp, pre { font-family: monospace; font-size: 13px; }"
    "code { background: color-mix(in srgb, var(--kite-text) 8%, transparent); "
    "border-radius: 3px; padding: 0 3px; }"
    "table { border-collapse: collapse; margin: 0 0 .6em; } "
    "td, th { border: 1px solid var(--kite-lines); padding: 3px 8px; vertical-align: top; }"
    "img { max-width: 100%; }"
    "</style></head><body><div id=\"comment\" contenteditable=\"true\"></div></body></html>";

struct ToolText {
    const char* Name;
    const char* Caption;
    const char* Icon;
    const char* ToolTip;
    bool IsCheck;
    bool BeginsGroup;
};

constexpr ToolText kTools[] = {
    {"bold", "Bold", "format-text-bold", "Bold (Ctrl-B)", true, false},
    {"italic", "Italic", "format-text-italic", "Italic (Ctrl-I)", true, false},
    {"code", "Code", "format-text-code", "Names and code", true, false},
    {"insertunorderedlist", "Bulleted List", "format-list-unordered", "List with bullets", true,
     true},
    {"insertorderedlist", "Numbered List", "format-list-ordered", "List with numbers", true, false},
    {"createlink", "Link", "insert-link", "Link to an item or an address (Ctrl-K)", true, true},
    {"insertimage", "Picture", "insert-image", "Picture from an address", false, false},
    {"removeformat", "Remove Formatting", "draw-eraser",
     "Take bold, italic and code away from the selection", false, true},
    {"undo", "Undo", "edit-undo", "Undo (Ctrl-Z)", false, true},
    {"redo", "Redo", "edit-redo", "Redo (Ctrl-Y)", false, false},
};

struct TableSize {
    const char* Name;
    const char* Caption;
};

constexpr TableSize kTableSizes[] = {{"table 2 2", "2 rows, 2 columns"},
                                     {"table 3 2", "3 rows, 2 columns"},
                                     {"table 3 3", "3 rows, 3 columns"},
                                     {"table 4 4", "4 rows, 4 columns"}};

} // namespace

dsrHTMLEdit::dsrHTMLEdit(std::string name)
    : DesignerControl(std::move(name)), Dock(MakeRef<DockHost>("Dock")),
      ed(MakeRef<HtmlEdit>("ed")), lblPosition(MakeRef<Label>("lblPosition")),
      mDesigner(MakeRef<HTMLEditDesigner>(*this)) {
    Controls.Add(Dock);
    SetLayout(FormLayout::Column({FormLayout::Item(Dock, 1)}));
    MakeToolbar();
    MakeChooser();
    Dock->SetClient(ed);
    ed->SetSpellAsYouType(true);
    ConnectEditor();
    ShowTools();
}

dsrHTMLEdit::~dsrHTMLEdit() {
    mDesigner->mControl = nullptr;
}

Ref<CommentDesigner> dsrHTMLEdit::GetObject() {
    return mDesigner;
}

void dsrHTMLEdit::MakeToolbar() {
    const auto bar = Dock->AddToolbar("Formatting");
    for (const ToolText& tool : kTools) {
        const Ref<DockCommand> command =
            tool.IsCheck
                ? Ref<DockCommand>(Dock->Commands.AddCheck(tool.Name, tool.Caption, tool.Icon))
                : Dock->Commands.Add(tool.Name, tool.Caption, tool.Icon);
        command->SetToolTipText(tool.ToolTip);
        bar->Add(command, tool.BeginsGroup);
        if (std::string_view(tool.Name) != "insertorderedlist") continue;
        const auto table = Dock->Commands.AddPopup("inserttable", "Table", "insert-table");
        table->SetToolTipText("Table");
        for (const TableSize& size : kTableSizes)
            table->GetPopupCommands().Add(size.Name, size.Caption);
        bar->Add(table);
    }
    const auto add = Dock->Commands.Add("AddComment", "Add Another", "list-add");
    add->SetToolTipText("Add another comment of this kind");
    bar->Add(add, true);
}

void dsrHTMLEdit::MakeChooser() {
    const auto bar = Dock->AddToolbar("Comments");
    const auto add = [&](const char* name, const char* caption, const char* icon) {
        const auto command = Dock->Commands.Add(name, caption, icon);
        command->SetToolTipText(caption);
        bar->Add(command);
    };
    add("PreviousComment", "Previous comment of this kind", "go-previous");
    bar->AddControl(lblPosition);
    add("NextComment", "Next comment of this kind", "go-next");
    add("DeleteComment", "Delete this comment", "edit-delete");
    bar->SetVisible(false);
    mConnections.push_back(Dock->Events.CommandClick.Connect(
        [this](const Ref<DockCommand>& command) { Dock_CommandClick(*command); }));
}

void dsrHTMLEdit::ConnectEditor() {
    auto& events = ed->Events;
    mConnections.push_back(events.DocumentComplete.Connect([this] {
        FillPlace();
        DesignerEvents.DocumentComplete.Raise();
    }));
    mConnections.push_back(events.EditableSpanChanged.Connect([this](const Ref<HTMLElement>& span) {
        if (!mLoading && mHost && mElement) Store(mText.Stored(span->GetInnerHTML()));
    }));
    mConnections.push_back(events.ToolsRefreshed.Connect([this] { ShowTools(); }));
    mConnections.push_back(events.GetURL.Connect(
        [this](std::string& url, std::string& caption, bool&, bool, bool showCaption, bool,
               bool& cancelDefault) { ed_GetURL(url, caption, showCaption, cancelDefault); }));
    mConnections.push_back(events.HyperlinkClick.Connect(
        [this](const std::string& href) { DesignerEvents.HyperlinkClick.Raise(href); }));
    mConnections.push_back(events.InsertHyperLinkRequest.Connect(
        [this](const std::string& text, std::string& link, bool& cancel) {
            DesignerEvents.InsertHyperLinkRequest.Raise(text, link, cancel);
        }));
    mConnections.push_back(events.SpellIgnoreWordAdded.Connect(
        [this](const std::string& word) { DesignerEvents.SpellIgnoreWordAdded.Raise(word); }));
}

void dsrHTMLEdit::ed_GetURL(std::string& url, std::string& caption, bool showCaption,
                            bool& cancelDefault) {
    if (!mHost) return;
    const std::string link = mHost->ICommentDesignerHost_BuildLink(url, showCaption, caption, true,
                                                                   "Get URL", "Link to", true);
    // Where nobody composes links the widget's own question is better than none.
    cancelDefault = !link.empty();
    url = link;
}

void dsrHTMLEdit::Show(const Ref<Object>& element, const Ref<TaggedCommentCollection>& comments,
                       const std::string& tag) {
    ed->CommitEdit();
    mElement = element;
    mTag = tag;
    mComments.clear();
    if (comments)
        for (const auto& comment : *comments)
            if (EqualIgnoringCase(comment->GetTagIdentifier(), tag)) mComments.push_back(comment);
    ShowComment(0);
}

void dsrHTMLEdit::ShowComment(std::size_t position) {
    mPosition = position;
    if (mComments.empty()) mComments.emplace_back();
    ShowChooser();
    mLoading = true;
    const ScopeExit loaded([this] { mLoading = false; });
    ed->SetDocumentHTML(kPage);
}

void dsrHTMLEdit::FillPlace() {
    const auto place = ed->GetDocument()->All(kPlace);
    const auto definition = GlobalConfig().TaggedCommentDefs->Find(mTag);
    const std::string name = definition ? definition->DisplayName : std::string();
    place->SetAttribute("data-placeholder", name.empty() ? "Write here" : "Write here: " + name);
    const Ref<TaggedComment> comment =
        mPosition < mComments.size() ? mComments[mPosition] : Ref<TaggedComment>();
    const std::string text = comment ? comment->GetText() : std::string();
    place->SetInnerHTML(text);
    mText.Take(text, place->GetInnerHTML());
}

void dsrHTMLEdit::Store(const std::string& text) {
    Ref<TaggedComment>& comment = mComments[mPosition];
    if (!comment && text.empty()) return;
    if (!comment) {
        comment = MakeRef<TaggedComment>();
        comment->SetTagIdentifier(mTag);
        comment->SetText(text);
        comment->SetItem(mElement);
        comment->SetState(kTaggedCommentNew);
        const Ref<TaggedComment> added = comment;
        mHost->ICommentDesignerHost_TaggedCommentAdded(mElement, added);
    } else if (text.empty()) {
        const Ref<TaggedComment> deleted = std::exchange(comment, {});
        mHost->ICommentDesignerHost_TaggedCommentDeleted(mElement, deleted);
    } else if (comment->GetText() != text) {
        comment->SetText(text);
        const Ref<TaggedComment> changed = comment;
        mHost->ICommentDesignerHost_TaggedCommentChanged(mElement, changed);
    }
    ShowChooser();
}

void dsrHTMLEdit::ShowChooser() {
    const std::size_t count = mComments.size();
    const auto bar = Dock->GetToolbar("Comments");
    lblPosition->SetCaption(std::to_string(mPosition + 1) + " of " + std::to_string(count));
    Dock->Commands.Item("PreviousComment")->SetEnabled(mPosition > 0);
    Dock->Commands.Item("NextComment")->SetEnabled(mPosition + 1 < count);
    bar->SetVisible(count > 1);
    const auto definition = GlobalConfig().TaggedCommentDefs->Find(mTag);
    const auto add = Dock->Commands.Item("AddComment");
    add->SetVisible(!definition || !definition->IsGeneral);
    add->SetEnabled(std::all_of(mComments.begin(), mComments.end(),
                                [](const auto& comment) { return bool(comment); }));
}

void dsrHTMLEdit::ShowTools() {
    for (const ToolText& tool : kTools) {
        const auto command = Dock->Commands.Item(tool.Name);
        command->SetEnabled(ed->IsCommandEnabled(tool.Name));
        if (tool.IsCheck)
            Dock->Commands.CheckItem(tool.Name)->SetChecked(ed->IsCommandOn(tool.Name) ? 1 : 0);
    }
    Dock->Commands.Item("inserttable")->SetEnabled(ed->IsCommandEnabled("inserttable"));
}

void dsrHTMLEdit::Dock_CommandClick(const DockCommand& command) {
    const std::string& name = command.GetName();
    if (EndsWithIgnoringCase(name, "Comment")) return ChooseComment(name);
    if (name == "inserttable") return;
    if (name.starts_with(kTableSize))
        ed->InsertTable(static_cast<int>(LeadingNumber(Token(name, " ", 2))),
                        static_cast<int>(LeadingNumber(Token(name, " ", 3))));
    else
        ed->ClickEditTool(name);
    ed->SetEditFocus();
}

void dsrHTMLEdit::ChooseComment(const std::string& command) {
    ed->CommitEdit();
    if (command == "DeleteComment") return DeleteComment();
    if (command == "AddComment") {
        mComments.emplace_back();
        ShowComment(mComments.size() - 1);
    } else {
        const std::size_t next = command == "NextComment" ? mPosition + 1 : mPosition - 1;
        if (next < mComments.size()) ShowComment(next);
    }
    ed->SetEditFocusQueued();
}

void dsrHTMLEdit::DeleteComment() {
    const Ref<TaggedComment> comment = mComments[mPosition];
    mComments.erase(mComments.begin() + static_cast<std::ptrdiff_t>(mPosition));
    if (comment) mHost->ICommentDesignerHost_TaggedCommentDeleted(mElement, comment);
    ShowComment(mPosition > 0 && mPosition >= mComments.size() ? mPosition - 1 : mPosition);
    ed->SetEditFocusQueued();
}

void dsrHTMLEdit::Forget() {
    ed->CommitEdit();
    mHost = nullptr;
    mElement = {};
    mComments.clear();
    ed->Terminate();
}

} // namespace paperkite
