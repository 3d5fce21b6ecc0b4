#include "journeys/LayoutTest.h"
#include "platform/qt/CodeArea.h"
#include "support/NarrowWorld.h"
#include "support/PageClick.h"

#include <QAction>
#include <QApplication>
#include <QPlainTextEdit>

#include <filesystem>

// A template author edits a page layout with its elements in sight.

namespace paperkite::test {
namespace {

const std::string kPrologue = "<!DOCTYPE html>\n";
const std::string kName = "<!--KITEMETADATA start type=\"name\"--><!--KITEMETADATA end-->";

std::string FileOf(const std::string& body) {
    return kPrologue + "<html><head><title>T</title></head><body>" + body + "</body></html>\n";
}

class LayoutJourneyTest : public LayoutTest {
protected:
    bool Waits(const std::string& body) {
        return WaitUntil([&] { return Body() == body; });
    }
    /// Clicks behind the first word, where the element stands.
    bool ClickElement() {
        return ClickUntil(LayoutPage().GetSurface()->InputWidget(), QPoint(80, 26), [&] {
            return Edit().IsInsideMetaSpan(Edit().dedDocument->GetCurrentElement());
        });
    }
};

TEST_F(LayoutJourneyTest, AnElementIsAddedAndBroughtBackAndTheFileSaysSo) {
    OpenLayouts();
    ClickLayout("L:Modern/type.html");
    WaitForLayout();
    EXPECT_EQ(Body(), "<p>Alpha</p>");
    EXPECT_FALSE(Window().isWindowModified());
    Edit().dedDocument->SetEditFocus();
    ASSERT_TRUE(WaitUntil([&] { return Edit().dedDocument->IsCommandEnabled("bold"); }));
    AnswerElementDialog("name", "OK");
    Do("AddElement");
    EXPECT_TRUE(Waits("<p>" + kName + "Alpha</p>")) << Body();
    EXPECT_TRUE(Window().isWindowModified());
    Do("undo");
    EXPECT_TRUE(Waits("<p>Alpha</p>")) << Body();
    Do("redo");
    EXPECT_TRUE(Waits("<p>" + kName + "Alpha</p>")) << Body();
    Do("Save");
    EXPECT_FALSE(Window().isWindowModified());
    EXPECT_TRUE(OnDisk().starts_with(kPrologue + "<html>")) << OnDisk();
    EXPECT_EQ(OnDisk(), Edit().GetDocumentHTML());
    EXPECT_NE(OnDisk().find(kName), std::string::npos);
}

TEST_F(LayoutJourneyTest, UnsavedWorkIsAskedForBeforeAnotherLayoutComes) {
    OpenLayouts();
    ClickLayout("L:Modern/type.html");
    WaitForLayout();
    TypeIntoLayout("New ");
    mDialogs.ExpectBox("Cancel");
    ClickLayout("L:Modern/callable.html");
    EXPECT_NE(mDialogs.GetText().find("What you wrote is lost unless you save it."),
              std::string::npos)
        << mDialogs.GetText();
    EXPECT_EQ(ChosenLayout(), "L:Modern/type.html") << "the list says what is open";
    EXPECT_EQ(Body(), "<p>New Alpha</p>");
    mDialogs.ExpectBox("Save");
    ClickLayout("L:Modern/callable.html");
    WaitForLayout();
    EXPECT_EQ(ChosenLayout(), "L:Modern/callable.html");
    EXPECT_NE(OnDisk().find("<p>New Alpha</p>"), std::string::npos) << OnDisk();
    ClickLayout("L:Modern/type.html");
    WaitForLayout();
    TypeIntoLayout("More ");
    mDialogs.ExpectBox("Discard");
    EXPECT_TRUE(Window().close());
    EXPECT_EQ(OnDisk().find("More"), std::string::npos);
    OpenLayouts();
    ClickLayout("L:Modern/type.html");
    WaitForLayout();
    EXPECT_EQ(Body(), "<p>New Alpha</p>") << "the file again";
}

TEST_F(LayoutJourneyTest, WhatAnotherProgramWroteIsNotReplacedUnasked) {
    OpenLayouts();
    ClickLayout("L:Modern/type.html");
    WaitForLayout();
    TypeIntoLayout("Mine ");
    WriteOnDisk(FileOf("<p>Theirs</p>"));
    mDialogs.ExpectBox("Cancel");
    EXPECT_FALSE(Window().Save());
    EXPECT_NE(mDialogs.GetText().find("Somebody else changed this layout"), std::string::npos);
    EXPECT_EQ(OnDisk(), FileOf("<p>Theirs</p>"));
    EXPECT_TRUE(Window().isWindowModified());
    EXPECT_EQ(Body(), "<p>Mine Alpha</p>");
    mDialogs.ExpectBox("Replace");
    EXPECT_TRUE(Window().Save());
    EXPECT_NE(OnDisk().find("<p>Mine Alpha</p>"), std::string::npos);
    EXPECT_FALSE(Window().isWindowModified());
}

TEST_F(LayoutJourneyTest, AMalformedTagIsPointedAtWhereItStands) {
    OpenLayouts();
    ClickLayout("L:Modern/type.html");
    WaitForLayout();
    Do("ViewSource");
    EXPECT_EQ(Notice(), "");
    auto* area = LayoutPage().GetSourceArea();
    ASSERT_TRUE(area);
    area->selectAll();
    area->insertPlainText("<html><head><title>T</title></head>\n<body>\n"
                          "<p><!--KITEMETADATA start type=\"name\"-->x</p></body></html>\n");
    ASSERT_TRUE(WaitUntil([&] { return !Notice().empty(); }));
    EXPECT_TRUE(Notice().starts_with("Line 3, column 4:")) << Notice();
    EXPECT_EQ(Edit().dedDocument->GetMarkedLine(), 3);
    EXPECT_EQ(Edit().dedDocument->GetMarkedColumn(), 4);
    const QString text = area->toPlainText();
    area->selectAll();
    area->insertPlainText(QString(text).replace("x</p>", "x<!--KITEMETADATA end--></p>"));
    EXPECT_TRUE(WaitUntil([&] { return Notice().empty(); })) << Notice();
    EXPECT_EQ(Edit().dedDocument->GetMarkedLine(), 0);
}

TEST_F(LayoutJourneyTest, ThePreviewIsThePageOfAnItem) {
    OpenProject();
    WriteOnDisk(FileOf("<p>Called " + kName + "</p>"));
    OpenLayouts();
    ClickLayout("L:Modern/type.html");
    WaitForLayout();
    EXPECT_FALSE(Window().GetPreviewItem().empty()) << "an item is proposed";
    Window().SetPreviewItem("zoo~animals~Cat");
    Do("ViewPreview");
    WaitForLayout();
    std::string shown;
    EXPECT_TRUE(WaitUntil([&] {
        for (const auto& control : Edit().dksUI->GetClient().As<Container>()->Controls)
            if (const auto pane = control.As<Container>())
                for (const auto& part : pane->Controls)
                    if (const auto page = part.As<HtmlEdit>()) shown = page->GetDocumentHTML();
        return shown.find("Called Cat") != std::string::npos;
    })) << shown;
    Do("ViewNormal");
    WaitForLayout();
    EXPECT_EQ(Body(), "<p>Called " + kName + "</p>");
    EXPECT_FALSE(Window().isWindowModified());
}

TEST_F(LayoutJourneyTest, AnElementIsEditedAndDeletedByItsMenuEntries) {
    WriteOnDisk(FileOf("<p>Alpha " + kName + "</p>"));
    OpenLayouts();
    ClickLayout("L:Modern/type.html");
    WaitForLayout();
    EXPECT_FALSE(Window().GetAction("DeleteElement")->isEnabled());
    ASSERT_TRUE(ClickElement());
    mDialogs.Expect([](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle().toStdString(), "Edit Element - name");
        dialog.reject();
    });
    Do("EditElement");
    EXPECT_FALSE(Window().isWindowModified());
    EXPECT_FALSE(Window().GetAction("undo")->isEnabled());
    ASSERT_TRUE(ClickElement());
    mDialogs.Expect([](QDialog& dialog) {
        dialog.findChild<QPlainTextEdit*>()->setPlainText("mine");
        dialog.accept();
    });
    Do("EditElement");
    Do("undo");
    EXPECT_TRUE(Waits("<p>Alpha " + kName + "</p>")) << Body();
    ASSERT_TRUE(ClickElement());
    Do("DeleteElement");
    EXPECT_TRUE(WaitUntil([&] { return Body().find("KITEMETADATA") == std::string::npos; }))
        << Body();
    EXPECT_TRUE(Body().starts_with("<p>Alpha")) << Body();
    EXPECT_TRUE(Window().isWindowModified());
    Do("undo");
    EXPECT_TRUE(Waits("<p>Alpha " + kName + "</p>")) << Body();
    mDialogs.ExpectBox("Discard");
    Window().close();
}

TEST_F(LayoutJourneyTest, ALayoutThatCannotBeWrittenSaysSoAndKeepsTheWork) {
    namespace fs = std::filesystem;
    const fs::path folder = (mFolder / kTypeFile);
    fs::permissions(mFolder / "", fs::perms(0755));
    fs::permissions(folder.parent_path(), fs::perms(0555));
    fs::permissions(folder, fs::perms(0444));
    {
        const OrdinaryUser user;
        OpenLayouts();
        ClickLayout("L:Modern/type.html");
        WaitForLayout();
        EXPECT_TRUE(Notice().starts_with("This layout cannot be written here.")) << Notice();
        Do("ViewSource");
        Do("ViewNormal");
        WaitForLayout();
        EXPECT_TRUE(Notice().starts_with("This layout cannot be written here.")) << Notice();
        TypeIntoLayout("Mine ");
        mDialogs.ExpectBox("OK");
        EXPECT_FALSE(Window().Save());
        EXPECT_TRUE(Window().isWindowModified());
        EXPECT_EQ(Body(), "<p>Mine Alpha</p>");
    }
    fs::permissions(folder.parent_path(), fs::perms(0755));
    fs::permissions(folder, fs::perms(0644));
    EXPECT_TRUE(Window().Save());
    EXPECT_NE(OnDisk().find("<p>Mine Alpha</p>"), std::string::npos);
}

TEST_F(LayoutJourneyTest, DiscardedWorkIsAskedForAgainWhileItIsStillThere) {
    OpenLayouts();
    ClickLayout("L:Modern/type.html");
    WaitForLayout();
    TypeIntoLayout("Mine ");
    std::filesystem::remove(mFolder / "templates/modern/callable.html");
    mDialogs.ExpectBox("Discard");
    mDialogs.ExpectBox("OK");
    ClickLayout("L:Modern/callable.html");
    EXPECT_EQ(Body(), "<p>Mine Alpha</p>") << "the other one could not be read";
    EXPECT_TRUE(Window().isWindowModified());
    mDialogs.ExpectBox("Cancel");
    EXPECT_FALSE(Window().close());
    EXPECT_TRUE(Window().Save());
    EXPECT_NE(OnDisk().find("<p>Mine Alpha</p>"), std::string::npos);
}

TEST_F(LayoutJourneyTest, AFileThatSomebodyElseChangedIsReadAgainWhereNothingWasWritten) {
    OpenLayouts();
    ClickLayout("L:Modern/type.html");
    WaitForLayout();
    WriteOnDisk(FileOf("<p>Theirs</p>"));
    QEvent activated(QEvent::WindowActivate);
    QApplication::sendEvent(&Window(), &activated);
    WaitForLayout();
    EXPECT_TRUE(Waits("<p>Theirs</p>")) << Body();
    EXPECT_FALSE(Window().isWindowModified());
    TypeIntoLayout("Mine ");
    WriteOnDisk(FileOf("<p>Again</p>"));
    QApplication::sendEvent(&Window(), &activated);
    EXPECT_EQ(Body(), "<p>Mine Theirs</p>") << "the author's work is not replaced";
    mDialogs.ExpectBox("Discard");
    EXPECT_TRUE(Window().close());
}

TEST_F(LayoutJourneyTest, WhatIsWrongWithAChangedFileIsToldOnceThoughTheBoxGivesTheFocusBack) {
    OpenLayouts();
    ClickLayout("L:Modern/type.html");
    WaitForLayout();
    WriteOnDisk(FileOf("<p>Theirs <!--KITEMETADATA start type=\"name\"--></p>"));
    const auto activate = [&] {
        QEvent activated(QEvent::WindowActivate);
        QApplication::sendEvent(&Window(), &activated);
    };
    const auto answer = [&](QDialog& box) {
        box.accept();
        activate();
    };
    mDialogs.Expect(answer);
    mDialogs.Expect(answer);
    activate();
    EXPECT_TRUE(mDialogs.AreDone());
    WaitForLayout();
    EXPECT_TRUE(Body().starts_with("<p>Theirs")) << Body();
    // What cannot be shown at all stays a change, which is not written over.
    WriteOnDisk(FileOf("<p id=\"metaspanstart1\">Foreign</p>"));
    mDialogs.Expect(answer);
    activate();
    activate();
    EXPECT_TRUE(mDialogs.AreDone());
    EXPECT_TRUE(Body().starts_with("<p>Theirs")) << Body();
    TypeIntoLayout("Mine ");
    mDialogs.ExpectBox("Cancel");
    EXPECT_FALSE(Window().Save());
    EXPECT_NE(OnDisk().find("Foreign"), std::string::npos);
    mDialogs.ExpectBox("Discard");
    EXPECT_TRUE(Window().close());
}

TEST_F(LayoutJourneyTest, ABrokenTagIsToldInEveryView) {
    const std::string broken = "<p><!--KITEMETADATA start type=\"name\"-->x</p>\n"
                               "<p><!--KITEMETADATA end-->y<!--KITEMETADATA end--></p>";
    OpenLayouts();
    ClickLayout("L:Modern/type.html");
    WaitForLayout();
    Do("ViewSource");
    auto* area = LayoutPage().GetSourceArea();
    ASSERT_TRUE(area);
    area->selectAll();
    area->insertPlainText(QString::fromStdString("<!DOCTYPE html>\n<html><body>\n" + broken +
                                                 broken + "</body></html>\n"));
    ASSERT_TRUE(WaitUntil([&] { return !Notice().empty(); }));
    const std::string told = Notice();
    EXPECT_NE(told.find("mistakes.)"), std::string::npos) << told;
    mDialogs.ExpectBox("OK");
    mDialogs.ExpectBox("OK");
    Do("ViewNormal");
    WaitForLayout();
    EXPECT_EQ(Notice(), told);
    mDialogs.ExpectBox("Discard");
    EXPECT_TRUE(Window().close());
}

} // namespace
} // namespace paperkite::test
