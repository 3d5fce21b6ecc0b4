#include "doctypes/source/NameQuestion.h"

#include "doctypes/SourceTree.h"
#include "foundation/Text.h"

#include <gtest/gtest.h>

namespace paperkite::test {
namespace {

std::string Shown(const std::string& text) {
    const NameQuestion question = NameQuestion::Of(text);
    return Join(question.Scopes, "|") + " > " + question.Name + " > " + question.Parameters;
}

TEST(NameQuestionTest, SeparatorsStandBetweenNamesButNotBetweenParameters) {
    EXPECT_EQ(Shown("Hunspell::spell"), "hunspell > spell > ");
    EXPECT_EQ(Shown("Hun.Spell.spell"), "hun|spell > spell > ");
    EXPECT_EQ(Shown("hun~spell(const std::string &, a.b"), "hun > spell > (conststd::string&,a.b");
    EXPECT_EQ(Shown("spell()"), " > spell > ");
    EXPECT_EQ(Shown("~Hunspell"), " > Hunspell > ");
    EXPECT_EQ(Shown("Hunspell::"), "hunspell >  > ");
    EXPECT_EQ(Shown("a:b"), " > a:b > ");
    EXPECT_TRUE(NameQuestion::Of("..").IsEmpty());
    EXPECT_TRUE(NameQuestion::Of("").IsEmpty());
}

class FindByQuestionTest : public testing::Test {
protected:
    FindByQuestionTest() {
        mTree.Write(
            "words.h",
            "namespace outer { namespace inner {\n"
            "class Words {\npublic:\n    ~Words();\n    int put(const char* word);\n"
            "    int put(int count);\n    int take(std::vector<int> all);\n};\n} }\n"
            "class Other {\npublic:\n    int put(const char* word);\n    int putAway();\n};\n");
        mIndex = std::make_unique<SourceIndex>(mTree.Scan());
        mNames.Add(*mIndex);
    }
    std::string Found(const std::string& text, std::size_t most = 20) const {
        std::vector<std::string> steps;
        const auto index = [this](std::size_t) -> const SourceIndex& { return *mIndex; };
        for (const auto& place : FindByQuestion(mNames, index, text, most))
            steps.push_back(mIndex->QualifiedName(place.Entity).substr(mIndex->Name(0).size() + 1));
        return Join(steps, " ");
    }

    SourceTree mTree;
    std::unique_ptr<SourceIndex> mIndex;
    NameSearch mNames;
};

TEST_F(FindByQuestionTest, ThePiecesBeforeANameStandAroundItInTheirOrder) {
    EXPECT_EQ(Found("other::put"), "Other~put Other~putAway");
    EXPECT_EQ(Found("out~wor~take"), "outer~inner~Words~take");
    EXPECT_EQ(Found("outer.inner.Words.take"), "outer~inner~Words~take");
    EXPECT_EQ(Found("inner::outer::take"), "");
    EXPECT_EQ(Found("words::words::take"), "") << "each piece in a scope of its own";
    EXPECT_EQ(Found("Other::"), "Other~put Other~putAway");
    EXPECT_EQ(Found("."), "");
}

TEST_F(FindByQuestionTest, TheBeginningOfTheParametersTellsOverloadsApart) {
    EXPECT_EQ(Found("put(int"), "outer~inner~Words~put(int)");
    EXPECT_EQ(Found("Words::put(const char *"), "outer~inner~Words~put(const char*)");
    EXPECT_EQ(Found("put(const char* word)"), "outer~inner~Words~put(const char*) Other~put");
    EXPECT_EQ(Found("TAKE(std::vec"), "outer~inner~Words~take");
    EXPECT_EQ(Found("take()"), "outer~inner~Words~take");
}

TEST_F(FindByQuestionTest, WhatHoldsTheWholeTextComesFirstAndNothingTwice) {
    EXPECT_EQ(Found("~words"), "outer~inner~Words~%7EWords outer~inner~Words");
    EXPECT_EQ(Found("~words", 1), "outer~inner~Words~%7EWords");
    EXPECT_EQ(Found("other::put", 1), "Other~put");
}

} // namespace
} // namespace paperkite::test
