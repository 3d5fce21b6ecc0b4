#include "model/CommentStore.h"

#include "model/CodeItem.h"
#include "model/CommentPipeModel.h"

#include <gtest/gtest.h>

namespace paperkite {

namespace {

Ref<TaggedComment> CommentOf(const std::string& id, const std::string& text = "text") {
    auto comment = MakeRef<TaggedComment>(id);
    comment->SetTagIdentifier("##");
    comment->SetText(text);
    return comment;
}

} // namespace

TEST(CommentStore, AnItemGetsItsCommentsAndBecomesTheirOwner) {
    auto store = MakeRef<CommentStore>();
    store->Load("a~b", CommentOf("1"), {});
    auto item = MakeRef<CodeItem>("MemberElement", "a~b", store);
    const auto comments = item->GetTaggedComments();
    ASSERT_EQ(comments->Count(), 1u);
    EXPECT_EQ(comments->Item(1)->GetItem(), item);
    EXPECT_EQ(item->GetTaggedComments(), comments);
}

TEST(CommentStore, CountsNeedNoItemAndLeaveTombstonesOut) {
    auto store = MakeRef<CommentStore>();
    store->Load("a", CommentOf("1"), {});
    store->Load("a", CommentOf("2"), {});
    store->Load("b", CommentOf("3"), {});
    store->Find("b")->Item("3")->SetState(kTaggedCommentTombstone);
    EXPECT_EQ(store->CountOf("a"), 2u);
    EXPECT_TRUE(store->IsDocumented("a"));
    EXPECT_FALSE(store->IsDocumented("b"));
    EXPECT_FALSE(store->IsDocumented("c"));
    EXPECT_EQ(store->Count(), 2u);
    EXPECT_EQ(store->QualifiedNames(), std::vector<std::string>{"a"});
}

TEST(CommentStore, EveryLivingCommentIsShownOnceInTheOrderOfTheItems) {
    for (const int items : {0, 1, 7, 8, 9, 40}) {
        auto store = MakeRef<CommentStore>();
        std::string expected;
        for (int number = 0; number < items; ++number) {
            const std::string item = "item" + std::to_string(number);
            store->Load(item, CommentOf(item + "gone"), {});
            store->Find(item)->Item(item + "gone")->SetState(kTaggedCommentTombstone);
            for (int comment = 0; comment < number % 12; ++comment) {
                const std::string id = item + "." + std::to_string(comment);
                store->Load(item, CommentOf(id, std::string(600, 't')), {});
                expected += item + ":" + id + " ";
            }
        }
        std::string shown;
        store->ForEach([&](const std::string& item, const TaggedComment& comment) {
            shown += item + ":" + comment.GetId() + " ";
        });
        EXPECT_EQ(shown, expected) << items;
    }
}

TEST(CommentStore, AskingForCommentsThatAreNotThereMakesNone) {
    auto store = MakeRef<CommentStore>();
    MakeRef<CodeItem>("MemberElement", "a", store)->GetTaggedComments();
    EXPECT_EQ(store->Count(), 0u);
    EXPECT_TRUE(store->QualifiedNames().empty());
}

TEST(CommentStore, WhatIsAddedToACollectionIsInTheStore) {
    auto store = MakeRef<CommentStore>();
    auto item = MakeRef<CodeItem>("MemberElement", "a", store);
    item->GetTaggedComments()->Add(CommentOf("1"), "1");
    EXPECT_EQ(store->CountOf("a"), 1u);
    item->GetTaggedComments()->Remove("1");
    EXPECT_EQ(store->CountOf("a"), 0u);
}

TEST(CommentStore, ACollectionThatIsHeldOutlivesAnyNumberOfEmptyOnes) {
    auto store = MakeRef<CommentStore>();
    const auto held = MakeRef<CodeItem>("MemberElement", "held", store)->GetTaggedComments();
    for (int index = 0; index < 20000; ++index)
        MakeRef<CodeItem>("MemberElement", std::to_string(index), store)->GetTaggedComments();
    held->Add(CommentOf("1"), "1");
    EXPECT_EQ(store->CountOf("held"), 1u);
}

TEST(CommentStore, AnotherCollectionTakesThePlace) {
    auto store = MakeRef<CommentStore>();
    store->Load("a", CommentOf("1"), {});
    auto item = MakeRef<CodeItem>("MemberElement", "a", store);
    auto other = MakeRef<TaggedCommentCollection>();
    item->Set("TaggedComments", Value(other));
    EXPECT_EQ(item->Get("TaggedComments").ToObject(), other);
    EXPECT_EQ(store->CountOf("a"), 0u);
}

TEST(CommentStore, ACommentRemembersItsFileThroughAnotherCollection) {
    auto store = MakeRef<CommentStore>();
    auto file = MakeRef<ContentFile>();
    store->Load("a", CommentOf("1"), {file, {}});
    auto other = MakeRef<TaggedCommentCollection>();
    other->Add(store->Find("a")->Item("1"), "1");
    store->SetComments("a", other);
    EXPECT_EQ(store->OriginOf("a", *other->Item("1")).File, file);
    store->DropFile(file);
    EXPECT_EQ(store->Count(), 0u);
}

TEST(CommentStore, TwoWhoAskForTheSameItemSeeTheSameComments) {
    const auto store = MakeRef<CommentStore>();
    const auto item = MakeRef<CodeItem>("ClassElement", "a", store);
    const auto first = item->GetTaggedComments();
    const auto other = MakeRef<CodeItem>("ClassElement", "b", store)->GetTaggedComments();
    const auto second = item->GetTaggedComments();
    EXPECT_EQ(first, second);
    first->Add(MakeRef<TaggedComment>("1"), "1");
    EXPECT_EQ(second->Count(), 1u);
    EXPECT_EQ(store->CountOf("a"), 1u);
    EXPECT_EQ(store->CountOf("b"), 0u);
    EXPECT_EQ(other->Count(), 0u);
}

TEST(CommentStore, AnEmptyCollectionThatIsHeldGetsWhatIsLoadedLater) {
    const auto store = MakeRef<CommentStore>();
    const auto item = MakeRef<CodeItem>("ClassElement", "a", store);
    const auto held = item->GetTaggedComments();
    MakeRef<CodeItem>("ClassElement", "b", store)->GetTaggedComments();
    store->Load("a", MakeRef<TaggedComment>("1"), {});
    EXPECT_EQ(held->Count(), 1u);
    EXPECT_EQ(store->Find("a"), held);
}

TEST(CommentStore, AnEmptyCollectionThatNobodyKeptLeavesNoTraceInTheNextOne) {
    const auto store = MakeRef<CommentStore>();
    MakeRef<CodeItem>("ClassElement", "a", store)->GetTaggedComments()->SetConsolidated(true);
    const auto next = MakeRef<CodeItem>("ClassElement", "b", store)->GetTaggedComments();
    EXPECT_FALSE(next->GetConsolidated());
    next->Add(MakeRef<TaggedComment>("1"), "1");
    EXPECT_EQ(store->CountOf("a"), 0u);
    EXPECT_EQ(store->CountOf("b"), 1u);
}

TEST(CommentStore, AnEmptyCollectionThatIsHeldGetsTheCommentsOfAnotherReading) {
    const auto store = MakeRef<CommentStore>();
    const auto item = MakeRef<CodeItem>("ClassElement", "a", store);
    const auto held = item->GetTaggedComments();
    MakeRef<CodeItem>("ClassElement", "b", store)->GetTaggedComments();
    // One comment by one, as files are read that were edited by hand.
    const auto other = MakeRef<CommentStore>();
    other->Load("a", CommentOf("1"), {});
    other->Load("a", CommentOf("2"), {});
    store->SwapComments(*other);
    EXPECT_EQ(held->Count(), 2u);
    held->Add(CommentOf("3"), "3");
    EXPECT_EQ(store->CountOf("a"), 3u);
    EXPECT_EQ(item->GetTaggedComments(), held);
}

TEST(CommentStore, WhatIsAddedToACollectionWhoseCommentsMovedIsInTheStore) {
    const auto store = MakeRef<CommentStore>();
    store->Load("old", CommentOf("1"), {});
    const auto held = store->Find("old");
    store->Move("old", "new");
    EXPECT_EQ(held->Count(), 0u);
    held->Add(CommentOf("2"), "2");
    EXPECT_EQ(store->CountOf("old"), 1u);
    EXPECT_EQ(store->CountOf("new"), 1u);
}

TEST(CommentStore, ADeletedCommentDoesNotComeBackByMoving) {
    const auto store = MakeRef<CommentStore>();
    store->Load("old", CommentOf("1", "deleted"), {});
    store->Load("new", CommentOf("1", "there"), {});
    store->Find("old")->Item("1")->SetState(kTaggedCommentTombstone);
    store->Move("old", "new");
    EXPECT_EQ(store->CountOf("new"), 1u);
    EXPECT_EQ(store->Count(), 1u);
}

TEST(CommentStore, CommentsOfAnOpenItemInTheirOrderForEditingAreSavedAndDropped) {
    const auto store = MakeRef<CommentStore>();
    const auto file = MakeRef<ContentFile>();
    store->Load("a", CommentOf("1"), {file, {}});
    store->Load("a", CommentOf("2"), {file, {}});
    CommentPipeModel pipe;
    const auto open = pipe.Consolidate(store->Find("a"));
    store->SetComments("a", open);
    const auto added = CommentOf("3");
    added->SetState(kTaggedCommentNew);
    open->Add(added, "3");
    open->Item("1")->SetState(kTaggedCommentTombstone);
    store->MarkStored(file,
                      [&](const auto& origin) { return !origin.File || origin.File == file; });
    store->DropTombstones();
    EXPECT_EQ(open->Count(), 2u);
    EXPECT_EQ(added->GetState(), 0);
    open->Add(CommentOf("4"), "4");
    store->SetComments("a", pipe.Separate(open));
    EXPECT_EQ(store->CountOf("a"), 3u);
    EXPECT_EQ(store->OriginOf("a", *added).File, file);
    store->DropFile(file);
    // What is in no file yet stays.
    EXPECT_EQ(store->QualifiedNames(), std::vector<std::string>{"a"});
    EXPECT_EQ(store->CountOf("a"), 1u);
}

TEST(CommentStore, ACollectionThatWasEmptiedStaysTheItemsOwn) {
    const auto store = MakeRef<CommentStore>();
    const auto item = MakeRef<CodeItem>("ClassElement", "a", store);
    const auto comments = item->GetTaggedComments();
    comments->Add(MakeRef<TaggedComment>("1"), "1");
    comments->Remove("1");
    comments->Add(MakeRef<TaggedComment>("2"), "2");
    EXPECT_EQ(item->GetTaggedComments(), comments);
    EXPECT_EQ(store->CountOf("a"), 1u);
}

} // namespace paperkite
