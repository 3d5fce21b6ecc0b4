#include "model/CommentPipeModel.h"

#include "model/ModelConfiguration.h"

#include <gtest/gtest.h>

namespace paperkite {

namespace {

class CommentPipeModelTest : public testing::Test {
protected:
    static Ref<TaggedCommentCollection> Comments(const std::vector<std::string>& tags) {
        auto comments = MakeRef<TaggedCommentCollection>();
        for (const std::string& tag : tags) {
            auto comment = MakeRef<TaggedComment>();
            comment->SetTagIdentifier(tag);
            comment->SetText(std::to_string(comments->Count()));
            comments->Add(comment, comment->GetId());
        }
        return comments;
    }

    static std::string Listed(const TaggedCommentCollection& comments) {
        std::string list;
        for (const auto& comment : comments)
            list += comment->GetTagIdentifier() + comment->GetText() + " ";
        return list;
    }

    test::StandardDefinitions mDefinitions;
    CommentPipeModel mPipe;
};

} // namespace

TEST_F(CommentPipeModelTest, TheGeneralDescriptionComesFirstAndUnknownTagsLast) {
    const auto stored =
        Comments({"##unknown", "##example", "##param", "##param", "##REMARKS", "##"});
    const auto edited = mPipe.Consolidate(stored);
    EXPECT_EQ(Listed(*edited), "##5 ##REMARKS4 ##param2 ##param3 ##example1 ##unknown0 ");
    EXPECT_TRUE(edited->GetConsolidated());
    EXPECT_FALSE(stored->GetConsolidated());
    EXPECT_EQ(edited->Item(1), stored->Item(6));
}

TEST_F(CommentPipeModelTest, ThereAndBackChangesNothing) {
    const auto stored = mPipe.Separate(Comments({"##param", "##", "##param", "##x", "##example"}));
    const auto back = mPipe.Separate(mPipe.Consolidate(stored));
    EXPECT_EQ(Listed(*back), Listed(*stored));
    EXPECT_FALSE(back->GetConsolidated());
}

TEST_F(CommentPipeModelTest, TombstonesAreCarriedAlong) {
    const auto stored = Comments({"##param", "##"});
    stored->Item(1)->SetState(kTaggedCommentTombstone);
    const auto edited = mPipe.Consolidate(stored);
    EXPECT_EQ(edited->Count(), 2u);
    EXPECT_EQ(edited->UnDeletedCount(), 1u);
}

} // namespace paperkite
