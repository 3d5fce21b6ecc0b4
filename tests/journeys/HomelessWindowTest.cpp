#include "host/window/HomelessDialog.h"
#include "host/window/SafeKeeping.h"
#include "journeys/WindowTest.h"
#include "support/EnvironmentChange.h"
#include "support/Waiting.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QTreeWidget>

namespace paperkite::test {

namespace {

constexpr const char* kDog = "zoo~animals~Dog";
constexpr const char* kHound = "zoo~animals~Hound";

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

/// Comments on a class and two of its methods; then the class is renamed, one of the methods too,
/// and the other one gets an overload.
class HomelessWindowTest : public WindowTest {
protected:
    HomelessWindowTest() : mState("XDG_STATE_HOME", mFolder / "state") {}

    void MakeComments() {
        MakeProject();
        mFolder.Write("zoo.ktc", "<contentfile version=\"1\">" + Comment(kDog, "d1", "Guards.") +
                                     Comment("zoo~animals~Dog~Age", "d2", "In years.") +
                                     Comment("zoo~animals~Dog~Bark", "d3", "&lt;p&gt;Loud.") +
                                     "</contentfile>");
    }
    static std::string Comment(const std::string& item, const std::string& id,
                               const std::string& text) {
        return "<comment item='" + item + "' tag='##' id='" + id + "'>" + text + "</comment>";
    }
    void Rename() {
        mFolder.Write("zoo/animals.h", "namespace animals {\nclass Hound {\npublic:\n"
                                       "    void Bark(int times);\n"
                                       "    void Bark(const char* at);\n"
                                       "    int AgeInYears() const;\n    int Weight() const;\n"
                                       "};\nclass Cat {\npublic:\n    void Purr();\n};\n}\n");
    }
    void OpenAgain() {
        ASSERT_TRUE(mWindow->OpenPath(QString::fromStdString(ProjectFile())));
        Settle();
    }
    /// The project open, its code renamed and read again by F5.
    void OpenRenamed() {
        MakeComments();
        OpenAgain();
        Rename();
        Rescan();
    }
    void Rescan() {
        PressKey(Qt::Key_F5);
        Settle();
    }
    QPushButton* StatusButton() const { return mWindow->findChild<QPushButton*>("HomelessStatus"); }
    std::string StatusText() const {
        return StatusButton()->isVisible() ? StatusButton()->text().toStdString() : std::string();
    }
    QAction* Action() const { return mWindow->GetAction("Homeless"); }

    /// What happens in the dialog when it opens next and has found the likeliest homes.
    void Expect(const std::function<void(HomelessDialog&)>& work) {
        mDialogs.ExpectBehindProgress([work](QDialog& dialog) {
            auto* homeless = dynamic_cast<HomelessDialog*>(&dialog);
            if (!homeless) {
                ADD_FAILURE() << "Not the dialog: " << dialog.windowTitle().toStdString();
                dialog.reject();
                return;
            }
            EXPECT_TRUE(WaitUntil(
                [&] { return !Hint(dialog).contains("Looking") || !dialog.isVisible(); }));
            work(*homeless);
            if (dialog.isVisible()) QTest::keyClick(&dialog, Qt::Key_Escape);
            EXPECT_FALSE(dialog.isVisible());
        });
    }
    static QTreeWidget& List(const QDialog& dialog, const char* name) {
        return *dialog.findChild<QTreeWidget*>(name);
    }
    static QString Hint(const QDialog& dialog) { return List(dialog, "Homes").accessibleName(); }
    static std::string Rows(const QDialog& dialog, const char* name) {
        std::string rows;
        const QTreeWidget& list = List(dialog, name);
        for (int row = 0; row < list.topLevelItemCount(); ++row) {
            const auto* item = list.topLevelItem(row);
            for (int column = 0; column < list.columnCount(); ++column)
                rows += item->text(column).toStdString() + "|";
            rows += "\n";
        }
        return rows;
    }
    static std::string Result(const QDialog& dialog) {
        return dialog.findChild<QLabel*>("Result")->text().toStdString();
    }
    static QPushButton* Button(const QDialog& dialog, const std::string& text) {
        for (auto* button : dialog.findChildren<QPushButton*>())
            if (button->text().remove('&').toStdString() == text) return button;
        ADD_FAILURE() << "No button " << text;
        return nullptr;
    }
    static void Click(const QDialog& dialog, const std::string& text) {
        if (auto* button = Button(dialog, text)) QTest::mouseClick(button, Qt::LeftButton);
    }

    EnvironmentChange mState;
};

TEST_F(HomelessWindowTest, WithoutHomelessCommentsNothingIsSaid) {
    EXPECT_FALSE(Action()->isEnabled());
    MakeComments();
    OpenAgain();
    EXPECT_EQ(StatusText(), "");
    EXPECT_FALSE(Action()->isEnabled());
    EXPECT_EQ(Action()->text().remove('&'), "No Homeless Comments");
}

TEST_F(HomelessWindowTest, ReadingTheSourceAgainTellsWhatIsGoneAndAgainWhatCameBack) {
    OpenRenamed();
    EXPECT_EQ(StatusText(), "3 items with comments are gone");
    EXPECT_TRUE(Action()->isEnabled());
    EXPECT_NE(StatusButton()->focusPolicy() & Qt::TabFocus, 0);
    mFolder.Write("zoo/animals.h", "namespace animals {\nclass Dog {\npublic:\n"
                                   "    int Age() const;\n};\n}\n");
    Rescan();
    EXPECT_EQ(StatusText(), "1 item with comments is gone");
    PressKey(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(StatusText(), "");
    EXPECT_FALSE(Action()->isEnabled());
}

TEST_F(HomelessWindowTest, ReadingInTheBackgroundAtOpeningTellsToo) {
    MakeComments();
    Rename();
    OpenAgain();
    EXPECT_TRUE(WaitUntil([&] { return !StatusText().empty(); }, 20'000));
    EXPECT_EQ(StatusText(), "3 items with comments are gone");
}

TEST_F(HomelessWindowTest, AdoptedWithTheKeyboardSavedAndFoundAtTheNewItems) {
    OpenRenamed();
    Expect([](QDialog& dialog) {
        EXPECT_EQ(Rows(dialog, "Gone"), "zoo ~ animals ~ Dog|1|\nzoo ~ animals ~ Dog ~ Age|1|\n"
                                        "zoo ~ animals ~ Dog ~ Bark|1|\n");
        EXPECT_EQ(dialog.focusWidget(), &List(dialog, "Gone"));
        EXPECT_EQ(dialog.findChild<QTextEdit*>("Comments")->toPlainText(),
                  "General Description\nGuards.");
        QTest::keyClick(&List(dialog, "Gone"), Qt::Key_Down);
        QTest::keyClick(&List(dialog, "Gone"), Qt::Key_Down);
        EXPECT_TRUE(Contains(Rows(dialog, "Homes"), "zoo ~ animals ~ Hound ~ Bark(int)|Method|"))
            << Rows(dialog, "Homes");
        EXPECT_TRUE(dialog.findChild<QTextEdit*>("Comments")->toPlainText().endsWith("\nLoud."));
        QTest::keyClick(&List(dialog, "Gone"), Qt::Key_Return);
        EXPECT_EQ(Result(dialog), "Moved 1 comment of zoo ~ animals ~ Dog ~ Bark to "
                                  "zoo ~ animals ~ Hound ~ Bark(int).");
        EXPECT_EQ(List(dialog, "Gone").topLevelItemCount(), 2);

        // Another home, by its name.
        QTest::keyClick(&List(dialog, "Gone"), Qt::Key_Home);
        auto* search = dialog.findChild<QLineEdit*>("Search");
        search->setFocus();
        QTest::keyClicks(search, "hound");
        EXPECT_EQ(Rows(dialog, "Homes"), "zoo ~ animals ~ Hound|Class|\n");
        QTest::keyClick(search, Qt::Key_Return);
        EXPECT_EQ(dialog.focusWidget(), &List(dialog, "Homes"));
        EXPECT_EQ(List(dialog, "Gone").topLevelItemCount(), 2);
        QTest::keyClick(&List(dialog, "Homes"), Qt::Key_Return);
        EXPECT_EQ(Rows(dialog, "Gone"), "zoo ~ animals ~ Dog ~ Age|1|\n");
        EXPECT_TRUE(search->text().isEmpty());
        QTest::keyClicks(search, "AgeIn");
        Click(dialog, "Adopt");
        EXPECT_TRUE(dialog.findChild<QLabel*>("Done")->isVisible());
        EXPECT_FALSE(Button(dialog, "Adopt")->isEnabled());
        EXPECT_FALSE(Button(dialog, "Delete Comments …")->isEnabled());
    });
    PressKey(Qt::Key_H, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(StatusText(), "");
    EXPECT_FALSE(Action()->isEnabled());
    EXPECT_TRUE(IsTitleMarked());
    PressKey(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(IsTitleMarked());
    PressKey(Qt::Key_W, Qt::ControlModifier);
    OpenAgain();
    EXPECT_EQ(StatusText(), "");
    EXPECT_EQ(TextOf(kHound, "##"), "Guards.;");
    EXPECT_EQ(TextOf("zoo~animals~Hound~Bark(int)", "##"), "<p>Loud.;");
    EXPECT_EQ(TextOf("zoo~animals~Hound~AgeInYears", "##"), "In years.;");
    EXPECT_EQ(TextOf(kDog, "##"), "");
}

TEST_F(HomelessWindowTest, TheOpenItemShowsWhatItAdoptedAndKeepsWhatIsBeingTyped) {
    OpenRenamed();
    ASSERT_TRUE(mWindow->GetWorkspace()->Select(kHound));
    Settle();
    EXPECT_FALSE(Contains(Spoken(kHound), "documented")) << Spoken(kHound);
    const std::string before = Status();
    ClickAdd("##remarks");
    QTest::keyClicks(Tags().GetEditor(), "Typed.");
    Expect([](QDialog& dialog) {
        auto* search = dialog.findChild<QLineEdit*>("Search");
        QTest::keyClicks(search, "Hound");
        Click(dialog, "Adopt");
    });
    QTest::mouseClick(StatusButton(), Qt::LeftButton);
    Settle();
    EXPECT_EQ(Selected(), kHound);
    EXPECT_EQ(TextOf(kHound, "##remarks"), "Typed.;");
    EXPECT_EQ(TextOf(kHound, "##"), "Guards.;");
    ASSERT_TRUE(FindRow("##", false));
    EXPECT_EQ(FindRow("##", false)->GetValue(), "Guards.");
    ASSERT_TRUE(FindRow("##remarks", false));
    EXPECT_EQ(FindRow("##remarks", false)->GetValue(), "Typed.");
    EXPECT_TRUE(Contains(Spoken(kHound), "documented")) << Spoken(kHound);
    EXPECT_NE(Status(), before);
    EXPECT_EQ(StatusText(), "2 items with comments are gone");
}

TEST_F(HomelessWindowTest, WhatWasAdoptedIsRecoveredAfterACrash) {
    OpenRenamed();
    Expect([](QDialog& dialog) {
        QTest::keyClicks(dialog.findChild<QLineEdit*>("Search"), "Hound");
        Click(dialog, "Adopt");
    });
    Action()->trigger();
    mWindow->GetKeeping()->Keep();
    mWindow.reset();
    Start();
    mDialogs.ExpectBehindProgress([](QDialog& dialog) { Click(dialog, "Recover"); });
    OpenAgain();
    EXPECT_EQ(TextOf(kHound, "##"), "Guards.;");
    EXPECT_EQ(TextOf(kDog, "##"), "");
    EXPECT_EQ(StatusText(), "2 items with comments are gone");
}

TEST_F(HomelessWindowTest, DeletingAsksAndReturnDoesNotDelete) {
    OpenRenamed();
    Expect([](QDialog& dialog) {
        std::string question;
        const auto answerWith = [&](Qt::Key key) {
            // The answers' own timer waits for the dialog that is being answered.
            QTimer::singleShot(0, &dialog, [&question, key] {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                ASSERT_TRUE(box);
                question = box->text().toStdString();
                if (key == Qt::Key_Return) return QTest::keyClick(box, key);
                for (auto* choice : box->findChildren<QPushButton*>())
                    if (choice->text().contains("Delete")) return choice->click();
            });
            Click(dialog, "Delete Comments …");
        };
        answerWith(Qt::Key_Return);
        EXPECT_EQ(question, "Delete 1 comment of “zoo ~ animals ~ Dog”?");
        EXPECT_EQ(List(dialog, "Gone").topLevelItemCount(), 3);
        answerWith(Qt::Key_D);
        EXPECT_EQ(Result(dialog), "Deleted 1 comment of zoo ~ animals ~ Dog.");
        EXPECT_EQ(List(dialog, "Gone").topLevelItemCount(), 2);
    });
    Action()->trigger();
    EXPECT_EQ(StatusText(), "2 items with comments are gone");
    EXPECT_TRUE(IsTitleMarked());
    EXPECT_TRUE(mWindow->Save());
    EXPECT_FALSE(Contains(mFolder.Read("zoo.ktc"), "Guards."));
    EXPECT_TRUE(Contains(mFolder.Read("zoo.ktc"), "Loud."));
}

TEST_F(HomelessWindowTest, GoToItemShowsTheHomeAndTheDialogComesBackWhereItWas) {
    OpenRenamed();
    Expect([](QDialog& dialog) {
        QTest::keyClick(&List(dialog, "Gone"), Qt::Key_End);
        Click(dialog, "Go to Item");
    });
    Action()->trigger();
    EXPECT_EQ(Selected(), "zoo~animals~Hound~Bark(int)");
    EXPECT_FALSE(IsTitleMarked());
    Expect([](QDialog& dialog) {
        EXPECT_EQ(static_cast<HomelessDialog&>(dialog).GetChosen(), "zoo~animals~Dog~Bark");
    });
    Action()->trigger();
}

TEST_F(HomelessWindowTest, WhereNothingIsLikelyTheDialogOffersTheSearch) {
    MakeComments();
    mFolder.Write("zoo/animals.h", "void Feed();\n");
    OpenAgain();
    Rescan();
    Expect([](QDialog& dialog) {
        EXPECT_TRUE(Hint(dialog).startsWith("Nothing in the source looks like it."));
        EXPECT_FALSE(Button(dialog, "Adopt")->isEnabled());
        EXPECT_FALSE(Button(dialog, "Go to Item")->isEnabled());
        QTest::keyClicks(dialog.findChild<QLineEdit*>("Search"), "nowhere");
        EXPECT_EQ(Hint(dialog), "No item has “nowhere” in its name.");
        EXPECT_FALSE(Button(dialog, "Adopt")->isEnabled());
        dialog.findChild<QLineEdit*>("Search")->clear();
        QTest::keyClicks(dialog.findChild<QLineEdit*>("Search"), "fee");
        EXPECT_TRUE(Button(dialog, "Adopt")->isEnabled());
    });
    Action()->trigger();
}

TEST_F(HomelessWindowTest, EveryControlOfTheDialogHasANameAndItsPlaceInTheTabOrder) {
    OpenRenamed();
    Expect([](QDialog& dialog) {
        const auto tab = [&] {
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
            return dialog.focusWidget();
        };
        EXPECT_EQ(dialog.focusWidget(), &List(dialog, "Gone"));
        // One that has a home, so that all buttons can be reached.
        QTest::keyClick(&List(dialog, "Gone"), Qt::Key_End);
        EXPECT_EQ(tab()->objectName(), "Comments");
        EXPECT_EQ(tab()->objectName(), "Homes");
        EXPECT_EQ(tab()->objectName(), "Search");
        for (const char* text : {"Delete Comments …", "Go to Item", "Close", "Adopt"})
            EXPECT_EQ(tab(), Button(dialog, text)) << text;
        EXPECT_EQ(List(dialog, "Gone").accessibleName(), "Items that are gone");
        EXPECT_EQ(dialog.findChild<QTextEdit*>("Comments")->accessibleName(),
                  "Comments of zoo ~ animals ~ Dog ~ Bark");
        EXPECT_FALSE(dialog.findChild<QLineEdit*>("Search")->accessibleName().isEmpty());
        EXPECT_FALSE(Hint(dialog).isEmpty());
    });
    Action()->trigger();
}

} // namespace

} // namespace paperkite::test
