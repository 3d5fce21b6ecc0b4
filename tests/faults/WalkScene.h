#pragma once

#include "authoring/ProjectEditor.h"
#include "faults/FailingModel.h"
#include "faults/FailingServices.h"
#include "pagelayout/frmEditMetaSpan.h"
#include "support/TestModel.h"
#include "widgets/frmBrowseHTMLColor.h"

#include <memory>
#include <string>
#include <vector>

namespace paperkite::test {

struct LayoutScene;

/// A whole authoring screen over the scanned project, in a world that may fail at any use. Handlers
/// of the host stand on every public event and may fail too.
class WalkScene {
public:
    explicit WalkScene(ScannedProject& scanned);
    ~WalkScene();
    WalkScene(const WalkScene&) = delete;
    WalkScene& operator=(const WalkScene&) = delete;

    ProjectEditor& Screen() { return *Editor; }
    ProjectView& Tree() { return Editor->Project; }
    CommentEditor& Comments() { return Editor->cEditor; }
    InPlaceEditor& Page() { return *Comments().InPlaceEditor; }
    HtmlEdit& Text() { return *Page().GetEditControl(); }
    FlatStrip& Views() { return *Page().FlatStrip; }
    TreeControl& TreeWidget() { return *Tree().tvwProject; }
    PropertiesList& Tags() { return *Comments().prpTags; }
    ElementBuilder& Elements() { return *ElementDialog->ctlBuilder; }
    PropertiesList& Flags() { return *Comments().prpFlags; }

    /// Puts everything but the components back, and the components to the tree with A open.
    void Begin();
    void Load();
    Ref<TreeNode> Node(const std::string& key) { return Tree().GetNodes().Item(key); }
    Ref<Object> Item(const std::string& name);
    Ref<NamespaceDef> DefinitionOf(const std::string& itemType);
    Ref<PropertyItem> Offer(const std::string& tag);
    void SelectNote();
    /// The page of A, with places for its description, its note and a remark that is not there.
    void ShowPage();
    /// What the author makes of the place of a tag of A.
    void TypeOnPage(const std::string& tag, const std::string& html);
    /// Types over A's note without leaving the edit.
    void RewriteNote();
    void StoreSetting(const std::string& path, const std::string& name, const std::string& value);

    /// All that an author sees, and all that the store holds.
    std::string State();

    FailureSwitch Failure;
    ScannedProject& Scanned;
    KeptConfiguration Configuration;
    FailingServices Services{Failure};
    Ref<FailingProject> Project;
    Ref<FailingObject> Wrapper = MakeRef<FailingObject>(Failure, "Wrapper");
    Ref<FailingObject> Spell = MakeRef<FailingObject>(Failure, "Spell");
    Ref<FailingHelpHost> Help = MakeRef<FailingHelpHost>(Failure);
    Ref<ImageList> Images;
    Ref<PageTemplate> Pages = MakeRef<PageTemplate>();
    Ref<frmEditMetaSpan> ElementDialog;
    Ref<frmBrowseHTMLColor> ColourDialog;
    std::unique_ptr<ProjectEditor> Editor;
    /// Made by the operations on layouts.
    std::shared_ptr<LayoutScene> Layout;

private:
    TaggedCommentDef& Define(const std::string& tag);
    void Configure();
    void MakePages();
    void MakeDialogs();
    void BeginDialogs();
    std::string DialogState();
    void ConnectHandlers();

    std::vector<Connection> mConnections;
};

} // namespace paperkite::test
