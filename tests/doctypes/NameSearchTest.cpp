#include "doctypes/source/NameSearch.h"

#include "doctypes/source/SourceIndexBuilder.h"
#include "foundation/Text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace paperkite::test {
namespace {

SourceIndex IndexOf(const std::string& root, const std::vector<std::string>& names) {
    SourceIndexBuilder builder(root);
    const std::uint32_t file = builder.AddFile("a.h");
    std::uint32_t line = 0;
    for (const std::string& name : names) {
        SourceDeclaration declaration;
        declaration.Name = name;
        declaration.Kind = SourceKind::Class;
        declaration.Language = SourceLanguage::Cpp;
        declaration.LanguageName = "C++";
        declaration.File = file;
        declaration.Line = declaration.EndLine = ++line;
        builder.Add(declaration);
    }
    return *builder.Finish();
}

class NameSearchTest : public testing::Test {
protected:
    void Add(const std::string& root, const std::vector<std::string>& names) {
        mIndexes.push_back(IndexOf(root, names));
        mSearch.Add(mIndexes.back());
    }
    std::string Found(const std::string& text, std::size_t most = 100) const {
        std::vector<std::string> names;
        for (const auto& place : mSearch.Find(text, most))
            names.emplace_back(mIndexes[place.Root].Name(place.Entity));
        return Join(names, " ");
    }
    /// The same by looking at one name after the other.
    std::string Expected(const std::string& text, std::size_t most) const {
        std::vector<std::string> ranks[3], all;
        for (const SourceIndex& index : mIndexes)
            for (SourceIndex::Id entity = 0; entity < index.Size(); ++entity) {
                const std::string name(index.Name(entity));
                const std::size_t at = FindIgnoringCase(name, text);
                if (at != std::string::npos)
                    ranks[at > 0 ? 2 : name.size() > text.size() ? 1 : 0].push_back(name);
            }
        for (const auto& rank : ranks)
            for (const std::string& name : rank)
                if (all.size() < most) all.push_back(name);
        return Join(all, " ");
    }

    std::vector<SourceIndex> mIndexes;
    NameSearch mSearch;
};

TEST_F(NameSearchTest, WholeNamesComeFirstThenBeginningsThenTheOthers) {
    Add("zoo", {"target", "Getter", "Get", "widget", "GETS"});
    EXPECT_EQ(Found("get"), "Get Getter GETS target widget");
    EXPECT_EQ(Found("GET", 2), "Get Getter");
    EXPECT_EQ(Found("whale"), "");
    EXPECT_EQ(Found("get", 0), "");
}

TEST_F(NameSearchTest, AWorseOneGivesWayToABetterOneFurtherOn) {
    Add("zoo", {"widget", "target", "gadgets", "getter", "getting", "get"});
    EXPECT_EQ(Found("get", 1), "get");
    EXPECT_EQ(Found("get", 2), "get getter");
    EXPECT_EQ(Found("get", 4), "get getter getting widget");
}

TEST_F(NameSearchTest, TheRootsAreSearchedInTheirOrder) {
    Add("one", {"Dog", "Emu"});
    Add("two", {"Dog", "DogHouse"});
    EXPECT_EQ(Found("dog"), "Dog Dog DogHouse");
    const auto places = mSearch.Find("dog", 2);
    ASSERT_EQ(places.size(), 2u);
    EXPECT_EQ(places[0].Root, 0u);
    EXPECT_EQ(places[1].Root, 1u);
    EXPECT_EQ(mIndexes[1].QualifiedName(places[1].Entity), "two~Dog");
    EXPECT_EQ(mSearch.Size(), 6u) << "the roots have names too";
}

TEST_F(NameSearchTest, ATextNeverReachesFromOneNameIntoTheNext) {
    Add("zoo", {"ab", "cd"});
    EXPECT_EQ(Found("bc"), "");
    EXPECT_EQ(Found(std::string("b\0c", 3)), "");
    EXPECT_EQ(Found(std::string("\0", 1)), "");
}

TEST_F(NameSearchTest, WhetherAnyNameHoldsATextIsKnown) {
    Add("zoo", {"ab", "cd"});
    EXPECT_TRUE(mSearch.Holds("B"));
    EXPECT_FALSE(mSearch.Holds("bc"));
    EXPECT_FALSE(mSearch.Holds(std::string("b\0c", 3)));
}

TEST_F(NameSearchTest, AnEmptyTextIsHeldByEveryName) {
    Add("zoo", {"ab", "cd"});
    EXPECT_EQ(Found(""), "zoo ab cd");
    EXPECT_EQ(Found("", 2), "zoo ab");
}

TEST_F(NameSearchTest, LettersOutsideAsciiKeepTheirCase) {
    Add("zoo", {"Bär", "bär", "BÄR"});
    EXPECT_EQ(Found("bär"), "Bär bär");
}

TEST_F(NameSearchTest, WhateverTheLimitItGivesWhatALookAtEachNameGives) {
    std::vector<std::string> names;
    for (int first = 0; first < 6; ++first)
        for (int second = 0; second < 6; ++second)
            for (int third = 0; third < 6; ++third) {
                std::string name;
                for (const int letter : {first, second, third})
                    if (letter < 5) name += "aAbBc"[letter];
                if (!name.empty()) names.push_back(name);
            }
    Add("one", names);
    Add("two", {names.rbegin(), names.rend()});
    for (const char* text : {"", "a", "b", "aa", "ab", "abc", "cab", "d"})
        for (const std::size_t most : {0u, 1u, 2u, 7u, 60u, 1000u})
            EXPECT_EQ(Found(text, most), Expected(text, most)) << text << " " << most;
}

} // namespace
} // namespace paperkite::test
