#include "journeys/SearchTest.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QTreeWidget>

// An author writes on a page, finds it again, and replaces it everywhere.

namespace paperkite::test {
namespace {

class SearchJourneyTest : public SearchTest {
protected:
    int Found(FindDialog& dialog, const char* text) {
        Fill(dialog, "Text", text);
        Click(dialog, "Find");
        return In<QTreeWidget>(dialog, "Hits").topLevelItemCount();
    }
    void Toggle(FindDialog& dialog, const char* option) { In<QCheckBox>(dialog, option).click(); }
    std::string SelectedOnPage() const {
        return Editor().InPlaceEditor->GetEditControl()->GetSelectedText();
    }
};

TEST_F(SearchJourneyTest, ATextOfThePageIsInItsDesignerAndReplacedEverywhereWithOneUndo) {
    OpenZoo();
    Write(kCat, "Sleeps in the house.");
    Write(kDog, "Guards the house.");
    const auto tab = Editor().eb->GetGroup("Text")->Find("##");
    ASSERT_TRUE(tab);
    EXPECT_TRUE(tab->GetBold()) << "the bar marks the tag";
    ChooseTab("##");
    const auto text = Editor().GetActiveHTMLEditor(false);
    ASSERT_TRUE(text);
    EXPECT_EQ(text->GetPlaces().at(0)->GetInnerHTML(), "Guards the house.");

    mWindow->GetAction("FindInComments")->trigger();
    FindDialog& dialog = Finding();
    ASSERT_TRUE(dialog.isVisible());
    Fill(dialog, "Text", "house");
    Fill(dialog, "Replacement", "garden");
    EXPECT_FALSE(In<QPushButton>(dialog, "Replace").isEnabled()) << "nothing is listed yet";
    QTest::keyClick(&In<QLineEdit>(dialog, "Text"), Qt::Key_Return);
    EXPECT_EQ(In<QTreeWidget>(dialog, "Hits").topLevelItemCount(), 2);
    EXPECT_EQ(Result(dialog), "Found 2 times in 2 comments.");
    Click(dialog, "Replace");
    EXPECT_EQ(Result(dialog), "Replaced in 2 comments. Undo takes all of it back.");
    EXPECT_EQ(TextOf(kDog, "##") + TextOf(kCat, "##"), "Guards the garden.;Sleeps in the garden.;");
    EXPECT_EQ(Editor().GetActiveHTMLEditor(false)->GetPlaces().at(0)->GetInnerHTML(),
              "Guards the garden.");

    EXPECT_EQ(mWindow->GetAction("Undo")->text().toStdString(), "&Undo Replacing \"house\"");
    mWindow->GetAction("Undo")->trigger();
    EXPECT_EQ(TextOf(kDog, "##") + TextOf(kCat, "##"), "Guards the house.;Sleeps in the house.;");
    mWindow->GetAction("Redo")->trigger();
    ASSERT_TRUE(mWindow->Save());
    Start();
    ASSERT_TRUE(mWindow->OpenPath(QString::fromStdString(ProjectFile())));
    EXPECT_EQ(TextOf(kDog, "##") + TextOf(kCat, "##"), "Guards the garden.;Sleeps in the garden.;");
}

TEST_F(SearchJourneyTest, WhatIsNotTickedStaysAndTheScopeCounts) {
    OpenZoo();
    Write(kCat, "A house.");
    Write(kDog, "A house, a house.");
    mWindow->GetAction("FindInComments")->trigger();
    FindDialog& dialog = Finding();
    Fill(dialog, "Text", "HOUSE");
    Fill(dialog, "Replacement", "hut");
    In<QComboBox>(dialog, "Scope").setCurrentIndex(1);
    Click(dialog, "Find");
    auto& hits = In<QTreeWidget>(dialog, "Hits");
    ASSERT_EQ(hits.topLevelItemCount(), 2) << "only those of the open item";
    hits.topLevelItem(0)->setCheckState(0, Qt::Unchecked);
    Click(dialog, "Replace");
    EXPECT_EQ(TextOf(kDog, "##"), "A house, a hut.;");
    EXPECT_EQ(TextOf(kCat, "##"), "A house.;");
    Fill(dialog, "Text", "whale");
    Click(dialog, "Find");
    EXPECT_EQ(Result(dialog), "“whale” was not found.");
    Fill(dialog, "Text", "");
    In<QLineEdit>(dialog, "Text").clear();
    Click(dialog, "Find");
    EXPECT_EQ(Result(dialog), "Type the text to look for.");
}

TEST_F(SearchJourneyTest, AHitLeadsToItsItem) {
    OpenZoo();
    Write(kDog, "Guards the house.");
    ClickItem(kCat);
    mWindow->GetAction("FindInComments")->trigger();
    Fill(Finding(), "Text", "house");
    Click(Finding(), "Next");
    EXPECT_EQ(Selected(), kDog);
    WaitForPage();
    EXPECT_TRUE(WaitUntil(
        [&] { return Editor().InPlaceEditor->GetEditControl()->GetSelectedText() == "house"; }));
}

TEST_F(SearchJourneyTest, AHitInAParameterLeadsToItsCallable) {
    const std::string bark = std::string(kDog) + "~Bark";
    OpenZooWith(CommentOn(bark + "~:times", "Barks so oftenly."));
    mWindow->GetAction("FindInComments")->trigger();
    EXPECT_EQ(Found(Finding(), "oftenly"), 1);
    Click(Finding(), "Next");
    EXPECT_EQ(Selected(), bark);
    WaitForPage();
    EXPECT_TRUE(WaitUntil([&] { return SelectedOnPage() == "oftenly"; })) << Places();
}

TEST_F(SearchJourneyTest, AHitInAHiddenItemIsToldAndNothingElseIsShown) {
    OpenZooWith(CommentOn(std::string(kDog) + "~mAge", "The house.") +
                CommentOn(kCat, "Another house."));
    OpenPage(kCat);
    mWindow->GetAction("FindInComments")->trigger();
    FindDialog& dialog = Finding();
    ASSERT_EQ(Found(dialog, "house"), 2);
    auto& hits = In<QTreeWidget>(dialog, "Hits");
    ASSERT_EQ(hits.topLevelItem(1)->text(0).toStdString(), "zoo ~ animals ~ Dog ~ mAge");
    emit hits.itemActivated(hits.topLevelItem(1), 0);
    EXPECT_NE(Status().find("The tree does not show this item now"), std::string::npos) << Status();
    EXPECT_EQ(Selected(), kCat);
    EXPECT_EQ(SelectedOnPage(), "") << "the open page is not searched instead";
}

TEST_F(SearchJourneyTest, WordsLetterCaseAndTagsCountWhereTheAuthorWants) {
    OpenZooWith(CommentOn(kDog, "<p>House, houses, the <b>house</b>.</p>"));
    mWindow->GetAction("FindInComments")->trigger();
    FindDialog& dialog = Finding();
    EXPECT_EQ(Found(dialog, "house"), 3);
    Toggle(dialog, "WholeWord");
    EXPECT_EQ(Result(dialog), "") << "what was found is of other options";
    EXPECT_EQ(Found(dialog, "house"), 2);
    Toggle(dialog, "CaseSensitive");
    EXPECT_EQ(Found(dialog, "house"), 1);
    EXPECT_EQ(Found(dialog, "HOUSE"), 0);
    Toggle(dialog, "WholeWord");
    Toggle(dialog, "CaseSensitive");
    EXPECT_EQ(Found(dialog, "<b>house"), 0);
    Toggle(dialog, "SearchInHTML");
    EXPECT_EQ(Found(dialog, "<b>house"), 1);
    Fill(dialog, "Replacement", "<i>house");
    Click(dialog, "Replace");
    EXPECT_EQ(TextOf(kDog, "##"), "<p>House, houses, the <i>house</b>.</p>;");
}

TEST_F(SearchJourneyTest, FindNextGoesFromHitToHitAndBeginsAgain) {
    OpenZooWith(CommentOn(kDog, "A house.") + CommentOn(kCat, "One house."));
    mWindow->GetAction("FindNextInComments")->trigger();
    FindDialog& dialog = Finding();
    ASSERT_TRUE(dialog.isVisible()) << "nothing was looked for yet";
    Fill(dialog, "Text", "house");
    for (const char* item : {kCat, kDog, kCat}) {
        mWindow->GetAction("FindNextInComments")->trigger();
        Settle();
        EXPECT_EQ(Selected(), item);
    }
}

TEST_F(SearchJourneyTest, AHitIsShownOnThePageWhateverViewWasOpen) {
    OpenZooWith(CommentOn(kDog, "A house."));
    OpenPage(kDog);
    const auto& strip = Editor().InPlaceEditor->FlatStrip;
    for (const std::size_t view : {2u, 3u}) {
        strip->UserClick(view);
        mWindow->GetAction("FindInComments")->trigger();
        ASSERT_EQ(Found(Finding(), "house"), 1);
        Click(Finding(), "Next");
        EXPECT_EQ(strip->GetSelectedTab()->Key, "normal");
        EXPECT_TRUE(Editor().InPlaceEditor->GetEditControl()->GetSelection());
    }
}

} // namespace
} // namespace paperkite::test
