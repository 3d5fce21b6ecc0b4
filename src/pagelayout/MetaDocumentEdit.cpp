#include "pagelayout/MetaDocumentEdit.h"

#include "foundation/ScopeExit.h"
#include "foundation/Services.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

constexpr int kNormalView = 0;
constexpr int kSourceView = 1;
constexpr int kPreviewView = 2;
constexpr const char* kBaseURL = "BaseURL";
constexpr const char* kContextMenu = "mnuContext";
constexpr const char* kMetaContextMenu = "mnuMetaContext";
/// What the names of commands begin with.
constexpr std::size_t kCommandPrefix = 3;

} // namespace

MetaDocumentEdit::MetaDocumentEdit(std::string name) : Container(std::move(name)) {
    fstView->Add("normal", "Normal", {}, "HTML Edit View");
    fstView->Add("htmlsource", "HTML", {}, "HTML Source View");
    fstView->Add("preview", "Preview", {}, "Preview");
    fstView->SetAccessibleName("Views of the layout");
    hdrElements->SetText("Some elements in this document cannot be edited in this view");
    hdrElements->SetVisible(false);
    dedDocument->SetScope(HtmlEditScope::Document);
    dedDocument->SetAccessibleName("Page layout");
    zMakeCommands();
    conClient->Controls.Add(dedDocument);
    dksUI->SetClient(conClient);
    Controls.Add(hdrElements);
    Controls.Add(dksUI);
    Controls.Add(fstView);
    zShowPreview();
    zArrange();
    zConnect();
    zUpdateCommands();
    zSetView();
}

MetaDocumentEdit::~MetaDocumentEdit() {
    Terminate();
}

void MetaDocumentEdit::zMakeCommands() {
    const auto add = [this](const char* name, const char* caption, const char* tip,
                            const char* status) {
        const auto command = dksUI->Commands.Add(name, caption);
        command->SetToolTipText(tip);
        command->SetStatusText(status);
        return command;
    };
    const auto insert = add("btnMetaAdd", "&Add Element...", "Add Element", "Adds a new element");
    const auto edit = add("btnMetaEdit", "&Edit Element...", "Edit Element",
                          "Edits the properties of this element");
    const auto remove =
        add("btnMetaDelete", "&Delete Element", "Delete Element", "Deletes this element");
    const auto help = add("btnMetaHelp", "&Help on this meta data...", "Help",
                          "Displays help on using this meta data");
    const auto cut = add("btnCut", "Cu&t", "Cut", "Moves what is selected to the clipboard");
    const auto copy = add("btnCopy", "&Copy", "Copy", "Copies what is selected to the clipboard");
    const auto paste = add("btnPaste", "&Paste", "Paste", "Puts in what is on the clipboard");

    auto& context = dksUI->Commands.AddPopup(kContextMenu, "{Context}")->GetPopupCommands();
    for (const auto& command : {insert, cut, copy, paste})
        context.Add(command);
    auto& meta =
        dksUI->Commands.AddPopup(kMetaContextMenu, "{Meta Data Context}")->GetPopupCommands();
    for (const auto& command : {edit, remove, help, cut, copy})
        meta.Add(command);

    const auto images = MakeRef<ImageList>();
    images->Add("btnMetaAdd", {"list-add", {}, {}});
    images->Add("btnMetaEdit", {"document-properties", {}, {}});
    images->Add("btnMetaDelete", {"edit-delete", {}, {}});
    images->Add("btnMetaHelp", {"help-contents", {}, {}});
    images->Add("btnCut", {"edit-cut", {}, {}});
    images->Add("btnCopy", {"edit-copy", {}, {}});
    images->Add("btnPaste", {"edit-paste", {}, {}});
    dksUI->SetImageList(images);

    const auto bar = dksUI->AddToolbar("Elements");
    for (const auto& command : {insert, edit, remove})
        bar->Add(command);
    dksUI->SetToolbarStyle(ToolbarStyle::TextBesideIcons);
}

void MetaDocumentEdit::zConnect() {
    const auto keep = [this](Connection connection) {
        mConnections.push_back(std::move(connection));
    };
    keep(fstView->Events.Change.Connect([this](const auto&, const auto&) { zSetView(); }));
    keep(dksUI->Events.CommandClick.Connect(
        [this](const auto& command) { dksUI_CommandClick(command); }));
    keep(dedDocument->Events.Change.Connect([this] { dedDocument_Change(); }));
    keep(dedDocument->Events.CommandClick.Connect(
        [this](const auto& name, bool& ignore) { dedDocument_CommandClick(name, ignore); }));
    keep(dedDocument->Events.ToolsRefreshed.Connect([this] { zUpdateCommands(); }));
    keep(dedDocument->Events.PartCopied.Connect(
        [this](const auto& key, const auto& html) { dedDocument_PartCopied(key, html); }));
    keep(dedDocument->Events.PartPasted.Connect(
        [this](const auto& key, const auto& html, bool& isHandled) {
            dedDocument_PartPasted(key, html, isHandled);
        }));
    keep(dedDocument->Events.ElementEvent.Connect(
        [this](int id, const auto& info, bool& cancelDefault) {
            dedDocument_ElementEvent(id, info, cancelDefault);
        }));
}

void MetaDocumentEdit::zArrange() {
    ioTheme = CurrentServices().ThemeColours;
    const bool isThemed = ioTheme && ioTheme->IsActive();
    // Another layout has its view made again.
    if (isThemed == iThemed && Container::GetLayout().GetKind() != FormLayout::Kind::Empty) return;
    iThemed = isThemed;
    std::vector<FormLayout> parts{FormLayout::Item(hdrElements), FormLayout::Item(dksUI, 1),
                                  FormLayout::Item(fstView)};
    Container::SetLayout(iThemed ? FormLayout::Framed(std::move(parts))
                                 : FormLayout::Column(std::move(parts)));
}

void MetaDocumentEdit::SetTemplate(const Ref<PageTemplate>& value) {
    Procedure(*this, "Template", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        pTemplate.SetObject(value);
        Events.PropertyChanged.Raise("Template");
    });
}

void MetaDocumentEdit::SetLayout(const Ref<PageLayout>& value) {
    Procedure(*this, "Layout", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        pLayout.SetObject(value);
        Events.PropertyChanged.Raise("Layout");
    });
}

void MetaDocumentEdit::SetBaseURL(const std::string& value) {
    Procedure(*this, "BaseURL", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        if (dedDocument->GetBaseURL() == value) return;
        dedDocument->SetBaseURL(value);
        Events.PropertyChanged.Raise(kBaseURL);
    });
}

void MetaDocumentEdit::UserControl_ReadProperties(const PropertyBag& PropBag) {
    Procedure(*this, "UserControl_ReadProperties",
              [&](Frame&) { SetBaseURL(PropBag.ReadProperty(kBaseURL, "").ToText()); });
}

void MetaDocumentEdit::UserControl_WriteProperties(PropertyBag& PropBag) const {
    Procedure(*this, "UserControl_WriteProperties",
              [&](Frame&) { PropBag.WriteProperty(kBaseURL, Value(GetBaseURL())); });
}

void MetaDocumentEdit::Initialize() {
    Procedure(*this, "Initialize", [&](Frame&) {
        zArrange();
        dedDocument->SetSpellAsYouType(false);
        dedDocument->SetExternal(this);
    });
}

void MetaDocumentEdit::Terminate() {
    Procedure(*this, "Terminate", [&](Frame&) {
        dedDocument->Terminate();
        dedDocument->SetExternal(nullptr);
        ioTheme.reset();
        pTemplate.SetObject({});
        pLayout.SetObject({});
    });
}

// Views

std::string MetaDocumentEdit::GetDocumentHTML() {
    return Procedure<std::string>(*this, "DocumentHTML", [&](std::string& result, Frame&) {
        dedDocument->CommitEdit();
        const std::string text = dedDocument->GetDocumentHTML();
        result = iView == kSourceView
                     ? text
                     : mEnvelope.Around(ConvertSpanDocumentToMetaDocument(zFromEditor(text)));
    });
}

bool MetaDocumentEdit::SetDocumentHTML(const std::string& value) {
    return Procedure<bool>(*this, "DocumentHTML", [&](bool& result, Frame& frame) {
        Watch watchValue(frame, "value", value);
        result = zShow(value);
        mFirstLoad = false;
        zSetView();
    });
}

bool MetaDocumentEdit::zShow(const std::string& html) {
    LayoutEnvelope envelope;
    const SpanDocument made = MakeSpanDocument(html, &envelope);
    if (!made.Parser) return false;
    const SpanDocument old{{}, mParserTemplate, mSpanProvider};
    const Ref<HTMLDocument> document = dedDocument->GetDocument();
    const bool isSource = dedDocument->GetView() == HtmlView::Source;
    const std::string oldMark = mExcludedMark;
    const LayoutEnvelope oldEnvelope = std::exchange(mEnvelope, std::move(envelope));
    mParserTemplate = made.Parser;
    mSpanProvider = made.Provider;
    // The spans of a document mean nothing without those that made them.
    const ScopeExit settle([&] {
        if (isSource || dedDocument->GetDocument() != document) {
            if (old.Provider) old.Provider->Terminate();
            zForgetElementEdits();
        } else {
            mParserTemplate = old.Parser;
            mSpanProvider = old.Provider;
            mExcludedMark = oldMark;
            mEnvelope = oldEnvelope;
        }
    });
    if (!isSource) RaiseIfSpanIsForeign(*made.Parser);
    dedDocument->SetDocumentHTML(isSource ? html : zForEditor(made.Text));
    return true;
}

int MetaDocumentEdit::zActiveView() const {
    for (std::size_t tab = 1; tab <= fstView->Count(); ++tab)
        if (fstView->Item(tab) == fstView->GetSelectedTab()) return static_cast<int>(tab) - 1;
    return kNormalView;
}

// An author's work is worth more than another view of it.
bool MetaDocumentEdit::zReadForView(std::string& html) {
    html = GetDocumentHTML();
    return !html.empty() || dedDocument->GetDocumentHTML().empty();
}

void MetaDocumentEdit::zSetView() {
    Procedure(*this, "zSetView", [&](Frame& frame) {
        int NewView = zActiveView();
        Watch watchView(frame, "NewView", NewView);
        if (NewView == mRememberedView) return;
        // Where something fails the tab tells again what is shown.
        const ScopeExit tell([&] {
            if (mRememberedView == NewView) return;
            fstView->SetSelectedTab(fstView->Item(static_cast<std::size_t>(mRememberedView + 1)));
            dedDocument->SetVisible(true);
            dedDocument->SetView(iView == kSourceView ? HtmlView::Source : HtmlView::Normal);
        });
        std::string html;
        if (!zReadForView(html)) return;
        if (NewView == kSourceView) {
            dedDocument->SetVisible(false);
            dedDocument->SetView(HtmlView::Source);
            dedDocument->SetDocumentHTML(html);
            dedDocument->SetVisible(true);
        } else {
            dedDocument->SetView(HtmlView::Normal);
            if (!zShow(html)) return;
        }
        hdrElements->SetVisible(NewView == kNormalView && iWarningVisible);
        iView = NewView;
        mRememberedView = NewView;
        zShowPreview();
        zUpdateCommands();
    });
}

void MetaDocumentEdit::SetPreview(const Ref<Control>& control) {
    if (mPreview == control) return;
    if (mPreview) conClient->Controls.Remove(mPreview->GetName());
    mPreview = control;
    if (mPreview) conClient->Controls.Add(mPreview);
    zShowPreview();
}

void MetaDocumentEdit::zShowPreview() {
    const bool isShown = mPreview && iView == kPreviewView;
    std::vector<FormLayout> surfaces{FormLayout::Item(dedDocument, 1)};
    if (mPreview) surfaces.push_back(FormLayout::Item(mPreview, 1));
    if (conClient->GetLayout().GetChildren().size() != surfaces.size())
        conClient->SetLayout(FormLayout::Stack(std::move(surfaces)));
    if (mPreview) mPreview->SetVisible(isShown);
    dedDocument->SetVisible(!isShown);
}

// Editing

void MetaDocumentEdit::Changed() {
    mDirty = true;
    Events.Change.Raise();
}

void MetaDocumentEdit::zUpdateCommands() {
    Procedure(*this, "zUpdateCommands", [&](Frame&) {
        const bool isRendered = iView != kSourceView && !(mPreview && iView == kPreviewView);
        const bool isInSpan = isRendered && IsInsideMetaSpan(dedDocument->GetCurrentElement());
        dksUI->Commands.Item("btnMetaAdd")->SetEnabled(isRendered && mParserTemplate);
        for (const char* name : {"btnMetaEdit", "btnMetaDelete", "btnMetaHelp"})
            dksUI->Commands.Item(name)->SetEnabled(isInSpan);
    });
}

void MetaDocumentEdit::dksUI_CommandClick(const Ref<DockCommand>& Command) {
    Procedure(*this, "dksUI_CommandClick", [&](Frame& frame) {
        Watch watchCommand(frame, "Command", Command);
        const std::string name = LowerCase(Command->GetName().substr(kCommandPrefix));
        if (name == "metaadd")
            InsertMetaData();
        else if (name == "metaedit")
            EditMetaData();
        else if (name == "metadelete")
            DeleteMetaData();
        else if (name == "cut" || name == "copy" || name == "paste")
            dedDocument->ClickEditTool(name);
    });
}

void MetaDocumentEdit::dedDocument_Change() {
    Procedure(*this, "dedDocument_Change", [&](Frame&) {
        zForgetElementEdits();
        if (dedDocument->GetLoading() || !dedDocument->GetDocument()) return;
        if (!dedDocument->IsCommandEnabled("EditUndo")) return;
        if (iView == kSourceView) iRawChanged = true;
        Changed();
    });
}

void MetaDocumentEdit::dedDocument_CommandClick(const std::string& CommandName, bool& Ignore) {
    Procedure(*this, "dedDocument_CommandClick", [&](Frame& frame) {
        Watch watchName(frame, "CommandName", CommandName);
        if (EqualIgnoringCase(CommandName, "undo") && UndoElementEdit()) Ignore = true;
        if (EqualIgnoringCase(CommandName, "redo") && RedoElementEdit()) Ignore = true;
    });
}

void MetaDocumentEdit::dedDocument_ElementEvent(int EventId, const Ref<HtmlElementEvent>& EventInfo,
                                                bool& CancelDefault) {
    Procedure(*this, "dedDocument_ElementEvent", [&](Frame& frame) {
        Watch watchId(frame, "EventId", EventId);
        Watch watchInfo(frame, "EventInfo", EventInfo);
        Watch watchCancel(frame, "CancelDefault", CancelDefault);
        if (EventId == HtmlEventId::kDoubleClick)
            zDoubleClick(EventInfo->SourceElement, CancelDefault);
        else if (EventId == HtmlEventId::kContextMenu)
            zContextMenu(*EventInfo, CancelDefault);
        Events.ElementEvent.Raise(EventId, EventInfo, CancelDefault);
    });
}

void MetaDocumentEdit::zDoubleClick(const Ref<HTMLElement>& source, bool& CancelDefault) {
    if (!IsInsideMetaSpan(source) || GetSpanIndex(source->GetId()) < 1) return;
    EditMetaData();
    CancelDefault = true;
}

void MetaDocumentEdit::zContextMenu(const HtmlElementEvent& info, bool& CancelDefault) {
    Ref<HTMLElement> span;
    const bool isMeta =
        IsInsideMetaSpan(info.SourceElement, &span) && GetSpanIndex(span->GetId()) >= 1;
    zUpdateCommands();
    CancelDefault = true;
    dksUI->ShowMenu(*dksUI->Commands.Item(isMeta ? kMetaContextMenu : kContextMenu), info.ScreenX,
                    info.ScreenY);
}

void MetaDocumentEdit::DumpVariables(VariableDump& dump) const {
    dump.Add("mDirty", mDirty)
        .Add("pTemplate", pTemplate)
        .Add("pLayout", pLayout)
        .Add("ioTheme", bool(ioTheme))
        .Add("iThemed", iThemed)
        .Add("iRawChanged", iRawChanged)
        .Add("iView", iView)
        .Add("iWarningVisible", iWarningVisible)
        .Add("mParserTemplate", mParserTemplate)
        .Add("mSpanProvider", mSpanProvider)
        .Add("mFirstLoad", mFirstLoad);
}

} // namespace paperkite
