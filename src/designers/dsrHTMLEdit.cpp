#include "designers/dsrHTMLEdit.h"

#include "foundation/CommentDesignerHost.h"
#include "foundation/ScopeExit.h"
#include "foundation/TaggedCommentDef.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

constexpr const char* kPlace = "comment";
constexpr std::string_view kTableSize = "table ";

// The colours come with the page's view, and follow the light and the dark scheme.
constexpr const char* kPage =
    "<!DOCTYPE html><html><head><style>"
    "body { margin: 8px 12px; font: 14px/1.5 sans-serif; background: var(--kite-base); "
    "color: var(--kite-text); }"
    "#comment { min-height: calc(100vh - 24px); }"
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
    : TagDesignerControl(std::move(name), Several::Offered), ed(MakeRef<HtmlEdit>("ed")) {
    MakeToolbar();
    MakeChooser();
    Dock->SetClient(ed);
    ed->SetSpellAsYouType(true);
    ConnectEditor();
    ShowTools();
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

void dsrHTMLEdit::ConnectEditor() {
    auto& events = ed->Events;
    On(events.DocumentComplete, "ed_DocumentComplete", [this] {
        FillPlace();
        DesignerEvents.DocumentComplete.Raise();
    });
    On(events.EditableSpanChanged, "ed_EditableSpanChanged", [this](const Ref<HTMLElement>& span) {
        if (mLoading) return;
        const std::string text = mText.Stored(span->GetInnerHTML());
        Store(text.empty() ? std::nullopt : std::optional(text));
    });
    On(events.ToolsRefreshed, "ed_ToolsRefreshed", [this] { ShowTools(); });
    On(events.GetURL, "ed_GetURL",
       [this](std::string& url, std::string& caption, bool&, bool, bool showCaption, bool,
              bool& cancelDefault) { ed_GetURL(url, caption, showCaption, cancelDefault); });
    On(events.HyperlinkClick, "ed_HyperlinkClick",
       [this](const std::string& href) { DesignerEvents.HyperlinkClick.Raise(href); });
    On(events.InsertHyperLinkRequest, "ed_InsertHyperLinkRequest",
       [this](const std::string& text, std::string& link, bool& cancel) {
           DesignerEvents.InsertHyperLinkRequest.Raise(text, link, cancel);
       });
    On(events.SpellIgnoreWordAdded, "ed_SpellIgnoreWordAdded",
       [this](const std::string& word) { DesignerEvents.SpellIgnoreWordAdded.Raise(word); });
}

void dsrHTMLEdit::ed_GetURL(std::string& url, std::string& caption, bool showCaption,
                            bool& cancelDefault) {
    if (!GetHost()) return;
    // No link is the author's answer too; the widget must not ask once more.
    cancelDefault = true;
    url = GetHost()->ICommentDesignerHost_BuildLink(url, showCaption, caption, true, "Get URL",
                                                    "Link to", true);
}

void dsrHTMLEdit::HostCame(ICommentDesignerHost& host) {
    ed->SetApplicationName(host.ICommentDesignerHost_AppName());
    ed->SetBaseURL(host.ICommentDesignerHost_BaseURL());
}

void dsrHTMLEdit::ShowComment() {
    mLoading = true;
    const ScopeExit loaded([this] { mLoading = false; });
    ed->SetDocumentHTML(kPage);
}

void dsrHTMLEdit::FillPlace() {
    const auto place = ed->GetDocument()->All(kPlace);
    const auto definition = GetDefinition();
    const std::string name = definition ? definition->DisplayName : std::string();
    place->SetAttribute("data-placeholder", name.empty() ? "Write here" : "Write here: " + name);
    const std::string text = StoredText().value_or(std::string());
    place->SetInnerHTML(text);
    mText.Take(text, place->GetInnerHTML());
}

void dsrHTMLEdit::CommitFields() {
    ed->CommitEdit();
}

void dsrHTMLEdit::FocusFields() {
    ed->SetEditFocusQueued();
}

void dsrHTMLEdit::Ended() {
    ed->Terminate();
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
    if (name == "inserttable") return;
    if (name.starts_with(kTableSize))
        ed->InsertTable(static_cast<int>(LeadingNumber(Token(name, " ", 2))),
                        static_cast<int>(LeadingNumber(Token(name, " ", 3))));
    else
        ed->ClickEditTool(name);
    ed->SetEditFocus();
}

} // namespace paperkite
