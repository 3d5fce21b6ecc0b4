#include "authoring/DesignersFixture.h"

#include "foundation/SpellEngine.h"

namespace paperkite::test {
namespace {

class ScriptedEngine : public SpellEngine {
public:
    void SetOptions(const SpellOptions& options) override {
        Options = options;
        ++Settings;
    }
    const SpellOptions& GetOptions() const override { return Options; }
    std::string GetProblem() const override { return {}; }
    void SetProject(ProjectSpelling) override {}
    bool Check(const std::string&) override { return true; }
    std::vector<std::string> Suggest(const std::string&) override { return {}; }
    void AddIgnoreAll(const std::string& word) override { Ignored.push_back(word); }
    void AddToCustomDictionary(const std::string&) override {}

    SpellOptions Options;
    int Settings = 0;
    std::vector<std::string> Ignored;
};

/// Searching and spelling across the tabs of one element.
class CommentEditorSearchTest : public DesignersFixture {
protected:
    void Comment(const std::string& tag) { mItem->Comment(tag, "text of " + tag); }
    void AllCan(const std::string& what) {
        const auto make = CurrentServices().CreateDesigner;
        CurrentServices().CreateDesigner = [=, this](const std::string& progID) {
            const auto control = make(progID);
            for (const auto& [name, made] : mControls)
                made->Designer->Capabilities = what;
            return control;
        };
    }
    /// The calls that have to do with searching and spelling.
    std::string Searches() {
        std::string found;
        for (const std::string& call : Split(mCalls.Take(), " "))
            if (call.find(".Do") != std::string::npos ||
                call.find(".SpellCheck(") != std::string::npos)
                found += call + " ";
        return found;
    }
    std::string Shown() { return Join(std::exchange(mServices.Messages->Shown, {}), "\n"); }
};

TEST_F(CommentEditorSearchTest, EveryTabInUseIsSearchedInOrder) {
    AllCan("FindReplace");
    for (const char* tag : {"#two", "#one", "#plain"})
        Comment(tag);
    Load();
    mCalls.Take();
    mEditor.DoFind("kite", true, false, true);
    EXPECT_EQ(Searches(), "A.DoFind(kite,True,False,True) B.DoFind(kite,True,False,True) "
                          "fixed.DoFind(kite,True,False,True) ");
    EXPECT_EQ(mEditor.eb->GetSelectedItem()->GetKey(), "#plain");
    mEditor.DoReplace("kite", "bird", false, true, false);
    EXPECT_EQ(Searches(), "A.DoReplace(kite,bird,False,True,False) "
                          "B.DoReplace(kite,bird,False,True,False) "
                          "fixed.DoReplace(kite,bird,False,True,False) ");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorSearchTest, EmptyTabsAndListsAreNotSearched) {
    AllCan("FindReplace");
    Comment("#note");
    Comment("#todo");
    Load();
    mEditor.DoFind("kite", false, false, false);
    EXPECT_EQ(Searches(), "");
    EXPECT_EQ(mEditor.eb->GetSelectedItem()->GetKey(), "#zero");
    Comment("#one");
    mEditor.Refresh(false);
    mEditor.DoFind("kite", false, false, false);
    EXPECT_EQ(Searches(), "A.DoFind(kite,False,False,False) ");
}

TEST_F(CommentEditorSearchTest, ADesignerThatCannotSearchIsVisitedOnly) {
    Comment("#one");
    Load();
    mEditor.DoFind("kite", false, false, false);
    mEditor.DoReplace("kite", "", false, false, false);
    EXPECT_EQ(Searches(), "");
    EXPECT_EQ(mEditor.eb->GetSelectedItem()->GetKey(), "#one");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorSearchTest, TabsOfOneClassAreSearchedInTurn) {
    AllCan("FindReplace");
    Comment("#one");
    Comment("#same");
    Load();
    Open("#one");
    mCalls.Take();
    mEditor.DoFind("k", false, false, false);
    const std::string calls = mCalls.Take();
    const std::size_t first = calls.find("A.DoFind");
    const std::size_t turn = calls.find("A.Refresh(P~A,#same");
    EXPECT_LT(first, turn);
    EXPECT_LT(turn, calls.find("A.DoFind", first + 1));
    EXPECT_NE(calls.find("A.DoFind", first + 1), std::string::npos);
}

TEST_F(CommentEditorSearchTest, ASpellCheckVisitsTheTabsInUseAndTellsItsEnd) {
    AllCan("SpellCheck");
    Comment("#one");
    Comment("#two");
    Load();
    int pending = 0;
    CurrentServices().RunPendingEvents = [&] { ++pending; };
    EXPECT_TRUE(mEditor.SpellCheck(true, MakeRef<ScriptedEngine>()));
    EXPECT_EQ(Searches(), "A.SpellCheck(SpellEngine) B.SpellCheck(SpellEngine) ");
    EXPECT_EQ(pending, 2);
    EXPECT_EQ(Shown(), "Spelling [information] The spell check completed successfully");
    EXPECT_TRUE(mEditor.SpellCheck(false));
    EXPECT_EQ(Searches(), "A.SpellCheck(nothing) B.SpellCheck(nothing) ");
    EXPECT_EQ(Shown(), "");
}

TEST_F(CommentEditorSearchTest, ACancelledCheckEndsTheWalk) {
    AllCan("SpellCheck");
    Comment("#one");
    Comment("#two");
    Start("#one");
    Designer("A").CancelsSpellCheck = true;
    EXPECT_FALSE(mEditor.SpellCheck(true));
    EXPECT_EQ(Searches(), "A.SpellCheck(nothing) ");
    EXPECT_EQ(Shown(), "Spelling [warning] The spell check has been cancelled");
    EXPECT_FALSE(mEditor.SpellCheck(false));
    EXPECT_EQ(Shown(), "");
    Designer("A").CancelsSpellCheck = false;
    EXPECT_TRUE(mEditor.SpellCheck(false));
}

TEST_F(CommentEditorSearchTest, CancelSpellCheckEndsTheWalkWithoutChangingTheResult) {
    AllCan("SpellCheck");
    Comment("#one");
    Comment("#two");
    Load();
    mEditor.CancelSpellCheck = true;
    EXPECT_TRUE(mEditor.SpellCheck(true));
    EXPECT_EQ(Searches(), "A.SpellCheck(nothing) ");
    EXPECT_EQ(Shown(), "Spelling [information] The spell check completed successfully");
}

TEST_F(CommentEditorSearchTest, ATabThatCannotCheckIsPassedOverSilently) {
    Comment("#one");
    Load();
    EXPECT_TRUE(mEditor.SpellCheck(true));
    EXPECT_EQ(Searches(), "");
    EXPECT_EQ(Shown(), "Spelling [information] The spell check completed successfully");
}

TEST_F(CommentEditorSearchTest, NoCommentsAtAllEndTheCheckAtOnce) {
    AllCan("SpellCheck");
    Load();
    EXPECT_TRUE(mEditor.SpellCheck(true));
    EXPECT_EQ(Shown(), "");
    mItem->Comment("#one", "gone", "t", kTaggedCommentTombstone);
    EXPECT_TRUE(mEditor.SpellCheck(true));
    EXPECT_EQ(Shown(), "Spelling [information] The spell check completed successfully");
    EXPECT_EQ(Searches(), "");
}

TEST_F(CommentEditorSearchTest, ADesignerThatFailsEndsTheCheckWithAReport) {
    AllCan("SpellCheck");
    Comment("#one");
    Comment("#two");
    Start("#one");
    Designer("A").OnCall = [](const std::string& call) {
        if (call.starts_with("SpellCheck")) RaiseError(ErrorNumber::InvalidCall);
    };
    EXPECT_FALSE(mEditor.SpellCheck(true));
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.SpellCheck (5)\n");
}

TEST_F(CommentEditorSearchTest, AHandlerMayLoadAnotherElementDuringACheck) {
    AllCan("SpellCheck");
    Comment("#one");
    Comment("#two");
    Start("#one");
    Designer("A").OnCall = [this](const std::string& call) {
        if (call.starts_with("SpellCheck")) Load("P~B");
    };
    mEditor.SpellCheck(false);
    EXPECT_TRUE(mEditor.GetCurrentCodeElement() == mModel.Item("P~B"));
    Designer("A").OnCall = nullptr;
    mServices.TakeReports();
    Load("P~A");
    EXPECT_TRUE(mEditor.SpellCheck(false));
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorSearchTest, TheActiveDesignerTellsWhetherACheckIsInProgress) {
    EXPECT_FALSE(mEditor.GetSpellCheckInProgress());
    Start("#one");
    EXPECT_FALSE(mEditor.GetSpellCheckInProgress());
    Designer("A").Capabilities = "spellcheckinprogress";
    EXPECT_TRUE(mEditor.GetSpellCheckInProgress());
    Open("other");
    EXPECT_FALSE(mEditor.GetSpellCheckInProgress());
}

TEST_F(CommentEditorSearchTest, OptionsAndIgnoredWordsReachThePageAndTheDefaultDesigner) {
    Load();
    const auto onPage = MakeRef<ScriptedEngine>();
    const auto onDefault = MakeRef<ScriptedEngine>();
    mEditor.InPlaceEditor->GetEditControl()->SetSpellObject(onPage);
    ControlOf("fixed").Editor->SetSpellObject(onDefault);
    SpellOptions options;
    options.IgnoreWordList = "kite";
    options.Suggest = false;
    mEditor.SetSpellOptions(options);
    EXPECT_EQ(onPage->Options, options);
    EXPECT_EQ(onDefault->Options, options);
    EXPECT_EQ(onPage->Settings + onDefault->Settings, 2);
    mEditor.AddIgnoreAll("wrod");
    EXPECT_EQ(onPage->Ignored, std::vector<std::string>{"wrod"});
    EXPECT_EQ(onDefault->Ignored, std::vector<std::string>{"wrod"});
}

TEST_F(CommentEditorSearchTest, OptionsReachTheDefaultDesignerBeforeTheFirstElement) {
    CommentEditor editor;
    const auto engine = MakeRef<ScriptedEngine>();
    ControlOf("fixed").Editor->SetSpellObject(engine);
    SpellOptions options;
    options.IgnoreWordList = "kite";
    editor.SetSpellOptions(options);
    EXPECT_EQ(engine->Options, options);
    editor.AddIgnoreAll("wrod");
    EXPECT_EQ(engine->Ignored, std::vector<std::string>{"wrod"});
}

TEST_F(CommentEditorSearchTest, TheOptionsButtonOfTheOwnEngineAsksTheHost) {
    const auto engine = MakeRef<ScriptedEngine>();
    CurrentServices().Spelling = engine;
    int asked = 0;
    const auto tie = mEditor.Events.SpellingOptionsRequested.Connect([&] { ++asked; });
    mEditor.SetAppName("Test");
    CurrentServices().ShowPageDialog = [&](const PageDialog& dialog) {
        EXPECT_EQ(asked, 1) << "the host is asked first";
        EXPECT_EQ(dialog.Caption, "Spelling Options");
        EXPECT_EQ(dialog.PageClass, "CommonPages.PageSpelling");
        EXPECT_EQ(dialog.PageTitle, "Common.PageSpelling");
        EXPECT_EQ(dialog.SettingsKey, "Software\\Brindlewick\\Test\\Spelling");
        EXPECT_EQ(dialog.Host, &mEditor);
        return 0;
    };
    Load();
    engine->Events.OptionBtnClick.Raise();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(mServices.TakeReports(), "");
    mEditor.Terminate();
    engine->Events.OptionBtnClick.Raise();
    EXPECT_EQ(asked, 1);
}

/// Remembers what is set by name.
class SettableEngine : public ScriptedEngine {
public:
    void Set(std::string_view member, const Value& value) override {
        Written += std::string(member) + "=" + value.ToText() + " ";
    }
    std::string Written;
};

TEST_F(CommentEditorSearchTest, AcceptedOptionsAreReadIntoTheOwnEngine) {
    const auto own = MakeRef<SettableEngine>();
    const auto ofHost = MakeRef<SettableEngine>();
    CurrentServices().Spelling = own;
    mEditor.SetSpellObject(ofHost);
    Load();
    int answer = 0;
    CurrentServices().ShowPageDialog = [&](const PageDialog&) { return answer; };
    own->Written.clear();
    own->Events.OptionBtnClick.Raise();
    EXPECT_EQ(own->Written, "") << "the author cancelled";
    answer = 1;
    own->Events.OptionBtnClick.Raise();
    EXPECT_NE(own->Written.find("Suggest=1 "), std::string::npos) << own->Written;
    EXPECT_EQ(ofHost->Written, "") << "that is for the host";
}

TEST_F(CommentEditorSearchTest, ReloadingTheSettingsReadsThemIntoTheOwnEngine) {
    const auto own = MakeRef<SettableEngine>();
    const auto ofHost = MakeRef<SettableEngine>();
    CurrentServices().Spelling = own;
    mEditor.SetSpellObject(ofHost);
    mEditor.SetAppName("Test");
    mServices.Registry->Values[MemoryRegistry::Name(
        HKEY_CURRENT_USER, "Software\\Brindlewick\\Test\\Spelling", "IgnoreMixedCase")] = "1";
    mEditor.ReloadSettings();
    EXPECT_NE(own->Written.find("IgnoreInMixedCase=1 "), std::string::npos) << own->Written;
    EXPECT_EQ(ofHost->Written, "");
    CurrentServices().Spelling = {};
    mEditor.ReloadSettings();
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorSearchTest, WithoutADialogForPagesTheOptionsAreReportedAndKept) {
    const auto own = MakeRef<SettableEngine>();
    CurrentServices().Spelling = own;
    CurrentServices().ShowPageDialog = {};
    Load();
    own->Written.clear();
    mEditor.ShowSpellingOptions();
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.ShowSpellingOptions (429)\n");
    EXPECT_EQ(own->Written, "");
}

TEST_F(CommentEditorSearchTest, PendingEventsRunBeforeEachTabIsChecked) {
    AllCan("SpellCheck");
    Comment("#one");
    Comment("#two");
    Load();
    CurrentServices().RunPendingEvents = [this] { mCalls.Add("events"); };
    mEditor.SpellCheck(false);
    std::string order;
    for (const std::string& call : Split(mCalls.Take(), " "))
        if (call == "events" || call.find(".SpellCheck(") != std::string::npos) order += call + " ";
    EXPECT_EQ(order, "events A.SpellCheck(nothing) events B.SpellCheck(nothing) ");
}

TEST_F(CommentEditorSearchTest, AnIgnoredWordReachesTheDefaultDesignerBeforeThePage) {
    struct NamedEngine : ScriptedEngine {
        NamedEngine(std::string name, EventLog& log) : Name(std::move(name)), Log(log) {}
        void AddIgnoreAll(const std::string& word) override { Log.Add(Name + ":" + word); }
        std::string Name;
        EventLog& Log;
    };
    Load();
    mEditor.InPlaceEditor->GetEditControl()->SetSpellObject(MakeRef<NamedEngine>("page", mCalls));
    ControlOf("fixed").Editor->SetSpellObject(MakeRef<NamedEngine>("default", mCalls));
    mCalls.Take();
    mEditor.AddIgnoreAll("wrod");
    EXPECT_EQ(mCalls.Take(), "default:wrod page:wrod");
}

} // namespace
} // namespace paperkite::test
