#include "designers/dsrCommentsFrom.h"
#include "designers/dsrExampleSource.h"
#include "designers/dsrIsExample.h"
#include "support/DesignerTest.h"
#include "widgets/Keys.h"

namespace paperkite::test {
namespace {

class dsrCommentsFromTest : public DesignerTest<dsrCommentsFrom> {
protected:
    dsrCommentsFromTest() : DesignerTest("dsrCommentsFrom") {}
    std::string Message() const { return mControl->lblMessage->GetCaption(); }
    std::string Shown() const { return mControl->edComments->GetDocumentHTML(); }
};

TEST_F(dsrCommentsFromTest, ShowingAndLeavingChangesNothing) {
    for (const char* text : {"", "zoo~Cat", " zoo~Cat", "zoo~Gone", "zoo~Dog", "<a>x</a>", "a\nb"})
        EXPECT_EQ(AfterLookingAt(text), text + std::string(";"));
}

TEST_F(dsrCommentsFromTest, AnItemChosenInTheTreeIsTaken) {
    mCat->Comment("##remarks", "<p>Purrs.</p>");
    Show({});
    EXPECT_EQ(TreeText(*mControl->tvwItems).find("Bark"), std::string::npos)
        << "levels come when they are opened";
    mControl->tvwItems->UserSelect(mControl->tvwItems->Nodes.Item("zoo~Cat"));
    EXPECT_EQ(mHost.Take(), "") << "looking takes nothing";
    EXPECT_NE(Shown().find("<p>Purrs.</p>"), std::string::npos);
    mControl->tvwItems->UserKeyDown(KeyReturn, 0);
    EXPECT_EQ(mHost.Take(), "+zoo~Cat;");
    EXPECT_EQ(mControl->txtItem->GetText(), "zoo~Cat");
    mControl->txtItem->UserType("");
    EXPECT_EQ(mHost.Take(), "-zoo~Cat;");
}

TEST_F(dsrCommentsFromTest, TheStoredItemIsShownInTheTree) {
    mBark->Comment("##remarks", "Loud.");
    Show({"zoo~Dog~Bark"});
    ASSERT_TRUE(mControl->tvwItems->GetSelectedItem());
    EXPECT_EQ(mControl->tvwItems->GetSelectedItem()->GetKey(), "zoo~Dog~Bark");
    EXPECT_NE(Shown().find("Loud."), std::string::npos);
}

TEST_F(dsrCommentsFromTest, ItselfAndCirclesAreRefusedWithASentence) {
    mCat->Comment("##tag", "zoo~Dog");
    Show({});
    mControl->txtItem->UserType("zoo~Dog");
    EXPECT_EQ(Message(), "An item cannot take its own comments. Choose another one.");
    mControl->txtItem->UserType("zoo~Cat");
    EXPECT_NE(Message().find("in a circle"), std::string::npos) << Message();
    mDesigner->CommitEdit();
    EXPECT_EQ(mHost.Take(), "");
}

TEST_F(dsrCommentsFromTest, WhatTheOtherItemTakesIsShownToo) {
    mCat->Comment("##tag", "zoo~Dog~Bark");
    mCat->Comment("##a", "of the cat");
    mBark->Comment("##a", "hidden");
    mBark->Comment("##b", "of the bark");
    Show({"zoo~Cat"});
    EXPECT_NE(Shown().find("of the cat"), std::string::npos);
    EXPECT_NE(Shown().find("of the bark"), std::string::npos);
    EXPECT_EQ(Shown().find("hidden"), std::string::npos) << "the nearer comment counts";
}

TEST_F(dsrCommentsFromTest, ANameThatIsNotThereYetIsStoredWhenTheAuthorGoesOn) {
    Show({});
    mControl->txtItem->UserType("zoo~Emu");
    EXPECT_EQ(mHost.Take(), "");
    EXPECT_NE(Message().find("There is no item \"zoo~Emu\""), std::string::npos);
    mDesigner->CommitEdit();
    EXPECT_EQ(mHost.Take(), "+zoo~Emu;");
}

class dsrIsExampleTest : public DesignerTest<dsrIsExample> {
protected:
    dsrIsExampleTest() : DesignerTest("dsrIsExample") {}
};

TEST_F(dsrIsExampleTest, ShowingAndLeavingChangesNothing) {
    for (const char* text :
         {"", "Title", "Title\nof: zoo~Cat\nof: zoo~Gone", "of: a\nof: a", "one\ntwo", "<p>x</p>"})
        EXPECT_EQ(AfterLookingAt(text), text + std::string(";"));
}

TEST_F(dsrIsExampleTest, TitleAndItemsAreStored) {
    Show({});
    mControl->chkExample->UserClick();
    EXPECT_EQ(mHost.Take(), "+;");
    mControl->txtTitle->UserType("Feeds it");
    EXPECT_EQ(mHost.Take(), "=Feeds it;");
    mControl->tvwItems->UserSelect(mControl->tvwItems->Nodes.Item("zoo~Cat"));
    mControl->cmdAdd->UserClick();
    mControl->cmdAdd->UserClick();
    EXPECT_EQ(mHost.Take(), "=Feeds it\nof: zoo~Cat;") << "once is enough";
    mControl->tvwItems->UserSelect(mControl->tvwItems->Nodes.Item("zoo~Dog"));
    mControl->cmdAdd->UserClick();
    EXPECT_EQ(mControl->lblMessage->GetCaption(), "An item is no example of itself.");
    mControl->lstItems->UserClick(0);
    mControl->lstItems->UserKeyDown(KeyDelete, 0);
    EXPECT_EQ(mHost.Take(), "=Feeds it;");
    mControl->chkExample->UserClick();
    EXPECT_EQ(mHost.Take(), "-Feeds it;");
}

class dsrExampleSourceTest : public DesignerTest<dsrExampleSource> {
protected:
    dsrExampleSourceTest() : DesignerTest("dsrExampleSource") {
        CurrentServices().FollowFile = [this](const std::string& path,
                                              std::function<void()> changed) {
            mFollowed = path;
            mChanged = std::move(changed);
            return std::make_shared<int>();
        };
        mServices.Files->Texts["/project/ex/a.cpp"] = kSource;
    }
    static constexpr const char* kSource = "int a;\n//! [one]\n  int b;\n//! [one]\n"
                                           "#region two\nint c;\n#endregion\n";
    std::string Code() const { return mControl->txtCode->GetText(); }
    std::string Message() const { return mControl->lblMessage->GetCaption(); }

    std::string mFollowed;
    std::function<void()> mChanged;
};

TEST_F(dsrExampleSourceTest, ShowingAndLeavingChangesNothing) {
    for (const char* text : {"", "source: ex/a.cpp", "source: ex/a.cpp#one", "source: ex/a.cpp:3-9",
                             "source: gone.c:1", "source:  ex/a.cpp#two \n\n Caption \n",
                             "source: ex/a.cpp:9-3", "<pre>x</pre>", "See the manual.", "source: "})
        EXPECT_EQ(AfterLookingAt(text), text + std::string(";"));
}

TEST_F(dsrExampleSourceTest, APartIsTakenFromTheFile) {
    Show({});
    mControl->txtFile->UserType("ex/a.cpp");
    EXPECT_EQ(mHost.Take(), "+source: ex/a.cpp;");
    EXPECT_EQ(Code(), "int a;\n  int b;\nint c;") << "marks of regions are no example";
    mControl->optRegion->UserClick();
    mControl->cboRegion->UserChoose(0);
    EXPECT_EQ(Texts(), "source: ex/a.cpp#one;");
    EXPECT_EQ(Code(), "  int b;");
    EXPECT_EQ(mControl->txtCode->GetFirstLine(), 3);
    mControl->optLines->UserClick();
    mControl->txtFrom->UserType("6");
    EXPECT_EQ(Texts(), "source: ex/a.cpp:6;");
    EXPECT_EQ(Code(), "int c;");
    mControl->txtCaption->UserType("Three");
    EXPECT_EQ(Texts(), "source: ex/a.cpp:6\nThree;");
}

TEST_F(dsrExampleSourceTest, TheFileIsFollowed) {
    Show({"source: ex/a.cpp#one"});
    EXPECT_EQ(mFollowed, "/project/ex/a.cpp");
    mServices.Files->Texts["/project/ex/a.cpp"] = "//! [one]\nnew\n//! [one]\n";
    mChanged();
    EXPECT_EQ(Code(), "new");
    mServices.Files->Texts["/project/ex/a.cpp"] = "//! [other]\nnew\n//! [other]\n";
    mDesigner->SetActive(true);
    EXPECT_EQ(Code(), "");
    EXPECT_EQ(Message(), "\"ex/a.cpp\" has no region \"one\". It has other; choose one of these.");
    mServices.Files->Texts.clear();
    mChanged();
    EXPECT_EQ(Message(), "There is no file \"ex/a.cpp\". Choose another, or put it back; what is "
                         "stored stays.");
    EXPECT_EQ(mHost.Take(), "");
    EXPECT_EQ(Texts(), "source: ex/a.cpp#one;");
}

TEST_F(dsrExampleSourceTest, LinesBehindTheEndAreTold) {
    Show({"source: ex/a.cpp:7-12"});
    EXPECT_EQ(Message(), "\"ex/a.cpp\" has only 7 lines; choose the lines of the example again.");
}

} // namespace
} // namespace paperkite::test
