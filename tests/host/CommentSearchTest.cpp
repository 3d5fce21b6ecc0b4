#include "host/CommentSearch.h"

#include "foundation/Unicode.h"
#include "host/HostTest.h"

namespace paperkite::test {

namespace {

class CommentSearchTest : public HostTest {
protected:
    CommentSearchTest() {
        mWorkspace = std::make_unique<Workspace>(Create());
        mUnsaved = std::make_unique<UnsavedWork>(mFolder / "journals", ProjectFile());
        mUnsaved->SetWorkspace(mWorkspace.get());
        mHistory = std::make_unique<CommentHistory>(*mWorkspace);
        mChanges = std::make_unique<TextChanges>(*mWorkspace, mUnsaved.get(), mHistory.get());
        Load("zoo~animals~Dog", "d1", "##", "<p>Guards the <b>ho</b>use. A house dog.</p>");
        Load("zoo~animals~Dog", "d2", "##remarks", "No hit here.");
        Load("zoo~animals~Cat", "c1", "##", "House cat.");
        Load("zoo~animals~Gone", "g1", "##", "An old house.");
    }

    CommentStore& Store() { return *mWorkspace->GetSession().GetProject()->GetComments(); }
    void Load(const std::string& item, const std::string& id, const std::string& tag,
              const std::string& text) {
        auto comment = MakeRef<TaggedComment>(id);
        comment->SetTagIdentifier(tag);
        comment->SetText(text);
        Store().Load(item, comment, {});
    }
    std::string TextOf(const std::string& item, const std::string& id) {
        return Store().Find(item)->Item(id)->GetText();
    }
    static std::string Shown(const std::vector<CommentSearch::Hit>& hits) {
        std::string text;
        for (const auto& hit : hits)
            text += hit.Item + ": " + hit.Name + ": " +
                    hit.Context.With(
                        "[" + hit.Context.Line.substr(hit.Context.At, hit.Context.Length) + "]") +
                    "\n";
        return text;
    }

    std::unique_ptr<Workspace> mWorkspace;
    std::unique_ptr<UnsavedWork> mUnsaved;
    std::unique_ptr<CommentHistory> mHistory;
    std::unique_ptr<TextChanges> mChanges;
};

TEST_F(CommentSearchTest, HitsComeWithItemTagAndLineSortedByItem) {
    EXPECT_EQ(Shown(CommentSearch({"house"}).Find(Store())),
              "zoo~animals~Cat: General Description: [House] cat.\n"
              "zoo~animals~Dog: General Description: Guards the [house]. A house dog.\n"
              "zoo~animals~Dog: General Description: Guards the house. A [house] dog.\n"
              "zoo~animals~Gone: General Description: An old [house].\n");
    EXPECT_TRUE(CommentSearch({"whale"}).Find(Store()).empty());
}

TEST_F(CommentSearchTest, WhatWasDeletedIsNotFound) {
    Store().Find("zoo~animals~Cat")->Item("c1")->SetState(kTaggedCommentTombstone);
    EXPECT_EQ(CommentSearch({"house"}).Find(Store()).size(), 3u);
}

TEST_F(CommentSearchTest, ChosenHitsAreReplacedInOneStepThatCanBeTakenBack) {
    const CommentSearch search({"house"});
    auto hits = search.Find(Store());
    hits.erase(hits.begin() + 1); // the first one of Dog stays
    EXPECT_EQ(mChanges->Apply(search.Plan(Store(), hits, "home & hut"), "Replacing"), 0u);
    EXPECT_EQ(TextOf("zoo~animals~Dog", "d1"),
              "<p>Guards the <b>ho</b>use. A home &amp; hut dog.</p>");
    EXPECT_EQ(TextOf("zoo~animals~Gone", "g1"), "An old home &amp; hut.");
    EXPECT_TRUE(mWorkspace->GetSession().GetProject()->GetDirty());
    EXPECT_EQ(mUnsaved->Entries().size(), 3u) << "the journal knows";
    EXPECT_EQ(mHistory->UndoCaption(), "Replacing");
    EXPECT_EQ(mHistory->Undo().size(), 3u);
    EXPECT_EQ(TextOf("zoo~animals~Dog", "d1"), "<p>Guards the <b>ho</b>use. A house dog.</p>");
    EXPECT_EQ(TextOf("zoo~animals~Cat", "c1"), "House cat.");
    EXPECT_FALSE(mHistory->CanUndo());
    EXPECT_EQ(mHistory->Redo().size(), 3u);
    EXPECT_EQ(TextOf("zoo~animals~Cat", "c1"), "home &amp; hut cat.");
}

TEST_F(CommentSearchTest, ACommentThatChangedMeanwhileIsLeftAlone) {
    const CommentSearch search({"house"});
    const auto changes = search.Plan(Store(), search.Find(Store()), "home");
    Store().Find("zoo~animals~Cat")->Item("c1")->SetText("House of cats.");
    EXPECT_EQ(mChanges->Apply(changes, "Replacing"), 1u);
    EXPECT_EQ(TextOf("zoo~animals~Cat", "c1"), "House of cats.");
    EXPECT_EQ(TextOf("zoo~animals~Gone", "g1"), "An old home.");
}

TEST_F(CommentSearchTest, TheOpenItemShowsItsNewText) {
    ASSERT_TRUE(mWorkspace->Select("zoo~animals~Cat"));
    const CommentSearch search({"house"});
    mChanges->Apply(search.Plan(Store(), search.Find(Store()), "tom"), "Replacing");
    std::string shown;
    for (const auto& row : *mWorkspace->GetEditor().cEditor.prpTags)
        if (!row->IsHeader() && !row->GetReadOnly()) shown += row->GetValue() + ";";
    EXPECT_EQ(shown, "tom cat.;");
}

TEST_F(CommentSearchTest, WhatAPageMadeOfATextDoesNotKeepItFromBeingReplaced) {
    const std::string written = "An<br>old house &amp; more.";
    Load("zoo~animals~Cat", "c2", "##remarks", written);
    const auto comment = Store().Find("zoo~animals~Cat")->Item("c2");
    comment->SetNormalisedText("An<br />old house &#38; more.");
    const CommentSearch search({"house"});
    EXPECT_EQ(mChanges->Apply(search.Plan(Store(), search.Find(Store()), "home"), "Replacing"), 0u);
    EXPECT_EQ(comment->GetWrittenText(), "An<br>old home &amp; more.");
    EXPECT_EQ(comment->GetText(), comment->GetWrittenText());
}

TEST_F(CommentSearchTest, PlainTextsAreReplacedWithoutBeingTakenForHtml) {
    const std::string xml = "<rate name=\"budgets\">1 &lt; 2</rate>";
    Load("zoo~animals~Cat", "k", "##keywords", "R&D > budgets\nAT&amp;T budgets");
    Load("zoo~animals~Cat", "m", "##menuitem", "Q&A > budgets\nkeys: Ctrl+B");
    Load("zoo~animals~Cat", "e", "##examplesource", "source: a&budgets.cpp\nThe budgets & co.");
    Load("zoo~animals~Cat", "n", "##isexample", "R&D budgets\nof: zoo~animals~Dog");
    Load("zoo~animals~Cat", "x", "##xml", xml);
    const CommentSearch search({"budgets"});
    const auto hits = search.Find(Store());
    EXPECT_EQ(hits.size(), 7u);
    EXPECT_EQ(mChanges->Apply(search.Plan(Store(), hits, "<costs>"), "Replacing"), 0u);
    EXPECT_EQ(TextOf("zoo~animals~Cat", "k"), "R&D > <costs>\nAT&amp;T <costs>");
    EXPECT_EQ(TextOf("zoo~animals~Cat", "m"), "Q&A > <costs>\nkeys: Ctrl+B");
    EXPECT_EQ(TextOf("zoo~animals~Cat", "e"), "source: a&<costs>.cpp\nThe <costs> & co.");
    EXPECT_EQ(TextOf("zoo~animals~Cat", "n"), "R&D <costs>\nof: zoo~animals~Dog");
    EXPECT_EQ(TextOf("zoo~animals~Cat", "x"), "<rate name=\"<costs>\">1 &lt; 2</rate>");
}

TEST_F(CommentSearchTest, PlainTextsAreSearchedAsTheyStand) {
    Load("zoo~animals~Cat", "k", "##keywords", "AT&amp;T\nread\n  only");
    EXPECT_EQ(Shown(CommentSearch({"&amp;"}).Find(Store())),
              "zoo~animals~Cat: Keywords: AT[&amp;]T\n");
    EXPECT_EQ(CommentSearch({"AT&T"}).Find(Store()).size(), 0u);
    EXPECT_EQ(CommentSearch({"only", true, true, false}).Find(Store()).size(), 1u);
}

TEST_F(CommentSearchTest, ATextThatIsNotInItsFormIsHtml) {
    Load("zoo~animals~Cat", "k", "##keywords", "<p>R&amp;D budgets</p>");
    Load("zoo~animals~Cat", "s", "##subitem", "<dl>\n<dt>R&amp;D</dt><dd>budgets</dd>\n</dl>");
    const CommentSearch search({"R&D"});
    mChanges->Apply(search.Plan(Store(), search.Find(Store()), "Q&A"), "Replacing");
    EXPECT_EQ(TextOf("zoo~animals~Cat", "k"), "<p>Q&amp;A budgets</p>");
    EXPECT_EQ(TextOf("zoo~animals~Cat", "s"), "<dl>\n<dt>Q&amp;A</dt><dd>budgets</dd>\n</dl>");
}

TEST_F(CommentSearchTest, LongLinesAreCutAroundTheHit) {
    std::string text;
    for (int count = 0; count < 40; ++count)
        text += "\xC3\xA4 blah ";
    const std::size_t at = text.size();
    text += "hit";
    text += text.substr(0, at);
    const auto context = TextContext::Of(text, at, at + 3);
    EXPECT_EQ(context.Line.substr(context.At, context.Length), "hit");
    EXPECT_LT(context.Line.size(), 140u);
    EXPECT_TRUE(context.Line.starts_with("\xE2\x80\xA6") && context.Line.ends_with("\xE2\x80\xA6"));
    EXPECT_TRUE(HoldsOnlyUtf8(context.Line)) << context.Line;
    EXPECT_EQ(TextContext::Of("one\ntwo\nthree", 4, 7).Line, "two");
}

} // namespace
} // namespace paperkite::test
