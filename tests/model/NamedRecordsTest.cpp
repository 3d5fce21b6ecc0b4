#include "model/NamedRecords.h"

#include <gtest/gtest.h>

namespace paperkite::test {
namespace {

std::string Names(NamedRecords<int>& records) {
    std::string names;
    records.ForEach([&](const std::string& name, int value) {
        names += name + "=" + std::to_string(value) + " ";
    });
    return names;
}

TEST(NamedRecordsTest, RecordsComeInTheOrderInWhichTheyWereMade) {
    NamedRecords<int> records;
    for (const char* name : {"zebra", "ape", "dog"})
        records.Make(name) = static_cast<int>(std::string(name).size());
    EXPECT_EQ(Names(records), "zebra=5 ape=3 dog=3 ");
    records.Make("ape") = 7;
    EXPECT_EQ(Names(records), "zebra=5 ape=7 dog=3 ");
    EXPECT_EQ(*records.Find("ape"), 7);
    EXPECT_EQ(records.Find("cat"), nullptr);
}

TEST(NamedRecordsTest, AnErasedRecordIsPassedOverAndComesBackAtTheEnd) {
    NamedRecords<int> records;
    for (const char* name : {"a", "b", "c"})
        records.Make(name) = 1;
    records.Erase("b");
    records.Erase("nobody");
    EXPECT_EQ(records.Find("b"), nullptr);
    EXPECT_EQ(Names(records), "a=1 c=1 ");
    records.Make("b") = 2;
    EXPECT_EQ(Names(records), "a=1 c=1 b=2 ");
    records.Clear();
    EXPECT_EQ(Names(records), "");
}

TEST(NamedRecordsTest, RecordsStayWhereTheyAreWhenOthersComeAndWhenAllAreSwapped) {
    NamedRecords<int> records;
    int& first = records.Make("first") = 1;
    for (int number = 0; number < 1000; ++number)
        records.Make(std::to_string(number)) = number;
    EXPECT_EQ(records.Find("first"), &first);
    NamedRecords<int> others;
    others.Make("other") = 3;
    records.Swap(others);
    EXPECT_EQ(others.Find("first"), &first);
    EXPECT_EQ(Names(records), "other=3 ");
}

TEST(NamedRecordsTest, WhatComesDuringAVisitIsVisitedToo) {
    NamedRecords<int> records;
    records.Make("a") = 3;
    std::string names;
    records.ForEach([&](const std::string& name, int left) {
        names += name;
        if (left > 0) records.Make(name + "a") = left - 1;
    });
    EXPECT_EQ(names, "aaaaaaaaaa");
}

} // namespace
} // namespace paperkite::test
