#include "doctypes/SourcePageFixture.h"

#include "foundation/PreviewLog.h"

#include <gtest/gtest.h>

namespace paperkite::test {

namespace {

/// What elements of layouts stand for, and what their attributes change.
class SourcePageElementsTest : public SourcePageFixture {
protected:
    Ref<ProjectDocument> UseProject() {
        auto project = MakeRef<ProjectDocument>();
        mData->Set("Project", Value(Ref<Object>(project)));
        return project;
    }
    void UseVariable(const std::string& name, const std::string& value) {
        auto definition = MakeRef<VariableDef>();
        definition->Name = name;
        definition->DefaultValue = value;
        mTemplate->VariableDefs.Add(definition, name);
    }
    /// Scans the tree anew, with what was written since.
    void Rescan() {
        mProvider = MakeRef<SourceNamespaceProvider>(mStore);
        mProvider->AddRoot(mTree.Scan(), mTree.Folder());
        mData = mProvider->GetDataProvider();
        mData->Set("Template", Value(mTemplate));
    }
    static int Count(const std::string& page, const std::string& part) {
        int count = 0;
        for (std::size_t at = page.find(part); at != page.npos; at = page.find(part, at + 1))
            ++count;
        return count;
    }
};

TEST_F(SourcePageElementsTest, ANoticeSaysItsTextUntilItsLastDay) {
    EXPECT_EQ(
        Page(mDog, Element("notice text='a < b' color=\"#ff0000\"", "not this")),
        "<div class=\"notice\" role=\"note\" style=\"border-color: #ff0000\">a &lt; b</div>\n");
    EXPECT_EQ(
        Page(mDog, Element("notice color=\"red; }\" until=9999-12-31", "of " + Element("name"))),
        "<div class=\"notice\" role=\"note\">of Dog</div>\n");
    EXPECT_EQ(Page(mDog, Element("notice until=2000-01-01", "old") + Element("notice", " ")), "");
}

TEST_F(SourcePageElementsTest, AnIncludeIsAFileOfTheTemplatesFolderAlone) {
    mTree.Write("own/part.html", "<p>" + Element("name") + "</p>");
    mTree.Write("secret.html", "secret");
    mTemplate->Folder = mTree.Folder() + "/own";
    EXPECT_EQ(Page(mDog, Element("include file=part.html")), "<p>Dog</p>");
    EXPECT_EQ(
        Page(mDog, Element("include file=\"../secret.html\"") + Element("include file=none.html")),
        "");
}

TEST_F(SourcePageElementsTest, BasesAndDerivedTypesAreListed) {
    EXPECT_EQ(Page(mDog, Element("bases")),
              "<section id=\"bases\" class=\"bases\">\n<h2>Base Types</h2>\n<ul>\n"
              "<li><a href=\"p~zoo~Animal.html\">Animal</a></li>\n<li>Loud&lt;int&gt;</li>\n"
              "</ul>\n</section>\n");
    Write("p~zoo~Puppy", "##", "Small.");
    const std::string derived = Page(mDog, Element("derived"));
    EXPECT_TRUE(
        derived.starts_with("<section id=\"derived\" class=\"derived\">\n<h2>Derived Types"))
        << derived;
    EXPECT_TRUE(Holds(derived, "<a href=\"p~zoo~Puppy.html\">Puppy</a></code></td>"
                               "<td class=\"text\">Small.</td>"))
        << derived;
    EXPECT_EQ(Page("p~zoo~Animal", Element("bases")) + Page("p~zoo~Puppy", Element("derived")), "");
}

TEST_F(SourcePageElementsTest, TheSyntaxStandsBareOrBelowAHeading) {
    const std::string code = "<pre><code>void Bark(double)</code></pre>\n";
    EXPECT_EQ(Page("p~zoo~Dog~Bark(double)", Element("syntax bare")), code);
    EXPECT_EQ(Page("p~zoo~Dog~Bark(double)", Element("syntax caption=\"Written as\" heading=4")),
              "<section id=\"syntax\" class=\"syntax\">\n<h4>Written as</h4>\n" + code +
                  "</section>\n");
}

TEST_F(SourcePageElementsTest, AttributesLeftEmptyAreAsIfTheyWereNotThere) {
    const std::string item = "p~zoo~Dog~Bark(double)";
    EXPECT_EQ(Page(item, Element("syntax caption=\"\" heading=\"\" bare=\"\"")),
              Page(item, Element("syntax")));
    EXPECT_EQ(Page(item, Element("if has=\"\" not=\"\" edit=\"\" until=\"\"", "text")),
              Page(item, Element("if", "text")));
    EXPECT_EQ(Page(item, Element("if", "text")), "text");
}

TEST_F(SourcePageElementsTest, HeadingsStayBetweenTheSecondLevelAndTheSixth) {
    const std::string page = Page(mDog, Element("bases heading=1") + Element("bases heading=9") +
                                            Element("bases heading=x"));
    EXPECT_EQ(Count(page, "<h2>"), 2) << page;
    EXPECT_EQ(Count(page, "<h6>"), 1) << page;
    // Each has an address of its own.
    EXPECT_TRUE(Holds(page, "id=\"bases-2\"") && Holds(page, "id=\"bases-3\"")) << page;
}

TEST_F(SourcePageElementsTest, ALinkShowsItsTextOrTheName) {
    EXPECT_EQ(Page(mDog, Element("link") + Element("link", "<b>" + Element("kind") + "</b>")),
              "<a href=\"p~zoo~Dog.html\">Dog</a>"
              "<a href=\"p~zoo~Dog.html\"><b>Class</b></a>");
    mData->Set("PageLinks", Value(false));
    EXPECT_EQ(Page(mDog, Element("link", "the dog")), "the dog");
}

TEST_F(SourcePageElementsTest, TheHeadHasTheStyleSheetsInItOrBesideIt) {
    mTree.Write("own/a.css", "a::after { content: '</STYLE>' }\n");
    mTemplate->Folder = mTree.Folder() + "/own";
    const std::string head = Element("head styles=\"a.css, ../b.css\"");
    EXPECT_EQ(Page(mDog, head), "<title>Dog Class - p</title>\n<style>\na::after { content: "
                                "'<\\/style>' }\n</style>\n<style>\n</style>\n");
    mData->Set("InlineStyles", Value(false));
    EXPECT_EQ(Page(mDog, Element("head styles=\"a.css\"")),
              "<title>Dog Class - p</title>\n<link rel=\"stylesheet\" href=\"a.css\">\n");
}

TEST_F(SourcePageElementsTest, TheAccentIsForScreensAndIsLightenedOnDarkOnes) {
    UseVariable("Colour", "#800000");
    UseVariable("Broken", "red; } body { color: red");
    const std::string page = Page(mDog, Element("head accent=Colour"));
    EXPECT_TRUE(Holds(page, "@media screen { :root { --accent: #800000; } }\n")) << page;
    EXPECT_TRUE(Holds(page, "@media screen and (prefers-color-scheme: dark) {\n  :root { --accent: "
                            "color-mix(in srgb, #800000 40%, white); }\n}"))
        << page;
    EXPECT_EQ(Count(page, "--accent"), 2) << "nothing of it counts on paper";
    EXPECT_FALSE(Holds(Page(mDog, Element("head accent=Broken")), "--accent"));
    EXPECT_FALSE(Holds(Page(mDog, Element("head accent=None")), "--accent"));
}

TEST_F(SourcePageElementsTest, ContentsNeedAsManySectionsAsTheyAreTold) {
    const std::string sections = Element("syntax") + Element("bases");
    EXPECT_TRUE(Holds(Page(mDog, Element("contents") + sections), "<nav class=\"contents\""));
    EXPECT_TRUE(Holds(Page(mDog, Element("contents least=2") + sections), "<nav"));
    const std::string without = Page(mDog, Element("contents least=3") + sections);
    EXPECT_FALSE(Holds(without, "<nav")) << without;
    EXPECT_EQ(Count(without, "<section"), 2) << "each once: " << without;
}

TEST_F(SourcePageElementsTest, TheTreeOfTypesIsAsDeepAndAsWideAsItIsTold) {
    mTree.Write("zoo2.h",
                "namespace zoo { class Spitz : public Dog {}; class Pug : public Puppy {}; }");
    Rescan();
    const std::string whole = Page("p~zoo~Pug", Element("inheritance"));
    EXPECT_TRUE(Holds(whole, ">Animal<") && Holds(whole, ">Puppy<")) << whole;
    const std::string flat = Page("p~zoo~Pug", Element("inheritance depth=1"));
    EXPECT_FALSE(Holds(flat, ">Animal<") || Holds(flat, ">Dog<")) << flat;
    EXPECT_TRUE(Holds(flat, ">Puppy<")) << flat;
    const std::string narrow = Page(mDog, Element("inheritance most=1"));
    EXPECT_EQ(Holds(narrow, ">Puppy<") + Holds(narrow, ">Spitz<"), 1) << narrow;
    EXPECT_TRUE(Holds(narrow, "<li>and more (1)</li>")) << narrow;
}

TEST_F(SourcePageElementsTest, WhatIsAroundIsLinkedInSeeAlso) {
    EXPECT_EQ(Page(mDog, Element("seealso")), "");
    EXPECT_EQ(Page(mDog, Element("seealso around")),
              "<section id=\"seealso\" class=\"seealso\">\n<h2>See Also</h2>\n<ul>\n"
              "<li><a href=\"p~zoo.html\">zoo Namespace</a></li>\n"
              "<li><a href=\"p.html\">p Project</a></li>\n</ul>\n</section>\n");
}

TEST_F(SourcePageElementsTest, ConditionsAskForVariablesOverloadsAndDerivedTypes) {
    UseVariable("Set", "x");
    UseVariable("Empty", "");
    const auto when = [&](const std::string& item, const std::string& condition) {
        return !Page(item, Element("if " + condition, "yes")).empty();
    };
    EXPECT_TRUE(when(mDog, "has=variable variable=Set"));
    EXPECT_FALSE(when(mDog, "has=variable variable=Empty"));
    EXPECT_TRUE(when(mDog, "has=variable variable=Empty not"));
    EXPECT_TRUE(when(mBark, "has=overloads"));
    EXPECT_FALSE(when("p~zoo~Dog~Age", "has=overloads"));
    EXPECT_TRUE(when(mDog, "has=derived"));
    EXPECT_FALSE(when("p~zoo~Puppy", "has=derived"));
    const auto project = UseProject();
    project->GetNamespaceExclusions()->Add("p~zoo~Puppy", "p~zoo~Puppy");
    EXPECT_FALSE(when(mDog, "has=derived")) << "none that is shown";
}

TEST_F(SourcePageElementsTest, AParameterCommentOfAPropertyIsOnItsPage) {
    mTree.Write("Box.cs", "namespace boxes { public class Box { public int Size { get; set; } } }");
    Rescan();
    const std::string size = "p~boxes~Box~Size";
    ASSERT_TRUE(mProvider->GetItem(size));
    ASSERT_EQ(Page(size, Element("kind")), "Property");
    Write(size, "##param", "value: above 0.");
    const std::string comment = "<div class=\"comment\">value: above 0.</div>\n";
    EXPECT_EQ(Page(size, Element("parameters")),
              "<section id=\"parameters\" class=\"parameters\">\n<h2>Parameters</h2>\n" + comment +
                  "</section>\n");
    EXPECT_TRUE(Holds(Page(size, Element("othercomments")), comment))
        << "no element of this layout shows it";
    EXPECT_EQ(Count(Page(size, Element("parameters") + Element("othercomments")), comment), 1);
}

TEST_F(SourcePageElementsTest, WhatTheProjectLeavesOutIsNamedWithoutALink) {
    const auto project = UseProject();
    const auto exclusions = project->GetNamespaceExclusions();
    for (const char* name : {"p~zoo~Animal", "p~zoo~Puppy"})
        exclusions->Add(name, name);
    Write(mDog, "##seealso", "p~zoo~Animal");
    for (const char* element : {"bases", "inheritance", "inherited", "seealso"}) {
        const std::string page = Page(mDog, Element(element));
        EXPECT_TRUE(Holds(page, "Animal")) << element << ": " << page;
        EXPECT_FALSE(Holds(page, "p~zoo~Animal.html")) << element << ": " << page;
    }
    const std::string tree = Page(mDog, Element("inheritance"));
    EXPECT_TRUE(Holds(tree, "<li>Puppy</li>")) << tree;
    EXPECT_EQ(Page(mDog, Element("derived")), "");
    // An author gets there all the same.
    ForEdit();
    EXPECT_TRUE(Holds(Page(mDog, Element("bases")), "href=\"p~zoo~Animal.html\""));
}

TEST_F(SourcePageElementsTest, WhatIsInSomethingThatIsLeftOutHasNoPageEither) {
    const auto project = UseProject();
    EXPECT_TRUE(Holds(Page(mDog, Element("link")), "href"));
    project->GetNamespaceExclusions()->Add("p~zoo", "p~zoo");
    EXPECT_EQ(Page(mDog, Element("link")), "Dog");
}

TEST_F(SourcePageElementsTest, ATagThatIsNamedInAnotherElementIsShownOnce) {
    Write(mDog, "##remarks", "Said once.");
    const std::string section = Element("section tag=\"##remarks\"");
    AddText(mTemplate->Scraps, "Part", section + Element("scrap name=Part"));
    mTree.Write("own/part.html", Element("notice", section));
    mTemplate->Folder = mTree.Folder() + "/own";
    for (const std::string& named :
         {section, Element("if has=bases", section), Element("scrap name=Part"),
          Element("if", Element("scrap name=Part")), Element("include file=part.html")}) {
        const std::string shown = Page(mDog, named);
        EXPECT_GE(Count(shown, "Said once."), 1) << named;
        EXPECT_EQ(Count(Page(mDog, named + Element("othercomments")), "Said once."),
                  Count(shown, "Said once."))
            << named;
    }
    EXPECT_EQ(Count(Page(mDog, section + Element("if", Element("othercomments"))), "Said once."), 1)
        << "also where the others stand in an element";
}

TEST_F(SourcePageElementsTest, APatternForMembersNamesWhatTheMembersShow) {
    Write(mDog, "##remarks", "Of the dog.");
    Write("p~zoo~Dog~Age", "##remarks", "Of the age.");
    const std::string pattern = Element(
        "members level=Method", Element("comment tag=\"##remarks\"") + Element("othercomments"));
    const std::string page = Page(mDog, pattern + Element("othercomments"));
    EXPECT_EQ(Count(page, "Of the dog."), 1) << page;
    EXPECT_EQ(Count(page, "Of the age."), 1) << page;
    const std::string others =
        Page(mDog, Element("section tag=\"##remarks\"") +
                       Element("members level=Method", Element("othercomments")));
    EXPECT_EQ(Count(others, "Of the age."), 1) << others;
}

TEST_F(SourcePageElementsTest, ThePageOfAnItemShowsWhatSaysThatItIsItsExample) {
    mTree.Write("ex.h", "namespace zoo {\n/// Runs.\ninline int Feed() {\n    return 1; // <one>\n"
                        "}\ninline int Long() {\n    return 1;\n}\n}\n");
    Rescan();
    Write("p~zoo~Feed", "##isexample", "Feeds & waters\nof: p~zoo~Dog\nof: p~zoo~Puppy");
    Write("p~zoo~Long", "##isexample", "of: p~zoo~Animal");
    auto lost = MakeRef<TaggedComment>();
    lost->SetTagIdentifier("##isexample");
    lost->SetText("Lost\nof: p~zoo~Dog");
    mStore->Load("p~zoo~Gone", lost, {});
    const std::string page = Page(mDog, Element("examples"));
    EXPECT_TRUE(page.starts_with("<section id=\"examples\" class=\"examples\">\n<h2>Examples</h2>"))
        << page;
    EXPECT_TRUE(Holds(page, "<p>Feeds &amp; waters – <code>Feed</code> "
                            "<small><span class=\"sourceplace\">ex.h:3</span></small></p>\n"
                            "<pre class=\"example\"><code><span class=\"k\">inline</span> "
                            "<span class=\"k\">int</span> Feed() {\n    "
                            "<span class=\"k\">return</span> <span class=\"n\">1</span>; "
                            "<span class=\"c\">// &lt;one&gt;</span>\n}\n</code></pre>"))
        << page;
    EXPECT_FALSE(Holds(page, "Long")) << "an example of another item";
    EXPECT_FALSE(Holds(page, "Lost")) << "an example that is no more";
    EXPECT_FALSE(Holds(Page(mDog, Element("examples most=2")), "<pre")) << "longer than that";
    EXPECT_EQ(Page(mBark, Element("examples")), "");
    const auto project = UseProject();
    project->GetNamespaceExclusions()->Add("p~zoo~Feed", "p~zoo~Feed");
    EXPECT_EQ(Page(mDog, Element("examples")), "");
}

TEST_F(SourcePageElementsTest, AnExampleThatIsGoneIsToldToTheLogAndNotToReaders) {
    mProvider->GetComments()->SetFolder(mTree.Folder());
    Write(mDog, "##examplesource", "source: gone.cpp");
    const auto project = UseProject();
    project->Log = MakeRef<PreviewLog>();
    EXPECT_FALSE(Holds(Page(mDog, Element("othercomments")), "gone.cpp"));
    ASSERT_EQ(project->Log->Messages.size(), 1u);
    EXPECT_TRUE(project->Log->Messages[0].starts_with("An example cannot be shown. ") &&
                Holds(project->Log->Messages[0], "gone.cpp"))
        << project->Log->Messages[0];
}

} // namespace

} // namespace paperkite::test
