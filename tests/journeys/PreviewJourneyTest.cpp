#include "journeys/CommandLineTest.h"

#include <filesystem>
#include <regex>
#include <set>

namespace paperkite::test {

namespace {

namespace fs = std::filesystem;

using Words = std::vector<std::string>;

/// A documented project, and pages of it made by the program itself.
class PreviewJourneyTest : public CommandLineTest {
protected:
    PreviewJourneyTest() {
        mFolder.Write("zoo/animals.h", "namespace animals {\n"
                                       "class Animal { public: int Age() const; };\n"
                                       "enum Size { Small, Large };\n"
                                       "/// Barks.\n"
                                       "class Dog : public Animal {\n"
                                       "public:\n"
                                       "    void Bark(int times);\n"
                                       "    void Bark(double volume);\n"
                                       "private:\n"
                                       "    int mAge;\n"
                                       "};\n"
                                       "}\n"
                                       "#define ZOO 1\n");
        mFolder.Write("zoo/keeper.py", "class Keeper:\n"
                                       "    def feed(self, animal):\n"
                                       "        \"\"\"Feeds an animal.\"\"\"\n"
                                       "        pass\n");
        Do({"new", Project(), "--source", mFolder / "zoo"});
        Do({"comment", Project(), "Dog", "--tag", "##", "--text", "A <b>good</b> dog."});
        Do({"comment", Project(), "Dog", "--tag", "##remarks", "--text",
            "See <a href=\"zoo~animals~Animal.html\">Animal</a>."});
    }

    std::string Project() const { return mFolder / "zoo.kiteproject"; }
    std::string Preview(const std::string& item, Words more = {}) const {
        more.insert(more.begin(), {"preview", Project(), item});
        return Do(more);
    }
    static std::set<std::string> Found(const std::string& page, const char* pattern) {
        std::set<std::string> found;
        const std::regex expression(pattern);
        for (std::sregex_iterator at(page.begin(), page.end(), expression), end; at != end; ++at)
            found.insert((*at)[1].str());
        return found;
    }
    /// Every link of a page leads to a place on it or to a file beside it.
    void ExpectNoBrokenLink(const std::string& page, const fs::path& folder) const {
        const auto ids = Found(page, " id=\"([^\"]*)\"");
        for (const std::string& link : Found(page, " (?:href|src)=\"([^\"]*)\"")) {
            const bool isThere =
                link.starts_with('#') ? ids.contains(link.substr(1)) : fs::exists(folder / link);
            EXPECT_TRUE(isThere) << link << "\n" << page;
        }
    }
    /// A style sheet's rules for one kind of output: what stands in braces behind the condition.
    static std::string RulesFor(const std::string& css, const std::string& condition) {
        const std::size_t from = css.find("@media " + condition + " {");
        std::size_t at = css.find('{', from);
        if (from == css.npos || at == css.npos) return {};
        for (int depth = 0; at < css.size(); ++at) {
            depth += css[at] == '{' ? 1 : css[at] == '}' ? -1 : 0;
            if (depth == 0) break;
        }
        return css.substr(from, at - from);
    }
    /// The names of the variables that rules set.
    static std::set<std::string> Set(const std::string& rules) {
        return Found(rules, "(--[a-z-]+):");
    }
    /// A template of the test's own with one layout.
    std::string Template(const std::string& layout) const {
        mFolder.Write(
            "own/template.xml",
            "<pagetemplate version=\"1\" name=\"Own\"><namespace moniker=\"kite.source\"/>"
            "<layout name=\"L\" file=\"l.html\" namespaces=\"kite.source:Class\"/>"
            "</pagetemplate>");
        mFolder.Write("own/sample.html", "sample");
        return mFolder.Write("own/l.html", layout).substr(0, (mFolder / "own").size());
    }
};

TEST_F(PreviewJourneyTest, ThePageGoesToTheOutputAndNeedsNothingElse) {
    const std::string page = Preview("Dog");
    EXPECT_TRUE(page.starts_with("<!DOCTYPE html>"));
    EXPECT_TRUE(Contains(page, "A <b>good</b> dog.")) << page;
    EXPECT_TRUE(Contains(page, "class Dog : Animal"));
    EXPECT_TRUE(Contains(page, "prefers-color-scheme: dark"));
    EXPECT_FALSE(Contains(page, "mAge"));
    EXPECT_FALSE(Contains(page, "contenteditable=\"true\" data"));
    EXPECT_FALSE(Contains(page, "KITEMETADATA"));
    ExpectNoBrokenLink(page, "/nowhere");
}

TEST_F(PreviewJourneyTest, WithAFileWhatThePageNeedsStandsBesideIt) {
    for (const std::string name : {"Modern", "classic"}) {
        const std::string folder = mFolder / ("out-" + name);
        EXPECT_EQ(Preview("Dog", {"--template", name, "--out", folder + "/dog.html"}),
                  "Wrote the page of zoo~animals~Dog to " + folder + "/dog.html.\n");
        const std::string page = mFolder.Read("out-" + name + "/dog.html");
        EXPECT_TRUE(Contains(page, "href=\"style.css\""));
        ExpectNoBrokenLink(page, folder);
    }
}

TEST_F(PreviewJourneyTest, AFileOfTheUsersIsNotReplaced) {
    mFolder.Write("out/style.css", "mine");
    const std::string told =
        Refused({"preview", Project(), "Dog", "--out", mFolder / "out/d.html"});
    EXPECT_TRUE(Contains(told, "style.css is there already and is another file.")) << told;
}

TEST_F(PreviewJourneyTest, EveryKindOfItemHasAPageInEachTemplate) {
    for (const std::string name : {"Modern", "Classic"})
        for (const std::string item : {"zoo", "animals", "Size", "Size.Small", "Bark(int)",
                                       "Dog.mAge", "ZOO", "keeper", "Keeper", "Keeper.feed"}) {
            const std::string page = Preview(item, {"--template", name});
            EXPECT_TRUE(Contains(page, "<h1>")) << item;
            ExpectNoBrokenLink(page, "/nowhere");
        }
}

TEST_F(PreviewJourneyTest, ForEditingEveryPlaceIsMarkedInAnElementThatMayHoldBlocks) {
    const std::string page = Preview("Bark(int)", {"--edit"});
    const auto places = Found(page, "<span id=\"(TaggedComment[^\"]*)\" contenteditable=\"true\" "
                                    "data-placeholder=\"[^\"]+\">");
    EXPECT_TRUE(places.contains("TaggedComment|zoo~animals~Dog~Bark(int)|##")) << page;
    EXPECT_TRUE(places.contains("TaggedComment|zoo~animals~Dog~Bark(int)|##returns"));
    EXPECT_TRUE(places.contains("TaggedComment|zoo~animals~Dog~Bark(int)~:times|##"));
    const auto around = Found(page, "<([a-z]+)[^>]*><span id=\"TaggedComment");
    EXPECT_EQ(around, (std::set<std::string>{"div", "li", "td"}));
    EXPECT_TRUE(Contains(Preview("Dog", {"--edit"}), "\">A <b>good</b> dog.</span></div>"));
}

TEST_F(PreviewJourneyTest, AnotherLayoutIsChosenByItsName) {
    const std::string page = Preview("Dog", {"--layout", "allmembers.html"});
    EXPECT_TRUE(Contains(page, "<h2>All Members</h2>")) << page;
    EXPECT_TRUE(Contains(page, "<code>Bark</code></td><td class=\"text\">Method</td>")) << page;
    ExpectNoBrokenLink(page, "/nowhere");
}

TEST_F(PreviewJourneyTest, ClassicHasAllMembersAndPlacesToo) {
    const std::string page =
        Preview("Dog", {"--template", "Classic", "--layout", "allmembers.html"});
    EXPECT_TRUE(Contains(page, "<div class=\"banner\">")) << page;
    EXPECT_TRUE(Contains(page, "<code>Bark</code></td><td class=\"text\">Method</td>")) << page;
    ExpectNoBrokenLink(page, "/nowhere");
    const std::string edited = Preview("Bark(int)", {"--template", "Classic", "--edit"});
    const auto places =
        Found(edited, "<span id=\"(TaggedComment[^\"]*)\" contenteditable=\"true\"");
    EXPECT_TRUE(places.contains("TaggedComment|zoo~animals~Dog~Bark(int)|##")) << edited;
    EXPECT_TRUE(places.contains("TaggedComment|zoo~animals~Dog~Bark(int)|##remarks"));
    EXPECT_TRUE(places.contains("TaggedComment|zoo~animals~Dog~Bark(int)~:times|##"));
}

TEST_F(PreviewJourneyTest, TheStyleSheetsKnowDarkScreensPhonesAndPaper) {
    for (const std::string name : {"Modern", "Classic"}) {
        const std::string css = Preview("Dog", {"--template", name});
        const auto all = Set(css.substr(0, css.find("@media")));
        const auto dark = Set(RulesFor(css, "(prefers-color-scheme: dark)"));
        // What says how something looks on the ground of the page has a dark counterpart.
        for (const char* variable :
             {"--text", "--quiet", "--page", "--line", "--accent", "--warn", "--good",
              "--code-word", "--code-text", "--code-note", "--code-number", "--code-order"}) {
            EXPECT_TRUE(all.contains(variable)) << name << ": " << variable;
            EXPECT_TRUE(dark.contains(variable)) << name << ": " << variable;
        }
        const std::string phone = RulesFor(css, "(max-width: 40rem)");
        EXPECT_TRUE(Contains(phone, "td { display: block")) << name << ": tables become lists";
        const std::string paper = RulesFor(css, "print");
        for (const char* variable : {"--text", "--page", "--accent", "--code-word"})
            EXPECT_TRUE(Set(paper).contains(variable)) << name << ": " << variable;
        EXPECT_TRUE(Contains(paper, "white-space: pre-wrap")) << name << ": paper cannot scroll";
        EXPECT_GT(css.find("@media print"), css.find("@media (prefers-color-scheme: dark)"))
            << name << ": who prints at night gets black on white";
    }
}

TEST_F(PreviewJourneyTest, AnExampleWhoseFileIsGoneIsToldAndThePageIsMade) {
    mFolder.Write("zoo/use.cpp", "int main() {}\n");
    Do({"comment", Project(), "Dog", "--tag", "##examplesource", "--text",
        "source: zoo/use.cpp\nUses it."});
    EXPECT_TRUE(Contains(Preview("Dog"), "main() {}"));
    fs::remove(mFolder / "zoo/use.cpp");
    const auto result = mProgram.Run({"preview", Project(), "Dog"});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_TRUE(result.Err.starts_with("zoo~animals~Dog: An example cannot be shown. "))
        << result.Err;
    EXPECT_TRUE(Contains(result.Err, "zoo/use.cpp")) << result.Err;
    EXPECT_EQ(std::count(result.Err.begin(), result.Err.end(), '\n'), 1) << result.Err;
    EXPECT_TRUE(Contains(result.Out, "Uses it.") && !Contains(result.Out, "cannot be shown"));
}

TEST_F(PreviewJourneyTest, AFolderThatCannotBeMadeIsNamedAndNothingIsWritten) {
    const std::string file = mFolder.Write("taken", "a file");
    for (const std::string& name : {std::string("Modern"), Template("<p>x</p>")}) {
        const std::string told = Refused(
            {"preview", Project(), "Dog", "--template", name, "--out", file + "/deep/dog.html"});
        EXPECT_TRUE(Contains(told, file + "/deep/")) << told;
    }
    EXPECT_EQ(mFolder.Read("taken"), "a file");
}

TEST_F(PreviewJourneyTest, WhatIsNotThereIsNamedWithWhatThereIs) {
    const auto refused = [&](Words more) {
        more.insert(more.begin(), {"preview", Project()});
        return Refused(more);
    };
    EXPECT_EQ(refused({"Dogg"}),
              "There is no item \"Dogg\" in this project. Did you mean zoo~animals~Dog?\n");
    EXPECT_EQ(refused({"Dog", "--template", "Moderm"}),
              "There is no template \"Moderm\". There are Classic, Modern.\n");
    EXPECT_EQ(refused({"Dog", "--layout", "Clas"}),
              "The template \"Modern\" has no layout \"Clas\". For this item it has "
              "\"type.html\" and \"allmembers.html\".\n");
    EXPECT_TRUE(Contains(refused({"Dog", "--template", mFolder / "none"}), "template.xml"));
    EXPECT_EQ(refused({"animals", "--template", Template("x")}),
              "The template \"Own\" has no layout for kite.source:Namespace.\n");
}

TEST_F(PreviewJourneyTest, AMalformedTagIsToldWithItsPlaceAndThePageIsShown) {
    const std::string folder = Template("<p>\n  <!--KITEMETADATA start type=\"name-->x"
                                        "<!--KITEMETADATA end--></p>"
                                        "<!--KITEMETADATA start type=name-->"
                                        "<!--KITEMETADATA end-->");
    const auto result = mProgram.Run({"preview", Project(), "Dog", "--template", folder});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_EQ(result.Err, folder + "/l.html: Line 2, column 31: The value of type is not ended. "
                                   "Put a \" behind it; a quotation mark in it is written "
                                   "&quot;.\n");
    EXPECT_TRUE(result.Out.ends_with("</p>Dog")) << result.Out;
}

TEST_F(PreviewJourneyTest, ALayoutThatIsNotUtf8IsToldAndKeepsItsBytes) {
    const std::string folder = Template("<p>K\xE4se</p>");
    const auto result = mProgram.Run({"preview", Project(), "Dog", "--template", folder});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_EQ(result.Err, folder + "/l.html: Line 1, column 5: The byte E4 is not UTF-8. Save the "
                                   "text as UTF-8, or mend that character.\n");
    EXPECT_EQ(result.Out, "<p>K\xE4se</p>");
}

TEST_F(PreviewJourneyTest, ALayoutWithoutAFileIsRefusedAndATemplateWithoutASampleIsNot) {
    const std::string folder = Template("<p>x</p>");
    fs::remove(folder + "/sample.html");
    const auto result = mProgram.Run({"preview", Project(), "Dog", "--template", folder});
    EXPECT_EQ(result.ExitCode, 0);
    EXPECT_EQ(result.Out, "<p>x</p>");
    EXPECT_TRUE(Contains(result.Err, "The template has no sample page."));
    fs::remove(folder + "/l.html");
    const auto refused = mProgram.Run({"preview", Project(), "Dog", "--template", folder});
    EXPECT_EQ(refused.ExitCode, 2);
    EXPECT_TRUE(Contains(refused.Err, folder + "/l.html: ")) << refused.Err;
}

TEST_F(PreviewJourneyTest, ALayoutOfFiftyMegabytesIsMade) {
    const std::string line(1023, 'x');
    std::string layout;
    while (layout.size() < 50u * 1024 * 1024)
        layout += line + "\n";
    const std::string folder = Template(layout + "<!--KITEMETADATA start type=name-->"
                                                 "<!--KITEMETADATA end-->");
    const std::string out = mFolder / "big.html";
    Do({"preview", Project(), "Dog", "--template", folder, "--out", out});
    EXPECT_EQ(fs::file_size(out), layout.size() + 3);
}

} // namespace

} // namespace paperkite::test
