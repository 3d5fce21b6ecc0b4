#include "foundation/Collection.h"

#include <gtest/gtest.h>

namespace paperkite {

namespace {

int NumberOf(const auto& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.GetNumber();
    }
    return 0;
}

std::string Contents(const Collection<std::string>& collection) {
    std::string result;
    for (const std::string& entry : collection)
        result += entry + " ";
    return result;
}

} // namespace

TEST(Collection, CountsFromOne) {
    Collection<std::string> collection;
    collection.Add("first", "a");
    collection.Add("second");
    EXPECT_EQ(collection.Item(1), "first");
    EXPECT_EQ(collection.Item(2), "second");
    EXPECT_EQ(collection.KeyAt(1), "a");
    EXPECT_EQ(NumberOf([&] { collection.Item(0); }), 9);
    EXPECT_EQ(NumberOf([&] { collection.Item(3); }), 9);
}

TEST(Collection, ADuplicateKeyAndAnUnknownKeyAreErrors) {
    Collection<std::string> collection;
    collection.Add("first", "a");
    EXPECT_EQ(NumberOf([&] { collection.Add("again", "a"); }), 457);
    EXPECT_EQ(NumberOf([&] { collection.Item("b"); }), 5);
    EXPECT_EQ(NumberOf([&] { collection.Remove("b"); }), 5);
    EXPECT_EQ(Contents(collection), "first ");
}

TEST(Collection, KeysAreComparedExactlyUnlessItSaysOtherwise) {
    Collection<std::string> exact;
    exact.Add("x", "Key");
    EXPECT_FALSE(exact.Contains("key"));
    Collection<std::string> loose(KeyComparison::IgnoringCase);
    loose.Add("x", "Key");
    EXPECT_TRUE(loose.Contains("kEY"));
    EXPECT_EQ(NumberOf([&] { loose.Add("y", "KEY"); }), 457);
}

TEST(Collection, RemovingWhileWalkingVisitsTheRest) {
    Collection<std::string> collection;
    for (int index = 0; index < 100; ++index)
        collection.Add(std::to_string(index), std::to_string(index));
    int visited = 0;
    for (const std::string& entry : collection) {
        ++visited;
        const std::string key = entry;
        collection.Remove(key);
    }
    EXPECT_EQ(visited, 100);
    EXPECT_EQ(collection.Count(), 0u);
}

TEST(Collection, RemovingOthersWhileWalkingSkipsThem) {
    Collection<std::string> collection;
    for (const char* text : {"a", "b", "c", "d"})
        collection.Add(text, text);
    std::string seen;
    for (const std::string& entry : collection) {
        seen += entry;
        if (entry == "a") {
            collection.Remove("b");
            collection.Remove(2);
            collection.Add("e", "e");
        }
    }
    EXPECT_EQ(seen, "ade");
}

TEST(Collection, ClearingWhileWalkingEndsTheWalk) {
    Collection<std::string> collection;
    collection.Add("a");
    collection.Add("b");
    int visited = 0;
    for ([[maybe_unused]] const std::string& entry : collection) {
        ++visited;
        collection.Clear();
    }
    EXPECT_EQ(visited, 1);
}

TEST(Collection, PositionsCloseUpAfterARemoval) {
    Collection<std::string> collection;
    for (const char* text : {"a", "b", "c"})
        collection.Add(text, text);
    collection.Remove(1);
    EXPECT_EQ(collection.Item(1), "b");
    EXPECT_EQ(collection.Item("c"), "c");
    collection.Add("again", "a");
    EXPECT_EQ(Contents(collection), "b c again ");
    EXPECT_EQ(collection.Item("a"), "again");
}

} // namespace paperkite
