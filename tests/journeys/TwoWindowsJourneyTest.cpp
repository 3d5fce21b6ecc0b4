#include "host/StateFolder.h"
#include "host/window/SafeKeeping.h"
#include "journeys/Program.h"
#include "journeys/WindowTest.h"
#include "support/EnvironmentChange.h"
#include "support/NarrowWorld.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>

#include <sys/wait.h>
#include <unistd.h>

namespace paperkite::test {

namespace {

namespace fs = std::filesystem;

constexpr const char* kFolderVariable = "PAPERKITE_TEST_OTHER_WINDOW_IN";
constexpr const char* kDog = "zoo~animals~Dog";
constexpr const char* kCat = "zoo~animals~Cat";

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

/// Waits until a file is there; false when it does not come.
bool Await(const std::string& file) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(120);
    while (!fs::exists(file)) {
        if (std::chrono::steady_clock::now() > end) return false;
        QTest::qWait(20);
    }
    return true;
}

/// Two windows of two processes on one project. They tell each other by files how far they are.
class TwoWindowsJourneyTest : public WindowTest {
protected:
    TwoWindowsJourneyTest() : mState("XDG_STATE_HOME", mFolder / "state") {}
    ~TwoWindowsJourneyTest() override { EndTheOther(); }

    /// Opens the project in a window of another process.
    void OpenElsewhere() {
        MakeProject();
        fs::create_directories(mFolder / "signals");
        mOther = ::fork();
        if (mOther == 0) {
            ::setenv(kFolderVariable, mFolder.Path().c_str(), 1);
            ::setenv("XDG_CONFIG_HOME", (mFolder / "settings2").c_str(), 1);
            const char* arguments[] = {"journeys_test", "--gtest_also_run_disabled_tests",
                                       "--gtest_filter=*.DISABLED_SavesWhenItIsAsked", nullptr};
            ::execv("/proc/self/exe", const_cast<char* const*>(arguments));
            ::_exit(127);
        }
        ASSERT_TRUE(Await(mFolder / "signals/open"));
    }
    /// Has the other window write a description and save.
    void SaveElsewhere(const std::string& item, const std::string& text) {
        mFolder.Write("signals/text", text);
        mFolder.Write("signals/item.new", item);
        fs::rename(mFolder / "signals/item.new", mFolder / "signals/item");
        ASSERT_TRUE(Await(mFolder / "signals/saved"));
        ASSERT_TRUE(Contains(mFolder.Read("zoo.ktc"), text));
    }
    void EndTheOther() {
        if (mOther <= 0) return;
        mFolder.Write("signals/end", "");
        int status = 0;
        ::waitpid(mOther, &status, 0);
        mOther = 0;
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "The other window failed.";
    }
    void OpenHere(const std::string& answer) {
        mDialogs.ExpectBox(answer);
        ASSERT_TRUE(mWindow->OpenPath(QString::fromStdString(ProjectFile())));
        Settle();
        EXPECT_TRUE(Contains(mDialogs.GetText(), "“zoo.kiteproject” is open in another window"));
        EXPECT_TRUE(Contains(mDialogs.GetText(), "process " + std::to_string(mOther)))
            << mDialogs.GetText();
    }
    void WriteHere(const std::string& item, const QString& text) {
        ASSERT_TRUE(mWindow->GetWorkspace()->Select(item));
        Settle();
        WriteComment("##", text);
    }

    EnvironmentChange mState;
    pid_t mOther = 0;
};

/// The other window.
TEST_F(TwoWindowsJourneyTest, DISABLED_SavesWhenItIsAsked) {
    const char* variable = std::getenv(kFolderVariable);
    ASSERT_TRUE(variable);
    const std::string folder = variable;
    ::setenv("XDG_STATE_HOME", (folder + "/state").c_str(), 1);
    ASSERT_TRUE(mWindow->OpenPath(QString::fromStdString(folder + "/zoo.kiteproject")));
    const std::string told = folder + "/signals";
    std::ofstream(told + "/open").put('\n');
    while (!fs::exists(told + "/item") && !fs::exists(told + "/end"))
        QTest::qWait(20);
    if (fs::exists(told + "/item")) {
        const auto files = FilesBelow(told);
        ASSERT_TRUE(mWindow->GetWorkspace()->Select(files.at("item")));
        Settle();
        WriteComment("##", QString::fromStdString(files.at("text")));
        PressKey(Qt::Key_S, Qt::ControlModifier);
        ASSERT_FALSE(IsTitleMarked());
        std::ofstream(told + "/saved").put('\n');
    }
    ASSERT_TRUE(Await(told + "/end"));
}

TEST_F(TwoWindowsJourneyTest, TheSecondWindowIsReadOnlyAndSavesUnderAnotherName) {
    OpenElsewhere();
    OpenHere("Open Read-Only");
    EXPECT_TRUE(Contains(Title(), "(read-only)"));
    WriteHere(kDog, "Mine.");
    const std::string before = mFolder.Read("zoo.ktc");
    mDialogs.ExpectBox("Save As …");
    mDialogs.Expect([this](QDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        if (!name) {
            ADD_FAILURE() << "Not a file dialog: " << dialog.windowTitle().toStdString();
            dialog.reject();
            return;
        }
        name->setText(QString::fromStdString(mFolder / "mine.kiteproject"));
        QTest::keyClick(name, Qt::Key_Return);
    });
    PressKey(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(mFolder.Read("zoo.ktc"), before);
    EXPECT_TRUE(Contains(mFolder.Read("mine.ktc"), "Mine."));
    EXPECT_FALSE(Contains(Title(), "(read-only)"));
    EXPECT_FALSE(IsTitleMarked());
    SaveElsewhere(kCat, "Theirs.");
    EXPECT_FALSE(Contains(mFolder.Read("mine.ktc"), "Theirs."));
}

TEST_F(TwoWindowsJourneyTest, CommentsOfBothWindowsAreInTheFile) {
    OpenElsewhere();
    OpenHere("Open Anyway");
    WriteHere(kDog, "Mine.");
    SaveElsewhere(kCat, "Theirs.");
    mDialogs.ExpectBox("Merge");
    PressKey(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(IsTitleMarked());
    EXPECT_TRUE(Contains(mFolder.Read("zoo.ktc"), "Mine."));
    EXPECT_TRUE(Contains(mFolder.Read("zoo.ktc"), "Theirs."));
    EXPECT_EQ(TextOf(kCat, "##"), "Theirs.;");
}

TEST_F(TwoWindowsJourneyTest, DescriptionsThatBothWindowsWroteAreShownBothWays) {
    OpenElsewhere();
    OpenHere("Open Anyway");
    WriteHere(kDog, "Mine.");
    SaveElsewhere(kDog, "Theirs.");
    mDialogs.ExpectBox("Merge");
    std::string seen;
    mDialogs.ExpectBehindProgress([&seen](QDialog& dialog) {
        for (const auto* list : dialog.findChildren<QTreeWidget*>())
            for (int column = 0; column < 3; ++column)
                seen += list->topLevelItem(0)->text(column).toStdString() + "|";
        for (const auto* text : dialog.findChildren<QPlainTextEdit*>())
            seen += text->toPlainText().toStdString() + "|";
        for (auto* push : dialog.findChildren<QPushButton*>())
            if (push->text().remove('&') == "Decide Later") QTest::mouseClick(push, Qt::LeftButton);
    });
    PressKey(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(Contains(seen, "zoo ~ animals ~ Dog|General Description|Changed on both sides|"))
        << seen;
    EXPECT_TRUE(Contains(seen, "Mine.|")) << seen;
    EXPECT_TRUE(Contains(seen, "Theirs.|")) << seen;
    EXPECT_TRUE(Contains(mFolder.Read("zoo.ktc"), "Mine."));
    EXPECT_TRUE(Contains(mFolder.Read("zoo.ktc"), "Theirs."));
    EXPECT_TRUE(Contains(mFolder.Read("zoo.ktc"), "conflict=\"theirs\""));
}

// Saving that fails

class FailedSaveJourneyTest : public WindowTest {
protected:
    FailedSaveJourneyTest() : mState("XDG_STATE_HOME", mFolder / "state") {}

    /// Writes a comment that is in the journal.
    void WriteUnsaved() {
        OpenProject();
        ASSERT_TRUE(mWindow->GetWorkspace()->Select(kDog));
        Settle();
        WriteComment("##", "A text that the disk has no room for, or that nobody may write.");
        mWindow->GetKeeping()->Keep();
        mFilesBefore = FilesBelow(mFolder.Path());
    }
    void ExpectNothingIsLost(const std::string& remedy) {
        EXPECT_TRUE(Contains(mDialogs.GetText(), "zoo.ktc: The file cannot be saved"))
            << mDialogs.GetText();
        EXPECT_TRUE(Contains(mDialogs.GetText(), remedy)) << mDialogs.GetText();
        EXPECT_TRUE(IsTitleMarked());
        EXPECT_EQ(mFolder.Read("zoo.ktc"), mFilesBefore["zoo.ktc"]);
        EXPECT_EQ(mFolder.Read("zoo.kiteproject"), mFilesBefore["zoo.kiteproject"]);
        std::string kept;
        for (const auto& [name, bytes] : FilesBelow(JournalFolder()))
            kept += bytes;
        EXPECT_TRUE(Contains(kept, "A text that the disk")) << kept;
        // As soon as there is room, it can be saved.
        PressKey(Qt::Key_S, Qt::ControlModifier);
        EXPECT_FALSE(IsTitleMarked());
        EXPECT_TRUE(Contains(mFolder.Read("zoo.ktc"), "A text that the disk"));
        EXPECT_TRUE(FilesBelow(JournalFolder()).empty());
    }

    EnvironmentChange mState;
    std::map<std::string, std::string> mFilesBefore;
};

TEST_F(FailedSaveJourneyTest, AFullDiskIsToldAndTheWorkIsKept) {
    WriteUnsaved();
    mDialogs.ExpectBox("OK");
    {
        const FullDisk disk(100);
        PressKey(Qt::Key_S, Qt::ControlModifier);
    }
    EXPECT_TRUE(mDialogs.AreDone()) << "nobody was told";
    ExpectNothingIsLost("Make room");
}

TEST_F(FailedSaveJourneyTest, AFolderThatMayNotBeWrittenIsToldAndTheWorkIsKept) {
    WriteUnsaved();
    for (const char* name : {"zoo.ktc", "zoo.kiteproject"})
        fs::permissions(mFolder / name, fs::perms(0666));
    fs::permissions(mFolder.Path(), fs::perms(0555));
    mDialogs.ExpectBox("OK");
    {
        const OrdinaryUser user;
        PressKey(Qt::Key_S, Qt::ControlModifier);
    }
    fs::permissions(mFolder.Path(), fs::perms(0755));
    EXPECT_TRUE(mDialogs.AreDone()) << "nobody was told";
    ExpectNothingIsLost("Ask for the permission to write");
}

TEST_F(FailedSaveJourneyTest, AFolderInThePlaceOfTheFileIsToldAndTheWorkIsKept) {
    WriteUnsaved();
    fs::rename(mFolder / "zoo.ktc", mFolder / "aside.ktc");
    fs::create_directory(mFolder / "zoo.ktc");
    mDialogs.ExpectBox("OK");
    PressKey(Qt::Key_S, Qt::ControlModifier);
    EXPECT_NE(mDialogs.GetText().find("zoo.ktc"), std::string::npos) << mDialogs.GetText();
    fs::remove(mFolder / "zoo.ktc");
    fs::rename(mFolder / "aside.ktc", mFolder / "zoo.ktc");
    ExpectNothingIsLost("A folder of that name is there");
}

} // namespace

} // namespace paperkite::test
