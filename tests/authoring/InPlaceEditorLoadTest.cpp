#include "authoring/PageFixture.h"

#include "foundation/PreviewLog.h"
#include "foundation/VariableDump.h"

namespace paperkite::test {
namespace {

/// Tells what it is told, in order.
class OrderedProject : public TestProject {
public:
    OrderedProject(EventLog& log, EventLog& order) : TestProject(log), mOrder(order) {}
    void Set(std::string_view member, const Value& value) override {
        mOrder.Add(std::string(member) + "=" + value.ToText());
        TestProject::Set(member, value);
        if (OnSet) OnSet(std::string(member));
    }
    void SetDirty(bool value) override { mOrder.Add(value ? "dirty" : "clean"); }
    std::function<void(const std::string&)> OnSet;

private:
    EventLog& mOrder;
};

class RecordingFiles : public ScriptedFileSystem {
public:
    std::optional<std::string> ReadFile(const std::string& path) const override {
        Read.push_back(path);
        return ScriptedFileSystem::ReadFile(path);
    }
    mutable std::vector<std::string> Read;
};

class RecordingParser : public TemplateParser {
public:
    void SetMetaDocumentMode(bool value) override { Modes.push_back(value); }
    std::vector<bool> Modes;
};

/// Remembers the texts that documents are made of.
class RecordingFactory : public HTMLDOMFactory {
public:
    Ref<HTMLDocument> CreateFromString(const std::string& html, const Ref<Object>& own) override {
        Texts.push_back(html);
        return mInner->CreateFromString(html, own);
    }
    Ref<HTMLDocument> CreateFromFile(const std::string& path, const Ref<Object>& own) override {
        return mInner->CreateFromFile(path, own);
    }
    std::vector<std::string> Texts;

private:
    std::shared_ptr<HTMLDOMFactory> mInner = MakeHTMLDOMFactory();
};

class Themed : public ThemeColours {
public:
    bool IsActive() const override { return Active; }
    std::optional<std::uint32_t> ColourOf(int, int, int) const override { return {}; }
    bool Active = true;
};

/// In which order a page is made, and what of the project it keeps.
class InPlaceEditorLoadTest : public PageFixture {
protected:
    std::string Variable(const std::string& name, const InPlaceEditor& page) {
        VariableDump dump;
        page.DumpVariables(dump);
        const std::string start = "<" + name + ">";
        const std::string& text = dump.GetText();
        const std::size_t from = text.find(start);
        if (from == std::string::npos) return "missing";
        return text.substr(from + start.size(), text.find("</" + name + ">") - from - start.size());
    }
    std::string Variable(const std::string& name) { return Variable(name, Page()); }
};

TEST_F(InPlaceEditorLoadTest, TheStyleStandsRightBeforeTheBodyWithoutALineBreak) {
    const auto factory = std::make_shared<RecordingFactory>();
    CurrentServices().HTMLDOMFactory = factory;
    WriteWhole("class.html", "<html>\n<head></head>\n<bOdY class=x>text <BODY></html>");
    Load();
    ASSERT_FALSE(factory->Texts.empty());
    EXPECT_EQ(factory->Texts.back(),
              "<html>\n<head></head>\n<STYLE><!-- SPAN.kiteMisspelled { BACKGROUND-POSITION: left "
              "bottom; BACKGROUND-IMAGE: url('res://" +
                  Widget().GetResourcePath() +
                  "'); BACKGROUND-REPEAT: repeat-x; isStyleInternal: True --></STYLE>"
                  "<bOdY class=x>text <BODY></html>");
    WriteWhole("class.html", "no body");
    Page().Load(mItem, "class.html");
    EXPECT_EQ(factory->Texts.back(), "no body");
}

TEST_F(InPlaceEditorLoadTest, ParsedTemplatesAreForgottenBeforeTheParserIsMade) {
    Write("class.html", "text");
    Load();
    EventLog order;
    order.Keep(mServices.Helper->Events.ParserReset.Connect([&] { order.Add("reset"); }));
    CurrentServices().CreateParserTemplate = [&] {
        order.Add("parser");
        return MakeRef<TemplateParser>();
    };
    mData->OnPrepare = [&] { order.Add("prepared"); };
    Page().Load(mItem, "class.html");
    EXPECT_EQ(order.Take(), "prepared reset parser");
}

TEST_F(InPlaceEditorLoadTest, WithoutALayoutOfTheNamespaceTheTemplatesFolderAloneIsAskedFor) {
    Write("class.html", "text");
    Load();
    for (const auto& layout : *mTemplate->PageLayouts)
        layout->Namespaces = "Test:Other";
    const auto files = std::make_shared<RecordingFiles>();
    CurrentServices().FileSystem = files;
    Page().Load(mItem, "");
    EXPECT_EQ(files->Read, std::vector<std::string>{"/templates/plain\\"});
    EXPECT_EQ(Body(), "");
    EXPECT_EQ(Variable("mLayoutFileName"), "");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorLoadTest, TheProjectIsConfiguredInThisOrder) {
    Write("class.html", "text");
    Load();
    const auto definition = MakeRef<VariableDef>();
    definition->Name = "Title";
    mTemplate->VariableDefs.Add(definition, "Title");
    const auto project = MakeRef<OrderedProject>(mModel.Log, mPageLog);
    project->Providers = mModel.Project->Providers;
    mServices.Files->Files["/out"];
    project->TestProject::Set("OutputFolder", Value("/out"));
    project->OnSet = [&](const std::string& member) {
        const bool isLast = member == "IdentifyVisibility";
        EXPECT_TRUE(project->GetTemplates().Contains("Plain")) << member;
        EXPECT_EQ(project->GetTemplates().Item("Plain")->Language == "English", isLast) << member;
        EXPECT_EQ(static_cast<bool>(project->Log), isLast) << member;
        EXPECT_EQ(project->GetVariables().Contains("Title"), isLast) << member;
    };
    mPageLog.Take();
    Page().SetKiteProject(project);
    // The folder is another one than that of the project before, which marks it too.
    EXPECT_EQ(mPageLog.Take(), "dirty OutputFolder=/out RootItem=P IdentifyVisibility=True dirty");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorLoadTest, TheSameProjectKeepsTemplateAndElementAnotherDropsTheElement) {
    Write("class.html", "text");
    Load();
    EXPECT_EQ(Variable("mCodeElement"), "{ModuleElement}");
    Page().SetHost(nullptr);
    Page().SetKiteProject(Page().GetKiteProject());
    EXPECT_EQ(Variable("mCodeElement"), "{ModuleElement}");
    EXPECT_EQ(Variable("mDocType"), "{ProjectTemplate}");
    const auto other = MakeRef<TestProject>(mModel.Log);
    other->Providers = mModel.Project->Providers;
    Page().SetKiteProject(other);
    EXPECT_EQ(Variable("mCodeElement"), "{Nothing}");
    EXPECT_EQ(Variable("mDocType"), "{Nothing}") << "without a host the new one is not configured";
    Page().SetHost(&mEditor);
    Page().SetKiteProject(other);
    EXPECT_EQ(Variable("mDocType"), "{ProjectTemplate}");
    Page().Load(mItem, "class.html");
    EXPECT_EQ(Variable("mCodeElement"), "{ModuleElement}");
    Page().SetKiteProject(nullptr);
    EXPECT_EQ(Variable("mCodeElement"), "{Nothing}");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorLoadTest, WithoutAHostTheProjectIsNotConfigured) {
    InPlaceEditor page;
    page.SetKiteProject(mModel.Project);
    page.Initialize(nullptr, "Kite", "");
    EXPECT_EQ(mModel.Project->Get("OutputFolder").ToText(), "");
    EXPECT_EQ(mModel.Project->GetTemplates().Count(), 0u);
    EXPECT_EQ(Variable("mHost", page), "{Nothing}");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorLoadTest, WhatAnAddressCannotHoldIsEncodedInTheBase) {
    Write("class.html", "text");
    Load();
    mServices.Files->Files["C:\\my docs\\50% #1?"];
    Page().GetKiteProject()->Set("OutputFolder", Value("C:\\my docs\\50% #1?"));
    Page().Load(mItem, "class.html");
    EXPECT_EQ(Widget().GetBaseURL(), "file:///C:/my%20docs/50%25%20%231%3F");
}

TEST_F(InPlaceEditorLoadTest, WhatIsStillUnderWayIsStoredBeforeAnotherPageIsLoaded) {
    struct LateAuthor : HtmlEditObserver {
        explicit LateAuthor(HtmlEdit& widget) : Text(widget) {}
        void FlushWanted() override {
            if (!std::exchange(Done, true)) Text.UserSpanChanged(0, "typed late");
        }
        HtmlEdit& Text;
        bool Done = false;
    };
    Write("class.html", PlaceTag("P~A", "#note") + PlaceTag("P~B", "#note"));
    Load();
    LateAuthor author(Widget());
    const auto tie = Widget().Observe(author);
    Page().Load(mModel.Item("P~B"), "class.html");
    ASSERT_EQ(mItem->Comments()->Count(), 1u);
    EXPECT_EQ(mItem->Comments()->Item(1)->GetText(), "typed late");
    EXPECT_EQ(Span("P~A", "#note")->GetInnerHTML(), "typed late") << "and is on the new page";
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorLoadTest, AControlThatEndsWithoutTerminateTidiesUp) {
    Ref<HtmlEdit> widget;
    {
        InPlaceEditor page;
        widget = page.GetEditControl();
        page.Initialize(nullptr, "Kite", "");
        widget->SetDocumentHTML("<body>text</body>");
        mServices.Files->Deleted.clear();
    }
    EXPECT_FALSE(widget->GetDocument());
    EXPECT_EQ(mServices.Files->Deleted,
              std::vector<std::string>{"/data\\PreviewTemp\\kitePreview.html"});
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorLoadTest, APageIsParsedAsOneThatIsPublishedAndItsMistakesAreNotShown) {
    Ref<RecordingParser> parser;
    CurrentServices().CreateParserTemplate = [&] { return parser = MakeRef<RecordingParser>(); };
    mServices.Files->Texts["/x.html"] =
        "<!--KITEMETADATA start type=\"a\" type=\"b\"-->t<!--KITEMETADATA end-->"
        "<!--KITEMETADATA start type=\"never ended\"-->";
    const auto made = Page().CreateParserTemplate("/x.html");
    EXPECT_TRUE(made == parser);
    EXPECT_TRUE(parser->Modes.empty());
    EXPECT_NE(made->GetParseErrors(), "");
    EXPECT_TRUE(mServices.Messages->Shown.empty());
}

TEST_F(InPlaceEditorLoadTest, TheDumpHoldsTheVariablesInTheirOrder) {
    Write("class.html", "text");
    Load();
    VariableDump dump;
    Page().DumpVariables(dump);
    std::string names;
    const std::string& text = dump.GetText();
    for (std::size_t at = 0; at < text.size(); at = text.find("\r\n", at) + 2)
        names += text.substr(at + 1, text.find('>', at) - at - 1) + " ";
    EXPECT_EQ(names, "mLoading mBaseURL CommentType mDocType mKiteProject mCodeElement "
                     "mLayoutFileName mResetUndo CreatedFiles mHost mIgnoreChanges mTerminated "
                     "AutoSetFocus mTheme mThemed ");
    EXPECT_EQ(Variable("CommentType"), "{Cannot dump external UDTs}");
    EXPECT_EQ(Variable("mHost"), "{DataObject}");
    EXPECT_EQ(Variable("mLayoutFileName"), "class.html");
    EXPECT_EQ(Variable("mTheme"), "{Nothing}");
    EXPECT_EQ(Variable("mThemed"), "False");
}

TEST_F(InPlaceEditorLoadTest, AFrameStandsAroundThePageWhileAVisualThemeIsActive) {
    EXPECT_EQ(Page().GetLayout().GetKind(), FormLayout::Kind::Column);
    const auto theme = std::make_shared<Themed>();
    CurrentServices().ThemeColours = theme;
    Page().Initialize(&mEditor, "Kite", "");
    const FormLayout& framed = Page().GetLayout();
    EXPECT_EQ(framed.GetKind(), FormLayout::Kind::Framed);
    ASSERT_EQ(framed.AllControls().size(), 2u);
    EXPECT_TRUE(framed.AllControls()[0] == Page().ed);
    EXPECT_TRUE(framed.AllControls()[1] == Page().FlatStrip) << "along the bottom";
    EXPECT_EQ(Variable("mTheme"), "{DataObject}");
    EXPECT_EQ(Variable("mThemed"), "True");
    theme->Active = false;
    Page().Initialize(&mEditor, "Kite", "");
    EXPECT_EQ(Page().GetLayout().GetKind(), FormLayout::Kind::Column);
    EXPECT_EQ(Variable("mThemed"), "False");
}

} // namespace
} // namespace paperkite::test
