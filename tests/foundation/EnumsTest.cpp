#include "foundation/Enums.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

TEST(Enums, PublicEnumerationsHaveTheirNumbers) {
    EXPECT_EQ(ProjectSourceExistingFile, 0);
    EXPECT_EQ(MemberTypeMethod, 1);
    EXPECT_EQ(MemberTypeProperty, 2);
    EXPECT_EQ(MemberTypeEvent, 3);
    EXPECT_EQ(MemberTypeEnumeration, 4);
    EXPECT_EQ(MemberTypeStructure, 5);
}

TEST(Enums, ARecordOfAMemberHoldsItsNameAndKind) {
    const MemberInfo member{"Changed", MemberTypeEvent};
    EXPECT_EQ(member.MemberName, "Changed");
    EXPECT_EQ(member.MemberType, MemberTypeEvent);
}

} // namespace
} // namespace paperkite
