#include "host/StateFolder.h"
#include "host/window/SafeKeeping.h"
#include "host/window/VersionsDialog.h"
#include "journeys/Program.h"
#include "journeys/WindowTest.h"
#include "support/EnvironmentChange.h"

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace paperkite::test {

namespace {

namespace fs = std::filesystem;

constexpr const char* kFolderVariable = "PAPERKITE_TEST_KILLED_IN";
constexpr const char* kDog = "zoo~animals~Dog";

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

class SafetyJourneyTest : public WindowTest {
protected:
    SafetyJourneyTest() : mState("XDG_STATE_HOME", mFolder / "state") {}

    void OpenAtDog() {
        OpenProject();
        SelectDog();
    }
    void SelectDog() {
        ASSERT_TRUE(mWindow->GetWorkspace()->Select(kDog));
        Settle();
    }
    void OpenAgain() {
        ASSERT_TRUE(mWindow->OpenPath(QString::fromStdString(ProjectFile())));
        Settle();
    }
    /// Writes a comment into the file, as another program does.
    void SomebodyWrites(const std::string& comments) {
        mFolder.Write("zoo.ktc", "<contentfile version=\"1\">" + comments + "</contentfile>");
    }
    std::string Said(const std::string& item, const std::string& id, const std::string& text) {
        return "<comment item='" + item + "' tag='##' id='" + id + "'>" + text + "</comment>";
    }
    /// Answers the next list of versions, and keeps what it shows.
    void ExpectVersions(const std::string& button, std::optional<Keeping> choice = {}) {
        mDialogs.ExpectBehindProgress([this, button, choice](QDialog& dialog) {
            mSeen = dialog.windowTitle().toStdString() + "\n";
            for (const auto* label : dialog.findChildren<QLabel*>())
                if (label->text().endsWith('.')) mSeen += label->text().toStdString() + "\n";
            auto* list = dialog.findChild<QTreeWidget*>();
            if (!list) {
                ADD_FAILURE() << mSeen << "shows no versions";
                dialog.reject();
                return;
            }
            for (int row = 0; row < list->topLevelItemCount(); ++row) {
                for (int column = 0; column < 4; ++column)
                    mSeen += list->topLevelItem(row)->text(column).toStdString() + "|";
                list->setCurrentItem(list->topLevelItem(row));
                auto texts = dialog.findChildren<QPlainTextEdit*>();
                std::sort(texts.begin(), texts.end(), [&dialog](auto* left, auto* right) {
                    return left->mapTo(&dialog, QPoint()).x() < right->mapTo(&dialog, QPoint()).x();
                });
                for (auto* text : texts)
                    if (text->isVisible())
                        mSeen += " " + text->accessibleName().toStdString() + "=" +
                                 text->toPlainText().toStdString();
                mSeen += "\n";
                if (!choice) continue;
                static const char* kNames[] = {"Mine", "Theirs", "Both"};
                for (auto* radio : dialog.findChildren<QAbstractButton*>())
                    if (radio->isCheckable() &&
                        radio->text().toStdString() == kNames[static_cast<int>(*choice)])
                        QTest::mouseClick(radio, Qt::LeftButton, {},
                                          QPoint(8, radio->height() / 2));
            }
            for (auto* push : dialog.findChildren<QPushButton*>())
                if (push->text().remove('&').toStdString() == button) {
                    QTest::mouseClick(push, Qt::LeftButton);
                    return;
                }
            ADD_FAILURE() << "No button " << button;
            dialog.reject();
        });
    }
    std::size_t JournalCount() const {
        const std::string folder = JournalFolder();
        if (!fs::exists(folder)) return 0;
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }
    /// Spoils the line of a text in what was kept.
    void DamageJournal(const std::string& text) {
        for (const auto& [name, bytes] : FilesBelow(JournalFolder())) {
            const std::size_t place = bytes.find(text);
            ASSERT_NE(place, std::string::npos) << bytes;
            std::string damaged = bytes;
            damaged[place] = 'd';
            std::ofstream(JournalFolder() + "/" + name, std::ios::binary) << damaged;
        }
    }
    /// Ends the window as a process that is killed would: without asking and without saving.
    void LoseTheWindow() {
        mWindow->GetKeeping()->Keep();
        mWindow.reset();
        Start();
    }

    EnvironmentChange mState;
    std::string mSeen;
};

// Killed

/// The process that the next test kills. It types with real keys and never comes to an end.
TEST_F(SafetyJourneyTest, DISABLED_TypesUntilItIsKilled) {
    const char* folder = std::getenv(kFolderVariable);
    ASSERT_TRUE(folder);
    ::setenv("XDG_STATE_HOME", (std::string(folder) + "/state").c_str(), 1);
    ASSERT_TRUE(
        mWindow->OpenPath(QString::fromStdString(std::string(folder) + "/zoo.kiteproject")));
    SelectDog();
    WriteComment("##remarks", "A whole remark.");
    ClickAdd("##");
    ASSERT_TRUE(Tags().GetEditor());
    QTest::keyClicks(Tags().GetEditor(), "Half a sent");
    for (int second = 0; second < 120; ++second)
        QTest::qWait(1000);
}

TEST_F(SafetyJourneyTest, WhatWasBeingTypedWhenTheProgramWasKilledIsOfferedAndRecovered) {
    MakeProject();
    const std::string before = mFolder.Read("zoo.ktc");
    const std::string folder = mFolder.Path();
    const pid_t child = ::fork();
    if (child == 0) {
        ::setenv(kFolderVariable, folder.c_str(), 1);
        ::setenv("XDG_CONFIG_HOME", (folder + "/settings2").c_str(), 1);
        const char* arguments[] = {"journeys_test", "--gtest_also_run_disabled_tests",
                                   "--gtest_filter=*.DISABLED_TypesUntilItIsKilled", nullptr};
        ::execv("/proc/self/exe", const_cast<char* const*>(arguments));
        ::_exit(127);
    }
    // The window writes every five seconds; the whole of what was typed has to be there in fifteen.
    std::string kept;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(90);
    while (!Contains(kept, "Half a sent\"") && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        if (!fs::exists(JournalFolder())) continue;
        for (const auto& [name, bytes] : FilesBelow(JournalFolder()))
            kept += bytes;
    }
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << "The process ended by itself";
    ASSERT_TRUE(Contains(kept, "Half a sent\"")) << kept;
    EXPECT_EQ(mFolder.Read("zoo.ktc"), before);

    ExpectVersions("Recover");
    OpenAgain();
    EXPECT_TRUE(Contains(mSeen, "Recover Unsaved Comments")) << mSeen;
    EXPECT_TRUE(
        Contains(mSeen, "zoo ~ animals ~ Dog|General Description|New|Unsaved| Unsaved=Half a sent"))
        << mSeen;
    EXPECT_TRUE(Contains(mSeen, "Remarks|New|Unsaved| Unsaved=A whole remark.")) << mSeen;
    EXPECT_TRUE(IsTitleMarked());
    EXPECT_EQ(TextOf(kDog, "##"), "Half a sent;");
    EXPECT_EQ(TextOf(kDog, "##remarks"), "A whole remark.;");
    EXPECT_EQ(JournalCount(), 1u);
    PressKey(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(Contains(mFolder.Read("zoo.ktc"), "Half a sent"));
    EXPECT_EQ(JournalCount(), 0u);
}

TEST_F(SafetyJourneyTest, WhatIsDiscardedIsNotOfferedAgainAndLaterIs) {
    OpenAtDog();
    WriteComment("##", "Unsaved.");
    LoseTheWindow();
    ExpectVersions("Ask Again Later");
    OpenAgain();
    EXPECT_EQ(TextOf(kDog, "##"), "");
    LoseTheWindow();
    ExpectVersions("Discard Them");
    OpenAgain();
    EXPECT_EQ(TextOf(kDog, "##"), "");
    EXPECT_FALSE(IsTitleMarked());
    LoseTheWindow();
    OpenAgain();
}

TEST_F(SafetyJourneyTest, WhatIsRecoveredIsSafeAtOnce) {
    OpenAtDog();
    WriteComment("##", "Unsaved.");
    LoseTheWindow();
    ExpectVersions("Recover");
    OpenAgain();
    mWindow.reset();
    Start();
    ExpectVersions("Recover");
    OpenAgain();
    EXPECT_EQ(TextOf(kDog, "##"), "Unsaved.;");
}

TEST_F(SafetyJourneyTest, AStoredCommentThatChangedMeanwhileIsShownBesideTheUnsavedOne) {
    MakeProject();
    SomebodyWrites(Said(kDog, "d1", "First."));
    OpenAgain();
    SelectDog();
    Editor().prpTags->SetSelectedItem(FindRow("##", false));
    Editor().prpTags->BeginEdit();
    QTest::keyClicks(Tags().GetEditor(), "Mine.");
    LoseTheWindow();
    SomebodyWrites(Said(kDog, "d1", "Theirs."));
    ExpectVersions("Recover");
    OpenAgain();
    EXPECT_TRUE(Contains(mSeen, "Changed in the file since|Both| Unsaved=Mine. In the file=Theirs. "
                                "In the file then=First."))
        << mSeen;
    EXPECT_EQ(TextOf(kDog, "##"), "Theirs.;Mine.;");
}

TEST_F(SafetyJourneyTest, WhatIsWholeInADamagedJournalIsOfferedAndWhatIsNotIsTold) {
    OpenAtDog();
    WriteComment("##", "Whole.");
    WriteComment("##remarks", "Damaged.");
    LoseTheWindow();
    DamageJournal("Damaged.");
    ExpectVersions("Recover");
    OpenAgain();
    EXPECT_TRUE(Contains(mSeen, "One line of what was kept is damaged and could not be read."))
        << mSeen;
    EXPECT_TRUE(Contains(mSeen, "Unsaved=Whole.")) << mSeen;
    EXPECT_FALSE(Contains(mSeen, "Unsaved=damaged.")) << mSeen;
    EXPECT_EQ(TextOf(kDog, "##"), "Whole.;");
    EXPECT_EQ(TextOf(kDog, "##remarks"), "");
    // Somebody may still be able to read it.
    std::string kept;
    for (const auto& [name, bytes] : FilesBelow(JournalFolder()))
        if (name.ends_with(".damaged")) kept += bytes;
    EXPECT_TRUE(Contains(kept, "damaged.\"")) << kept;
}

TEST_F(SafetyJourneyTest, AJournalInWhichNothingIsWholeIsToldOnce) {
    OpenAtDog();
    WriteComment("##", "Damaged.");
    LoseTheWindow();
    DamageJournal("Damaged.");
    mDialogs.ExpectBox("OK");
    OpenAgain();
    EXPECT_TRUE(Contains(mDialogs.GetText(), "Damaged lines: 1;")) << mDialogs.GetText();
    EXPECT_EQ(TextOf(kDog, "##"), "");
    EXPECT_FALSE(IsTitleMarked());
    mWindow.reset();
    Start();
    OpenAgain();
    EXPECT_EQ(TextOf(kDog, "##"), "");
}

TEST_F(SafetyJourneyTest, ClosingOnPurposeLeavesNothingBehind) {
    OpenAtDog();
    WriteComment("##", "Not wanted.");
    mWindow->GetKeeping()->Keep();
    EXPECT_EQ(JournalCount(), 1u);
    mDialogs.ExpectBox("Discard");
    PressKey(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(JournalCount(), 0u);
    EXPECT_FALSE(fs::exists(mFolder / ".zoo.kiteproject.lock"));
    OpenAgain();
}

TEST_F(SafetyJourneyTest, AJournalThatCannotBeWrittenIsToldInTheStatusBar) {
    mFolder.Write("state/paperkite/unsaved", "in the way");
    OpenAtDog();
    WriteComment("##", "Text.");
    mWindow->GetKeeping()->Keep();
    EXPECT_TRUE(Contains(Status(), "Unsaved comments cannot be kept")) << Status();
    PressKey(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(Contains(mFolder.Read("zoo.ktc"), "Text."));
}

// In use

TEST_F(SafetyJourneyTest, AProjectThatIsInUseCanBeLookedAtAndSavedElsewhere) {
    MakeProject();
    std::optional<ProjectLock::Holder> other;
    const auto lock = ProjectLock::Take(ProjectFile(), ProjectLock::Purpose::Open, other);
    mDialogs.ExpectBox("Cancel");
    EXPECT_FALSE(mWindow->OpenPath(QString::fromStdString(ProjectFile())));
    EXPECT_TRUE(Contains(mDialogs.GetText(), "“zoo.kiteproject” is open in another window"));
    EXPECT_TRUE(Contains(mDialogs.GetText(), "process " + std::to_string(::getpid())));
    EXPECT_FALSE(mWindow->GetWorkspace());
    mDialogs.ExpectBox("Open Read-Only");
    OpenAgain();
    EXPECT_EQ(Title(), "Our Zoo (read-only)[*] — Paperkite");
    SelectDog();
    WriteComment("##", "Text.");
    mDialogs.ExpectBox("Cancel");
    PressKey(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(Contains(mDialogs.GetText(), "opened read-only"));
    EXPECT_FALSE(Contains(mFolder.Read("zoo.ktc"), "Text."));
}

TEST_F(SafetyJourneyTest, TheCommandLineWritesBesideTheWindowWhichTakesItUp) {
    OpenAtDog();
    const Program program(mFolder / "program");
    const auto result = program.Run(
        {"comment", ProjectFile(), "Dog", "--tag", "##", "--text", "From the command line."});
    EXPECT_EQ(result.ExitCode, 0) << result.Err;
    EXPECT_TRUE(Contains(result.Err, "is open in process " + std::to_string(::getpid())))
        << result.Err;
    mWindow->LookAtDisk();
    Settle();
    EXPECT_EQ(TextOf(kDog, "##"), "From the command line.;");
    EXPECT_EQ(FindRow("##", false)->GetValue(), "From the command line.");
    EXPECT_TRUE(Contains(Status(), "Somebody else changed zoo.ktc")) << Status();
    EXPECT_FALSE(IsTitleMarked());
    EXPECT_EQ(Selected(), kDog);
}

// Changed by others

TEST_F(SafetyJourneyTest, UnsavedCommentsMergeWithWhatSomebodyElseWrote) {
    OpenAtDog();
    WriteComment("##", "Mine.");
    SomebodyWrites(Said("zoo~animals~Cat", "c1", "Theirs."));
    mDialogs.ExpectBox("Merge");
    mWindow->LookAtDisk();
    Settle();
    EXPECT_EQ(TextOf(kDog, "##"), "Mine.;");
    EXPECT_EQ(TextOf("zoo~animals~Cat", "##"), "Theirs.;");
    EXPECT_TRUE(IsTitleMarked());
    PressKey(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(IsTitleMarked());
    EXPECT_TRUE(Contains(mFolder.Read("zoo.ktc"), "Mine."));
    EXPECT_TRUE(Contains(mFolder.Read("zoo.ktc"), "Theirs."));
}

TEST_F(SafetyJourneyTest, TheSameCommentIsShownBothWaysAtSaving) {
    MakeProject();
    SomebodyWrites(Said(kDog, "d1", "First."));
    OpenAgain();
    SelectDog();
    Editor().prpTags->SetSelectedItem(FindRow("##", false));
    Editor().prpTags->BeginEdit();
    QTest::keyClicks(Tags().GetEditor(), "Mine.");
    QTest::keyClick(Tags().GetEditor(), Qt::Key_Return);
    SomebodyWrites(Said(kDog, "d1", "Theirs."));
    mDialogs.ExpectBox("Merge");
    ExpectVersions("Keep What Is Chosen", Keeping::Theirs);
    EXPECT_TRUE(mWindow->Save());
    EXPECT_TRUE(Contains(
        mSeen, "zoo ~ animals ~ Dog|General Description|Changed on both sides|Both| Mine=Mine. "
               "Theirs=Theirs. Before=First."))
        << mSeen;
    EXPECT_EQ(TextOf(kDog, "##"), "Theirs.;");
    EXPECT_FALSE(Contains(mFolder.Read("zoo.ktc"), "Mine."));
    EXPECT_FALSE(Contains(mFolder.Read("zoo.ktc"), "conflict"));
}

TEST_F(SafetyJourneyTest, AConflictThatIsLeftForLaterIsInTheFileBothWays) {
    MakeProject();
    mFolder.Write("zoo.ktc",
                  "<contentfile version=\"1\"><comment item='zoo~animals~Dog' tag='##' id='1' "
                  "conflict='ours' conflictid='1'>A</comment><comment item='zoo~animals~Dog' "
                  "tag='##' id='1-theirs' conflict='theirs' conflictid='1'>B</comment>"
                  "</contentfile>");
    ExpectVersions("Decide Later");
    OpenAgain();
    EXPECT_EQ(TextOf(kDog, "##"), "A;B;");
    EXPECT_FALSE(IsTitleMarked());
    ExpectVersions("Keep What Is Chosen", Keeping::Ours);
    mWindow->GetAction("ResolveConflicts")->trigger();
    Settle();
    EXPECT_EQ(TextOf(kDog, "##"), "A;");
    EXPECT_TRUE(IsTitleMarked());
    EXPECT_TRUE(mWindow->Save());
    EXPECT_FALSE(Contains(mFolder.Read("zoo.ktc"), "conflict"));
}

// Damaged and missing files

TEST_F(SafetyJourneyTest, ADamagedSettingsFileDoesNotHinderTheWork) {
    OpenProject();
    mWindow->resize(900, 640);
    mWindow.reset();
    const std::string whole = mFolder.Read("settings/user.ini");
    ASSERT_TRUE(Contains(whole, "=900")) << whole;
    std::string absurd;
    for (const char character : whole)
        absurd += absurd.ends_with('=') ? std::string("-99999999999999999999") + character
                                        : std::string(1, character);
    const std::string noise("\xFF\xFE[\0=@Invalid(", 14);
    for (const std::string& bytes : {absurd, whole.substr(0, whole.size() / 2) + noise,
                                     noise + whole, std::string(100000, '[')}) {
        mFolder.Write("settings/user.ini", bytes);
        Start();
        OpenAgain();
        EXPECT_TRUE(IsShown("zoo"));
        EXPECT_GE(mWindow->width(), 400);
        EXPECT_LE(mWindow->width(), 8192);
        SelectDog();
        WriteComment("##", "Text.");
        EXPECT_TRUE(mWindow->Save());
        Editor().DeleteCommentItem(FindRow("##", false)->GetKey());
        EXPECT_TRUE(mWindow->Save());
        // What the author sets now is kept again.
        mWindow->resize(880, 640);
        Start();
        EXPECT_EQ(mWindow->width(), 880);
    }
}

TEST_F(SafetyJourneyTest, AMissingContentFileIsToldAndTheProjectOpens) {
    MakeProject();
    fs::remove(mFolder / "zoo.ktc");
    mDialogs.ExpectBox("OK");
    OpenAgain();
    EXPECT_TRUE(
        Contains(mDialogs.GetText(), "zoo.ktc: This Content File of the project is missing"));
    EXPECT_TRUE(IsShown("zoo"));
}

} // namespace

} // namespace paperkite::test
