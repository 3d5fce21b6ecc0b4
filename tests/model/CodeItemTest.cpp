#include "model/CodeItem.h"

#include <gtest/gtest.h>

namespace paperkite {

TEST(CodeItem, MembersAreReachedByName) {
    auto store = MakeRef<CommentStore>();
    auto parent = MakeRef<CodeItem>("CodeModule", "a", store);
    auto item = MakeRef<CodeItem>("MemberElement", "a~b", store);
    item->Name = "b";
    item->Access = "PRIVATE";
    item->SetParent(parent);
    item->Set("RootFlag", Value(true));
    item->Set("Line", Value(12));
    EXPECT_EQ(item->TypeName(), "MemberElement");
    EXPECT_EQ(item->Get("Name").ToText(), "b");
    EXPECT_EQ(item->Get("QualifiedName").ToText(), "a~b");
    EXPECT_EQ(item->Get("Access").ToText(), "PRIVATE");
    EXPECT_EQ(item->Get("Parent").ToObject(), parent);
    EXPECT_TRUE(item->Get("RootFlag").ToBoolean());
    EXPECT_EQ(item->Get("Line").ToInteger(), 12);
    EXPECT_FALSE(item->Get("Examples").ToObject());
}

TEST(CodeItem, AMemberThatIsMissingIsAnError) {
    auto item = MakeRef<CodeItem>("MemberElement", "a");
    for (const char* member : {"Modules", "TaggedComments"}) {
        try {
            item->Get(member);
            ADD_FAILURE() << member;
        } catch (const Error& error) {
            EXPECT_EQ(error.GetNumber(), static_cast<int>(ErrorNumber::NoSuchMember));
        }
    }
    EXPECT_THROW(item->Set("QualifiedName", Value("x")), Error);
}

} // namespace paperkite
