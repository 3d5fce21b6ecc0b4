#include "foundation/KeyGenerator.h"

#include "foundation/TaggedComment.h"

#include <gtest/gtest.h>

#include <set>

namespace paperkite {

TEST(KeyGenerator, NoKeyComesTwice) {
    constexpr int kKeys = 20000;
    std::set<std::string> keys;
    for (int index = 0; index < kKeys; ++index)
        keys.insert(KeyGenerator().Generate());
    EXPECT_EQ(keys.size(), static_cast<std::size_t>(kKeys));
    EXPECT_FALSE(keys.contains(""));
}

TEST(KeyGenerator, AKeyIsPlainEnoughForEveryStore) {
    const std::string key = KeyGenerator().Generate();
    EXPECT_EQ(key.find_first_not_of("0123456789abcdefghijklmnopqrstuvwxyz"), std::string::npos);
}

TEST(KeyGenerator, ACommentWithoutAnIdentityGetsOne) {
    EXPECT_EQ(TaggedComment("kept").GetId(), "kept");
    const TaggedComment first;
    const TaggedComment second;
    EXPECT_NE(first.GetId(), second.GetId());
    EXPECT_FALSE(first.GetId().empty());
}

} // namespace paperkite
