#include "authoring/InPlaceEditor.h"

#include "foundation/GlobalConfig.h"
#include "foundation/PreviewLog.h"
#include "foundation/ScopeExit.h"
#include "foundation/Services.h"
#include "foundation/Text.h"

#include <algorithm>

namespace paperkite {

namespace {

constexpr const char* kScratchFile = "kitePreview.html";
constexpr const char* kPreviewTemp = "\\PreviewTemp\\";
constexpr const char* kNoOutputFolder = "\\\\\\";
constexpr const char* kStartTagPrefix = "<!--KITEMETADATA start";
constexpr const char* kEndTagPrefix = "<!--KITEMETADATA end";
constexpr const char* kTagSuffix = "-->";
// The option that pages tell the access of items.
constexpr const char* kVisibilitySetting = "IdentifyVisibility";
constexpr std::int32_t kUtf8 = 65001;

std::string Below(const std::string& folder, const std::string& name) {
    const bool separated = folder.ends_with('\\') || folder.ends_with('/');
    return folder + (separated ? "" : "\\") + name;
}

std::string DefaultPreviewFolder() {
    return GlobalConfig().ApplicationDataFolder + kPreviewTemp;
}

bool CanBeUsed(const std::string& folder) {
    FileSystem& files = Required(CurrentServices().FileSystem);
    if (files.FolderExists(folder)) return true;
    Ignoring([&] { files.CreateFolder(folder); });
    return files.FolderExists(folder);
}

// What an address cannot hold as it stands.
std::string AddressOf(const std::string& folder) {
    std::string address = ReplaceAll(folder, "\\", "/");
    address = ReplaceAll(address, "%", "%25");
    address = ReplaceAll(address, " ", "%20");
    address = ReplaceAll(address, "#", "%23");
    address = ReplaceAll(address, "?", "%3F");
    // "file:///" brings the root's slash along.
    return "file:///" + address.substr(address.starts_with('/') ? 1 : 0);
}

void WriteDescription(const Ref<Object>& element, const Value& text) {
    if (Ignoring([&] { element->Set("TaggedDescription", text); })) return;
    Ignoring([&] { element->Set("Description", text); });
}

std::string ReadDescription(const Ref<Object>& element) {
    std::string text;
    if (Ignoring([&] { text = element->Get("TaggedDescription").ToText(); })) return text;
    Ignoring([&] { text = element->Get("Description").ToText(); });
    return text;
}

} // namespace

InPlaceEditor::InPlaceEditor(std::string name) : Container(std::move(name)) {
    FlatStrip->Add("normal", "Normal", {}, "The page as it will be published, to write on");
    FlatStrip->Add("htmlsource", "HTML", {}, "The HTML of the page");
    FlatStrip->Add("preview", "Preview", {}, "The page as readers will see it");
    FlatStrip->SetAccessibleName("Views of the page");
    ed->SetAccessibleName("Page");
    Controls.Add(ed);
    Controls.Add(FlatStrip);
    zArrange();
    zConnect();
}

InPlaceEditor::~InPlaceEditor() {
    Terminate();
}

void InPlaceEditor::zArrange() {
    mTheme = CurrentServices().ThemeColours;
    const bool isThemed = mTheme && mTheme->IsActive();
    // Another layout has its view made again.
    if (isThemed == mThemed && GetLayout().GetKind() != FormLayout::Kind::Empty) return;
    mThemed = isThemed;
    std::vector<FormLayout> parts{FormLayout::Item(ed, 1), FormLayout::Item(FlatStrip)};
    SetLayout(mThemed ? FormLayout::Framed(std::move(parts))
                      : FormLayout::Column(std::move(parts)));
}

void InPlaceEditor::Initialize(ICommentDesignerHost* Host, const std::string& AppName,
                               const std::string& BaseURL) {
    Procedure(*this, "Initialize", [&](Frame& frame) {
        Watch watchHost(frame, "Host", Host);
        Watch watchApp(frame, "AppName", AppName);
        Watch watchBase(frame, "BaseURL", BaseURL);
        zArrange();
        mBaseURL = BaseURL;
        ed->SetApplicationName(AppName);
        ed->SetSpellAsYouType(false);
        mHost = Host;
        if (!BaseURL.empty()) ed->SetBaseURL(BaseURL);
        if (mKiteProject) ConfigureKiteProject();
        CreatedFiles.clear();
    });
}

void InPlaceEditor::SetKiteProject(const Ref<paperkite::KiteProject>& value) {
    Procedure(*this, "KiteProject", [&](Frame& frame) {
        Watch watchValue(frame, "value", value);
        if (!value || value != mKiteProject) {
            mDocType = nullptr;
            mCodeElement = nullptr;
        }
        mKiteProject = value;
        if (mKiteProject && mHost) ConfigureKiteProject();
    });
}

ICommentDesignerHost& InPlaceEditor::zHost() const {
    if (!mHost) RaiseError(ErrorNumber::ObjectNotSet);
    return *mHost;
}

void InPlaceEditor::ConfigureKiteProject() {
    Procedure(*this, "ConfigureKiteProject", [&](Frame&) {
        if (!mHost || !mKiteProject) return;
        const auto pageTemplate = zHost().ICommentDesignerHost_Template();
        // Without a template there is no page to make.
        if (!pageTemplate) {
            mDocType = nullptr;
            return;
        }
        mDocType = mKiteProject->AddTemplate(pageTemplate);
        // Nor where the project has no items of its namespaces.
        if (!mDocType->NamespaceProvider) {
            mDocType = nullptr;
            return;
        }
        mKiteProject->Set("OutputFolder", Value(GetPreviewFolder()));
        if (mDocType->NamespaceDefs)
            for (const auto& definition : *mDocType->NamespaceDefs)
                definition->Included = true;
        mDocType->Language = "English";
        mDocType->NamespaceProvider->GetDataProvider()->Set(
            "RootItem", Value(zHost().ICommentDesignerHost_CurrentRootItem()));
        mKiteProject->Log = MakeRef<PreviewLog>();
        zShowVariableNames();
        mKiteProject->Set(kVisibilitySetting, Value(true));
        mKiteProject->SetDirty(true);
    });
}

void InPlaceEditor::zShowVariableNames() {
    auto& variables = mKiteProject->GetVariables();
    for (const auto& definition : mDocType->Template->VariableDefs) {
        const std::string& name = definition->Name;
        if (!variables.Contains(name)) {
            const auto added = MakeRef<Variable>();
            added->Name = name;
            variables.Add(added, name);
        }
        // A colour in a style sheet cannot be a name in braces.
        variables.Item(name)->Value =
            ContainsIgnoringCase(name, "color") ? std::string() : "{Variable:" + name + "}";
    }
}

void InPlaceEditor::Load(const Ref<Object>& CodeElement, const std::string& LayoutFileName) {
    Procedure(*this, "Load", [&](Frame& frame) {
        Watch watchElement(frame, "CodeElement", CodeElement);
        Watch watchLayout(frame, "LayoutFileName", LayoutFileName);
        const bool ForEdit = !zIsPreview();
        // What was typed is a change as long as no page is loading.
        CommitEdit();
        mCodeElement = CodeElement;
        bool isShown = false;
        const ScopeExit otherwiseEmpty([&] {
            if (!isShown) zShowEmptyPage();
        });
        if (!CreatedFiles.empty()) RemoveTempFiles();
        if (!CodeElement) return;
        zCollectDescription(CodeElement);
        mLayoutFileName = LayoutFileName;
        if (!mDocType) return;
        std::string HTML = zParsePage(ForEdit);
        ed->SetDirty(false);
        ed->SetBaseURL(zBaseAddress());
        ed->SetReadableFolders({mDocType->Template->Folder});
        mLoading = true;
        const std::size_t body = FindIgnoringCase(HTML, "<BODY");
        if (body != std::string::npos)
            HTML.insert(body, "<STYLE><!-- SPAN.kiteMisspelled { BACKGROUND-POSITION: left bottom; "
                              "BACKGROUND-IMAGE: url('res://" +
                                  ed->GetResourcePath() +
                                  "'); BACKGROUND-REPEAT: repeat-x; isStyleInternal: True "
                                  "--></STYLE>");
        ed->SetDocumentHTML(HTML);
        isShown = true;
    });
}

// Another element's page must not be taken for this one's, and whoever waits for a page must not
// wait for ever.
void InPlaceEditor::zShowEmptyPage() {
    mLoading = false;
    bool isShown = false;
    Procedure(*this, "zShowEmptyPage", [&](Frame&) {
        ed->SetDocumentHTML({});
        isShown = true;
    });
    if (isShown) return;
    Procedure(*this, "zShowEmptyPage", [&](Frame&) { Events.DocumentComplete.Raise(); });
}

void InPlaceEditor::zCollectDescription(const Ref<Object>& element) {
    element->Set("Examples", Value(Ref<Object>(MakeRef<ObjectCollection>())));
    WriteDescription(element, Value(""));
    const auto comments = element->Get("TaggedComments")
                              .ToObjectOf<TaggedCommentCollection>()
                              ->UnDeletedTaggedComments();
    ControlHelper& helper = Required(CurrentServices().ControlHelper);
    for (const auto& comment : *comments) {
        comment->SetResolvedText({});
        const auto definition = comment->GetTaggedCommentDef();
        if (!definition || !EqualIgnoringCase(definition->AppendsToDescription, "true")) continue;
        WriteDescription(element,
                         Value(helper.MergeDescription(ReadDescription(element), comment->GetText(),
                                                       definition->DescriptionFormat)));
    }
}

std::string InPlaceEditor::zLayoutFor(const std::string& LayoutFileName) const {
    if (!LayoutFileName.empty()) return LayoutFileName;
    const std::string& name = zHost().ICommentDesignerHost_NamespaceDef()->Name;
    for (const auto& layout : *mDocType->Template->PageLayouts)
        if (ContainsIgnoringCase(layout->Namespaces, name)) return layout->FileName;
    return {};
}

std::string InPlaceEditor::zParsePage(bool ForEdit) {
    mKiteProject->SetCurrentTemplate(mDocType);
    mKiteProject->SetOutputCodePage(kUtf8);
    const auto DDP = mDocType->NamespaceProvider->GetDataProvider();
    DDP->Set("ForEdit", Value(ForEdit));
    DDP->Set("editcommenttype", Value(static_cast<std::int32_t>(CommentType)));
    DDP->Set("RootItem", Value(zHost().ICommentDesignerHost_CurrentRootItem()));
    const auto definition = zHost().ICommentDesignerHost_NamespaceDef();
    DDP->Call("Prepare",
              {Value(Ref<Object>(definition)), Value(mCodeElement), Value(definition->GroupCaption),
               Value(zHost().ICommentDesignerHost_CurrentParentItem())});
    mLayoutFileName = zLayoutFor(mLayoutFileName);
    Required(CurrentServices().ControlHelper).ResetParser();
    const auto t = CreateParserTemplate(Below(mDocType->Template->Folder, mLayoutFileName));
    // What failed was told.
    if (!t) return {};
    t->SetDataProvider(DDP);
    t->SetUseProvidedText(true);
    return t->Parse();
}

std::string InPlaceEditor::zBaseAddress() {
    return AddressOf(GetPreviewFolder());
}

std::string InPlaceEditor::GetPreviewFolder() {
    return Procedure<std::string>(*this, "PreviewFolder", [&](std::string& result, Frame&) {
        result = DefaultPreviewFolder();
        if (!mKiteProject || !mDocType) return;
        const std::string wanted = mKiteProject->Get("OutputFolder").ToText();
        if (wanted.empty() || wanted == kNoOutputFolder)
            mKiteProject->Set("OutputFolder", Value(result));
        else if (CanBeUsed(wanted))
            result = wanted;
        if (result == mLastPreviewFolder || result.empty()) return;
        mKiteProject->SetDirty(true);
        // Not every provider writes files.
        Ignoring([&] { mDocType->NamespaceProvider->Set("OutputFolder", Value(result)); });
        mLastPreviewFolder = result;
    });
}

Ref<ParserTemplate> InPlaceEditor::CreateParserTemplate(const std::string& FileName) {
    return Procedure<Ref<ParserTemplate>>(
        *this, "CreateParserTemplate", [&](Ref<ParserTemplate>& result, Frame& frame) {
            Watch watchFile(frame, "FileName", FileName);
            const auto text = Required(CurrentServices().FileSystem).ReadFile(FileName);
            if (!CurrentServices().CreateParserTemplate)
                RaiseError(ErrorNumber::CannotCreateComponent, "No template parser can be made");
            result = CurrentServices().CreateParserTemplate();
            result->SetStartTagPrefix(kStartTagPrefix);
            result->SetStartTagSuffix(kTagSuffix);
            result->SetEndTagPrefix(kEndTagPrefix);
            result->SetEndTagSuffix(kTagSuffix);
            if (text) result->LoadText(*text);
        });
}

void InPlaceEditor::RemoveTempFiles() {
    Procedure(*this, "RemoveTempFiles", [&](Frame&) {
        for (const auto& file : CreatedFiles)
            Ignoring([&] { Required(CurrentServices().FileSystem).DeleteFile(file); });
        zDeleteScratchFile();
    });
}

void InPlaceEditor::zDeleteScratchFile() {
    Ignoring([this] {
        Required(CurrentServices().FileSystem).DeleteFile(Below(GetPreviewFolder(), kScratchFile));
    });
}

void InPlaceEditor::CommitEdit() {
    Procedure(*this, "CommitEdit", [&](Frame&) { ed->CommitEdit(); });
}

void InPlaceEditor::Terminate() {
    if (std::exchange(mTerminated, true)) return;
    Procedure(*this, "Terminate", [&](Frame&) {
        mDocType = nullptr;
        mKiteProject = nullptr;
        mCodeElement = nullptr;
        RemoveTempFiles();
        CreatedFiles.clear();
        ed->Terminate();
        mHost = nullptr;
    });
}

void InPlaceEditor::DumpVariables(VariableDump& dump) const {
    dump.Add("mLoading", mLoading)
        .Add("mBaseURL", mBaseURL)
        .Add("CommentType", CommentType)
        .Add("mDocType", mDocType)
        .Add("mKiteProject", mKiteProject)
        .Add("mCodeElement", mCodeElement)
        .Add("mLayoutFileName", mLayoutFileName)
        .Add("mResetUndo", mResetUndo)
        .Add("CreatedFiles", Value::ArrayOfTexts(CreatedFiles))
        .Add("mHost", mHost)
        .Add("mIgnoreChanges", mIgnoreChanges)
        .Add("mTerminated", mTerminated)
        .Add("AutoSetFocus", AutoSetFocus)
        .Add("mTheme", mTheme)
        .Add("mThemed", mThemed);
}

} // namespace paperkite
