#include "host/window/FindDialog.h"
#include "journeys/PageTest.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

// An author writes on a page, finds it again, replaces it everywhere, and checks the spelling.

namespace paperkite::test {
namespace {

constexpr const char* kDog = "zoo~animals~Dog";
constexpr const char* kCat = "zoo~animals~Cat";

class SearchJourneyTest : public PageTest {
protected:
    void OpenZoo() {
        OpenProject();
        ClickExpander("zoo~animals");
    }
    void Write(const std::string& item, const std::string& text) {
        OpenPage(item);
        TypeOnPage(text);
        ASSERT_TRUE(WaitUntil([&] { return TextOf(item, "##") == text + ";"; }))
            << TextOf(item, "##");
    }
    FindDialog& Finding() const {
        for (auto* dialog : mWindow->findChildren<QDialog*>())
            if (auto* found = dynamic_cast<FindDialog*>(dialog)) return *found;
        throw std::logic_error("There is no dialog for finding");
    }
    template <class Widget>
    Widget& In(QWidget& dialog, const char* name) const {
        auto* widget = dialog.findChild<Widget*>(name);
        if (!widget) throw std::logic_error(std::string("The dialog has no ") + name);
        return *widget;
    }
    void Fill(QWidget& dialog, const char* name, const char* text) {
        auto& edit = In<QLineEdit>(dialog, name);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, text);
    }
    void Click(QWidget& dialog, const char* name) {
        QTest::mouseClick(&In<QPushButton>(dialog, name), Qt::LeftButton);
        Settle();
    }
    std::string Result(QWidget& dialog) {
        return In<QLabel>(dialog, "Result").text().toStdString();
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

TEST_F(SearchJourneyTest, TheSpellCheckOfThePageAsksAndChangesAndIsTakenBack) {
    OpenZoo();
    Write(kDog, "Guards the huose.");
    mDialogs.Expect([&](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle().toStdString(), "Spelling");
        EXPECT_GT(In<QListWidget>(dialog, "Suggestions").count(), 0);
        Fill(dialog, "Replacement", "house");
        QTest::keyClick(&In<QLineEdit>(dialog, "Replacement"), Qt::Key_Return);
    });
    mDialogs.ExpectBox("OK");
    mWindow->GetAction("CheckSpelling")->trigger();
    EXPECT_EQ(mDialogs.GetText(), "Spelling: The spell check completed successfully");
    EXPECT_EQ(TextOf(kDog, "##"), "Guards the house.;");
    mWindow->GetAction("Undo")->trigger();
    EXPECT_EQ(TextOf(kDog, "##"), "Guards the huose.;");
}

TEST_F(SearchJourneyTest, TheSpellCheckOfTheProjectIsOneStep) {
    OpenZoo();
    Write(kCat, "Slepes in a huose.");
    Write(kDog, "Guards teh huose.");
    const auto answer = [&](const char* button, const char* replacement) {
        mDialogs.ExpectBehindProgress([this, button, replacement](QDialog& dialog) {
            if (*replacement) Fill(dialog, "Replacement", replacement);
            for (auto* choice : dialog.findChildren<QPushButton*>())
                if (choice->text().remove('&') == button)
                    return QTest::mouseClick(choice, Qt::LeftButton);
            ADD_FAILURE() << "no button " << button;
            dialog.reject();
        });
    };
    answer("Change", "Sleeps");
    answer("Change All", "house");
    answer("Change", "the");
    mDialogs.ExpectBox("OK");
    mWindow->GetAction("CheckSpellingOfProject")->trigger();
    EXPECT_EQ(mDialogs.GetText(), "Spelling: The spell check completed successfully");
    EXPECT_EQ(TextOf(kCat, "##") + TextOf(kDog, "##"), "Sleeps in a house.;Guards the house.;");
    EXPECT_EQ(mWindow->GetAction("Undo")->text().toStdString(), "&Undo Spelling");
    mWindow->GetAction("Undo")->trigger();
    EXPECT_EQ(TextOf(kCat, "##") + TextOf(kDog, "##"), "Slepes in a huose.;Guards teh huose.;");
}

TEST_F(SearchJourneyTest, TheOptionsOfSpellingAreStored) {
    OpenZoo();
    OpenPage(kDog);
    mDialogs.Expect([&](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle().toStdString(), "Spelling Options");
        auto* box = dialog.findChild<QAbstractButton*>("IgnoreUppercase");
        ASSERT_TRUE(box && box->isChecked());
        box->click();
        dialog.accept();
    });
    mWindow->GetAction("SpellingOptions")->trigger();
    EXPECT_FALSE(CurrentServices().Spelling->GetOptions().IgnoreInUpperCase);
}

} // namespace
} // namespace paperkite::test
