#include "faults/WalkScene.h"

#include "doctypes/source/SourceNamespaceDefs.h"

namespace paperkite::test {

namespace {

constexpr const char* kLayout =
    "<html><head></head><body><h1><!--KITEMETADATA start type=\"scopedname\"-->Name"
    "<!--KITEMETADATA end--></h1>"
    "<!--KITEMETADATA start type=\"comment\" tag=\"##\"-->Text<!--KITEMETADATA end-->"
    "<!--KITEMETADATA start type=\"comment\" tag=\"#note\"-->Note<!--KITEMETADATA end-->"
    "<!--KITEMETADATA start type=\"comment\" tag=\"#remark\"-->Remark<!--KITEMETADATA end-->"
    "</body></html>";

std::string Rows(const PropertiesList& list) {
    std::string text;
    for (const auto& row : list)
        text += row->GetCaption() + "|" + row->GetValue() + (row->GetChecked() ? "|v" : "") +
                (row->GetReadOnly() ? "|offer" : "") +
                (list.GetSelectedItem() == row ? "|selected" : "") + "\n";
    return text;
}

std::string Commands(const DockHost& dock) {
    std::string text;
    for (const char* name :
         {"Previous", "Next", "Properties", "Copy", "Paste", "ShowFriend", "ShowPrivate",
          "ShowInherited", "AutoExpand", "ShowProtected", "Grouped"}) {
        const auto command = dock.Commands.Item(name);
        text += std::string(name) + (command->GetEnabled() ? "" : " disabled") +
                (command->GetVisible() ? "" : " hidden") + "\n";
    }
    return text;
}

} // namespace

WalkScene::WalkScene(ScannedProject& scanned)
    : Scanned(scanned), Project(MakeRef<FailingProject>(Failure, scanned)),
      Images(MakeSourceImages()) {
    Configure();
    MakePages();
    MakeDialogs();
    Editor = std::make_unique<ProjectEditor>();
    Editor->SetUserMode(true);
    ConnectHandlers();
    Failure.Context = [this] { return TreeWidget().GetRedraw() ? "" : " while loading"; };
}

WalkScene::~WalkScene() {
    Failure.Disarm();
    mConnections.clear();
    Layout.reset();
    Editor.reset();
}

TaggedCommentDef& WalkScene::Define(const std::string& tag) {
    const auto definition = MakeRef<TaggedCommentDef>();
    definition->TagIdentifier = tag;
    definition->DisplayName = "Name of " + tag;
    definition->Namespaces =
        "kite.source:Class,kite.source:Method,kite.source:Namespace,kite.source:Project";
    GlobalConfig().TaggedCommentDefs->Add(definition);
    return *definition;
}

void WalkScene::Configure() {
    GlobalConfig() = GlobalConfigData();
    GlobalConfig().ProjectViewOptions.Grouped = false;
    Define("##").IsGeneral = true;
    Define("#note");
    Define("#remark").AppendsToDescription = "True";
    Define("#todo").TagType = "f";
    Define("#old").TagType = "f";
    const auto page = MakeRef<PageTemplate>();
    const auto layout = MakeRef<PageLayout>();
    layout->Name = "Page";
    layout->Namespaces = "kite.source:Class";
    layout->FileNameTemplate = "%%itemqualifiedname%%_page.html";
    page->PageLayouts->Add(layout);
    GlobalConfig().Templates.Add(page);
}

void WalkScene::MakePages() {
    Pages->Name = "Walked";
    Pages->Folder = "/templates/walked";
    const auto served = MakeRef<TemplateNamespace>();
    served->Moniker = kSourceMoniker;
    Pages->Namespaces.push_back(served);
    const auto layout = MakeRef<PageLayout>();
    layout->Name = "Class";
    layout->FileName = "class.html";
    layout->Namespaces = "kite.source:Class,kite.source:Method";
    Pages->PageLayouts->Add(layout);
    const auto variable = MakeRef<VariableDef>();
    variable->Name = "Title";
    Pages->VariableDefs.Add(variable, variable->Name);
    Services.Files->Texts["/templates/walked\\class.html"] = kLayout;
}

void WalkScene::MakeDialogs() {
    const auto note = MakeRef<ElementDef>();
    note->Name = "note";
    for (const auto& [name, type] : std::vector<std::pair<std::string, std::string>>{
             {"text", "text"}, {"file", "file"}, {"tag", "list"}}) {
        const auto attribute = MakeRef<AttributeDef>();
        attribute->Name = name;
        attribute->AttributeType = type;
        attribute->ValueSource = "taggedcommentdefs";
        attribute->Required = name == "text";
        note->AttributeDefs.Add(attribute, name);
    }
    Pages->Namespaces.front()->ElementDefs.Add(note, note->Name);
    ElementDialog = MakeRef<frmEditMetaSpan>();
    ElementDialog->SetRunner([](Form&, FormMode) {});
    ColourDialog = MakeRef<frmBrowseHTMLColor>();
    ColourDialog->SetRunner([](Form&, FormMode) {});
    CurrentServices().CreateFilePicker = [this] {
        Failure.Use("FilePicker");
        return std::make_shared<ScriptedFilePicker>();
    };
    CurrentServices().ChooseColour = [this](std::int32_t, std::intptr_t) {
        Failure.Use("ChooseColour");
        return std::optional<std::int32_t>(77);
    };
    mConnections.push_back(Elements().Events.SelectionChanged.Connect(
        [this](const Ref<ElementDef>&) { Failure.Use("Handler.SelectionChanged"); }));
}

void WalkScene::BeginDialogs() {
    ElementDialog->Hide();
    ElementDialog->SetIsAdd(false);
    ElementDialog->SetSafeToUnload(false);
    ElementDialog->SetSuccess(false);
    ElementDialog->SetText("");
    ElementDialog->SetLayout(nullptr);
    Elements().SetShowTipBox(false);
    Elements().SetShowTree(false);
    Elements().Initialise(Pages->NamespaceDefs, Pages);
    ColourDialog->Hide();
    ColourDialog->Initialize(0);
}

std::string WalkScene::DialogState() {
    const auto selected = Elements().tvwElements->GetSelectedItem();
    return ElementDialog->GetCaption() + (ElementDialog->GetVisible() ? "|shown" : "") +
           (ElementDialog->GetSuccess() ? "|success" : "") + "|" + ElementDialog->GetText() + "|" +
           (selected ? selected->GetKey() : "") + "\n" + Rows(*Elements().prpProperties) +
           ColourDialog->cboColor->GetText() + (ColourDialog->GetVisible() ? "|shown" : "") +
           (ColourDialog->GetCancelled() ? "|cancelled" : "") + "\n";
}

void WalkScene::ShowPage() {
    Comments().SetInPlaceTemplate(Pages);
}

void WalkScene::TypeOnPage(const std::string& tag, const std::string& html) {
    const auto places = Text().GetPlaces();
    for (std::size_t place = 0; place < places.size(); ++place)
        if (places[place]->GetId().ends_with("~A|" + tag))
            return Text().UserSpanChanged(place, html);
}

void WalkScene::ConnectHandlers() {
    const auto watch = [this]<class... A>(Event<A...>& event, const char* name) {
        mConnections.push_back(
            event.Connect([this, name](A...) { Failure.Use(std::string("Handler.") + name); }));
    };
    auto& tree = Tree().Events;
    watch(tree.NodesCleared, "NodesCleared");
    watch(tree.NodeClick, "NodeClick");
    watch(tree.NodeCheck, "NodeCheck");
    watch(tree.AfterCommand, "AfterCommand");
    watch(tree.CopyCommentsRequested, "CopyCommentsRequested");
    watch(tree.PasteCommentsRequested, "PasteCommentsRequested");
    watch(tree.PropertiesRequested, "ProjectView.PropertiesRequested");
    watch(tree.PropertyChanged, "PropertyChanged");
    watch(tree.AfterLabelEdit, "AfterLabelEdit");
    watch(tree.BeforeLabelEdit, "BeforeLabelEdit");
    watch(tree.Click, "Click");
    watch(tree.Collapse, "Collapse");
    watch(tree.DblClick, "DblClick");
    watch(tree.Expand, "Expand");
    watch(tree.KeyDown, "KeyDown");
    watch(tree.KeyPress, "KeyPress");
    watch(tree.KeyUp, "KeyUp");
    watch(tree.MouseMove, "MouseMove");
    watch(tree.NodeDblClick, "NodeDblClick");
    auto& editor = Comments().Events;
    watch(editor.TaggedCommentAdded, "CommentEditor.Added");
    watch(editor.TaggedCommentDeleted, "CommentEditor.Deleted");
    watch(editor.TaggedCommentChanged, "CommentEditor.Changed");
    watch(editor.DirtyStateChanged, "DirtyStateChanged");
    auto& screen = Screen().Events;
    watch(screen.TaggedCommentAdded, "Added");
    watch(screen.TaggedCommentDeleted, "Deleted");
    watch(screen.TaggedCommentChanged, "Changed");
    watch(screen.NodeClickNameSpaceDef, "NodeClickNameSpaceDef");
    watch(screen.InsertHyperLinkRequest, "InsertHyperLinkRequest");
    watch(screen.BuildLinkRequest, "BuildLinkRequest");
    watch(screen.SpellIgnoreWordAdded, "SpellIgnoreWordAdded");
    watch(screen.SpellingOptionsRequested, "SpellingOptionsRequested");
    watch(screen.PropertiesRequested, "PropertiesRequested");
}

void WalkScene::Begin() {
    Layout.reset();
    Scanned.Reset();
    Configure();
    BeginDialogs();
    Services.Registry->Values.clear();
    Services.Helper->ModelControlHelper::CopyComments(nullptr);
    mAppName = "Test";
    auto& tree = Tree();
    tree.Dock->GetToolbar(1)->SetVisible(true);
    for (const char* name : {"Copy", "Paste", "Previous", "Next", "Properties"})
        tree.Dock->Commands.Item(name)->SetVisible(true);
    tree.SetExclusions(MakeRef<TextCollection>());
    tree.SetFilter("");
    tree.SetShowInherited(false);
    tree.OnlyTopicItems = false;
    tree.UserControl_ReadProperties({});
    Comments().SetInPlaceTemplate(nullptr);
    Project->Set("OutputFolder", Value(""));
    Views().SetSelectedTab(Views().Item("normal"));
    Text().SetView(HtmlView::Normal);
    Page().SetHost(&Comments());
    Comments().SetSpellObject(Spell);
    Comments().SetKeepTombstones(false);
    Comments().SetDesignFlag("");
    Comments().SetCommentType(CommentType::TaggedComments);
    Comments().SetShowCombo(false);
    Comments().SetEditInFocus(false);
    Comments().UserControl_Show();
    Editor->SetKiteProject(Project);
    Editor->Project.SetImageList(Images);
    Editor->BindToWrapper(Wrapper);
    Editor->IDynamicHelpContext_Initialise(Help);
    Editor->Clear();
    Comments().SetInPlaceTemplate(nullptr);
    Editor->SetAppName("Test");
    Editor->ReloadSettings();
    Load();
    tree.SelectItem("demo~app~A");
    Comments().SetDirty(false);
}

void WalkScene::Load() {
    Editor->LoadFromNamespaceDefs(Scanned.Definitions, kSourceMoniker);
}

Ref<Object> WalkScene::Item(const std::string& name) {
    return Project->GetProvider()->GetItem(name);
}

Ref<NamespaceDef> WalkScene::DefinitionOf(const std::string& itemType) {
    return FirstDefinitionForType(Scanned.Definitions, itemType);
}

Ref<PropertyItem> WalkScene::Offer(const std::string& tag) {
    for (const auto& row : Tags())
        if (row->GetReadOnly() && row->GetCaption() == tag) return row;
    return {};
}

void WalkScene::SelectNote() {
    Tags().SetSelectedItem(Tags().Item("a-note"));
}

void WalkScene::RewriteNote() {
    SelectNote();
    Tags().BeginEdit();
    Tags().UserType("rewritten");
}

void WalkScene::StoreSetting(const std::string& path, const std::string& name,
                             const std::string& value) {
    Services.Registry->Values[MemoryRegistry::Name(
        HKEY_CURRENT_USER, "Software\\Brindlewick\\Test" + path, name)] = value;
}

std::string WalkScene::State() {
    std::string text = TreeText(TreeWidget());
    const auto selected = Tree().GetSelectedItem();
    text += "selected: " + (selected ? selected->GetKey() : "none") + "\n";
    text += Rows(Tags()) + "--\n" + Rows(Flags()) + "--\n";
    const auto element = Comments().GetCurrentCodeElement();
    text += "open: " + (element ? element->Get("QualifiedName").ToText() : "none") + "\n";
    text += Comments().GetDirty() ? "dirty\n" : "";
    text += "title: " + Comments().GetTitleCaption() + "\n";
    text += Tags().GetVisible() ? "tags shown\n" : "";
    if (Page().GetVisible())
        text += "page " + Views().GetSelectedTab()->Key + ": " + Text().GetDocumentHTML() + "\n";
    text += DialogState();
    text += Tags().GetInEdit() ? "in edit\n" : "";
    text +=
        "exclusions: " + (Tree().GetExclusions() ? TextsOf(*Tree().GetExclusions()) : "") + "\n";
    text += Commands(*Tree().Dock);
    text += "share: " + std::to_string(Editor->GetSplitPercent()) + "\n";
    return text + Scanned.Comments();
}

} // namespace paperkite::test
