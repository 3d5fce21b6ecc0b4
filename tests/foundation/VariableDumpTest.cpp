#include "foundation/VariableDump.h"

#include "foundation/ObjectCollection.h"

#include <gtest/gtest.h>

namespace paperkite {

namespace {

struct Plain : Object {
    std::string TypeName() const override { return "Plain"; }
};

/// Its text cannot be made.
struct Broken : Object {
    std::string TypeName() const override { RaiseError(ErrorNumber::TypeMismatch); }
};

std::string Dump(const Value& value, int depth = kDumpDepth) {
    return DumpValue("v", value, depth);
}

ValueArray ArrayOfShape(std::vector<ArrayBounds> bounds, std::vector<Value> entries) {
    return ValueArray{std::move(bounds), std::move(entries)};
}

} // namespace

TEST(VariableDump, SimpleValuesAreTheirText) {
    EXPECT_EQ(Dump("text"), "<v>text</v>");
    EXPECT_EQ(Dump(true), "<v>True</v>");
    EXPECT_EQ(Dump(-3), "<v>-3</v>");
    EXPECT_EQ(Dump(1.5), "<v>1.5</v>");
    EXPECT_EQ(Dump(""), "<v></v>");
}

TEST(VariableDump, EmptyNullAndNothingHaveTheirWords) {
    EXPECT_EQ(Dump(Value()), "<v>{Empty}</v>");
    EXPECT_EQ(Dump(Value::Null{}), "<v>{Null}</v>");
    EXPECT_EQ(Dump(Ref<Object>()), "<v>{Nothing}</v>");
    EXPECT_EQ(Dump(InterfaceValue{}), "<v>{DataObject}</v>");
    EXPECT_EQ(Dump(RecordValue{"MemberInfo"}), "<v>{UDT - MemberInfo}</v>");
}

TEST(VariableDump, AnEmbeddedNulCharacterIsSpelledOut) {
    EXPECT_EQ(Dump(std::string("a\0b\0", 4)), "<v>a{Null}b{Null}</v>");
}

TEST(VariableDump, AnObjectWithoutEnumeratorIsItsTypeName) {
    EXPECT_EQ(Dump(MakeRef<Plain>()), "<v>{Plain}</v>");
}

TEST(VariableDump, AnEmptyCollectionIsItsTagsAroundNothing) {
    EXPECT_EQ(Dump(MakeRef<TextCollection>()), "<v></v>");
}

TEST(VariableDump, ACollectionShowsItsItemsWithTheirIndex) {
    const auto collection = MakeRef<TextCollection>();
    collection->Add("a");
    collection->Add("b");
    EXPECT_EQ(Dump(collection), "<v>\r\n<v Index=\"1\">a</v>\r\n<v Index=\"2\">b</v>\r\n</v>");
}

TEST(VariableDump, CollectionsInCollectionsEndAtTheirDepth) {
    const auto circle = MakeRef<ObjectCollection>();
    circle->Add(circle);
    const std::string dump = Dump(circle);
    EXPECT_NE(dump.find("{Collection}"), std::string::npos);
    std::size_t levels = 0;
    for (std::size_t at = 0; (at = dump.find("Index", at)) != std::string::npos; ++at)
        ++levels;
    EXPECT_EQ(levels, 4u);
    circle->Clear();
}

TEST(VariableDump, ArraysOfUpToThreeDimensionsShowTheirIndices) {
    EXPECT_EQ(Dump(Value(ArrayOfShape({{1, 2}}, {Value("a"), Value(2)}))),
              "<v>\r\n<v Index=\"1\">a</v>\r\n<v Index=\"2\">2</v>\r\n</v>");
    const std::string cube = Dump(
        Value(ArrayOfShape({{0, 2}, {5, 1}, {0, 2}}, {Value(1), Value(2), Value(3), Value(4)})));
    EXPECT_NE(cube.find("<v Index=\"0,5,1\">2</v>"), std::string::npos);
    EXPECT_NE(cube.find("<v Index=\"1,5,0\">3</v>"), std::string::npos);
}

TEST(VariableDump, AFourDimensionalArrayIsTruncated) {
    EXPECT_EQ(Dump(Value(ArrayOfShape({{0, 1}, {0, 1}, {0, 1}, {0, 1}}, {Value(1)}))),
              "<v>{Dump truncated at 4 dimensions}</v>");
}

TEST(VariableDump, MissingDimensionsHaveTheirWords) {
    EXPECT_EQ(Dump(Value(ValueArray{})), "<v>{UnInitialised Array}</v>");
    EXPECT_EQ(Dump(Value(ArrayOfShape({{0, 1}, {0, 0}}, {}))),
              "<v>{UnInitialised Array Dimension 2}</v>");
    EXPECT_EQ(Dump(Value(ArrayOfShape({{0, 1}, {0, 1}, {0, 0}}, {}))),
              "<v>{UnInitialised Array Dimension 3}</v>");
}

TEST(VariableDump, AFailureWhileFormattingIsTheText) {
    EXPECT_EQ(Dump(MakeRef<Broken>()), "<v>{Error 13 formatting for output}</v>");
}

TEST(VariableDump, TheClosingTagEndsAtTheFirstBlank) {
    EXPECT_EQ(DumpValue("v Index=\"3\"", Value(1), 1), "<v Index=\"3\">1</v>");
}

} // namespace paperkite
