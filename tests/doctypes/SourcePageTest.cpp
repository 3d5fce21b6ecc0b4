#include "doctypes/SourcePageFixture.h"

#include "doctypes/source/PageElements.h"
#include "model/CoverageReport.h"
#include "model/HomelessComments.h"

#include <gtest/gtest.h>

namespace paperkite::test {

namespace {

class SourcePageTest : public SourcePageFixture {};

TEST_F(SourcePageTest, APropertyIsItsValueEscaped) {
    EXPECT_EQ(Page(mDog, Element("name") + " " + Element("inherits") + " " + Element("nothing")),
              "Dog Animal,Loud&lt;int&gt; ");
    EXPECT_EQ(
        Page(mBark, Element("scopedname") + " " + Element("kindcaption") + " " + Element("place")),
        "Dog::Bark Method <span class=\"sourceplace\">zoo.h:10</span>");
}

TEST_F(SourcePageTest, ACommentIsPublishedAsItWasWritten) {
    Write(mDog, "##remarks", "<p>A &amp; <b>b</b></p>");
    EXPECT_EQ(Page(mDog, Element("comment tag=\"##remarks\"")),
              "<div class=\"comment\"><p>A &amp; <b>b</b></p></div>\n");
    EXPECT_EQ(Page(mDog, Element("section tag=\"##remarks\"")),
              "<section id=\"remarks\" class=\"remarks\">\n<h2>Remarks</h2>\n"
              "<div class=\"comment\"><p>A &amp; <b>b</b></p></div>\n</section>\n");
}

TEST_F(SourcePageTest, TheGeneralDescriptionIsTheTaggedDescriptionWhereThereIsOne) {
    Write(mDog, "##", "Short.");
    EXPECT_EQ(Page(mDog, Element("comment tag=\"##\"")), "<div class=\"comment\">Short.</div>\n");
    mProvider->GetItem(mDog)->Set("TaggedDescription", Value("Short. And merged."));
    EXPECT_EQ(Page(mDog, Element("comment tag=\"##\"")),
              "<div class=\"comment\">Short. And merged.</div>\n");
}

TEST_F(SourcePageTest, DeletedCommentsAreOnNoPage) {
    Write(mDog, "##remarks", "Gone.")->SetState(kTaggedCommentTombstone);
    EXPECT_EQ(Page(mDog, Element("section tag=\"##remarks\"")), "");
}

TEST_F(SourcePageTest, AnEmptySectionIsLeftOutUnlessThePageIsForEditing) {
    EXPECT_EQ(Page(mDog, Element("section tag=\"##remarks\"")), "");
    ForEdit();
    EXPECT_EQ(Page(mDog, Element("section tag=\"##remarks\"")),
              "<section id=\"remarks\" class=\"remarks\">\n<h2>Remarks</h2>\n<div class=\"place\">"
              "<span id=\"TaggedComment|p~zoo~Dog|##remarks\" contenteditable=\"true\" "
              "data-placeholder=\"Click to add remarks\"></span></div>\n</section>\n");
}

TEST_F(SourcePageTest, APlaceHoldsTheFirstCommentOfItsTagAndShowsTheOthers) {
    Write(mDog, "##remarks", "<p>One</p>");
    Write(mDog, "##remarks", "Two");
    ForEdit();
    EXPECT_EQ(Page(mDog, Element("comment tag=\"##remarks\" placeholder='say \"it\"'")),
              "<div class=\"place\"><span id=\"TaggedComment|p~zoo~Dog|##remarks\" "
              "contenteditable=\"true\" data-placeholder=\"say &quot;it&quot;\"><p>One</p></span>"
              "<div class=\"comment\">Two</div>\n</div>\n");
}

TEST_F(SourcePageTest, ATagThatDoesNotApplyGetsNoPlace) {
    ForEdit();
    EXPECT_EQ(Page(mDog, Element("section tag=\"##returns\"")), "");
    EXPECT_NE(Page(mBark, Element("section tag=\"##returns\"")), "");
}

TEST_F(SourcePageTest, WhereCommentsAreXmlTagsOnlyMappedTagsGetPlaces) {
    auto unmapped = MakeRef<TaggedCommentDef>();
    unmapped->TagIdentifier = "##ours";
    unmapped->DisplayName = "Ours";
    unmapped->Namespaces = "kite.source:Class";
    GlobalConfig().TaggedCommentDefs->Add(unmapped);
    ForEdit();
    EXPECT_TRUE(Holds(Page(mDog, Element("othercomments")), "|##ours\""));
    mData->Set("editcommenttype", Value(static_cast<std::int32_t>(CommentType::XMLCommentTags)));
    EXPECT_FALSE(Holds(Page(mDog, Element("othercomments")), "|##ours\""));
    EXPECT_TRUE(Holds(Page(mDog, Element("othercomments")), "|##remarks\""));
}

TEST_F(SourcePageTest, PlacesOfNamesThatHoldTheMarkOfFieldsLeadToTheirItems) {
    ForEdit();
    const std::string page = Page("p~zoo~Dog~operator|", Element("comment tag=\"##\""));
    EXPECT_TRUE(Holds(page, "id=\"TaggedComment|p~zoo~Dog~operator%7C|##\"")) << page;
    EXPECT_EQ(mProvider->ItemByQualifiedName("p~zoo~Dog~operator%7C"),
              mProvider->ItemByQualifiedName("p~zoo~Dog~operator|"));
}

TEST_F(SourcePageTest, MembersStandInATableForEachKindWithTheirDescriptions) {
    Write("p~zoo~Dog~Age", "##", "In <i>years</i>.");
    const std::string page = Page(mDog, Element("members"));
    EXPECT_TRUE(Holds(page, "<section id=\"methods\" class=\"methods\">\n<h2>Methods</h2>"))
        << page;
    EXPECT_TRUE(Holds(page, "<span class=\"type\">int</span> <a href=\"p~zoo~Dog~Age.html\">Age</a>"
                            "<span class=\"signature\">() const</span></code></td>"
                            "<td class=\"text\">In <i>years</i>.</td>"))
        << page;
    EXPECT_TRUE(Holds(page, "href=\"p~zoo~Dog~Bark(int,const%20char*).html\"")) << page;
    EXPECT_TRUE(Holds(page, "mLeft</code> <span class=\"flag protected\">Protected</span>"))
        << page;
    EXPECT_FALSE(Holds(page, "mSecret"));
    EXPECT_FALSE(Holds(Page(mDog, Element("members level=\"kite.source:Field\"")), "Bark"));
}

TEST_F(SourcePageTest, EveryMemberOfAnEditedPageHasAPlaceInItsCell) {
    ForEdit();
    EXPECT_TRUE(Holds(Page(mDog, Element("members")),
                      "<td class=\"text\"><span id=\"TaggedComment|p~zoo~Dog~Age|##\" "
                      "contenteditable=\"true\" data-placeholder=\"Click to describe this method\">"
                      "</span></td>"));
}

TEST_F(SourcePageTest, APatternIsRepeatedForEachMember) {
    EXPECT_EQ(
        Page("p~zoo", Element("members level=Class", "<li>" + Element("name", "Name") + "</li>")),
        "<li>Animal</li><li>Dog</li><li>Puppy</li>");
}

TEST_F(SourcePageTest, WhereNoPagesAreMadeNamesAreNoLinks) {
    Write(mDog, "##remarks",
          "<a href=\"p~zoo.html\">zoo</a> <A title=\"t\" HREF='https://a.org/b.html'>b</a> "
          "<a href=\"#x\">x</a>");
    mData->Set("PageLinks", Value(false));
    EXPECT_EQ(Page(mDog, Element("comment tag=\"##remarks\"")),
              "<div class=\"comment\"><a>zoo</a> <A title=\"t\" HREF='https://a.org/b.html'>b</a> "
              "<a href=\"#x\">x</a></div>\n");
    EXPECT_FALSE(Holds(Page(mDog, Element("members") + Element("breadcrumb") +
                                      Element("inheritance") + Element("seealso around=true")),
                       "href"));
}

TEST_F(SourcePageTest, AParameterHasAnItemWithCommentsOfItsOwn) {
    const std::string name = mBark + "~:times";
    const auto item = mProvider->ItemByQualifiedName(name);
    ASSERT_TRUE(item);
    EXPECT_EQ(item->TypeName(), "ParameterElement");
    EXPECT_EQ(item->Get("Name").ToText() + "|" + item->Get("Type").ToText(), "times|int");
    EXPECT_EQ(item->Get("QualifiedName").ToText(), name);
    EXPECT_EQ(item->Get("Parent").ToObject(), mProvider->GetItem(mBark));
    EXPECT_EQ(mProvider->GetItem(name), item);
    const auto comment = Write(name, "##", "How often.");
    EXPECT_EQ(comment->GetItem(), item);
    EXPECT_EQ(mStore->CountOf(name), 1u);
    // One without a name goes by its number.
    EXPECT_TRUE(mProvider->GetItem("p~zoo~Dog~Bark(double)~:1"));
    EXPECT_FALSE(mProvider->GetItem("p~zoo~Dog~Bark(double)~:2"));
    EXPECT_FALSE(mProvider->GetItem(mBark + "~times"));
}

TEST_F(SourcePageTest, EachParameterHasARowAndAPlace) {
    Write(mBark + "~:times", "##", "How often.");
    Write(mBark, "##param", "<p>how loud it is</p>");
    Write(mBark, "##param", "Of no parameter.");
    const std::string published = Page(mBark, Element("parameters"));
    EXPECT_TRUE(Holds(published, "<code>times</code> <span class=\"type\">int</span></td>"
                                 "<td class=\"text\">How often.</td>"))
        << published;
    EXPECT_TRUE(Holds(published, "<span class=\"default\">= 0</span></td><td class=\"text\">"
                                 "<div class=\"comment\"><p>how loud it is</p></div></td>"))
        << published;
    EXPECT_TRUE(Holds(published, "</table>\n<div class=\"comment\">Of no parameter.</div>"));
    ForEdit();
    EXPECT_TRUE(Holds(Page(mBark, Element("parameters")),
                      "<td class=\"text\"><span id=\"TaggedComment|p~zoo~Dog~Bark(int,const "
                      "char*)~:times|##\" contenteditable=\"true\" data-placeholder=\"Click to "
                      "describe this parameter\">How often.</span></td>"));
}

TEST_F(SourcePageTest, TheReceiverOfAPythonMethodHasNoRow) {
    mTree.Write("keeper.py", "class Keeper:\n    def feed(self, animal):\n        pass\n");
    auto provider = MakeRef<SourceNamespaceProvider>(mStore);
    provider->AddRoot(mTree.Scan(), mTree.Folder());
    mProvider = provider;
    const std::string page = Page("p~keeper~Keeper~feed", Element("parameters"));
    EXPECT_TRUE(Holds(page, "animal")) << page;
    EXPECT_FALSE(Holds(page, "self")) << page;
}

TEST_F(SourcePageTest, AParametersCommentIsHomelessOnlyWhenTheParameterIsGone) {
    Write(mBark + "~:times", "##", "How often.");
    EXPECT_TRUE(HomelessComments::Names(*mStore, *mProvider).empty());
    auto lost = MakeRef<TaggedComment>();
    lost->SetTagIdentifier("##");
    lost->SetText("Lost.");
    mStore->Load(mBark + "~:time", lost, {});
    const auto entries = HomelessComments::Find(*mStore, *mProvider, *mProvider);
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].QualifiedName, mBark + "~:time");
    ASSERT_FALSE(entries[0].Homes.empty());
    EXPECT_EQ(entries[0].Homes[0].QualifiedName, mBark + "~:times");
    for (const auto& home : entries[0].Homes)
        EXPECT_TRUE(Holds(home.QualifiedName, "~:")) << home.QualifiedName;
}

TEST_F(SourcePageTest, CoverageCountsNoParameters) {
    const auto before = CoverageReport::Make(*mProvider, *mStore, CoverageReport::Grouping::Kind);
    Write(mBark + "~:times", "##", "How often.");
    const auto after = CoverageReport::Make(*mProvider, *mStore, CoverageReport::Grouping::Kind);
    EXPECT_EQ(before.GetAll().Total, after.GetAll().Total);
    EXPECT_EQ(after.GetAll().Documented, 0u);
    EXPECT_TRUE(after.GetGone().empty());
}

TEST_F(SourcePageTest, TheTreeOfTypesGoesUpAndDownAsFarAsTheCodeKnows) {
    EXPECT_EQ(Page(mDog, Element("inheritance")),
              "<section id=\"inheritance\" class=\"inheritance\">\n<h2>Inheritance</h2>\n"
              "<ul class=\"tree\">\n<li><a href=\"p~zoo~Animal.html\">Animal</a>\n<ul>\n"
              "<li><strong>Dog</strong>\n<ul>\n<li><a href=\"p~zoo~Puppy.html\">Puppy</a></li>\n"
              "</ul>\n</li>\n</ul>\n</li>\n<li>Loud&lt;int&gt;</li>\n</ul>\n</section>\n");
    const std::string inherited = Page(mDog, Element("inherited"));
    EXPECT_TRUE(Holds(inherited, ">Sleep<")) << inherited;
    EXPECT_FALSE(Holds(inherited, ">Age<")) << inherited;
}

TEST_F(SourcePageTest, OverloadsSeeAlsoBreadcrumbAndFlags) {
    EXPECT_TRUE(Holds(Page(mBark, Element("overloads")), "(double)"));
    EXPECT_FALSE(Holds(Page(mBark, Element("overloads")), "times"));
    Write(mDog, "##seealso", "p~zoo~Animal");
    Write(mDog, "##deprecated", "");
    EXPECT_TRUE(
        Holds(Page(mDog, Element("seealso")), "<li><a href=\"p~zoo~Animal.html\">Animal</a></li>"));
    EXPECT_TRUE(Holds(Page(mDog, Element("breadcrumb")),
                      "<li><a href=\"p.html\">p</a></li>\n<li><a href=\"p~zoo.html\">zoo</a></li>"
                      "\n<li aria-current=\"page\">Dog</li>"));
    mData->Set("RootItem", Value(mProvider->GetItem("p~zoo")));
    EXPECT_FALSE(Holds(Page(mDog, Element("breadcrumb")), "p.html"));
    EXPECT_EQ(Page(mDog, Element("flags")),
              "<div class=\"flags\"><span class=\"flag deprecated\">Deprecated</span></div>\n");
}

TEST_F(SourcePageTest, TheSourcesOwnCommentFillsInWhereItIsAskedFor) {
    EXPECT_TRUE(Holds(Page("p~zoo", Element("members level=Class fromsource")),
                      "<span class=\"fromsource\">Barks.</span>"));
    EXPECT_FALSE(Holds(Page("p~zoo", Element("members level=Class")), "Barks"));
    EXPECT_TRUE(Holds(Page(mDog, Element("sourcecomment")), "<p>Barks. And more.</p>"));
}

TEST_F(SourcePageTest, VariablesPhrasesAndScrapsComeFromProjectAndTemplate) {
    auto colour = MakeRef<VariableDef>();
    colour->Name = "Colour";
    colour->DefaultValue = "<red>";
    mTemplate->VariableDefs.Add(colour, colour->Name);
    AddText(mTemplate->Phrases, "Remarks", "Bemerkungen");
    AddText(mTemplate->Scraps, "Foot", "<p>" + Element("phrase name=Remarks") + "</p>");
    AddText(mTemplate->Scraps, "Circle", Element("scrap name=Circle"));
    const std::string layout =
        Element("variable name=Colour") + Element("phrase name=Other") + Element("scrap name=Foot");
    EXPECT_EQ(Page(mDog, layout), "&lt;red&gt;Other<p>Bemerkungen</p>");
    auto project = MakeRef<ProjectDocument>();
    auto value = MakeRef<Variable>();
    value->Name = "colour";
    value->Value = "{Variable:Colour}";
    project->GetVariables().Add(value, value->Name);
    mData->Set("Project", Value(Ref<Object>(project)));
    EXPECT_EQ(Page(mDog, Element("variable name=Colour")), "{Variable:Colour}");
    Write(mDog, "##remarks", "x");
    EXPECT_TRUE(Holds(Page(mDog, Element("section tag=\"##remarks\"")), "<h2>Bemerkungen</h2>"));
    EXPECT_TRUE(Holds(Page(mDog, Element("scrap name=Circle")), "nested too deeply"));
}

TEST_F(SourcePageTest, WhatAProjectLeavesOutIsOnNoPage) {
    auto project = MakeRef<ProjectDocument>();
    mData->Set("Project", Value(Ref<Object>(project)));
    // What a tree shows is not what is published.
    project->SetIncludePrivate(true);
    EXPECT_FALSE(Holds(Page(mDog, Element("members")), "mSecret"));
    project->StoreScope();
    EXPECT_TRUE(Holds(Page(mDog, Element("members")), "mSecret"));
    project->GetNamespaceExclusions()->Add("p~zoo~Dog~Age", "p~zoo~Dog~Age");
    auto filter = MakeRef<ExcludeFilter>();
    filter->Text = "mS*";
    project->GetMemberFilters().Add(filter);
    const std::string page = Page(mDog, Element("members"));
    EXPECT_FALSE(Holds(page, ">Age<") || Holds(page, "mSecret")) << page;
}

TEST_F(SourcePageTest, ConditionsAskWhatTheItemHas) {
    const auto when = [&](const std::string& condition) {
        return Page(mDog, Element("if " + condition, "yes"));
    };
    EXPECT_EQ(when("has=bases") + "," + when("has=parameters") + "," + when("has=members") + "," +
                  when("has=\"##remarks\"") + "," + when("has=\"##remarks\" not") + "," +
                  when("level=kite.source:Class") + "," + when("level=kite.source:Enumeration") +
                  "," + when("until=2000-01-01") + "," + when("until=9999-12-31") + "," +
                  when("edit") + "," + when("namespace=kite.source"),
              "yes,,yes,,yes,yes,,,yes,,yes");
}

TEST_F(SourcePageTest, TheContentsNameTheSectionsThatFollow) {
    Write(mDog, "##remarks", "x");
    const std::string page =
        Page(mDog, Element("contents") + Element("section tag=\"##remarks\"") +
                       Element("section tag=\"##example\"") + Element("members level=Field"));
    EXPECT_TRUE(page.starts_with("<nav class=\"contents\" aria-label=\"On this page\">\n<ul>\n"
                                 "<li><a href=\"#remarks\">Remarks</a></li>\n"
                                 "<li><a href=\"#fields\">Fields</a></li>\n</ul>\n</nav>\n"
                                 "<section id=\"remarks\""))
        << page;
}

TEST_F(SourcePageTest, TheSyntaxIsBrokenWhereItIsLong) {
    mTree.Write("long.h", "struct Store { virtual Status Get(const ReadOptions& options, const "
                          "Slice& key, std::string* value) const; };\n");
    auto provider = MakeRef<SourceNamespaceProvider>(mStore);
    provider->AddRoot(mTree.Scan(), mTree.Folder());
    const PageSubject get{provider.get(), 0, *provider->GetIndex(0).Find("p~Store~Get")};
    EXPECT_EQ(PageElements::SyntaxOf(get), "Status Get(const ReadOptions& options,\n"
                                           "           const Slice& key,\n"
                                           "           std::string* value) const");
}

TEST_F(SourcePageTest, TenThousandNestedConditionsEndWithAWord) {
    std::string layout;
    for (int level = 0; level < 10000; ++level)
        layout += "<!--KITEMETADATA start type=if-->";
    for (int level = 0; level < 10000; ++level)
        layout += "<!--KITEMETADATA end-->";
    EXPECT_TRUE(Holds(Page(mDog, layout), "nested too deeply"));
}

TEST_F(SourcePageTest, AnUnknownMemberOfTheProviderIsAnError) {
    EXPECT_THROW(mData->Set("Nothing", Value(true)), Error);
    EXPECT_THROW(mData->Call("Prepare", {}), Error);
}

TEST_F(SourcePageTest, AnItemShowsTheCommentsThatItTakes) {
    Write(mDog, "##commentsfrom", "p~zoo~Animal");
    Write("p~zoo~Animal", "##", "Lives.");
    Write("p~zoo~Animal", "##remarks", "Eats.");
    Write("p~zoo~Animal", "##example", "of the animal");
    Write(mDog, "##example", "of the dog");
    const std::string page =
        Page(mDog, Element("comment tag=\"##\"") + Element("section tag=\"##remarks\"") +
                       Element("section tag=\"##example\""));
    EXPECT_NE(page.find("Lives."), std::string::npos) << page;
    EXPECT_NE(page.find("Eats."), std::string::npos) << page;
    EXPECT_NE(page.find("of the dog"), std::string::npos) << page;
    EXPECT_EQ(page.find("of the animal"), std::string::npos) << "its own comment counts first";
    EXPECT_EQ(page.find("p~zoo~Animal"), std::string::npos) << "the reference itself is not shown";
}

TEST_F(SourcePageTest, CommentsThatGoRoundInACircleAreShownOnce) {
    Write(mDog, "##commentsfrom", "p~zoo~Animal");
    Write("p~zoo~Animal", "##commentsfrom", mDog);
    EXPECT_EQ(Page(mDog, Element("section tag=\"##remarks\"")).find("<section"), std::string::npos);
}

TEST_F(SourcePageTest, AnExampleIsTakenFromItsFile) {
    mTree.Write("ex/feed.cpp", "int main() {\n    //! [feed]\n    if (a < b)\n        Feed();\n"
                               "    //! [feed]\n}\n");
    mProvider->GetComments()->SetFolder(mTree.Folder());
    Write(mDog, "##examplesource", "source: ex/feed.cpp#feed\nFeeds & waters.");
    const std::string page = Page(mDog, Element("othercomments"));
    EXPECT_NE(
        page.find("<p>Feeds &amp; waters.</p>\n<pre class=\"example\"><code><span class=\"k\">"
                  "if</span> (a &lt; b)\n    Feed();\n</code></pre>"),
        std::string::npos)
        << page;
}

TEST_F(SourcePageTest, CommentsThatAreNoHtmlAreShownAsWhatTheyAre) {
    Write(mDog, "##new", "1.4 <beta>");
    Write(mDog, "##keywords", "pets > small\nbarking");
    Write(mDog, "##menuitem", "File > New\nkeys: Ctrl+N");
    Write(mDog, "##xml", "<a>&amp;</a>");
    Write(mDog, "##isexample", "Feeds\nof: p~zoo~Animal");
    const std::string page =
        Page(mDog, Element("head") + Element("flags") + Element("othercomments"));
    const auto has = [&](const char* text) {
        EXPECT_NE(page.find(text), std::string::npos) << text << " is not in " << page;
    };
    has("content=\"pets small, barking\"");
    has("File › New <kbd>Ctrl+N</kbd>");
    has("<code>&lt;a&gt;&amp;amp;&lt;/a&gt;</code>");
    has("<p>Feeds</p><p>Shows how to use Animal.</p>");
}

} // namespace

} // namespace paperkite::test
