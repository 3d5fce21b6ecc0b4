#include "designers/dsrIsNew.h"
#include "designers/dsrKeywords.h"
#include "designers/dsrMenuItem.h"
#include "designers/dsrSubItem.h"
#include "designers/dsrXMLIsland.h"
#include "support/DesignerTest.h"
#include "widgets/Keys.h"

namespace paperkite::test {
namespace {

class dsrKeywordsTest : public DesignerTest<dsrKeywords> {
protected:
    dsrKeywordsTest() : DesignerTest("dsrKeywords") {}
    void Add(const std::string& keyword) {
        mControl->txtKeyword->UserType(keyword);
        mControl->txtKeyword->UserKeyDown(KeyReturn, 0);
    }
};

TEST_F(dsrKeywordsTest, ShowingAndLeavingChangesNothing) {
    for (const char* text : {"", "dogs", "dogs, cats", "b\na", "a\n\n a \na", "files>open", " x ",
                             "<p>dogs</p>", "a &amp; b"})
        EXPECT_EQ(AfterLookingAt(text), text + std::string(";"));
}

TEST_F(dsrKeywordsTest, AWordIsAddedAtItsPlaceInTheAlphabet) {
    Show({});
    Add("dogs");
    EXPECT_EQ(mHost.Take(), "+dogs;");
    Add("animals>pets,  cats");
    EXPECT_EQ(mHost.Take(), "=animals>pets\ncats\ndogs;");
    EXPECT_EQ(mControl->txtKeyword->GetText(), "");
    Add("pets > small");
    EXPECT_EQ(mHost.Take(), "=animals>pets\ncats\ndogs\npets > small;");
}

TEST_F(dsrKeywordsTest, AWordThatIsThereIsRefusedWithAWord) {
    Show({"dogs\ncats"});
    Add("DOGS");
    EXPECT_EQ(mHost.Take(), "");
    EXPECT_EQ(mControl->lblMessage->GetCaption(), "The index has \"DOGS\" already.");
    EXPECT_EQ(mControl->txtKeyword->GetText(), "DOGS") << "what was refused can be mended";
}

TEST_F(dsrKeywordsTest, TheSelectedWordIsChangedOrRemoved) {
    Show({"dogs\ncats"});
    mControl->lstKeywords->UserClick(1);
    EXPECT_EQ(mControl->txtKeyword->GetText(), "cats");
    mControl->txtKeyword->UserType("tom cats");
    mControl->cmdChange->UserClick();
    EXPECT_EQ(mHost.Take(), "=dogs\ntom cats;");
    mControl->lstKeywords->UserKeyDown(KeyDelete, 0);
    EXPECT_EQ(mHost.Take(), "=dogs;");
    mControl->cmdRemove->UserClick();
    EXPECT_EQ(mHost.Take(), "-dogs;");
    EXPECT_FALSE(mControl->cmdRemove->GetEnabled());
}

TEST_F(dsrKeywordsTest, ATextOfAnotherFormIsKeptUntilItIsReplaced) {
    Show({"<p>dogs</p>"});
    EXPECT_TRUE(mControl->pnlForeign->GetVisible());
    EXPECT_FALSE(mControl->pnlFields->GetVisible());
    EXPECT_EQ(mControl->txtForeign->GetText(), "<p>dogs</p>");
    mControl->txtForeign->UserType("<p>dogs!</p>");
    EXPECT_EQ(mHost.Take(), "=<p>dogs!</p>;");
    mControl->cmdAnew->UserClick();
    EXPECT_EQ(mHost.Take(), "") << "nothing goes before something new comes";
    Add("dogs");
    EXPECT_EQ(mHost.Take(), "=dogs;");
}

class dsrIsNewTest : public DesignerTest<dsrIsNew> {
protected:
    dsrIsNewTest() : DesignerTest("dsrIsNew") {}
};

TEST_F(dsrIsNewTest, ShowingAndLeavingChangesNothing) {
    for (const char* text : {"", "1.4", " 1.4 ", "since 1.4\n", "<b>1.4</b>", "a\nb"})
        EXPECT_EQ(AfterLookingAt(text), text + std::string(";"));
}

TEST_F(dsrIsNewTest, TheTickIsTheComment) {
    Show({});
    mControl->chkNew->UserClick();
    EXPECT_EQ(mHost.Take(), "+;");
    EXPECT_EQ(mControl->lblShown->GetCaption(), "Pages say: New.");
    mControl->txtVersion->UserType("1.4");
    EXPECT_EQ(mHost.Take(), "=1.4;");
    mControl->chkNew->UserClick();
    EXPECT_EQ(mHost.Take(), "-1.4;");
    EXPECT_EQ(mControl->txtVersion->GetText(), "");
}

TEST_F(dsrIsNewTest, AVersionTicksTheBox) {
    Show({});
    mControl->txtVersion->UserType("2");
    EXPECT_TRUE(mControl->chkNew->GetChecked());
    EXPECT_EQ(mHost.Take(), "+2;");
    mControl->txtVersion->UserType("");
    EXPECT_EQ(mHost.Take(), "=;") << "it is still new";
}

class dsrMenuItemTest : public DesignerTest<dsrMenuItem> {
protected:
    dsrMenuItemTest() : DesignerTest("dsrMenuItem") {}
};

TEST_F(dsrMenuItemTest, ShowingAndLeavingChangesNothing) {
    for (const char* text : {"File > Save", "File>Save|x", "keys: F2", "File > Save\nkeys: Ctrl+S",
                             "one\ntwo", "<p>File</p>", ""})
        EXPECT_EQ(AfterLookingAt(text), text + std::string(";"));
}

TEST_F(dsrMenuItemTest, PathAndKeysMakeTwoLines) {
    Show({});
    mControl->txtPath->UserType("File -> Export");
    EXPECT_EQ(mHost.Take(), "+File > Export;");
    mControl->txtKeys->UserType("Ctrl+E");
    EXPECT_EQ(mHost.Take(), "=File > Export\nkeys: Ctrl+E;");
    EXPECT_EQ(mControl->lblShown->GetCaption(), "Pages say: File › Export (Ctrl+E)");
    mControl->txtPath->UserType("");
    EXPECT_EQ(mHost.Take(), "=keys: Ctrl+E;");
    mControl->txtKeys->UserType("");
    EXPECT_EQ(mHost.Take(), "-keys: Ctrl+E;");
}

class dsrSubItemTest : public DesignerTest<dsrSubItem> {
protected:
    dsrSubItemTest() : DesignerTest("dsrSubItem") {}
};

TEST_F(dsrSubItemTest, ShowingAndLeavingChangesNothing) {
    for (const char* text :
         {"<dl>\n<dt>a</dt><dd>One &amp; two<br>three</dd>\n</dl>", "<DL><DT>a</DT><DD>b</DD></DL>",
          "<dl><dt>a<dd>b</dl>", "<dl><dt>a</dt><dd>a <b>bold</b></dd></dl>", "plain", "<dl></dl>",
          "<dl class=x></dl>", ""})
        EXPECT_EQ(AfterLookingAt(text), text + std::string(";"));
}

TEST_F(dsrSubItemTest, PartsAreAddedNamedAndMoved) {
    Show({});
    mControl->cmdAdd->UserClick();
    mControl->txtName->UserType("fast");
    mControl->txtText->UserType("Leaves\nx < y");
    mHost.Take();
    mControl->cmdAdd->UserClick();
    EXPECT_EQ(mControl->txtText->GetText(), "");
    mControl->txtName->UserType("safe");
    EXPECT_EQ(mHost.Take(),
              "=<dl>\n<dt>fast</dt><dd>Leaves<br>x &lt; y</dd>\n<dt></dt><dd></dd>\n</dl>;"
              "=<dl>\n<dt>fast</dt><dd>Leaves<br>x &lt; y</dd>\n<dt>safe</dt><dd></dd>\n</dl>;");
    mControl->cmdUp->UserClick();
    EXPECT_EQ(mHost.Take(),
              "=<dl>\n<dt>safe</dt><dd></dd>\n<dt>fast</dt><dd>Leaves<br>x &lt; y</dd>\n</dl>;");
    EXPECT_FALSE(mControl->cmdUp->GetEnabled());
    mControl->lstItems->UserKeyDown(KeyDelete, 0);
    mControl->lstItems->UserKeyDown(KeyDelete, 0);
    EXPECT_EQ(Texts(), "");
}

TEST_F(dsrSubItemTest, GoingThroughThePartsChangesNothing) {
    Show({"<dl><dt>a</dt><dd>b</dd><dt>c</dt><dd>d</dd></dl>"});
    mControl->lstItems->UserClick(1);
    EXPECT_EQ(mControl->txtText->GetText(), "d");
    mControl->lstItems->UserClick(0);
    EXPECT_EQ(mHost.Take(), "");
    mControl->txtName->UserType("C");
    EXPECT_EQ(mControl->lblMessage->GetCaption(), "Another part bears the name \"C\" too.");
}

class dsrXMLIslandTest : public DesignerTest<dsrXMLIsland> {
protected:
    dsrXMLIslandTest() : DesignerTest("dsrXMLIsland") {}
    std::string State() const { return mControl->lblState->GetCaption(); }
};

TEST_F(dsrXMLIslandTest, ShowingAndLeavingChangesNothing) {
    for (const char* text : {"", "<a/>", "<a>\r\n<b></a>", "text & more", " <a/>\n\n"})
        EXPECT_EQ(AfterLookingAt(text), text + std::string(";"));
}

TEST_F(dsrXMLIslandTest, WhatIsTypedIsStoredAndChecked) {
    Show({});
    EXPECT_EQ(State(), "Write or paste XML; it is checked while you type.");
    mControl->txtXML->UserType("<a>\n  <b>");
    EXPECT_EQ(mHost.Take(), "+<a>\n  <b>;");
    EXPECT_EQ(State().substr(0, 7), "Line 2,") << State();
    EXPECT_TRUE(mControl->cmdGoTo->GetVisible());
    mControl->txtXML->UserType("<a>\n  <b/></a>");
    EXPECT_EQ(State(), "The XML is well-formed.");
    EXPECT_EQ(mControl->txtXML->GetMarkedLine(), 0);
    mControl->txtXML->UserType("");
    EXPECT_EQ(mHost.Take(), "=<a>\n  <b/></a>;-<a>\n  <b/></a>;");
}

TEST_F(dsrXMLIslandTest, TheWrongPlaceIsGoneToByItsCharacters) {
    Show({"<a>\n<ä>é & b</ä></a>"});
    EXPECT_EQ(mControl->txtXML->GetMarkedLine(), 2);
    EXPECT_EQ(mControl->txtXML->GetMarkedColumn(), 6);
    mControl->cmdGoTo->UserClick();
    EXPECT_EQ(mControl->txtXML->GetText().substr(mControl->txtXML->GetSelStart(), 3), "& b");
}

} // namespace
} // namespace paperkite::test
