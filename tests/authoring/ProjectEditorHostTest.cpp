#include "authoring/ProjectEditorFixture.h"
#include "authoring/RecordingDesigner.h"

namespace paperkite::test {
namespace {

class ProjectEditorHostTest : public ProjectEditorFixture {
protected:
    static void Fail() { RaiseError(ErrorNumber::InvalidCall, "the host failed"); }
};

TEST_F(ProjectEditorHostTest, AHostAnswersALinkRequestOfTheEditorDirectly) {
    const auto tie = mEditor.Events.InsertHyperLinkRequest.Connect(
        [](const std::string& selected, std::string& link, bool& cancel) {
            link += "#" + selected;
            cancel = true;
        });
    std::string link = "page";
    bool cancel = false;
    mEditor.cEditor.Events.InsertHyperLinkRequest.Raise("text", link, cancel);
    EXPECT_EQ(link, "page#text");
    EXPECT_TRUE(cancel);
}

TEST_F(ProjectEditorHostTest, AHostBuildsALinkForTheEditor) {
    std::string heard;
    const auto tie = mEditor.Events.BuildLinkRequest.Connect(
        [&](const std::string& existing, bool getCaption, std::string& caption,
            std::string& newLink, bool external, const std::string& title,
            const std::string& prefix, bool addHTML) {
            heard = existing + (getCaption ? "+" : "-") + (external ? "+" : "-") + title + prefix +
                    (addHTML ? "+" : "-");
            caption += " built";
            newLink = "P~B.html";
        });
    std::string caption = "cap";
    std::string link;
    mEditor.cEditor.Events.BuildLinkRequest.Raise("old", true, caption, link, false, "Title", "Tip",
                                                  true);
    EXPECT_EQ(heard, "old+-TitleTip+");
    EXPECT_EQ(caption, "cap built");
    EXPECT_EQ(link, "P~B.html");
}

TEST_F(ProjectEditorHostTest, RequestsWithoutAnAnswerArePassedOn) {
    EventLog log;
    auto& events = mEditor.Events;
    log.Keep(events.SpellIgnoreWordAdded.Connect([&](const auto& word) { log.Add(word); }));
    log.Keep(events.SpellingOptionsRequested.Connect([&] { log.Add("options"); }));
    log.Keep(events.PropertiesRequested.Connect([&] { log.Add("properties"); }));
    log.Keep(events.TaggedCommentChanged.Connect(
        [&](const auto&, const auto&, const std::string& key) { log.Add("changed " + key); }));
    mEditor.cEditor.Events.SpellIgnoreWordAdded.Raise("kite");
    mEditor.cEditor.Events.SpellingOptionsRequested.Raise();
    mEditor.Project.Dock->UserClick("Properties");
    const auto comment = mModel.Item("P~A~Run")->Comment("#note", "text", "n1");
    mEditor.cEditor.ICommentDesignerHost_TaggedCommentChanged(mModel.Item("P~A~Run"), comment);
    EXPECT_EQ(log.Take(), "kite options properties changed n1");
}

TEST_F(ProjectEditorHostTest, AFailingHandlerOfTheHostIsReportedOnce) {
    const auto tie = mEditor.Events.SpellingOptionsRequested.Connect(Fail);
    EXPECT_NO_THROW(mEditor.cEditor.Events.SpellingOptionsRequested.Raise());
    EXPECT_EQ(mServices.TakeReports(), "ProjectEditor.cEditor_SpellingOptionsRequested (5)\n");
}

TEST_F(ProjectEditorHostTest, AnAdditionThatTheHostRefusesIsReportedOnceAndTheNodeIsBold) {
    mEditor.SelectItem("P~B");
    const auto tie =
        mEditor.Events.TaggedCommentAdded.Connect([](const auto&, const auto&) { Fail(); });
    const auto comment = MakeRef<TaggedComment>("n1");
    comment->SetTagIdentifier("#note");
    mEditor.cEditor.ICommentDesignerHost_TaggedCommentAdded(mModel.Item("P~B"), comment);
    EXPECT_EQ(mServices.TakeReports(), "ProjectEditor.cEditor_TaggedCommentAdded (5)\n");
    EXPECT_TRUE(Node("P~B")->GetBold());
    // The failure ended in this screen, so that the editor completed the comment.
    EXPECT_EQ(comment->GetState(), kTaggedCommentNew);
}

TEST_F(ProjectEditorHostTest, ACommandOfTheTreeReturnsTheFocusUnderALock) {
    mEditor.SelectItem("P~A");
    mEditor.cEditor.prpTags->UserFocus(false);
    mWrapperLog.Take();
    mEditor.Project.Dock->UserClick("AutoExpand");
    EXPECT_EQ(mWrapperLog.Take(), "lockrefresh unlockrefresh");
    EXPECT_TRUE(mEditor.cEditor.prpTags->HasFocus());
}

TEST_F(ProjectEditorHostTest, AFinishedDocumentTakesTheFocus) {
    mEditor.SelectItem("P~A");
    mEditor.cEditor.prpTags->UserFocus(false);
    mEditor.cEditor.Events.DocumentComplete.Raise();
    EXPECT_TRUE(mEditor.cEditor.prpTags->HasFocus());
}

TEST_F(ProjectEditorHostTest, WithoutAWrapperAClickFailsOnceWithAnUnsetObject) {
    const std::string before = Current();
    mEditor.BindToWrapper({});
    mEditor.SelectItem("P~B");
    EXPECT_EQ(mServices.TakeReports(), "ProjectEditor.Project_NodeClick (91)\n");
    EXPECT_EQ(Current(), before);
    mEditor.BindToWrapper(MakeRef<TestWrapper>(mWrapperLog));
    mEditor.SelectItem("P~C");
    EXPECT_EQ(Current(), "P~C");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectEditorHostTest, ReloadingCommitsWhatIsTypedAndFollowsTheSettings) {
    const auto comment = mModel.Item("P~B")->Comment("#note", "old", "n1");
    mEditor.SelectItem("P~B");
    auto& list = *mEditor.cEditor.prpTags;
    list.SetSelectedItem(list.Item("n1"));
    list.BeginEdit();
    list.UserType("new");
    mEditor.SetSplitPercent(12);
    mServices.Registry->Values.clear();
    mServices.Registry->Values[MemoryRegistry::Name(
        HKEY_CURRENT_USER, "Software\\Brindlewick\\Test\\Layout\\DescriptionPane", "Height")] =
        "33";
    mEditor.ReloadSettings();
    EXPECT_EQ(comment->GetText(), "new");
    EXPECT_EQ(mEditor.GetSplitPercent(), 40);
    EXPECT_EQ(list.GetDescriptionHeight(), 33);
    mEditor.SetSplitPercent(22);
    mEditor.SetSplitPercent(55);
    mEditor.splitMain->SetPercentage(1);
    mEditor.ReloadSettings();
    EXPECT_EQ(mEditor.GetSplitPercent(), 55);
}

TEST_F(ProjectEditorHostTest, AnAbsurdSplitterSettingChangesNothing) {
    mEditor.SetSplitPercent(25);
    mServices.Registry->Values[MemoryRegistry::Name(
        HKEY_CURRENT_USER, "Software\\Brindlewick\\Test", "ProjectEditorSplitSize")] =
        "99999999999999999999";
    mEditor.SetAppName("Test");
    EXPECT_EQ(mServices.TakeReports(), "");
    EXPECT_EQ(mEditor.GetSplitPercent(), 25);
}

TEST_F(ProjectEditorHostTest, HelpIsAnsweredByTheScreenFirst) {
    mEditor.SelectItem("P~A");
    DynamicHelpQuery query;
    mEditor.IDynamicHelpContext_QueryContext(query);
    EXPECT_EQ(query.KeywordCollection,
              (std::vector<std::string>{"Kite.CommentProjectEditor",
                                        "Kite.CommentEditor.Other Information"}));
    std::string names;
    for (const auto& [name, value] : query.Attributes)
        names += name + "=" + value + ";";
    EXPECT_EQ(names, "Kite.CommentProjectEditor.NamespaceProfile=kite.test;"
                     "Kite.CommentEditor.Namespace=Test:Class;"
                     "Kite.CommentEditor.CommentType=Other Information;"
                     "Kite.CommentEditor.CommentID=other;");
}

class ProjectEditorSpellCheckTest : public ProjectEditorFixture {
protected:
    ProjectEditorSpellCheckTest() {
        for (const char* name : {"P~A", "P~B", "P~C"})
            mModel.Item(name)->Comment("#note", "text");
        mEditor.LoadFromNamespaceDefs(mModel.Defs, "moniker");
        mEditor.SelectItem("P~A~Run");
        mVisits =
            mEditor.Events.NodeClickNameSpaceDef.Connect([this](const auto& node, const auto&) {
                mVisited += node->GetKey() + (mEditor.Project.GetEnabled() ? "!" : "") + " ";
                if (node->GetKey() == mCancelAt) mEditor.CancelSpellCheck();
            });
    }

    std::string mVisited;
    std::string mCancelAt;
    Connection mVisits;
};

TEST_F(ProjectEditorSpellCheckTest, AllCommentedItemsAreVisitedInTreeOrderWhileTheTreeIsOff) {
    bool cancel = true;
    mEditor.SpellCheck(true, cancel);
    EXPECT_EQ(mVisited, "P~A P~B P~C ");
    EXPECT_FALSE(cancel);
    EXPECT_TRUE(mEditor.Project.GetEnabled());
    EXPECT_EQ(Current(), "P~C");
    EXPECT_EQ(Messages(), "");
}

TEST_F(ProjectEditorSpellCheckTest, CancellingStopsTheWalkWithoutAnError) {
    mCancelAt = "P~B";
    bool cancel = false;
    mEditor.SpellCheck(true, cancel);
    EXPECT_EQ(mVisited, "P~A P~B ");
    EXPECT_FALSE(cancel);
    EXPECT_TRUE(mEditor.Project.GetEnabled());
    EXPECT_TRUE(mEditor.cEditor.CancelSpellCheck);
}

TEST_F(ProjectEditorSpellCheckTest, ANewCheckForgetsAnEarlierCancel) {
    mEditor.CancelSpellCheck();
    bool cancel = false;
    mEditor.SpellCheck(true, cancel);
    EXPECT_EQ(mVisited, "P~A P~B P~C ");
    EXPECT_FALSE(mEditor.cEditor.CancelSpellCheck);
}

TEST_F(ProjectEditorSpellCheckTest, TheCurrentItemAloneMovesNowhere) {
    bool cancel = true;
    mEditor.SpellCheck(false, cancel);
    // It has no comments: nothing was checked, and the answer is left as it was.
    EXPECT_TRUE(cancel);
    mEditor.SelectItem("P~A");
    mVisited.clear();
    mEditor.SpellCheck(false, cancel);
    EXPECT_FALSE(cancel);
    EXPECT_EQ(mVisited, "");
    EXPECT_EQ(Messages(), "");
    EXPECT_TRUE(mEditor.Project.GetEnabled());
}

TEST_F(ProjectEditorSpellCheckTest, WithoutAnItemNothingIsChecked) {
    mEditor.Clear();
    bool cancel = true;
    mEditor.SpellCheck(false, cancel);
    EXPECT_TRUE(cancel);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(ProjectEditorSpellCheckTest, AFailingHostLeavesTheTreeEnabled) {
    const auto tie = mEditor.Project.Events.PropertyChanged.Connect(
        [](const std::string&) { RaiseError(ErrorNumber::InvalidCall); });
    bool cancel = false;
    mEditor.SpellCheck(true, cancel);
    EXPECT_TRUE(mEditor.Project.GetEnabled());
    EXPECT_EQ(mVisited, "P~A P~B P~C ");
    EXPECT_NE(mServices.TakeReports(), "");
}

/// Items whose comments are written in a tab of a designer that checks them.
class ProjectEditorDesignerCheckTest : public ProjectEditorFixture {
protected:
    ProjectEditorDesignerCheckTest() {
        CurrentServices().CreateDesigner = [this](const std::string&) {
            mControl = MakeRef<RecordingDesignerControl>("tab", mCalls);
            mControl->Designer->Capabilities = "SpellCheck";
            return mControl;
        };
        const auto definition = MakeRef<TaggedCommentDef>();
        definition->TagIdentifier = "#tab";
        definition->TabName = "Tab";
        definition->GroupName = "Texts";
        definition->DesignerProgID = "Lib.dsrTab";
        definition->Namespaces = "Test:Class,Test:Method,Test:Project";
        GlobalConfig().TaggedCommentDefs->Add(definition);
        for (const char* name : {"P~A", "P~B"})
            mModel.Item(name)->Comment("#tab", std::string("text of ") + name);
        mEditor.LoadFromNamespaceDefs(mModel.Defs, "moniker");
        mEditor.SelectItem("P~A");
    }
    ~ProjectEditorDesignerCheckTest() override { mEditor.Terminate(); }

    std::string Checks() {
        std::string checks;
        for (const std::string& call : Split(mCalls.Take(), " "))
            if (call.find(".SpellCheck(") != std::string::npos) checks += call + " ";
        return checks;
    }

    EventLog mCalls;
    Ref<RecordingDesignerControl> mControl;
};

TEST_F(ProjectEditorDesignerCheckTest, TheEngineIsHandedToTheDesignersOfEveryItem) {
    bool cancel = true;
    mEditor.SpellCheck(true, cancel, MakeRef<TestWrapper>(mWrapperLog));
    EXPECT_EQ(Checks(), "tab.SpellCheck(CommandWrapper) tab.SpellCheck(CommandWrapper) ");
    EXPECT_FALSE(cancel);
    mEditor.SpellCheck(false, cancel);
    EXPECT_EQ(Checks(), "tab.SpellCheck(nothing) ");
    EXPECT_EQ(Messages(), "") << "the completion is for the host to tell";
}

TEST_F(ProjectEditorDesignerCheckTest, AnAuthorWhoCancelsEndsTheCheckOfAllItems) {
    mControl->Designer->CancelsSpellCheck = true;
    bool cancel = false;
    mEditor.SpellCheck(true, cancel);
    EXPECT_TRUE(cancel);
    EXPECT_EQ(Checks(), "tab.SpellCheck(nothing) ");
    EXPECT_EQ(Current(), "P~A") << "the second item is not visited";
    EXPECT_TRUE(mEditor.Project.GetEnabled());
    EXPECT_EQ(Messages(), "");
}

TEST_F(ProjectEditorDesignerCheckTest, AnAuthorWhoCancelsTheCheckOfOneItemIsHeard) {
    mControl->Designer->CancelsSpellCheck = true;
    bool cancel = false;
    mEditor.SpellCheck(false, cancel);
    EXPECT_TRUE(cancel);
    mControl->Designer->CancelsSpellCheck = false;
    mEditor.SpellCheck(false, cancel);
    EXPECT_FALSE(cancel);
}

} // namespace
} // namespace paperkite::test
