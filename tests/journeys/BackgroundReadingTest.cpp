#include "journeys/WindowTest.h"

#include "support/EnvironmentChange.h"
#include "support/Waiting.h"

#include <QAction>
#include <QTest>
#include <QToolButton>

#include <cstdlib>
#include <filesystem>
#include <memory>

namespace paperkite::test {

namespace {

namespace fs = std::filesystem;

constexpr const char* kCat = "class Cat {\npublic:\n    void Purr();\n    void Sleep();\n};\n";

class BackgroundReadingTest : public WindowTest {
protected:
    /// Opens the project, whose code is known from before, in the window.
    void OpenKnown() {
        MakeProject();
        OpenAgain();
    }
    void OpenAgain() { ASSERT_TRUE(mWindow->OpenPath(QString::fromStdString(ProjectFile()))); }
    ProjectSession& Session() const { return mWindow->GetWorkspace()->GetSession(); }
    bool Has(const std::string& item) const {
        return static_cast<bool>(Session().GetProvider()->GetItem(item));
    }
    bool IsUpToDateSoon() const {
        return WaitUntil([this] { return Session().IsUpToDate(); }, 20'000);
    }
    QToolButton* CancelButton() const { return mWindow->findChild<QToolButton*>("CancelReading"); }
    /// A ctags that stands still when it is to read files, and says so in a file, until the test
    /// lets it go.
    void MakeCtagsHang() {
        const std::string path = mFolder.Write(
            "bin/ctags", "#!/bin/bash\ncase \"$1\" in --version) exec /usr/bin/ctags --version;; "
                         "esac\ntouch " +
                             (mFolder / "hangs") + "\nfor i in {1..6000}; do [ -e " +
                             (mFolder / "go") +
                             " ] && exec /usr/bin/ctags \"$@\"; sleep 0.1; done\n");
        fs::permissions(path, fs::perms::owner_all);
        mPath = std::make_unique<EnvironmentChange>("PATH",
                                                    (mFolder / "bin") + ":" + std::getenv("PATH"));
    }
    bool HangsSoon() const {
        return WaitUntil([this] { return fs::exists(mFolder / "hangs"); }, 20'000);
    }

    void LetCtagsGo() const { mFolder.Write("go", ""); }

    std::unique_ptr<EnvironmentChange> mPath;
};

TEST_F(BackgroundReadingTest, WhatDidNotChangeStaysAsItStands) {
    OpenKnown();
    EXPECT_FALSE(Session().IsUpToDate());
    const auto item = Session().GetProvider()->GetItem("zoo~animals~Dog");
    ASSERT_TRUE(IsUpToDateSoon());
    EXPECT_EQ(Session().GetProvider()->GetItem("zoo~animals~Dog"), item);
    EXPECT_FALSE(CancelButton()->isVisible());
}

TEST_F(BackgroundReadingTest, WhatChangedIsTakenInWhileTheAuthorKeepsHisPlace) {
    MakeProject();
    mFolder.Write("zoo/cats.h", kCat);
    MakeCtagsHang();
    OpenAgain();
    EXPECT_FALSE(Has("zoo~Cat~Sleep"));
    ASSERT_TRUE(mWindow->GetWorkspace()->Select("zoo~animals~Dog~Age"));
    LetCtagsGo();
    ASSERT_TRUE(IsUpToDateSoon());
    Settle();
    EXPECT_TRUE(Has("zoo~Cat~Sleep"));
    EXPECT_EQ(Selected(), "zoo~animals~Dog~Age");
    EXPECT_TRUE(IsShown("zoo~Cat"));
    EXPECT_FALSE(IsTitleMarked());
}

TEST_F(BackgroundReadingTest, NothingIsTakenInWhileACommentIsBeingTyped) {
    MakeProject();
    mFolder.Write("zoo/cats.h", kCat);
    MakeCtagsHang();
    OpenAgain();
    ASSERT_TRUE(mWindow->GetWorkspace()->Select("zoo~animals~Dog~Age"));
    ClickAdd("##");
    ASSERT_TRUE(Editor().prpTags->GetInEdit());
    QWidget* editor = Tags().GetEditor();
    ASSERT_TRUE(editor);
    QTest::keyClicks(editor, "Half a sen");
    LetCtagsGo();
    EXPECT_TRUE(WaitUntil(
        [this] { return Status().find("when the edit ends") != std::string::npos; }, 20'000));
    EXPECT_FALSE(Session().IsUpToDate());
    ASSERT_TRUE(Tags().GetEditor());
    QTest::keyClicks(Tags().GetEditor(), "tence.");
    QTest::keyClick(Tags().GetEditor(), Qt::Key_Return);
    ASSERT_TRUE(IsUpToDateSoon());
    EXPECT_TRUE(Has("zoo~Cat~Sleep"));
    EXPECT_EQ(TextOf("zoo~animals~Dog~Age", "##"), "Half a sentence.;");
    EXPECT_EQ(Selected(), "zoo~animals~Dog~Age");
    EXPECT_TRUE(IsTitleMarked());
}

TEST_F(BackgroundReadingTest, TheStatusBarTellsOfItAndCancelsIt) {
    MakeProject();
    mFolder.Write("zoo/cats.h", kCat);
    MakeCtagsHang();
    OpenAgain();
    ASSERT_TRUE(HangsSoon());
    QTest::qWait(200);
    EXPECT_NE(Status().find("Reading source code"), std::string::npos) << Status();
    ASSERT_TRUE(CancelButton()->isVisible());
    QTest::mouseClick(CancelButton(), Qt::LeftButton);
    EXPECT_TRUE(WaitUntil([this] { return !CancelButton()->isVisible(); }, 10'000));
    EXPECT_FALSE(Session().IsUpToDate());
    EXPECT_TRUE(Has("zoo~animals~Dog"));
    EXPECT_EQ(Status().find("Reading source code"), std::string::npos) << Status();
}

TEST_F(BackgroundReadingTest, ClosingTheProjectEndsItAtOnce) {
    MakeProject();
    mFolder.Write("zoo/cats.h", kCat);
    MakeCtagsHang();
    OpenAgain();
    ASSERT_TRUE(HangsSoon());
    EXPECT_TRUE(mWindow->CloseProject());
    EXPECT_FALSE(mWindow->GetWorkspace());
    EXPECT_FALSE(CancelButton()->isVisible());
    fs::remove(mFolder / "hangs");
    OpenAgain();
    ASSERT_TRUE(HangsSoon());
    mWindow.reset(); // and so does the end of the program
}

TEST_F(BackgroundReadingTest, ReadingAgainByHandTakesItsPlace) {
    MakeProject();
    mFolder.Write("zoo/cats.h", kCat);
    MakeCtagsHang();
    OpenAgain();
    ASSERT_TRUE(HangsSoon());
    mPath.reset();
    mWindow->GetAction("Rescan")->trigger();
    EXPECT_TRUE(Session().IsUpToDate());
    EXPECT_TRUE(Has("zoo~Cat~Sleep"));
    EXPECT_FALSE(CancelButton()->isVisible());
}

TEST_F(BackgroundReadingTest, AProblemIsToldAndTheProjectStaysOpen) {
    MakeProject();
    fs::rename(mFolder / "zoo", mFolder / "moved");
    mDialogs.ExpectBox("OK");
    OpenAgain();
    EXPECT_TRUE(WaitUntil([this] { return mDialogs.AreDone(); }, 20'000));
    EXPECT_NE(mDialogs.GetText().find("does not exist"), std::string::npos) << mDialogs.GetText();
    EXPECT_TRUE(Has("zoo~animals~Dog"));
}

} // namespace

} // namespace paperkite::test
