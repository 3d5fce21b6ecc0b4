#include "authoring/PageFixture.h"

#include "support/FewWords.h"

namespace paperkite::test {
namespace {

struct EditWatcher : HtmlEditObserver {
    void ClearUndoWanted() override { ++UndoCleared; }
    void FlushWanted() override {
        ++Flushed;
        if (OnFlush) OnFlush();
    }
    void CommandWanted(const std::string& name,
                       const std::vector<std::string>& arguments) override {
        Commands += name;
        for (const auto& argument : arguments)
            Commands += "," + argument;
        Commands += " ";
    }
    void QueuedFocusWanted() override { ++QueuedFocus; }
    void SelectionWanted(const HtmlSelection& selection) override {
        Selected += std::to_string(selection.Place) + ":" + std::to_string(selection.Start) + "-" +
                    std::to_string(selection.End) + " ";
    }
    int QueuedFocus = 0;
    std::string Selected;
    int UndoCleared = 0;
    int Flushed = 0;
    std::function<void()> OnFlush;
    std::string Commands;
};

/// The views of a page, its commands and its links.
class InPlaceEditorCommandsTest : public PageFixture {
protected:
    void LoadPage() {
        Write("class.html", "page " + PlaceTag("P~A", "#note", "hint"));
        Load();
        mPageLog.Take();
    }
    std::string Selected() { return Page().FlatStrip->GetSelectedTab()->Key; }
    HtmlMenuAnswer Menu() { return Widget().UserContextMenu(1, 2, {}, HtmlMenuType::Default); }
};

TEST_F(InPlaceEditorCommandsTest, TheStripHasThreeViews) {
    ASSERT_EQ(Page().FlatStrip->Count(), 3u);
    EXPECT_EQ(Page().FlatStrip->Item(1)->Key, "normal");
    EXPECT_EQ(Page().FlatStrip->Item(2)->Key, "htmlsource");
    EXPECT_EQ(Page().FlatStrip->Item(3)->Key, "preview");
    EXPECT_EQ(Selected(), "normal");
}

TEST_F(InPlaceEditorCommandsTest, EverySwitchBuildsThePageAgain) {
    LoadPage();
    ShowView("htmlsource");
    EXPECT_EQ(Widget().GetView(), HtmlView::Source);
    EXPECT_EQ(mPageLog.Take(), "ForEdit=True editcommenttype=1 RootItem=P "
                               "Prepare(Test:Class,P~A,Classes,nothing)");
    EXPECT_TRUE(Widget().HasFocus());
    ShowView("preview");
    EXPECT_EQ(Widget().GetView(), HtmlView::Normal);
    EXPECT_EQ(mPageLog.Take(), "ForEdit=False editcommenttype=1 RootItem=P "
                               "Prepare(Test:Class,P~A,Classes,nothing)");
    ShowView("normal");
    EXPECT_EQ(Widget().GetView(), HtmlView::Normal);
    EXPECT_NE(mPageLog.Take().find("ForEdit=True"), std::string::npos);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorCommandsTest, TheViewIsSetBeforeThePageIsBuiltAndTheFocusFollows) {
    LoadPage();
    EventLog log;
    mData->OnPrepare = [&] {
        log.Add(std::to_string(static_cast<int>(Widget().GetView())) +
                (Widget().HasFocus() ? "focus" : ""));
    };
    for (const char* view : {"htmlsource", "preview", "htmlsource", "normal"}) {
        Page().FlatStrip->SetFocus();
        ShowView(view);
        EXPECT_TRUE(Widget().HasFocus()) << view;
    }
    EXPECT_EQ(log.Take(), "1 0 1 0");
}

TEST_F(InPlaceEditorCommandsTest, BehindAViewNothingIsLeftToBeUndone) {
    mItem->Comment("#note", "one fish", "n", 1);
    LoadPage();
    Page().DoReplace("fish", "bird", false, false, false);
    ASSERT_TRUE(Widget().IsCommandEnabled("undo"));
    EXPECT_EQ(mItem->Comments()->Item("n")->GetText(), "one bird");
    for (const char* view : {"preview", "normal"}) {
        ShowView(view);
        EXPECT_FALSE(Widget().IsCommandEnabled("undo")) << view;
        Widget().ClickEditTool("undo");
        EXPECT_EQ(mItem->Comments()->Item("n")->GetText(), "one bird") << view;
    }
    EXPECT_EQ(Span("P~A", "#note")->GetInnerHTML(), "one bird");
}

TEST_F(InPlaceEditorCommandsTest, AnotherTabLeavesTheViewAndBuildsThePage) {
    LoadPage();
    ShowView("htmlsource");
    mPageLog.Take();
    Page().FlatStrip->Add("extra", "Extra");
    ShowView("extra");
    EXPECT_EQ(Widget().GetView(), HtmlView::Source);
    EXPECT_NE(mPageLog.Take().find("Prepare"), std::string::npos);
    Page().FlatStrip->Events.Change.Raise({}, {});
    EXPECT_EQ(mPageLog.Take(), "");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorCommandsTest, InThePreviewNothingCanBeTyped) {
    mItem->Comment("#note", "text", "n", 1);
    LoadPage();
    ShowView("preview");
    EXPECT_TRUE(Widget().GetPlaces().empty());
    EXPECT_EQ(Body(), "page text");
    mLog.Take();
    Widget().UserSpanChanged(0, "typed");
    EXPECT_EQ(mLog.Take(), "");
    EXPECT_EQ(mItem->Comments()->Item("n")->GetText(), "text");
    ShowView("normal");
    Type("P~A", "#note", "typed");
    EXPECT_EQ(mItem->Comments()->Item("n")->GetText(), "typed");
}

TEST_F(InPlaceEditorCommandsTest, WhatWasTypedReachesTheModelBeforeTheViewChanges) {
    LoadPage();
    EditWatcher watcher;
    const auto tie = Widget().Observe(watcher);
    watcher.OnFlush = [&] {
        if (watcher.Flushed == 1) Widget().UserSpanChanged(0, "typed late");
    };
    ShowView("preview");
    ASSERT_EQ(mItem->Comments()->Count(), 1u);
    EXPECT_EQ(Body(), "page typed late");
}

TEST_F(InPlaceEditorCommandsTest, ViewSourceHasNoEffectHoweverItIsSpelt) {
    LoadPage();
    for (const char* name : {"ViewSource", "viewsource", "VIEWSOURCE"}) {
        Widget().ClickEditTool(name);
        EXPECT_EQ(Widget().GetView(), HtmlView::Normal) << name;
        EXPECT_EQ(Selected(), "normal") << name;
        EXPECT_EQ(mPageLog.Take(), "") << name;
    }
}

TEST_F(InPlaceEditorCommandsTest, ViewPreviewIsThatOfTheStripHoweverItIsSpelt) {
    LoadPage();
    Widget().ClickEditTool("viewpreview");
    EXPECT_EQ(Selected(), "preview");
    EXPECT_EQ(Widget().GetView(), HtmlView::Normal);
    EXPECT_NE(mPageLog.Take().find("ForEdit=False"), std::string::npos);
}

TEST_F(InPlaceEditorCommandsTest, ViewPreviewShowsThePreviewOfTheStrip) {
    LoadPage();
    Widget().ClickEditTool("ViewPreview");
    EXPECT_EQ(Selected(), "preview");
    EXPECT_EQ(Widget().GetView(), HtmlView::Normal);
    EXPECT_NE(mPageLog.Take().find("ForEdit=False"), std::string::npos);
    EXPECT_TRUE(Widget().GetPlaces().empty());
}

TEST_F(InPlaceEditorCommandsTest, OtherCommandsGoOnToTheWidget) {
    LoadPage();
    EditWatcher watcher;
    const auto tie = Widget().Observe(watcher);
    mEditor.ClickEditTool("bold");
    mEditor.ClickEditTool("insertunorderedlist");
    EXPECT_EQ(watcher.Commands, "bold insertunorderedlist ");
}

TEST_F(InPlaceEditorCommandsTest, ThePreviewHasTheDefaultMenuOnly) {
    LoadPage();
    EXPECT_EQ(Menu(), HtmlMenuAnswer::Full);
    ShowView("htmlsource");
    EXPECT_EQ(Menu(), HtmlMenuAnswer::Full);
    ShowView("preview");
    EXPECT_EQ(Menu(), HtmlMenuAnswer::DefaultOnly);
}

TEST_F(InPlaceEditorCommandsTest, UndoIsForgottenOnceBehindEachPage) {
    LoadPage();
    EditWatcher watcher;
    const auto tie = Widget().Observe(watcher);
    Widget().UserSelection("", {}, {"undo"}, "", "");
    EXPECT_EQ(watcher.UndoCleared, 0);
    ShowView("htmlsource");
    EXPECT_EQ(watcher.UndoCleared, 1);
    Widget().UserSelection("", {}, {"undo"}, "", "");
    EXPECT_EQ(watcher.UndoCleared, 1);
    Load("P~B");
    EXPECT_EQ(watcher.UndoCleared, 2);
}

TEST_F(InPlaceEditorCommandsTest, LinksAreBuiltByTheHost) {
    LoadPage();
    std::string told;
    const auto tie = mEditor.Events.BuildLinkRequest.Connect(
        [&](const std::string& existing, bool getCaption, std::string& caption,
            std::string& newLink, bool external, const std::string& title, const std::string& tip,
            bool extension) {
            told = existing + "|" + std::to_string(getCaption) + "|" + caption + "|" +
                   std::to_string(external) + "|" + title + "|" + tip + "|" +
                   std::to_string(extension);
            newLink = "new.html";
            caption = "New";
        });
    EditWatcher watcher;
    const auto watch = Widget().Observe(watcher);
    Widget().UserSelection("text", {}, {}, "", "", "old.html");
    Widget().ClickEditTool("createlink");
    EXPECT_EQ(told, "old.html|0|text|1|Get URL|Link to|1");
    EXPECT_EQ(watcher.Commands, "createlink,new.html, ");
    watcher.Commands.clear();
    Widget().UserSelection("", {}, {}, "", "");
    Widget().ClickEditTool("createlink");
    EXPECT_EQ(told, "|1||1|Get URL|Link to|1");
    EXPECT_EQ(watcher.Commands, "createlink,new.html,New ");
}

TEST_F(InPlaceEditorCommandsTest, WithoutALinkOfTheHostNothingIsLinked) {
    LoadPage();
    EditWatcher watcher;
    const auto watch = Widget().Observe(watcher);
    Widget().UserSelection("text", {}, {}, "", "", "old.html");
    Widget().ClickEditTool("createlink");
    EXPECT_EQ(watcher.Commands, "");
}

TEST_F(InPlaceEditorCommandsTest, EventsOfThePageReachTheEditor) {
    LoadPage();
    EventLog log;
    auto& events = mEditor.Events;
    log.Keep(events.HyperlinkClick.Connect([&](const auto& href) { log.Add("click " + href); }));
    log.Keep(
        events.SpellIgnoreWordAdded.Connect([&](const auto& word) { log.Add("word " + word); }));
    log.Keep(events.InsertHyperLinkRequest.Connect(
        [&](const auto& text, std::string& link, bool& cancel) {
            log.Add("insert " + text);
            link = "given.html";
            cancel = text == "stop";
        }));
    EditWatcher watcher;
    const auto watch = Widget().Observe(watcher);
    Widget().UserHyperlinkClick("there.html");
    Widget().UserIgnoreWord("kite");
    Widget().UserSelection("stop", {}, {}, "", "");
    Widget().ClickEditTool("createlink");
    EXPECT_EQ(watcher.Commands, "");
    Widget().UserSelection("go", {}, {}, "", "");
    Widget().ClickEditTool("createlink");
    EXPECT_EQ(watcher.Commands, "createlink,given.html, ");
    EXPECT_EQ(log.Take(), "click there.html word kite insert stop insert go");
}

TEST_F(InPlaceEditorCommandsTest, AFailingHandlerOfALinkIsReportedOnce) {
    LoadPage();
    const auto tie = mEditor.Events.HyperlinkClick.Connect(
        [](const auto&) { RaiseError(ErrorNumber::InvalidCall); });
    Widget().UserHyperlinkClick("there.html");
    EXPECT_EQ(mServices.TakeReports(), "CommentEditor.InPlaceEditor_HyperlinkClick (5)\n");
}

TEST_F(InPlaceEditorCommandsTest, AHandlerMayLoadAnotherItemWhenALinkIsClicked) {
    LoadPage();
    const auto tie = mEditor.Events.HyperlinkClick.Connect([this](const auto&) { Load("P~B"); });
    Widget().UserHyperlinkClick("there.html");
    EXPECT_TRUE(mEditor.GetCurrentCodeElement() == mModel.Item("P~B"));
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorCommandsTest, AHandlerMayEndTheEditorWhileALinkIsMade) {
    LoadPage();
    const auto tie = mEditor.Events.InsertHyperLinkRequest.Connect(
        [this](const auto&, auto&, bool&) { mEditor.Terminate(); });
    Widget().UserSelection("text", {}, {}, "", "");
    EXPECT_NO_THROW(Widget().ClickEditTool("createlink"));
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorCommandsTest, WithoutAHostALinkIsReported) {
    InPlaceEditor page;
    page.GetEditControl()->ClickEditTool("createlink");
    EXPECT_EQ(mServices.TakeReports(), "InPlaceEditor.ed_GetURL (91)\n");
}

TEST_F(InPlaceEditorCommandsTest, TheFocusAndTheOpenEditArePassedOn) {
    LoadPage();
    EditWatcher watcher;
    const auto watch = Widget().Observe(watcher);
    Page().SetEditFocusQueued();
    EXPECT_EQ(watcher.QueuedFocus, 1);
    EXPECT_FALSE(Widget().HasFocus()) << "it comes when the widget is idle";
    Page().SetEditFocus();
    EXPECT_TRUE(Widget().HasFocus());
    EXPECT_EQ(watcher.QueuedFocus, 1);
    Page().CommitEdit();
    EXPECT_EQ(watcher.Flushed, 1);
    mEditor.CommitEdit();
    EXPECT_EQ(watcher.Flushed, 2);
}

TEST_F(InPlaceEditorCommandsTest, EachArgumentOfASearchCounts) {
    mItem->Comment("#note", "Fishes <i>FISH</i> fish <b title=\"fish\">x</b>", "n", 1);
    LoadPage();
    EditWatcher watcher;
    const auto watch = Widget().Observe(watcher);
    const auto found = [&](bool whole, bool exact, const char* wanted) {
        Widget().UserSelectionMoved({0, 0, 0});
        watcher.Selected.clear();
        Page().DoFind(wanted, whole, exact, false);
        return watcher.Selected;
    };
    EXPECT_EQ(found(false, false, "fish"), "0:0-4 ");
    EXPECT_EQ(found(true, false, "fish"), "0:7-11 ");
    EXPECT_EQ(found(true, true, "fish"), "0:12-16 ");
    EXPECT_EQ(found(false, true, "Fish"), "0:0-4 ");
    const auto replaced = [&](bool whole, bool exact, bool inHTML) {
        mItem->Comments()->Item("n")->SetText("Fishes FISH fish <b title=\"fish\">x</b>");
        Page().Load(mItem, "class.html");
        Page().DoReplace("fish", "ox", whole, exact, inHTML);
        return mItem->Comments()->Item("n")->GetText();
    };
    EXPECT_EQ(replaced(false, false, false), "oxes ox ox <b title=\"fish\">x</b>");
    EXPECT_EQ(replaced(true, false, false), "Fishes ox ox <b title=\"fish\">x</b>");
    EXPECT_EQ(replaced(false, true, false), "Fishes FISH ox <b title=\"fish\">x</b>");
    EXPECT_EQ(replaced(false, true, true), "Fishes FISH ox <b title=\"ox\">x</b>");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorCommandsTest, ASpellCheckThatIsEndedSaysSo) {
    mItem->Comment("#note", "one fihs", "n", 1);
    LoadPage();
    CurrentServices().Spelling = MakeRef<FewWords>("one");
    SpellAnswer answer{SpellAction::Cancel, {}};
    CurrentServices().AskSpelling = [&](const SpellQuestion&) { return answer; };
    bool cancel = false;
    Page().DoSpellCheck({}, cancel);
    EXPECT_TRUE(cancel);
    answer = {SpellAction::Change, "fish"};
    cancel = false;
    Page().DoSpellCheck({}, cancel);
    EXPECT_FALSE(cancel);
    EXPECT_EQ(mItem->Comments()->Item("n")->GetText(), "one fish");
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorCommandsTest, ASpellCheckTakesTheEngineThatIsPassed) {
    mItem->Comment("#note", "one fihs", "n", 1);
    LoadPage();
    CurrentServices().Spelling = MakeRef<FewWords>("one fihs");
    int asked = 0;
    CurrentServices().AskSpelling = [&](const SpellQuestion&) {
        ++asked;
        return SpellAnswer{SpellAction::Ignore, {}};
    };
    bool cancel = false;
    Page().DoSpellCheck({}, cancel);
    EXPECT_EQ(asked, 0);
    Page().DoSpellCheck(MakeRef<FewWords>("one"), cancel);
    EXPECT_EQ(asked, 1);
}

TEST_F(InPlaceEditorCommandsTest, AWrapperIsBoundToTheWidgetAndNoneToNothing) {
    struct Wrapper : Object {
        std::string TypeName() const override { return "CommandWrapper"; }
        Value Call(std::string_view member, const std::vector<Value>& arguments) override {
            Called += std::string(member) + "(" + arguments.at(0).ToText() + ")";
            Bound = arguments.at(1).ToObject();
            return {};
        }
        std::string Called;
        Ref<Object> Bound;
    };
    const auto wrapper = MakeRef<Wrapper>();
    Page().BindToWrapper(wrapper);
    EXPECT_EQ(wrapper->Called, "BindTo(True)");
    EXPECT_TRUE(wrapper->Bound == Page().GetEditControl());
    Page().BindToWrapper(nullptr);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(InPlaceEditorCommandsTest, AFailureTellsTheParameters) {
    struct Component : ErrorComponent {
        explicit Component(std::string& told) : Told(told) {}
        void ErrorHandler(const Report& report) override {
            Told += report.ProcedureName + " " + report.Parameters;
        }
        std::string GetAction() const override { return {}; }
        std::string& Told;
    };
    std::string told;
    CurrentServices().CreateErrorComponent = [&] { return std::make_shared<Component>(told); };
    InPlaceEditor page;
    page.GetEditControl()->UserSelection("", {}, {}, "", "", "old.html");
    page.GetEditControl()->ClickEditTool("createlink");
    std::size_t at = told.find("ed_GetURL ");
    ASSERT_NE(at, std::string::npos) << told;
    for (const char* parameter :
         {"<URL>old.html</URL>", "<Caption></Caption>", "<RemoveLink>False</RemoveLink>",
          "<ShowRemoveLink>True</ShowRemoveLink>", "<ShowCaption>False</ShowCaption>",
          "<EnabledKiteLinks>True</EnabledKiteLinks>", "<CancelDefault>True</CancelDefault>"}) {
        at = told.find(parameter, at);
        ASSERT_NE(at, std::string::npos) << parameter << " in " << told;
    }
}

} // namespace
} // namespace paperkite::test
