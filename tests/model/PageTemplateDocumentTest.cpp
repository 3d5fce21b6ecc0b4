#include "model/PageTemplateDocument.h"

#include "foundation/ParserSection.h"
#include "foundation/Text.h"
#include "model/SafeFile.h"
#include "model/TemplateParser.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>

namespace paperkite::test {

namespace {

constexpr const char* kTemplate = R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- ours -->
<pagetemplate   version="1" name="Plain" language="German" options="x" newer="yes">
  <description>Pages.</description>
  <namespace moniker="kite.source">
    <element name="notice" category="Page">
      <description>A note.</description>
      <attribute name="text" required="true">What it says.</attribute>
      <attribute name="color" type="color"/>
      <attribute name="until" type="date"/>
      <attribute name="tag" type="list" source="taggedcommentdefs"/>
      <attribute name="kind" type="list" source="values" values="red:#FF0000,blue"/>
    </element>
  </namespace>
  <level name="kite.source:Class" caption="Classes" children="kite.source:Class,kite.source:Method"/>
  <level name="kite.source:Method" caption="Methods"/>
  <layout name="Class" file="class.html" filenametemplate="%%itemqualifiedname%%.html" namespaces="kite.source:Class"/>
  <layout name="Frame" file="frame.html" internal="true" excludedelements="notice"/>
  <variable name="Accent color" type="color" caption="Colour">#123456</variable>
  <phrase name="Remarks">Bemerkungen</phrase>
  <scrap name="Footer"><![CDATA[<p>End</p>]]></scrap>
  <file path="style.css"/>
  <future>kept</future>
</pagetemplate>
)";

class PageTemplateDocumentTest : public testing::Test {
protected:
    void WriteAll(const std::string& description = kTemplate) {
        mFolder.Write("plain/template.xml", description);
        for (const char* file : {"class.html", "frame.html", "sample.html", "style.css"})
            mFolder.Write(std::string("plain/") + file, "text");
    }
    PageTemplateDocument::OpenResult Open() const {
        return PageTemplateDocument::Open(mFolder / "plain");
    }
    /// What is said of a description, from the place on.
    std::string ProblemOf(const std::string& description) {
        WriteAll(description);
        const auto opened = Open();
        EXPECT_FALSE(opened.Template);
        const std::string message = opened.Problem ? opened.Problem->Message() : "none";
        const std::size_t cut = message.find("template.xml:");
        return cut == std::string::npos ? message : message.substr(cut + 13);
    }
    static std::string With(const std::string& content) {
        return "<pagetemplate version=\"1\" name=\"A\">\n<layout name=\"L\" file=\"l.html\"/>\n" +
               content + "</pagetemplate>\n";
    }

    TemporaryFolder mFolder;
};

TEST_F(PageTemplateDocumentTest, ACategoryGivesAttributesToItsElements) {
    const std::string category = "<category name=\"Page\"><attribute name=\"heading\" "
                                 "type=\"number\" required=\"true\">Level.</attribute></category>";
    WriteAll(ReplaceAll(kTemplate, "<element name=", category + "<element name="));
    const auto opened = Open();
    ASSERT_TRUE(opened.Template) << (opened.Problem ? opened.Problem->Message() : "");
    const auto& served = *opened.Template->Namespaces.at(0);
    ASSERT_EQ(served.CategoryDefs.Count(), 1u);
    const auto heading = served.CategoryDefs.Item("page")->AttributeDefs.Item("heading");
    EXPECT_EQ(heading->AttributeType, "number");
    EXPECT_TRUE(heading->Required);
    EXPECT_EQ(served.ElementDefs.Count(), 1u);
    served.CategoryDefs.Item("page")->Description = "Parts of pages.";
    ASSERT_FALSE(opened.Template->Save());
    const auto again = Open();
    ASSERT_TRUE(again.Template);
    const auto saved = again.Template->Namespaces.at(0)->CategoryDefs.Item("Page");
    EXPECT_EQ(saved->Description, "Parts of pages.");
    EXPECT_EQ(saved->AttributeDefs.Item("heading")->Description, "Level.");
    EXPECT_NE(
        ProblemOf(ReplaceAll(kTemplate, "<element name=", category + category + "<element name="))
            .find("There are two categories"),
        std::string::npos);
}

TEST_F(PageTemplateDocumentTest, EverythingOfADescriptionIsRead) {
    WriteAll();
    const auto opened = Open();
    ASSERT_TRUE(opened.Template);
    EXPECT_TRUE(opened.Warnings.empty());
    const PageTemplate& plain = *opened.Template;
    EXPECT_EQ(plain.Name + "|" + plain.Language + "|" + plain.Options + "|" + plain.Description,
              "Plain|German|x|Pages.");
    EXPECT_EQ(plain.Folder, mFolder / "plain");
    ASSERT_EQ(plain.Namespaces.size(), 1u);
    const auto notice = plain.Namespaces[0]->ElementDefs.Item("NOTICE");
    EXPECT_EQ(notice->Category + "|" + notice->Description, "Page|A note.");
    std::string attributes;
    for (const auto& a : notice->AttributeDefs)
        attributes += a->Name + "," + a->AttributeType + "," + (a->Required ? "!" : "") + "," +
                      a->ValueSource + "," + a->Values + "," + a->Description + ";";
    EXPECT_EQ(attributes, "text,,!,,,What it says.;color,color,,,,;until,date,,,,;"
                          "tag,list,,taggedcommentdefs,,;"
                          "kind,list,,values,red:#FF0000,blue,;");
    const auto level = plain.NamespaceDefs->Item("kite.source:Class");
    EXPECT_EQ(level->ItemType + "|" + level->Moniker + "|" + level->GroupCaption,
              "Class|kite.source|Classes");
    EXPECT_EQ(level->GetChildDefs()->Count(), 2u);
    const auto layout = plain.PageLayouts->Item("Class");
    EXPECT_EQ(layout->FileName + "|" + layout->FileNameTemplate + "|" + layout->Namespaces,
              "class.html|%%itemqualifiedname%%.html|kite.source:Class");
    EXPECT_FALSE(layout->Internal);
    EXPECT_TRUE(plain.PageLayouts->Item("Frame")->Internal);
    EXPECT_EQ(plain.PageLayouts->Item("Frame")->ExcludedElements, "notice");
    const auto variable = plain.VariableDefs.Item("accent color");
    EXPECT_EQ(variable->ItemType, 104);
    EXPECT_EQ(variable->Caption + "|" + variable->DefaultValue, "Colour|#123456");
    EXPECT_EQ(plain.Phrases.Item("Remarks")->Text, "Bemerkungen");
    EXPECT_EQ(plain.Scraps.Item("Footer")->Text, "<p>End</p>");
    EXPECT_EQ(Join(plain.Files, ","), "style.css");
}

TEST_F(PageTemplateDocumentTest, SavingWithoutAChangeKeepsEveryByte) {
    const std::string bytes = ReplaceAll(kTemplate, "\n", "\r\n");
    WriteAll(bytes);
    const auto opened = Open();
    ASSERT_TRUE(opened.Template);
    EXPECT_FALSE(opened.Template->Save());
    EXPECT_EQ(mFolder.Read("plain/template.xml"), bytes);
}

TEST_F(PageTemplateDocumentTest, AChangeIsWrittenAndWhatIsUnknownIsKept) {
    WriteAll();
    const auto opened = Open();
    opened.Template->Phrases.Item("Remarks")->Text = "Hinweise";
    ASSERT_FALSE(opened.Template->Save());
    const std::string bytes = mFolder.Read("plain/template.xml");
    for (const char* part : {"Hinweise", "newer=\"yes\"", "<future>kept</future>", "<!-- ours -->"})
        EXPECT_NE(bytes.find(part), std::string::npos) << part << "\n" << bytes;
    const auto again = Open();
    ASSERT_TRUE(again.Template);
    EXPECT_EQ(again.Template->Phrases.Item("Remarks")->Text, "Hinweise");
    EXPECT_EQ(again.Template->Namespaces[0]->ElementDefs.Item("notice")->AttributeDefs.Count(), 5u);
    EXPECT_EQ(again.Template->Scraps.Item("Footer")->Text, "<p>End</p>");
}

TEST_F(PageTemplateDocumentTest, AFileThatAnotherProgramChangedIsNotReplaced) {
    WriteAll();
    const auto opened = Open();
    opened.Template->Name = "Mine";
    mFolder.Write("plain/template.xml", "theirs");
    const auto problem = opened.Template->Save();
    ASSERT_TRUE(problem);
    EXPECT_EQ(problem->Reason, FileProblem::ReasonCode::ChangedOnDisk);
    EXPECT_EQ(mFolder.Read("plain/template.xml"), "theirs");
}

TEST_F(PageTemplateDocumentTest, ANewTemplateGetsAFolder) {
    auto made = MakeRef<PageTemplateDocument>();
    made->Folder = mFolder / "new";
    made->Name = "New";
    auto layout = MakeRef<PageLayout>();
    layout->Name = "All";
    layout->FileName = "all.html";
    made->PageLayouts->Add(layout);
    ASSERT_FALSE(made->Save());
    ASSERT_FALSE(made->WriteLayout(*layout, "<p>x</p>"));
    const auto opened = PageTemplateDocument::Open(mFolder / "new");
    ASSERT_TRUE(opened.Template);
    std::string text;
    ASSERT_FALSE(opened.Template->ReadLayout(*opened.Template->PageLayouts->Item("All"), text));
    EXPECT_EQ(text, "<p>x</p>");
}

TEST_F(PageTemplateDocumentTest, WithoutASampleOrAFileItCanBeUsedAndSaysSo) {
    WriteAll();
    for (const char* file : {"sample.html", "class.html", "style.css"})
        std::filesystem::remove(mFolder / ("plain/" + std::string(file)));
    const auto opened = Open();
    ASSERT_TRUE(opened.Template);
    ASSERT_EQ(opened.Warnings.size(), 3u);
    EXPECT_EQ(opened.Warnings[0].Message(),
              (mFolder / "plain/sample.html") +
                  ": The template has no sample page. Put a page that shows what it looks like "
                  "there; until then nothing is shown when it is chosen.");
    EXPECT_EQ(opened.Warnings[1].What, "The layout \"Class\" has no file.");
    EXPECT_EQ(opened.Warnings[2].What, "A file that pages need is not there.");
}

TEST_F(PageTemplateDocumentTest, WhatIsWrongIsToldWithItsPlaceAndHowToMendIt) {
    EXPECT_EQ(ProblemOf("<pagetemplate version=\"1\" name=\"A\"/>"),
              "1:1: This template has no layout. Add a <layout name=\"…\" file=\"….html\" "
              "namespaces=\"…\"/> for each kind of page.");
    EXPECT_EQ(ProblemOf("<pagetemplate version=\"1\"/>"),
              "1:1: This template does not say its name. Add name=\"…\" to it, or remove it.");
    EXPECT_EQ(ProblemOf(With("<layout name=\"l2\"/>")),
              "3:1: This layout does not say its file. Add file=\"…\" to it, or remove it.");
    EXPECT_EQ(ProblemOf(With("<layout name=\"L\" file=\"x.html\"/>")),
              "3:1: There are two layouts of this name. Rename or remove one of the two.");
    EXPECT_EQ(ProblemOf(With("<layout name=\"M\" file=\"../secret.html\"/>")),
              "3:1: \"../secret.html\" is outside the template's folder. Copy the file into the "
              "folder and name it by its path there.");
    EXPECT_EQ(ProblemOf(With("<variable name=\"v\" type=\"colour\"/>")),
              "3:1: \"colour\" is no type of a variable. Use text, number, date, boolean, file, "
              "color or list.");
    EXPECT_EQ(ProblemOf(With("<level name=\"a:B\" children=\"a:C\"/>")),
              "3:1: There is no level \"a:C\". Add a <level name=\"a:C\"/>, or take it out of "
              "children.");
}

TEST_F(PageTemplateDocumentTest, AFileOfANewerVersionIsRefused) {
    EXPECT_NE(ProblemOf("<pagetemplate version=\"2\" name=\"A\"/>").find("newer version"),
              std::string::npos);
}

TEST_F(PageTemplateDocumentTest, AllTemplatesOfAFolderAreOpenedAndTheBadOnesNamed) {
    WriteAll();
    mFolder.Write("broken/template.xml", "<pagetemplate");
    mFolder.Write("empty/readme.txt", "");
    mFolder.Write("twice/template.xml", kTemplate);
    Collection<Ref<PageTemplate>> templates;
    const auto problems = PageTemplateDocument::OpenAll(mFolder.Path(), templates);
    ASSERT_EQ(templates.Count(), 1u);
    EXPECT_EQ(templates.Item(std::size_t{1})->Name, "Plain");
    std::string told;
    for (const FileProblem& problem : problems)
        told += std::filesystem::path(problem.File).parent_path().filename().string() + ":" +
                std::to_string(static_cast<int>(problem.Reason)) + " ";
    using Reason = FileProblem::ReasonCode;
    const auto number = [](Reason reason) { return std::to_string(static_cast<int>(reason)); };
    EXPECT_EQ(told, "broken:" + number(Reason::NotXml) + " empty:" + number(Reason::Missing) +
                        " twice:" + number(Reason::BadContent) + " ");
    EXPECT_TRUE(PageTemplateDocument::OpenAll(mFolder / "nowhere", templates).empty());
}

/// The templates of the program; each problem is a failure.
Collection<Ref<PageTemplate>> ShippedTemplates() {
    Collection<Ref<PageTemplate>> templates;
    for (const FileProblem& problem :
         PageTemplateDocument::OpenAll(PAPERKITE_SOURCE_DIR "/templates", templates))
        ADD_FAILURE() << problem.Message();
    EXPECT_EQ(templates.Count(), 2u);
    return templates;
}

std::string TextOf(const PageTemplate& shown, const PageLayout& layout) {
    std::string text;
    if (const auto problem = SafeFile::Read(shown.Folder + "/" + layout.FileName, text))
        ADD_FAILURE() << problem->Message();
    return text;
}

bool Serves(const PageLayout& layout, const std::string& level) {
    const auto levels = Split(layout.Namespaces, ",");
    return std::find(levels.begin(), levels.end(), level) != levels.end();
}

/// The types of the elements in a layout, also those in other elements.
std::set<std::string> TypesIn(const std::string& layout) {
    std::set<std::string> types;
    TemplateParser parser;
    parser.SetPageLayoutTags();
    parser.LoadText(layout);
    EXPECT_EQ(parser.GetParseErrors(), "");
    for (const auto& element : parser.GetSections()->Item(std::size_t{1})->Elements) {
        if (element->ElementType != kParserTagElement) continue;
        types.insert(element->Attributes.Item("type")->Value);
        types.merge(TypesIn(element->Text));
    }
    return types;
}

TEST_F(PageTemplateDocumentTest, TheLayoutsOfTheProgramHaveNoMistakeAndOnlyDefinedElements) {
    for (const auto& shown : ShippedTemplates()) {
        const auto& defined = shown->Namespaces[0]->ElementDefs;
        std::set<std::string> used;
        for (const auto& layout : *shown->PageLayouts)
            used.merge(TypesIn(TextOf(*shown, *layout)));
        for (const auto& scrap : shown->Scraps)
            used.merge(TypesIn(scrap->Text));
        EXPECT_TRUE(used.contains("members") && used.contains("name") && used.contains("variable"));
        for (const std::string& type : used)
            EXPECT_TRUE(defined.Contains(type)) << shown->Name << ": " << type;
        for (const char* property : {"name", "caption", "qualifiedname", "kind", "access",
                                     "language", "signature", "type", "file", "line", "inherits"}) {
            ASSERT_TRUE(defined.Contains(property)) << shown->Name << ": " << property;
            EXPECT_EQ(defined.Item(property)->Category, "Item");
            EXPECT_NE(defined.Item(property)->Description, "");
        }
    }
}

TEST_F(PageTemplateDocumentTest, EachLevelOfSourceCodeHasALayoutInTheTemplatesOfTheProgram) {
    for (const auto& shown : ShippedTemplates()) {
        EXPECT_EQ(shown->NamespaceDefs->Count(), 26u) << shown->Name;
        for (const auto& level : *shown->NamespaceDefs) {
            const auto first = std::find_if(
                shown->PageLayouts->begin(), shown->PageLayouts->end(),
                [&](const Ref<PageLayout>& layout) { return Serves(*layout, level->Name); });
            ASSERT_NE(first, shown->PageLayouts->end()) << shown->Name << ": " << level->Name;
            EXPECT_EQ((*first)->FileNameTemplate, "%%itemqualifiedname%%.html") << level->Name;
        }
    }
}

// A link takes the first layout whose levels are exactly the item's; see
// ProjectEditor::cEditor_HyperlinkClick. Pages are listed by files and chosen by names.
TEST_F(PageTemplateDocumentTest, APlainLinkToAClassLeadsToItsOwnPage) {
    for (const auto& shown : ShippedTemplates()) {
        std::vector<std::string> chosen;
        for (const auto& layout : *shown->PageLayouts) {
            if (layout->Namespaces.find(',') != std::string::npos) continue;
            EXPECT_EQ(layout->Name, layout->FileName) << shown->Name;
            if (layout->Namespaces == "kite.source:Class") chosen.push_back(layout->Name);
        }
        EXPECT_EQ(Join(chosen, ","), "type.html,allmembers.html") << shown->Name;
    }
}

TEST_F(PageTemplateDocumentTest, TheTemplatesOfTheProgramAreWholeAndServeEveryAttributeKind) {
    const auto templates = ShippedTemplates();
    for (const auto& shown : templates) {
        std::set<std::string> kinds;
        std::set<std::string> sources;
        for (const auto& element : shown->Namespaces[0]->ElementDefs)
            for (const auto& attribute : element->AttributeDefs) {
                kinds.insert(attribute->AttributeType);
                if (!attribute->ValueSource.empty()) sources.insert(attribute->ValueSource);
            }
        EXPECT_EQ(kinds, (std::set<std::string>{"boolean", "color", "date", "file", "list",
                                                "number", "text"}));
        EXPECT_EQ(sources,
                  (std::set<std::string>{"childnamespaces", "namespaces", "phrases", "scraps",
                                         "taggedcommentdefs", "values", "variables"}));
        EXPECT_GT(shown->VariableDefs.Count(), 0u);
        EXPECT_GT(shown->Scraps.Count(), 0u);
    }
}

} // namespace

} // namespace paperkite::test
