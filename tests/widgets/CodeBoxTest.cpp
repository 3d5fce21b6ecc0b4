#include "widgets/CodeBox.h"
#include "widgets/CodeColouring.h"

#include <gtest/gtest.h>

namespace paperkite {
namespace {

/// The parts of lines, a letter each, with "|" between lines.
std::string Parts(const char* file, const std::vector<std::string>& lines) {
    constexpr std::string_view letters = ".ktcndga";
    const CodeColouring colouring(file);
    std::string out;
    int state = 0;
    for (const std::string& line : lines) {
        std::string parts(line.size(), '.');
        for (const CodeStretch& stretch : colouring.Line(line, state))
            parts.replace(stretch.Start, stretch.Length, stretch.Length,
                          letters[static_cast<std::size_t>(stretch.Part)]);
        out += (out.empty() ? "" : "|") + parts;
    }
    return out;
}

TEST(CodeColouringTest, WordsTextsNumbersAndCommentsAreTold) {
    EXPECT_EQ(Parts("a.cpp", {"int a2 = 0x1F; // x"}), "kkk......nnnn..cccc");
    EXPECT_EQ(Parts("a.cpp", {"#include <a>", "f(\"a\\\"b\", 'c');"}),
              "dddddddd....|..tttttt..ttt..");
    EXPECT_EQ(Parts("a.py", {"def f(): # if"}), "kkk......cccc");
    EXPECT_EQ(Parts("a.unknown", {"int a; // b"}), "...........");
}

TEST(CodeColouringTest, WhatALineLeavesOpenGoesOn) {
    EXPECT_EQ(Parts("a.c", {"a /* b", "int", "c */ int"}), "..cccc|ccc|cccc.kkk");
    EXPECT_EQ(Parts("a.py", {"\"\"\"a", "def", "\"\"\" def"}), "tttt|ttt|ttt.kkk");
    EXPECT_EQ(Parts("a.xml", {"<a b=\"1\"", "c='2'>x &lt;</a>", "<!-- d", "-->"}),
              "gg.a.ttt|a.tttg..nnnnggg"
              "g|cccccc|ccc");
}

TEST(CodeBoxTest, TheMarkedPlaceCountsCharacters) {
    CodeBox box;
    box.SetText("ab\n\xC3\xA4\xC3\xB6x\nc");
    box.SetMark(2, 3);
    box.GoToMark();
    EXPECT_EQ(box.GetSelStart(), 7u);
    EXPECT_TRUE(box.HasFocus());
    box.SetMark(9, 9);
    box.GoToMark();
    EXPECT_EQ(box.GetSelStart(), box.GetText().size()) << "behind the end is the end";
}

} // namespace
} // namespace paperkite
