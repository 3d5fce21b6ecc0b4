#include "foundation/GlobalConfig.h"
#include "journeys/PageTest.h"

#include <QAction>
#include <QTest>

#include <csignal>

// An author writes on the finished page of an item.

namespace paperkite::test {
namespace {

constexpr const char* kDog = "zoo~animals~Dog";
constexpr const char* kCat = "zoo~animals~Cat";
constexpr const char* kBark = "zoo~animals~Dog~Bark";

class PageJourneyTest : public PageTest {
protected:
    void OpenZoo() {
        OpenProject();
        ClickExpander("zoo~animals");
    }
};

TEST_F(PageJourneyTest, WhatIsTypedOnThePageIsSavedAndFoundAgain) {
    OpenZoo();
    OpenPage(kDog);
    TypeOnPage("Guards the house.");
    EXPECT_TRUE(WaitUntil([&] { return TextOf(kDog, "##") == "Guards the house.;"; }))
        << TextOf(kDog, "##") << Places();
    EXPECT_TRUE(IsTitleMarked());
    EXPECT_NE(Spoken(kDog).find("documented"), std::string::npos);
    ASSERT_TRUE(mWindow->Save());
    Start();
    ASSERT_TRUE(mWindow->OpenPath(QString::fromStdString(ProjectFile())));
    ClickExpander("zoo~animals");
    OpenPage(kDog);
    EXPECT_NE(Places().find("TaggedComment|zoo~animals~Dog|##=Guards the house.;"),
              std::string::npos)
        << Places();
}

TEST_F(PageJourneyTest, LookingAtPagesChangesNothing) {
    OpenZoo();
    for (const char* item : {kDog, kCat, "zoo~animals"})
        OpenPage(item);
    Editor().CommitEdit();
    EXPECT_FALSE(IsTitleMarked());
    EXPECT_FALSE(mWindow->GetWorkspace()->GetSession().GetProject()->GetDirty());
}

TEST_F(PageJourneyTest, AnotherItemTakesWhatWasTypedLastWithIt) {
    OpenZoo();
    OpenPage(kDog);
    TypeOnPage("Quick");
    ClickItem(kCat);
    EXPECT_EQ(TextOf(kDog, "##"), "Quick;");
}

TEST_F(PageJourneyTest, TheOtherFormOfTheBarTakesWhatWasTypedLastWithIt) {
    OpenZoo();
    OpenPage(kDog);
    TypeOnPage("Quick");
    mWindow->GetAction("TypesToolbar")->trigger();
    EXPECT_EQ(TextOf(kDog, "##"), "Quick;");
    mWindow->GetAction("TypesToolbar")->trigger();
    mWindow->GetAction("Save")->trigger();
}

TEST_F(PageJourneyTest, SavingTakesWhatWasTypedLastWithIt) {
    OpenZoo();
    OpenPage(kDog);
    TypeOnPage("Quick");
    mWindow->GetAction("Save")->trigger();
    EXPECT_EQ(TextOf(kDog, "##"), "Quick;");
    EXPECT_FALSE(IsTitleMarked());
}

TEST_F(PageJourneyTest, UndoReachesWhatWasTypedOnAPageBefore) {
    OpenZoo();
    OpenPage(kDog);
    TypeOnPage("Barks");
    ASSERT_TRUE(WaitUntil([&] { return TextOf(kDog, "##") == "Barks;"; }));
    OpenPage(kCat);
    EXPECT_EQ(mWindow->GetAction("Undo")->text().toStdString(), "&Undo Adding to Dog");
    mWindow->GetAction("Undo")->trigger();
    EXPECT_EQ(TextOf(kDog, "##"), "");
    EXPECT_EQ(Selected(), kDog);
    WaitForPage();
    EXPECT_FALSE(mWindow->GetAction("Undo")->isEnabled());
    mWindow->GetAction("Redo")->trigger();
    EXPECT_EQ(TextOf(kDog, "##"), "Barks;");
    WaitForPage();
    EXPECT_NE(Places().find("|##=Barks;"), std::string::npos) << Places();
}

TEST_F(PageJourneyTest, TheKeysOfThePageUndoWhatWasJustTyped) {
    OpenZoo();
    OpenPage(kDog);
    TypeOnPage("Barks");
    ASSERT_TRUE(WaitUntil([&] { return TextOf(kDog, "##") == "Barks;"; }));
    PressOnPage(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(WaitUntil([&] { return TextOf(kDog, "##") != "Barks;"; }));
    EXPECT_EQ(TextOf(kDog, "##"), "");
}

TEST_F(PageJourneyTest, MembersAreWrittenOnThePageOfTheirClass) {
    OpenZoo();
    OpenPage(kDog);
    ASSERT_NE(Places().find("TaggedComment|zoo~animals~Dog~Bark|##"), std::string::npos)
        << Places();
    const auto& edit = Editor().InPlaceEditor->GetEditControl();
    std::size_t index = 0;
    while (edit->GetPlaces()[index]->GetId().find("Bark") == std::string::npos)
        ++index;
    Page().GetSurface()->Select(static_cast<int>(index), 0, 0);
    ASSERT_TRUE(
        WaitUntil([&] { return edit->GetSelection() && edit->GetSelection()->Place == index; }));
    TypeOnPage("Makes noise.");
    EXPECT_TRUE(WaitUntil([&] { return TextOf(kBark, "##") == "Makes noise.;"; })) << Places();
    mWindow->GetAction("Undo")->trigger();
    EXPECT_EQ(TextOf(kBark, "##"), "");
}

TEST_F(PageJourneyTest, ALinkOnThePageLeadsToItsItem) {
    OpenZoo();
    OpenPage(kDog);
    const auto& page = Editor().InPlaceEditor;
    ASSERT_NE(page->GetEditControl()->GetDocumentHTML().find("<a href=\"zoo~animals.html\">"),
              std::string::npos);
    // Where nothing can be written, the keyboard goes from link to link.
    page->FlatStrip->UserClick(3);
    WaitForPage();
    for (const auto key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return})
        PressOnPage(key);
    EXPECT_TRUE(WaitUntil([&] { return Selected() != kDog; }));
    EXPECT_EQ(Selected(), "zoo~animals");
}

TEST_F(PageJourneyTest, TheThreeViewsShowTheSamePage) {
    OpenZoo();
    OpenPage(kDog);
    TypeOnPage("Barks");
    ASSERT_TRUE(WaitUntil([&] { return TextOf(kDog, "##") == "Barks;"; }));
    const auto& page = Editor().InPlaceEditor;
    for (const std::size_t view : {2u, 3u, 1u}) {
        page->FlatStrip->UserClick(view);
        WaitForPage();
        EXPECT_EQ(TextOf(kDog, "##"), "Barks;") << view;
    }
    EXPECT_NE(Places().find("|##=Barks;"), std::string::npos);
}

TEST_F(PageJourneyTest, AnEngineThatIsKilledWhileTypingLosesNothingAndComesBack) {
    OpenZoo();
    OpenPage(kDog);
    TypeOnPage("Barks");
    ASSERT_TRUE(WaitUntil([&] { return TextOf(kDog, "##") == "Barks;"; }));
    const auto process = Page().GetSurface()->ProcessNumber();
    ASSERT_GT(process, 1);
    ::kill(static_cast<pid_t>(process), SIGKILL);
    ASSERT_TRUE(WaitUntil([&] { return !Page().GetNotice().isEmpty(); }));
    EXPECT_EQ(TextOf(kDog, "##"), "Barks;");
    WaitForPage();
    EXPECT_NE(Page().GetNotice().indexOf("started again"), -1);
    TypeOnPage("");
    PressOnPage(Qt::Key_End);
    TypeOnPage(" again");
    EXPECT_TRUE(WaitUntil([&] { return TextOf(kDog, "##") == "Barks again;"; }))
        << TextOf(kDog, "##");
}

TEST_F(PageJourneyTest, WithoutTheTemplatesTheTabsAreThere) {
    GlobalConfig().Templates.Clear();
    OpenZoo();
    ClickItem(kDog);
    EXPECT_EQ(Editor().eb->GetGroup("main")->Count(), 0u);
    ChooseTab("other");
    EXPECT_TRUE(Tags().isVisible());
}

} // namespace
} // namespace paperkite::test
