#include "authoring/PageFixture.h"

#include "foundation/PreviewLog.h"

namespace paperkite::test {
namespace {

/// A project that counts how often it is marked as changed.
class MarkedProject : public TestProject {
public:
    using TestProject::TestProject;
    void SetDirty(bool value) override {
        if (value) ++Marks;
    }
    int Marks = 0;
};

/// A file system in which some folders cannot be made.
class StubbornFiles : public ScriptedFileSystem {
public:
    void CreateFolder(const std::string& path) override {
        Tried.push_back(path);
        if (path.find("locked") != std::string::npos)
            RaiseError(ErrorNumber::PermissionDenied, "The folder cannot be made");
        ScriptedFileSystem::CreateFolder(path);
    }
    std::vector<std::string> Tried;
};

/// A provider that is told where its files go.
class WritingProvider : public TestProvider {
public:
    using TestProvider::TestProvider;
    void Set(std::string_view member, const Value& value) override {
        Written += std::string(member) + "=" + value.ToText() + " ";
    }
    std::string Written;
};

/// How a page is made.
class InPlaceEditorTest : public PageFixture {
protected:
    static constexpr const char* kDefaultFolder = "/data\\PreviewTemp\\";
    static constexpr const char* kStyle =
        "<!-- SPAN.kiteMisspelled { BACKGROUND-POSITION: left bottom; BACKGROUND-IMAGE: "
        "url('res:///program/config/htmledit'); BACKGROUND-REPEAT: repeat-x; isStyleInternal: True "
        "-->";

    Ref<MarkedProject> UseMarkedProject() {
        const auto project = MakeRef<MarkedProject>(mModel.Log);
        project->Providers = mModel.Project->Providers;
        mEditor.SetKiteProject(project);
        return project;
    }
    std::shared_ptr<StubbornFiles> UseStubbornFiles() {
        const auto files = std::make_shared<StubbornFiles>();
        files->Texts = mServices.Files->Texts;
        CurrentServices().FileSystem = files;
        return files;
    }
    std::string OutputFolder() { return mModel.Project->Get("OutputFolder").ToText(); }
    /// The surface without the bar around it.
    void LoadPage(const std::string& layout) { Page().Load(mItem, layout); }
};

TEST_F(InPlaceEditorTest, TheWidgetLearnsNameAndAddress) {
    mEditor.SetAppName("Kite");
    mEditor.SetBaseURL("file:///base/");
    Widget().SetSpellAsYouType(true);
    Page().Initialize(&mEditor, "Kite", "file:///base/");
    EXPECT_EQ(Widget().GetApplicationName(), "Kite");
    EXPECT_EQ(Widget().GetBaseURL(), "file:///base/");
    EXPECT_FALSE(Widget().GetSpellAsYouType());
    EXPECT_TRUE(Page().GetHost() == &mEditor);
    Page().Initialize(&mEditor, "Kite", "");
    EXPECT_EQ(Widget().GetBaseURL(), "file:///base/");
}

TEST_F(InPlaceEditorTest, TheProjectIsPreparedForPreviewing) {
    const auto project = UseMarkedProject();
    for (const char* name : {"Title", "Accent Color", "COLORS", "Logo"}) {
        const auto definition = MakeRef<VariableDef>();
        definition->Name = name;
        mTemplate->VariableDefs.Add(definition, name);
    }
    const auto included = MakeDef("Test:Class");
    included->Included = false;
    mTemplate->NamespaceDefs->Add(included, included->Name);
    const auto known = MakeRef<Variable>();
    known->Name = "Title";
    known->Value = "My library";
    project->GetVariables().Add(known, "Title");
    Write("class.html", "");
    Load();
    ASSERT_EQ(project->GetTemplates().Count(), 1u);
    const auto bound = project->GetTemplates().Item("Plain");
    EXPECT_TRUE(bound->Template == mTemplate);
    EXPECT_TRUE(project->GetCurrentTemplate() == bound);
    EXPECT_EQ(bound->Language, "English");
    EXPECT_TRUE(included->Included);
    EXPECT_EQ(project->GetVariables().Item("Title")->Value, "{Variable:Title}");
    EXPECT_EQ(project->GetVariables().Item("Logo")->Value, "{Variable:Logo}");
    EXPECT_EQ(project->GetVariables().Item("Accent Color")->Value, "");
    EXPECT_EQ(project->GetVariables().Item("COLORS")->Value, "");
    EXPECT_TRUE(project->Log);
    EXPECT_TRUE(project->Get("IdentifyVisibility").ToBoolean());
    EXPECT_EQ(project->Get("OutputFolder").ToText(), kDefaultFolder);
    EXPECT_EQ(project->GetOutputCodePage(), 65001);
    EXPECT_GT(project->Marks, 0);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorTest, TheProviderIsPreparedInThisOrder) {
    Write("class.html", "");
    Load();
    mPageLog.Take();
    mEditor.SetCommentType(CommentType::XMLCommentTags);
    LoadPage("class.html");
    EXPECT_EQ(mPageLog.Take(), "ForEdit=True editcommenttype=0 RootItem=P "
                               "Prepare(Test:Class,P~A,Classes,nothing)");
}

TEST_F(InPlaceEditorTest, AnotherProjectOrNoneDropsThePage) {
    Write("class.html", "text");
    Load();
    EXPECT_EQ(Body(), "text");
    Page().SetKiteProject(nullptr);
    LoadPage("class.html");
    EXPECT_EQ(Body(), "");
    Page().SetKiteProject(mModel.Project);
    LoadPage("class.html");
    EXPECT_EQ(Body(), "text");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorTest, TheRawProjectIsStoredWithoutSideEffects) {
    InPlaceEditor page;
    page.mKiteProject = mModel.Project;
    EXPECT_TRUE(page.GetKiteProject() == mModel.Project);
    EXPECT_EQ(OutputFolder(), "");
    EXPECT_EQ(mModel.Project->GetTemplates().Count(), 0u);
}

TEST_F(InPlaceEditorTest, TheStyleOfMisspeltWordsIsPutBeforeTheBody) {
    for (const char* body : {"<body class='x'>", "<BODY>", "<Body>"}) {
        WriteWhole("class.html", std::string("<html><head></head>") + body + "text</body></html>");
        Load();
        EXPECT_NE(Widget().GetDocumentHTML().find(kStyle), std::string::npos)
            << Widget().GetDocumentHTML();
        EXPECT_EQ(CountOf(Widget().GetDocumentHTML(), "isStyleInternal"), 1u);
    }
}

TEST_F(InPlaceEditorTest, ALayoutWithoutBodyIsLoadedWithoutTheStyle) {
    WriteWhole("class.html", "only " + PlaceTag("P~A", "#note", "text"));
    Load();
    EXPECT_EQ(Widget().GetDocumentHTML().find("isStyleInternal"), std::string::npos);
    EXPECT_TRUE(Span("P~A", "#note"));
    Type("P~A", "#note", "typed");
    EXPECT_EQ(mItem->Comments()->Count(), 1u);
}

TEST_F(InPlaceEditorTest, TheWidgetCountsAsUnchangedAndKnowsWhereThePageIs) {
    Write("class.html", PlaceTag("P~A", "#note"));
    Load();
    EXPECT_EQ(Widget().GetBaseURL(), "file:///data/PreviewTemp/");
    Type("P~A", "#note", "typed");
    EXPECT_TRUE(Widget().GetDirty());
    mModel.Project->Set("OutputFolder", Value("/my out/put"));
    LoadPage("class.html");
    EXPECT_FALSE(Widget().GetDirty());
    EXPECT_EQ(Widget().GetBaseURL(), "file:///my%20out/put");
}

TEST_F(InPlaceEditorTest, TheDescriptionIsBuiltFromTheComments) {
    Tag("##").AppendsToDescription = "True";
    Tag("#remarks").AppendsToDescription = "true";
    Tag("#remarks").DescriptionFormat = "<i>%text%</i>";
    mItem->With("TaggedDescription", "old").With("Description", "of the source");
    mItem->With("Examples", Value(Ref<Object>()));
    mItem->Comment("##", "general", "g")->SetResolvedText("resolved");
    mItem->Comment("#remarks", "remark", "r");
    mItem->Comment("#note", "note", "n");
    mItem->Comment("#remarks", "gone", "t", kTaggedCommentTombstone);
    Write("class.html", "");
    Load();
    EXPECT_EQ(mItem->Get("TaggedDescription").ToText(), "general<i>remark</i>");
    EXPECT_EQ(mItem->Get("Description").ToText(), "of the source");
    EXPECT_EQ(mItem->Comments()->Item("g")->GetResolvedText(), "");
    const auto examples = mItem->Get("Examples").ToObjectOf<ObjectCollection>();
    ASSERT_TRUE(examples);
    EXPECT_EQ(examples->Count(), 0u);
    LoadPage("class.html");
    EXPECT_FALSE(mItem->Get("Examples").ToObject() == examples);
    EXPECT_EQ(mItem->Get("TaggedDescription").ToText(), "general<i>remark</i>");
}

TEST_F(InPlaceEditorTest, WithoutTaggedDescriptionTheDescriptionIsWritten) {
    Tag("##").AppendsToDescription = "True";
    mItem->With("Description", "of the source");
    mItem->Comment("##", "general", "g");
    Write("class.html", "");
    Load();
    EXPECT_EQ(mItem->Get("Description").ToText(), "general");
    mItem->Without("Description");
    LoadPage("class.html");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorTest, AnEmptyNameStandsForTheFirstLayoutOfTheNamespace) {
    AddLayout("later.html", "Test:Class");
    Write("class.html", "of classes");
    Write("later.html", "later");
    Load();
    LoadPage("");
    EXPECT_EQ(Body(), "of classes");
    LoadPage("later.html");
    EXPECT_EQ(Body(), "later");
}

TEST_F(InPlaceEditorTest, WithoutALayoutThePageIsEmpty) {
    Write("class.html", "of classes");
    Load();
    for (const auto& layout : *mTemplate->PageLayouts)
        layout->Namespaces = "Test:Other";
    LoadPage("");
    EXPECT_EQ(Body(), "");
    LoadPage("missing.html");
    EXPECT_EQ(Body(), "");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorTest, LayoutsAreReadWithTheCommentTags) {
    Load();
    mServices.Files->Texts["/x.html"] =
        "a<!--KITEMETADATA start type=\"place\" item=\"P~A\" tag=\"#note\"-->own text"
        "<!--KITEMETADATA end optional-->b";
    const auto parser = Page().CreateParserTemplate("/x.html");
    ASSERT_TRUE(parser);
    const auto elements = parser->GetSections()->Item(1)->Elements;
    ASSERT_EQ(elements.Count(), 3u);
    EXPECT_EQ(elements.Item(2)->Text, "own text");
    EXPECT_EQ(elements.Item(2)->Attributes.Item("type")->Value, "place");
    EXPECT_EQ(Page().CreateParserTemplate("/missing.html")->Parse(), "");
    EXPECT_EQ(mServices.TakeReports(), "");
}

// The preview folder

TEST_F(InPlaceEditorTest, WithoutAProjectThePreviewIsBelowTheApplicationData) {
    InPlaceEditor page;
    EXPECT_EQ(page.GetPreviewFolder(), kDefaultFolder);
}

TEST_F(InPlaceEditorTest, AnOutputFolderThatIsThereOrCanBeMadeIsThePreviewFolder) {
    const auto files = UseStubbornFiles();
    Load();
    files->Files["/there"];
    files->Tried.clear();
    mModel.Project->Set("OutputFolder", Value("/there"));
    EXPECT_EQ(Page().GetPreviewFolder(), "/there");
    EXPECT_TRUE(files->Tried.empty());
    mModel.Project->Set("OutputFolder", Value("/new"));
    EXPECT_EQ(Page().GetPreviewFolder(), "/new");
    EXPECT_EQ(files->Tried, std::vector<std::string>{"/new"});
}

TEST_F(InPlaceEditorTest, AnOutputFolderThatCannotBeMadeGivesWayToTheDefault) {
    UseStubbornFiles();
    Write("class.html", "text");
    CurrentServices().FileSystem->WriteFile("/templates/plain\\class.html", "<body>text</body>");
    Load();
    mModel.Project->Set("OutputFolder", Value("/locked/out"));
    EXPECT_EQ(Page().GetPreviewFolder(), kDefaultFolder);
    EXPECT_EQ(OutputFolder(), "/locked/out");
    LoadPage("class.html");
    EXPECT_EQ(Body(), "text");
    EXPECT_EQ(Widget().GetBaseURL(), "file:///data/PreviewTemp/");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorTest, AnEmptyOutputFolderIsReplacedByTheDefault) {
    Load();
    for (const char* none : {"", "\\\\\\"}) {
        mModel.Project->Set("OutputFolder", Value(none));
        EXPECT_EQ(Page().GetPreviewFolder(), kDefaultFolder);
        EXPECT_EQ(OutputFolder(), kDefaultFolder);
    }
}

TEST_F(InPlaceEditorTest, AnotherFolderIsToldToTheProviderOnce) {
    const auto provider = MakeRef<WritingProvider>(mModel.Log);
    provider->Data = mData;
    provider->Items = mModel.Provider->Items;
    mModel.Project->Providers["test"] = provider;
    const auto project = UseMarkedProject();
    Load();
    provider->Written.clear();
    mServices.Files->Files["/there"];
    project->Set("OutputFolder", Value("/there"));
    project->Marks = 0;
    Page().GetPreviewFolder();
    Page().GetPreviewFolder();
    EXPECT_EQ(provider->Written, "OutputFolder=/there ");
    EXPECT_EQ(project->Marks, 1);
}

TEST_F(InPlaceEditorTest, TheScratchFileGoesWithEachPageAndAtTheEnd) {
    const std::string scratch = std::string(kDefaultFolder) + "kitePreview.html";
    Write("class.html", "");
    Load();
    EXPECT_EQ(mServices.Files->Deleted, std::vector<std::string>{scratch});
    Page().Terminate();
    EXPECT_EQ(mServices.Files->Deleted.back(), scratch);
    EXPECT_EQ(mServices.Files->Deleted.size(), 2u);
    Page().Terminate();
    EXPECT_EQ(mServices.Files->Deleted.size(), 2u);
}

TEST_F(InPlaceEditorTest, TheEndMakesNoFolder) {
    const auto files = UseStubbornFiles();
    Load();
    mModel.Project->Set("OutputFolder", Value("/new"));
    files->Tried.clear();
    Page().Terminate();
    EXPECT_TRUE(files->Tried.empty());
    EXPECT_FALSE(Widget().GetDocument());
    EXPECT_FALSE(Page().GetKiteProject());
}

// What goes wrong

TEST_F(InPlaceEditorTest, APageThatCannotBeMadeIsEmptyAndNotTheOneBefore) {
    Write("class.html", PlaceTag("P~A", "#note", "of A"));
    Load();
    int completed = 0;
    const auto tie = mEditor.Events.DocumentComplete.Connect([&] { ++completed; });
    mData->OnPrepare = [] { RaiseError(ErrorNumber::InvalidCall); };
    Load("P~B");
    EXPECT_EQ(mServices.TakeReports(), "InPlaceEditor.Load (5)\n");
    EXPECT_EQ(Body(), "");
    EXPECT_EQ(completed, 1);
    mData->OnPrepare = nullptr;
    Load("P~A");
    Type("P~A", "#note", "typed");
    EXPECT_EQ(mItem->Comments()->Count(), 1u);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorTest, ALayoutThatNestsTooDeepIsReportedAndThePageEmpty) {
    std::string deep;
    for (int level = 0; level < 25'000; ++level)
        deep += "<div>";
    Write("class.html", "of A");
    Write("method.html", deep);
    Load();
    Load("P~A~Run");
    EXPECT_EQ(mServices.TakeReports(), "InPlaceEditor.Load (5)\n");
    EXPECT_EQ(Body(), "");
    Load("P~A");
    EXPECT_EQ(Body(), "of A");
}

TEST_F(InPlaceEditorTest, TenThousandNestedTagsAreAPage) {
    std::string deep;
    for (int level = 0; level < 10'000; ++level)
        deep += "<b>";
    Write("class.html", deep + PlaceTag("P~A", "#note"));
    Load();
    EXPECT_EQ(mServices.TakeReports(), "");
    Type("P~A", "#note", "deep down");
    EXPECT_EQ(mItem->Comments()->Item(1)->GetText(), "deep down");
}

TEST_F(InPlaceEditorTest, AVeryLongLayoutIsAPage) {
#ifdef __SANITIZE_ADDRESS__
    const std::size_t length = 5'000'000;
#else
    const std::size_t length = 50'000'000;
#endif
    Write("class.html", PlaceTag("P~A", "#note") + std::string(length, 'x'));
    Load();
    EXPECT_EQ(mServices.TakeReports(), "");
    Type("P~A", "#note", "typed");
    EXPECT_EQ(mItem->Comments()->Item(1)->GetText(), "typed");
}

TEST_F(InPlaceEditorTest, ALayoutThatIsNoUtf8IsAPage) {
    Write("class.html", "caf\xE9 \xFF " + PlaceTag("P~A", "#note"));
    Load();
    EXPECT_EQ(mServices.TakeReports(), "");
    EXPECT_NE(Body().find("caf\xEF\xBF\xBD"), std::string::npos) << Body();
    Type("P~A", "#note", "typed");
    EXPECT_EQ(mItem->Comments()->Item(1)->GetText(), "typed");
}

TEST_F(InPlaceEditorTest, ABrokenTagLeavesTheRestOfThePage) {
    Write("class.html", "<!--KITEMETADATA start type=\"place-->" + PlaceTag("P~A", "#note") +
                            "<!--KITEMETADATA start never ended");
    Load();
    EXPECT_EQ(mServices.TakeReports(), "");
    Type("P~A", "#note", "typed");
    EXPECT_EQ(mItem->Comments()->Count(), 1u);
}

TEST_F(InPlaceEditorTest, WithoutAnElementThePageIsEmpty) {
    Write("class.html", "of A");
    Load();
    Page().Load(nullptr, "class.html");
    EXPECT_EQ(Body(), "");
    ShowView("preview");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorTest, NothingHappensBehindTheEnd) {
    Write("class.html", "of A");
    Load();
    Page().Terminate();
    EXPECT_NO_THROW(LoadPage("class.html"));
    EXPECT_FALSE(Widget().GetDocument());
    ShowView("preview");
    Page().CommitEdit();
    Page().SetEditFocusQueued();
    EXPECT_EQ(Page().GetPreviewFolder(), kDefaultFolder);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorTest, AHandlerMayLoadAnotherItemWhenAPageIsComplete) {
    Write("class.html", PlaceTag("P~A", "#note") + PlaceTag("P~B", "#note"));
    bool done = false;
    const auto tie = mEditor.Events.DocumentComplete.Connect([&] {
        if (!std::exchange(done, true)) Load("P~B");
    });
    Load("P~A");
    EXPECT_TRUE(mEditor.GetCurrentCodeElement() == mModel.Item("P~B"));
    Type("P~B", "#note", "typed");
    EXPECT_EQ(mModel.Item("P~B")->Comments()->Count(), 1u);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorTest, AHandlerMayEndTheEditorWhenAPageIsComplete) {
    Write("class.html", PlaceTag("P~A", "#note"));
    const auto tie = mEditor.Events.DocumentComplete.Connect([&] { mEditor.Terminate(); });
    EXPECT_NO_THROW(Load());
    EXPECT_FALSE(Widget().GetDocument());
    EXPECT_NO_THROW(mEditor.Refresh(false));
}

TEST_F(InPlaceEditorTest, AFailingHandlerIsReportedOnce) {
    Write("class.html", PlaceTag("P~A", "#note"));
    const auto tie =
        mEditor.Events.DocumentComplete.Connect([] { RaiseError(ErrorNumber::InvalidCall); });
    Load();
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.DocumentComplete (5)\n");
    Type("P~A", "#note", "typed");
    EXPECT_EQ(mItem->Comments()->Count(), 1u);
}

TEST_F(InPlaceEditorTest, AnotherTemplateCommitsAndIsShown) {
    Write("class.html", "first");
    Load();
    const auto other = MakeRef<PageTemplate>();
    other->Name = "Other";
    other->Folder = "/templates/other";
    other->Namespaces = mTemplate->Namespaces;
    const auto layout = MakeRef<PageLayout>();
    layout->Name = layout->FileName = "class.html";
    layout->Namespaces = "Test:Class";
    other->PageLayouts->Add(layout);
    mServices.Files->Texts["/templates/other\\class.html"] = "<body>second</body>";
    mEditor.SetInPlaceTemplate(other);
    EXPECT_EQ(Body(), "second");
    EXPECT_TRUE(mEditor.GetInPlaceTemplate() == other);
    EXPECT_EQ(mServices.TakeReports(), "");
}

} // namespace
} // namespace paperkite::test
