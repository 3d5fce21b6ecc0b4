#include "foundation/Utilities.h"

#include "foundation/ObjectCollection.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

TEST(Utilities, KeyTestsNeverRaise) {
    TextCollection texts;
    texts.Add("value", "Key");
    EXPECT_TRUE(Utilities::ContainsKey(texts, "Key"));
    EXPECT_FALSE(Utilities::ContainsKey(texts, "key"));
    EXPECT_FALSE(Utilities::ContainsKey(texts, ""));
    ObjectCollection objects;
    EXPECT_FALSE(Utilities::ContainsObject(objects, "Key"));
    objects.Add(MakeRef<TextCollection>(), "Key");
    EXPECT_TRUE(Utilities::ContainsObject(objects, "Key"));
    EXPECT_FALSE(Utilities::ContainsObject(objects, "other"));
}

TEST(Utilities, AnEntryThatIsNothingIsNoObject) {
    Collection<Ref<TextCollection>> collection;
    collection.Add(nullptr, "nothing");
    EXPECT_TRUE(Utilities::ContainsKey(collection, "nothing"));
    EXPECT_FALSE(Utilities::ContainsObject(collection, "nothing"));
}

TEST(Utilities, FieldsCountFromOne) {
    EXPECT_EQ(Utilities::Token("path:rest:more", ":", 1), "path");
    EXPECT_EQ(Utilities::Token("path:rest:more", ":", 2), "rest");
    EXPECT_EQ(Utilities::Token("", ":", 1), "");
    EXPECT_EQ(Utilities::BeforeColon("WizardStage:a:b"), "WizardStage");
    EXPECT_EQ(Utilities::AfterColon("WizardStage:a:b"), "a:b");
}

TEST(Utilities, ATextIsSplitIntoACollectionThatCountsFromOne) {
    const auto fields = Utilities::SplitToCollection("a,,b", ",");
    ASSERT_EQ(fields.Count(), 3u);
    EXPECT_EQ(fields.Item(1), "a");
    EXPECT_EQ(fields.Item(2), "");
    EXPECT_EQ(fields.Item(3), "b");
    EXPECT_EQ(fields.KeyAt(1), "");
}

TEST(Utilities, AValueWithoutATextFormReadsAsEmpty) {
    EXPECT_EQ(Utilities::TextOf("text"), "text");
    EXPECT_EQ(Utilities::TextOf(12), "12");
    EXPECT_EQ(Utilities::TextOf(Value()), "");
    EXPECT_EQ(Utilities::TextOf(Value(Value::Null())), "");
    EXPECT_EQ(Utilities::TextOf(Value(MakeRef<TextCollection>())), "");
}

} // namespace
} // namespace paperkite
