#include "foundation/Value.h"

#include "foundation/NamespaceDefs.h"
#include "support/EventLog.h"

#include <gtest/gtest.h>

#include <limits>

namespace paperkite {
namespace {

constexpr int kOverflow = 6;
constexpr int kTypeMismatch = 13;

TEST(Value, HalvesRoundToTheEvenNeighbour) {
    const std::vector<std::pair<double, int>> cases{{0.5, 0},   {1.5, 2},    {2.5, 2},
                                                    {3.5, 4},   {-0.5, 0},   {-1.5, -2},
                                                    {-2.5, -2}, {2.4999, 2}, {2.5001, 3}};
    for (const auto& [given, rounded] : cases)
        EXPECT_EQ(Value(given).ToInteger(), rounded) << given;
    EXPECT_EQ(Value("2.5").ToInteger(), 2);
    EXPECT_EQ(Value("3.5 per cent").ToInteger(), 4);
}

TEST(Value, AnIntegerOutside32BitsIsAnOverflow) {
    constexpr double kLargest = 2147483647;
    EXPECT_EQ(Value(kLargest).ToInteger(), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(Value(-kLargest - 1).ToInteger(), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(Value(kLargest + 0.4).ToInteger(), std::numeric_limits<std::int32_t>::max());
    const double infinity = std::numeric_limits<double>::infinity();
    const double none = std::numeric_limits<double>::quiet_NaN();
    for (const double given : {kLargest + 0.5, -kLargest - 2, infinity, -infinity, none})
        EXPECT_EQ(ErrorNumberOf([&] { (void)Value(given).ToInteger(); }), kOverflow) << given;
    EXPECT_EQ(ErrorNumberOf([] { (void)Value("99999999999").ToInteger(); }), kOverflow);
}

TEST(Value, WhatHasNoConversionIsATypeMismatch) {
    const std::vector<Value> strange{Value(Value::Null()),        Value(MakeRef<NamespaceDefs>()),
                                     Value(Ref<Object>()),        Value::ArrayOfTexts({"a"}),
                                     Value(RecordValue{"Point"}), Value(InterfaceValue())};
    for (const Value& value : strange) {
        EXPECT_EQ(ErrorNumberOf([&] { (void)value.ToText(); }), kTypeMismatch);
        EXPECT_EQ(ErrorNumberOf([&] { (void)value.ToNumber(); }), kTypeMismatch);
        EXPECT_EQ(ErrorNumberOf([&] { (void)value.ToInteger(); }), kTypeMismatch);
        EXPECT_EQ(ErrorNumberOf([&] { (void)value.ToBoolean(); }), kTypeMismatch);
    }
    for (const Value& value : {Value("text"), Value(1), Value(true), Value(Value::Null())}) {
        EXPECT_EQ(ErrorNumberOf([&] { (void)value.ToObject(); }), kTypeMismatch);
        EXPECT_EQ(ErrorNumberOf([&] { (void)value.ToArray(); }), kTypeMismatch);
        EXPECT_EQ(ErrorNumberOf([&] { (void)value.ToRecord(); }), kTypeMismatch);
    }
}

TEST(Value, EmptyReadsAsNothingOfEachKind) {
    const Value empty;
    EXPECT_EQ(empty.ToText(), "");
    EXPECT_EQ(empty.ToNumber(), 0);
    EXPECT_EQ(empty.ToInteger(), 0);
    EXPECT_FALSE(empty.ToBoolean());
    EXPECT_FALSE(empty.ToObject());
}

TEST(Value, BooleansReadAsTheirWordsAndAsMinusOne) {
    EXPECT_EQ(Value(true).ToText(), "True");
    EXPECT_EQ(Value(false).ToText(), "False");
    EXPECT_EQ(Value(true).ToInteger(), -1);
    EXPECT_EQ(Value(false).ToNumber(), 0);
    EXPECT_TRUE(Value("TRUE").ToBoolean());
    EXPECT_FALSE(Value("False").ToBoolean());
    EXPECT_TRUE(Value("-1").ToBoolean());
    EXPECT_FALSE(Value("0").ToBoolean());
    EXPECT_FALSE(Value("yes").ToBoolean());
    EXPECT_TRUE(Value(0.25).ToBoolean());
}

TEST(Value, AnObjectOfAnotherKindIsATypeMismatchAndNothingStaysNothing) {
    const auto defs = MakeRef<NamespaceDefs>();
    EXPECT_TRUE(Value(defs).ToObjectOf<NamespaceDefs>() == defs);
    EXPECT_FALSE(Value(Ref<Object>()).ToObjectOf<NamespaceDefs>());
    EXPECT_FALSE(Value().ToObjectOf<NamespaceDefs>());
    EXPECT_EQ(ErrorNumberOf([&] { (void)Value(defs).ToObjectOf<NamespaceDef>(); }), kTypeMismatch);
}

} // namespace
} // namespace paperkite
