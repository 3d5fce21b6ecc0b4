#include "model/ModelControlHelper.h"

#include "model/CodeItem.h"
#include "model/ModelConfiguration.h"
#include "widgets/DockHost.h"

#include <gtest/gtest.h>

namespace paperkite {

namespace {

class ModelControlHelperTest : public testing::Test {
protected:
    Ref<CodeItem> Item(const std::string& name) {
        auto item = MakeRef<CodeItem>("MemberElement", "root~" + name, mStore);
        item->Name = name;
        return item;
    }

    static Ref<TaggedComment> Add(const Ref<CodeItem>& item, const std::string& tag,
                                  const std::string& text = {}) {
        auto comment = MakeRef<TaggedComment>();
        comment->SetTagIdentifier(tag);
        comment->SetText(text);
        comment->SetItem(item);
        item->GetTaggedComments()->Add(comment, comment->GetId());
        return comment;
    }

    static std::string Listed(const Ref<CodeItem>& item) {
        std::string list;
        const auto comments = item->GetTaggedComments()->UnDeletedTaggedComments();
        for (const auto& comment : *comments)
            list += comment->GetTagIdentifier() + "=" + comment->GetText() + " ";
        return list;
    }

    test::StandardDefinitions mDefinitions;
    Ref<CommentStore> mStore = MakeRef<CommentStore>();
    ModelControlHelper mHelper;
};

} // namespace

TEST_F(ModelControlHelperTest, CommentsAreCopiedAndPastedAsNewOnes) {
    const auto from = Item("from");
    const auto to = Item("to");
    const auto original = Add(from, "##remarks", "text");
    original->SetXMLCommentType("remarks");
    mHelper.CopyComments(from);
    mHelper.PasteComments(to);
    ASSERT_EQ(Listed(to), "##remarks=text ");
    const auto pasted = to->GetTaggedComments()->Item(1);
    EXPECT_NE(pasted->GetId(), original->GetId());
    EXPECT_EQ(pasted->GetItem(), to);
    EXPECT_EQ(pasted->GetState(), kTaggedCommentNew);
    EXPECT_EQ(pasted->GetXMLCommentType(), "remarks");
}

TEST_F(ModelControlHelperTest, TheClipboardKnowsWhereItsCommentsCameFrom) {
    EXPECT_FALSE(mHelper.GetClipboardHasComments());
    const auto from = Item("from");
    Add(from, "##");
    mHelper.CopyComments(from);
    EXPECT_TRUE(mHelper.GetClipboardHasComments());
    EXPECT_EQ(mHelper.GetClipboardItemType(), "MemberElement");
    EXPECT_EQ(mHelper.GetClipboardQualifiedName(), "root~from");
    mHelper.CopyComments(Item("bare"));
    EXPECT_FALSE(mHelper.GetClipboardHasComments());
}

TEST_F(ModelControlHelperTest, WhatIsPastedIsWhatWasCopiedThen) {
    const auto from = Item("from");
    const auto comment = Add(from, "##", "then");
    mHelper.CopyComments(from);
    comment->SetText("later");
    const auto to = Item("to");
    mHelper.PasteComments(to);
    EXPECT_EQ(Listed(to), "##=then ");
}

TEST_F(ModelControlHelperTest, AFlagAndAGeneralDescriptionAreNotDoubled) {
    const auto from = Item("from");
    Add(from, "##", "theirs");
    Add(from, "##deprecated");
    Add(from, "##remarks", "theirs");
    const auto to = Item("to");
    Add(to, "##", "mine");
    Add(to, "##DEPRECATED");
    Add(to, "##remarks", "mine");
    mHelper.CopyComments(from);
    mHelper.PasteComments(to);
    EXPECT_EQ(Listed(to), "##=mine ##DEPRECATED= ##remarks=mine ##remarks=theirs ");
}

TEST_F(ModelControlHelperTest, ADeletedFlagIsPastedAgain) {
    const auto from = Item("from");
    Add(from, "##new");
    const auto to = Item("to");
    Add(to, "##new")->SetState(kTaggedCommentTombstone);
    mHelper.CopyComments(from);
    mHelper.PasteComments(to);
    EXPECT_EQ(Listed(to), "##new= ");
}

TEST_F(ModelControlHelperTest, TombstonesAreNotCopied) {
    const auto from = Item("from");
    Add(from, "##", "x")->SetState(kTaggedCommentTombstone);
    mHelper.CopyComments(from);
    EXPECT_FALSE(mHelper.GetClipboardHasComments());
}

TEST_F(ModelControlHelperTest, AQualifierThatNamedTheItemNamesTheOther) {
    const auto from = Item("from");
    Add(from, "##param", "a")->SetQualifier("from");
    Add(from, "##param", "b")->SetQualifier("width");
    mHelper.CopyComments(from);
    const auto to = Item("to");
    mHelper.PasteComments(to);
    EXPECT_EQ(to->GetTaggedComments()->Item(1)->GetQualifier(), "to");
    EXPECT_EQ(to->GetTaggedComments()->Item(2)->GetQualifier(), "width");
}

TEST_F(ModelControlHelperTest, OtherProgramsGetTheCommentsAsText) {
    std::string given;
    mHelper.SetSystemClipboard = [&given](const std::string& text) { given = text; };
    const auto from = Item("from");
    Add(from, "##", "What it is.");
    Add(from, "##param", "a number")->SetQualifier("width");
    Add(from, "##deprecated");
    mHelper.CopyComments(from);
    EXPECT_EQ(given, "General Description: What it is.\nParameter (width): a number\nDeprecated\n");
}

TEST_F(ModelControlHelperTest, TakingUpAnItemMakesNoComment) {
    const auto item = Item("a");
    item->Description = "from the source";
    mHelper.SyncGeneralComment(item, true);
    EXPECT_EQ(mStore->Count(), 0u);
    EXPECT_EQ(item->Description, "from the source");
    EXPECT_EQ(item->TaggedDescription, "");
}

TEST_F(ModelControlHelperTest, TheGeneralCommentIsGivenToTheItem) {
    const auto item = Item("a");
    item->Description = "from the source";
    const auto comment = Add(item, "##", "the author's");
    mHelper.SyncGeneralComment(item, true);
    EXPECT_EQ(item->TaggedDescription, "the author's");
    comment->SetText("changed");
    mHelper.SyncGeneralComment(item, false);
    EXPECT_EQ(item->TaggedDescription, "changed");
    comment->SetState(kTaggedCommentTombstone);
    mHelper.SyncGeneralComment(item, false);
    EXPECT_EQ(item->TaggedDescription, "");
    EXPECT_EQ(item->Description, "from the source");
}

TEST_F(ModelControlHelperTest, TheFirstLivingCommentOfATagIsFound) {
    const auto item = Item("a");
    Add(item, "##new")->SetState(kTaggedCommentTombstone);
    const auto second = Add(item, "##NEW");
    Add(item, "##new");
    EXPECT_EQ(mHelper.FindTaggedComment(item->GetTaggedComments(), "##new"), second);
    EXPECT_FALSE(mHelper.FindTaggedComment(item->GetTaggedComments(), "##other"));
}

TEST_F(ModelControlHelperTest, DescriptionsAreMergedByTheirFormat) {
    EXPECT_EQ(mHelper.MergeDescription("a", "b", "<p>%TEXT%</p>"), "a<p>b</p>");
    EXPECT_EQ(mHelper.MergeDescription("a", "b", ""), "ab");
    EXPECT_EQ(mHelper.MergeDescription("a", "", "<p>%text%</p>"), "a");
}

TEST_F(ModelControlHelperTest, AToolbarStyleIsOneOfFour) {
    DockHost dock;
    mHelper.ApplyToolbarStyle(dock, 3);
    EXPECT_EQ(dock.GetToolbarStyle(), ToolbarStyle::TextBesideIcons);
    mHelper.ApplyToolbarStyle(dock, 4);
    mHelper.ApplyToolbarStyle(dock, -1);
    EXPECT_EQ(dock.GetToolbarStyle(), ToolbarStyle::TextBesideIcons);
}

TEST_F(ModelControlHelperTest, WithoutADialogNoTopicIsChosen) {
    EXPECT_EQ(mHelper.BuildTopic("old", false, ""), "");
    mHelper.ChooseTopic = [](const auto& request) { return request.ItemType + request.Topic; };
    EXPECT_EQ(mHelper.BuildTopicForType("2", "old", false, ""), "2old");
}

} // namespace paperkite
