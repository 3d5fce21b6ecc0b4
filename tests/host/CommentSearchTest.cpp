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
        mChanges = std::make_unique<TextChanges>(*mWorkspace, mUnsaved.get());
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
    EXPECT_EQ(mChanges->Apply(search.Plan(Store(), hits, "home & hut")), 0u);
    EXPECT_EQ(TextOf("zoo~animals~Dog", "d1"),
              "<p>Guards the <b>ho</b>use. A home &amp; hut dog.</p>");
    EXPECT_EQ(TextOf("zoo~animals~Gone", "g1"), "An old home &amp; hut.");
    EXPECT_TRUE(mWorkspace->GetSession().GetProject()->GetDirty());
    EXPECT_EQ(mUnsaved->Entries().size(), 3u) << "the journal knows";
    EXPECT_EQ(mChanges->Undo(), 0u);
    EXPECT_EQ(TextOf("zoo~animals~Dog", "d1"), "<p>Guards the <b>ho</b>use. A house dog.</p>");
    EXPECT_EQ(TextOf("zoo~animals~Cat", "c1"), "House cat.");
    EXPECT_FALSE(mChanges->CanUndo());
    EXPECT_EQ(mChanges->Redo(), 0u);
    EXPECT_EQ(TextOf("zoo~animals~Cat", "c1"), "home &amp; hut cat.");
}

TEST_F(CommentSearchTest, ACommentThatChangedMeanwhileIsLeftAlone) {
    const CommentSearch search({"house"});
    const auto changes = search.Plan(Store(), search.Find(Store()), "home");
    Store().Find("zoo~animals~Cat")->Item("c1")->SetText("House of cats.");
    EXPECT_EQ(mChanges->Apply(changes), 1u);
    EXPECT_EQ(TextOf("zoo~animals~Cat", "c1"), "House of cats.");
    EXPECT_EQ(TextOf("zoo~animals~Gone", "g1"), "An old home.");
    Store().Find("zoo~animals~Gone")->Item("g1")->SetText("New.");
    EXPECT_EQ(mChanges->Undo(), 1u);
    EXPECT_EQ(TextOf("zoo~animals~Gone", "g1"), "New.");
}

TEST_F(CommentSearchTest, TheOpenItemShowsItsNewText) {
    ASSERT_TRUE(mWorkspace->Select("zoo~animals~Cat"));
    const CommentSearch search({"house"});
    mChanges->Apply(search.Plan(Store(), search.Find(Store()), "tom"));
    std::string shown;
    for (const auto& row : *mWorkspace->GetEditor().cEditor.prpTags)
        if (!row->IsHeader() && !row->GetReadOnly()) shown += row->GetValue() + ";";
    EXPECT_EQ(shown, "tom cat.;");
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
