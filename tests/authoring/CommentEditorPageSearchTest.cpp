#include "authoring/PageFixture.h"
#include "authoring/RecordingDesigner.h"
#include "support/FewWords.h"

#include <deque>

namespace paperkite::test {
namespace {

/// Searching and spelling an element that has a page, whose tabs are "#tab" and the page.
class CommentEditorPageSearchTest : public PageFixture {
protected:
    CommentEditorPageSearchTest() {
        CurrentServices().CreateDesigner = [this](const std::string&) {
            const auto control = MakeRef<RecordingDesignerControl>("tab", mCalls);
            control->Designer->Capabilities = "FindReplace SpellCheck";
            return control;
        };
        Tag("#tab").DesignerProgID = "Lib.dsrTab";
        mItem->Comment("##", "One kite. One Kites.");
        mItem->Comment("#tab", "kite");
        Write("class.html", PlaceTag("P~A", "##"));
        Load();
        mTie = mEditor.Events.DocumentComplete.Connect([this] { ++mLoads; });
    }
    ~CommentEditorPageSearchTest() override { mEditor.Terminate(); }

    void Open(const std::string& key) {
        for (const auto& group : mEditor.eb->GetGroups())
            if (group->Contains(key)) {
                mEditor.eb->UserClick(group->Item(key));
                mLoads = 0;
                mCalls.Take();
                return;
            }
        FAIL() << "there is no item " << key;
    }
    Ref<GroupItem> FirstPage() { return mEditor.eb->GetGroup("main")->Item(1); }
    bool IsPageSelected() { return mEditor.eb->GetSelectedItem() == FirstPage(); }
    /// Whether a designer was asked to search or check.
    bool IsTabVisited() {
        const std::string calls = mCalls.Take();
        return calls.find("tab.Do") != std::string::npos ||
               calls.find("tab.SpellCheck") != std::string::npos;
    }
    std::string TextOnPage() { return Span("P~A", "##")->GetInnerHTML(); }
    std::string Shown() { return Join(std::exchange(mServices.Messages->Shown, {}), "\n"); }
    void Answer(std::deque<SpellAnswer> answers) {
        CurrentServices().AskSpelling = [this, answers](const SpellQuestion& question) mutable {
            mAsked += question.Word + ";";
            if (answers.empty()) return SpellAnswer{};
            const SpellAnswer answer = answers.front();
            answers.pop_front();
            return answer;
        };
    }

    EventLog mCalls;
    Connection mTie;
    int mLoads = 0;
    std::string mAsked;
};

TEST_F(CommentEditorPageSearchTest, FindingGoesToThePageWhichIsLoadedOnce) {
    Open("#tab");
    ASSERT_FALSE(IsPageSelected());
    mEditor.DoFind("kite", false, false, false);
    EXPECT_TRUE(IsPageSelected());
    EXPECT_EQ(mLoads, 1);
    EXPECT_FALSE(IsTabVisited());
    ASSERT_TRUE(Widget().GetSelection());
    EXPECT_EQ(Widget().GetSelection()->Start, 4u);
    mEditor.DoFind("kite", false, false, false);
    EXPECT_EQ(mLoads, 1) << "it is there already";
    EXPECT_EQ(Widget().GetSelection()->Start, 14u) << "the search goes on";
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorPageSearchTest, AllThatIsSaidOfASearchReachesThePage) {
    const auto start = [&] { return Widget().GetSelection()->Start; };
    mEditor.DoFind("KITES", true, true, false);
    EXPECT_FALSE(Widget().GetSelection()) << "letter case counts";
    mEditor.DoFind("Kite", true, false, false);
    EXPECT_EQ(start(), 4u);
    mEditor.DoFind("Kite", true, false, false);
    EXPECT_EQ(start(), 4u) << "the other one is no whole word";
    mEditor.DoFind("Kite", false, true, false);
    EXPECT_EQ(start(), 14u);
    Type("P~A", "##", "<b>kite</b>");
    Widget().UserSelectionMoved({0, 0, 0});
    mEditor.DoFind("kite</b>", false, false, false);
    EXPECT_EQ(Widget().GetSelection()->End, 0u) << "readers see no tags";
    mEditor.DoFind("kite</b>", false, false, true);
    EXPECT_EQ(Widget().GetSelection()->End, 4u);
    mEditor.DoReplace("<b>kite</b>", "<i>x</i>", false, false, false);
    EXPECT_EQ(TextOnPage(), "<b>kite</b>");
    mEditor.DoReplace("<b>kite</b>", "<i>x</i>", false, false, true);
    EXPECT_EQ(TextOnPage(), "<i>x</i>");
}

TEST_F(CommentEditorPageSearchTest, ReplacingChangesThePageAndNoTab) {
    Open("#tab");
    mEditor.DoReplace("kite", "bird", true, false, false);
    EXPECT_TRUE(IsPageSelected());
    EXPECT_EQ(TextOnPage(), "One bird. One Kites.");
    mEditor.DoReplace("Kite", "Bird", false, true, false);
    EXPECT_EQ(TextOnPage(), "One bird. One Birds.");
    EXPECT_FALSE(IsTabVisited());
    EXPECT_EQ(mLoads, 1);
    EXPECT_EQ(mServices.TakeReports(), "");
}

TEST_F(CommentEditorPageSearchTest, ASpellCheckIsOfThePageOnlyAndTellsItsEnd) {
    const auto engine = MakeRef<FewWords>("one kites");
    Answer({{SpellAction::Change, "bird"}});
    Open("#tab");
    EXPECT_TRUE(mEditor.SpellCheck(true, engine));
    EXPECT_TRUE(IsPageSelected());
    EXPECT_EQ(mLoads, 1);
    EXPECT_EQ(mAsked, "kite;");
    EXPECT_EQ(TextOnPage(), "One bird. One Kites.");
    EXPECT_FALSE(IsTabVisited());
    EXPECT_EQ(Shown(), "Spelling [information] The spell check completed successfully");
    EXPECT_TRUE(mEditor.SpellCheck(false, engine));
    EXPECT_EQ(Shown(), "");
}

TEST_F(CommentEditorPageSearchTest, ACheckOfThePageThatIsCancelledSaysSo) {
    const auto engine = MakeRef<FewWords>("one kites");
    Answer({});
    EXPECT_FALSE(mEditor.SpellCheck(true, engine));
    EXPECT_EQ(mAsked, "kite;");
    EXPECT_EQ(Shown(), "Spelling [warning] The spell check has been cancelled");
    EXPECT_FALSE(mEditor.SpellCheck(false, engine));
    EXPECT_EQ(Shown(), "");
    EXPECT_TRUE(mEditor.SpellCheck(false, MakeRef<FewWords>("one kite kites")));
}

TEST_F(CommentEditorPageSearchTest, AWordThatCannotBeLearntDoesNotEndTheCheck) {
    const auto engine = MakeRef<FewWords>("one kites");
    engine->CannotLearn = true;
    Answer({{SpellAction::Add, {}}, {SpellAction::Ignore, {}}});
    EXPECT_TRUE(mEditor.SpellCheck(true, engine));
    EXPECT_EQ(mAsked, "kite;kite;");
    EXPECT_EQ(Shown(), "Spelling [warning] No room for kite.\n"
                       "Spelling [information] The spell check completed successfully");
    EXPECT_EQ(mServices.TakeReports(), "");
}

} // namespace
} // namespace paperkite::test
