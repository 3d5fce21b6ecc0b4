#include "journeys/WindowTest.h"

#include "support/GatedCtags.h"
#include "support/Waiting.h"

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QAction>
#include <QCompleter>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>

namespace paperkite::test {

namespace {

namespace fs = std::filesystem;

constexpr const char* kDog = "zoo~a_animals~Dog";
constexpr const char* kBark = "zoo~a_animals~Dog~Bark";
constexpr const char* kCat = "zoo~d_cats~Cat1";
constexpr const char* kShark = "zoo~f_fish~Shark";

/// The first reading of a project in Python, with a ctags that stops at two of its six files.
class FirstReadingTest : public WindowTest {
protected:
    FirstReadingTest() {
        fs::remove(mFolder / "zoo/animals.h");
        mFolder.Write("zoo/a_animals.py", "class Dog:\n"
                                          "    def Bark(self, times):\n        pass\n"
                                          "    def Age(self):\n        pass\n");
        // Each part comes when as much again is known, whenever the first one came.
        mFolder.Write("zoo/b_birds.py",
                      ManyClasses("Bird", 20) + "class Emu:\n    def Run(self):\n        pass\n");
        mFolder.Write("zoo/c_gate1.py", "First = 1\n");
        mFolder.Write("zoo/d_cats.py", ManyClasses("Cat", 100));
        mFolder.Write("zoo/e_gate2.py", "Second = 2\n");
        mFolder.Write("zoo/f_fish.py", "class Shark:\n    def Bite(self):\n        pass\n");
    }
    static std::string ManyClasses(const std::string& name, int count) {
        std::string text;
        for (int number = 1; number <= count; ++number)
            text += "class " + name + std::to_string(number) + ":\n    pass\n";
        return text;
    }

    /// The project is on the disk, and its code was never read.
    void MakeUnreadProject() {
        MakeProject();
        fs::remove_all(mCacheFolder / "paperkite");
    }
    void MakeCtagsStop() { mCtags = std::make_unique<GatedCtags>(); }

    /// Opens a project that was never read; what stands before the first gate is there then.
    void OpenUnread() {
        MakeUnreadProject();
        MakeCtagsStop();
        Open();
    }
    void Open() { ASSERT_TRUE(mWindow->OpenPath(QString::fromStdString(ProjectFile()))); }

    ProjectSession& Session() const { return mWindow->GetWorkspace()->GetSession(); }
    bool Has(const std::string& item) const {
        return static_cast<bool>(Session().GetProvider()->GetItem(item));
    }
    bool HasSoon(const std::string& item) const {
        return WaitUntil([&] { return Has(item); }, 20'000);
    }
    bool IsUpToDateSoon() const {
        return WaitUntil([this] { return Session().IsUpToDate(); }, 20'000);
    }
    bool Says(const std::string& text) const { return Status().find(text) != std::string::npos; }
    bool SaysSoon(const std::string& text) const {
        return WaitUntil([&] { return Says(text); }, 20'000);
    }
    QToolButton* Button(const char* name) const { return mWindow->findChild<QToolButton*>(name); }
    QAction* Homeless() const { return mWindow->GetAction("Homeless"); }
    std::string StoredBytes() const {
        std::ostringstream bytes;
        for (const auto& entry : fs::directory_iterator(mFolder.Path()))
            if (entry.path().extension() == ".kiteproject" || entry.path().extension() == ".ktc")
                bytes << std::ifstream(entry.path()).rdbuf();
        return bytes.str();
    }
    /// What the finder offers for a text.
    std::string Offered(const QString& text) const {
        for (auto* field : mWindow->findChildren<QLineEdit*>()) {
            if (field->placeholderText() != "Find an item") continue;
            field->setFocus();
            field->clear();
            QTest::keyClicks(field, text);
            std::string rows;
            for (int row = 0; row < field->completer()->model()->rowCount(); ++row)
                rows += field->completer()->model()->index(row, 0).data().toString().toStdString() +
                        "\n";
            field->completer()->popup()->hide();
            return rows;
        }
        return "no finder";
    }
    /// Comments on an item that is read last, and on one that is not there at all.
    void WriteCommentsElsewhere() {
        std::string text = "<contentfile version=\"1\">";
        for (const std::string item : {"zoo~a_animals~Wolf", kShark})
            text += "<comment item='" + item + "' tag='##' id='" + item + "'>A comment.</comment>";
        mFolder.Write("zoo.ktc", text + "</contentfile>");
    }

    std::unique_ptr<GatedCtags> mCtags;
};

TEST_F(FirstReadingTest, TheWindowOpensWithThePartThatIsRead) {
    OpenUnread();
    EXPECT_TRUE(Session().IsPart());
    EXPECT_FALSE(Session().IsUpToDate());
    EXPECT_TRUE(Has(kBark));
    EXPECT_TRUE(HasSoon("zoo~b_birds~Emu~Run"));
    EXPECT_FALSE(Has("zoo~c_gate1"));
    EXPECT_FALSE(Has(kShark));
    EXPECT_TRUE(SaysSoon("Reading source code, 2 of 6 files")) << Status();
    EXPECT_TRUE(Button("CancelReading")->isVisible());
    EXPECT_FALSE(IsTitleMarked());
    mCtags->OpenAll();
    ASSERT_TRUE(IsUpToDateSoon());
    EXPECT_FALSE(Session().IsPart());
    EXPECT_TRUE(Has(kShark));
    EXPECT_FALSE(Button("CancelReading")->isVisible());
    EXPECT_FALSE(Button("ReadAgain")->isVisible());
}

TEST_F(FirstReadingTest, ANewProjectOpensSoToo) {
    MakeCtagsStop();
    ASSERT_TRUE(mWindow->CreateProject({ProjectFile(), mFolder / "zoo", "Our Zoo", {}}));
    EXPECT_TRUE(Session().IsPart());
    EXPECT_TRUE(fs::exists(ProjectFile()));
    mCtags->OpenAll();
    ASSERT_TRUE(IsUpToDateSoon());
    EXPECT_TRUE(Has(kShark));
}

TEST_F(FirstReadingTest, MoreComesWhileTheAuthorKeepsHisPlace) {
    OpenUnread();
    ASSERT_TRUE(mWindow->GetWorkspace()->Select(kBark));
    Settle();
    const QWidget* focus = QApplication::focusWidget();
    mCtags->Open("gate1");
    ASSERT_TRUE(HasSoon(kCat));
    Settle();
    EXPECT_TRUE(Session().IsPart());
    EXPECT_FALSE(Has(kShark));
    EXPECT_EQ(Selected(), kBark);
    EXPECT_TRUE(IsShown("zoo~a_animals~Dog~Age"));
    EXPECT_EQ(QApplication::focusWidget(), focus);
    EXPECT_TRUE(Says("Reading source code")) << Status();
    mCtags->Open("gate2");
    ASSERT_TRUE(IsUpToDateSoon());
    EXPECT_EQ(Selected(), kBark);
    EXPECT_TRUE(IsShown("zoo~a_animals~Dog~Age"));
}

TEST_F(FirstReadingTest, NothingComesWhileACommentIsBeingTyped) {
    OpenUnread();
    ASSERT_TRUE(mWindow->GetWorkspace()->Select(kBark));
    ClickAdd("##");
    ASSERT_TRUE(Tags().GetEditor());
    QTest::keyClicks(Tags().GetEditor(), "Half a sen");
    mCtags->Open("gate1");
    ASSERT_TRUE(SaysSoon("Reading source code, 4 of 6 files")) << Status();
    QTest::qWait(200);
    EXPECT_FALSE(Has(kCat));
    ASSERT_TRUE(Tags().GetEditor());
    QTest::keyClicks(Tags().GetEditor(), "tence.");
    QTest::keyClick(Tags().GetEditor(), Qt::Key_Return);
    ASSERT_TRUE(HasSoon(kCat));
    EXPECT_EQ(TextOf(kBark, "##"), "Half a sentence.;");
    EXPECT_EQ(Selected(), kBark);
    ASSERT_TRUE(mWindow->Save());
    mCtags->Open("gate2");
    ASSERT_TRUE(IsUpToDateSoon());
    EXPECT_EQ(TextOf(kBark, "##"), "Half a sentence.;");
    EXPECT_NE(StoredBytes().find("Half a sentence."), std::string::npos);
    EXPECT_FALSE(IsTitleMarked());
}

TEST_F(FirstReadingTest, WhatIsMissingIsNotHomelessUntilAllIsRead) {
    MakeProject();
    WriteCommentsElsewhere();
    fs::remove_all(mCacheFolder / "paperkite");
    MakeCtagsStop();
    Open();
    const auto* status = mWindow->findChild<QPushButton*>("HomelessStatus");
    EXPECT_FALSE(status->isVisible());
    EXPECT_FALSE(Homeless()->isEnabled());
    EXPECT_NE(Homeless()->text().toStdString().find("Not All Code Was Read Yet"), std::string::npos)
        << Homeless()->text().toStdString();
    ASSERT_TRUE(mWindow->GetWorkspace()->Select(kDog));
    WriteComment("##", "Guards.");
    ASSERT_TRUE(mWindow->Save());
    EXPECT_EQ(TextOf(kShark, "##"), "A comment.;");
    EXPECT_EQ(TextOf("zoo~a_animals~Wolf", "##"), "A comment.;");
    mCtags->OpenAll();
    ASSERT_TRUE(IsUpToDateSoon());
    EXPECT_TRUE(status->isVisible());
    EXPECT_EQ(status->accessibleName().toStdString(), "1 item with comments is gone");
    EXPECT_TRUE(Homeless()->isEnabled());
    EXPECT_EQ(TextOf(kShark, "##"), "A comment.;");
}

TEST_F(FirstReadingTest, APartDoesNotClaimToBeAll) {
    OpenUnread();
    EXPECT_TRUE(Says("of what was read so far")) << Status();
    EXPECT_FALSE(Says("of the project")) << Status();
    EXPECT_TRUE(Says("members read so far documented")) << Status(); // of the project's root
    EXPECT_NE(Offered("Emu").find("there may be more"), std::string::npos);
    EXPECT_EQ(Offered("Shark"), "No item has “Shark” in its name\n"
                                "Not all source code was read yet; there may be more\n");
    ASSERT_TRUE(mWindow->GetWorkspace()->Select(kDog));
    EXPECT_TRUE(Says("[0 of 2 members documented]")) << Status(); // a class is all there
    mCtags->OpenAll();
    ASSERT_TRUE(IsUpToDateSoon());
    EXPECT_TRUE(Says("of the project")) << Status();
    EXPECT_EQ(Offered("Emu").find("there may be more"), std::string::npos);
}

TEST_F(FirstReadingTest, CancellingKeepsThePartAndOffersToReadAgain) {
    OpenUnread();
    ASSERT_TRUE(mWindow->GetWorkspace()->Select(kBark));
    WriteComment("##", "Loud.");
    QTest::mouseClick(Button("CancelReading"), Qt::LeftButton);
    ASSERT_TRUE(WaitUntil([this] { return Button("ReadAgain")->isVisible(); }, 20'000));
    EXPECT_TRUE(Says("Only a part of the source code was read")) << Status();
    EXPECT_FALSE(Button("CancelReading")->isVisible());
    EXPECT_TRUE(Session().IsPart());
    EXPECT_TRUE(Has(kDog));
    EXPECT_FALSE(Homeless()->isEnabled());
    mCtags->OpenAll();
    QTest::mouseClick(Button("ReadAgain"), Qt::LeftButton);
    ASSERT_TRUE(IsUpToDateSoon());
    EXPECT_TRUE(Has(kShark));
    EXPECT_EQ(Selected(), kBark);
    EXPECT_EQ(TextOf(kBark, "##"), "Loud.;");
    EXPECT_FALSE(Button("ReadAgain")->isVisible());
}

TEST_F(FirstReadingTest, ReadingAgainTakesNothingAway) {
    OpenUnread();
    mCtags->Open("gate1");
    ASSERT_TRUE(HasSoon(kCat));
    QTest::mouseClick(Button("CancelReading"), Qt::LeftButton);
    ASSERT_TRUE(WaitUntil([this] { return Button("ReadAgain")->isVisible(); }, 20'000));
    mCtags->Close("gate1");
    QTest::mouseClick(Button("ReadAgain"), Qt::LeftButton);
    ASSERT_TRUE(SaysSoon("Reading source code, 2 of 6 files")) << Status();
    QTest::qWait(800); // a part of two files is told by then
    EXPECT_TRUE(Has(kCat));
    mCtags->OpenAll();
    ASSERT_TRUE(IsUpToDateSoon());
    EXPECT_TRUE(Has(kShark));
}

TEST_F(FirstReadingTest, AReadingByHandTakesItsPlace) {
    OpenUnread();
    mCtags.reset();
    mWindow->GetAction("Rescan")->trigger();
    EXPECT_TRUE(Session().IsUpToDate());
    EXPECT_TRUE(Has(kShark));
    EXPECT_FALSE(Button("CancelReading")->isVisible());
}

TEST_F(FirstReadingTest, ClosingEndsItAndTheNextStartIsAFirstOne) {
    OpenUnread();
    EXPECT_TRUE(mWindow->CloseProject());
    EXPECT_FALSE(mWindow->GetWorkspace());
    EXPECT_FALSE(Button("CancelReading")->isVisible());
    Open();
    EXPECT_TRUE(Session().IsPart());
    Start(); // the program ends, and starts again
    Open();
    EXPECT_TRUE(Session().IsPart());
    EXPECT_TRUE(Has(kDog));
    mCtags->OpenAll();
    ASSERT_TRUE(IsUpToDateSoon());
    EXPECT_TRUE(Has(kShark));
    Start();
    Open(); // now it is known
    EXPECT_FALSE(Session().IsPart());
    EXPECT_TRUE(Has(kShark));
    EXPECT_TRUE(IsUpToDateSoon());
}

TEST_F(FirstReadingTest, AnotherProjectTakesItsPlace) {
    OpenUnread();
    mFolder.Write("garden/rose.h", "class Rose {};\n");
    const std::string other = mFolder / "garden.kiteproject";
    ASSERT_EQ(ProjectSession::Create({other, mFolder / "garden", "Garden", {}}).Problem, "");
    ASSERT_TRUE(mWindow->OpenPath(QString::fromStdString(other)));
    EXPECT_TRUE(Has("garden~Rose"));
    EXPECT_FALSE(Session().IsPart());
    EXPECT_TRUE(IsUpToDateSoon());
}

TEST_F(FirstReadingTest, CommentsOfSomebodyElseAreReadWhileItGoesOn) {
    OpenUnread();
    WriteCommentsElsewhere();
    mWindow->LookAtDisk();
    EXPECT_TRUE(Session().IsPart());
    EXPECT_TRUE(Has(kDog));
    EXPECT_EQ(TextOf(kShark, "##"), "A comment.;");
    EXPECT_FALSE(Homeless()->isEnabled());
    mCtags->OpenAll();
    ASSERT_TRUE(IsUpToDateSoon());
    EXPECT_EQ(TextOf(kShark, "##"), "A comment.;");
    EXPECT_TRUE(Homeless()->isEnabled());
}

TEST_F(FirstReadingTest, AFailureOnTheWayIsToldAndThePartStays) {
    OpenUnread();
    mDialogs.ExpectBox("OK");
    mCtags->Break();
    ASSERT_TRUE(WaitUntil([this] { return mDialogs.AreDone(); }, 20'000));
    EXPECT_NE(mDialogs.GetText().find("ctags"), std::string::npos) << mDialogs.GetText();
    Settle();
    EXPECT_TRUE(Has(kDog));
    EXPECT_TRUE(Session().IsPart());
    EXPECT_TRUE(Button("ReadAgain")->isVisible());
}

TEST_F(FirstReadingTest, CodeWhoseNamesMayChangeIsReadToItsEndFirst) {
    mFolder.Write("zoo/z.cpp", "int Ape(int);\n");
    MakeUnreadProject();
    MakeCtagsStop();
    mDialogs.Expect([this](QDialog& dialog) {
        EXPECT_TRUE(qobject_cast<QProgressDialog*>(&dialog));
        mCtags->OpenAll();
    });
    Open();
    EXPECT_TRUE(Session().IsUpToDate());
    EXPECT_TRUE(Has(kShark));
    EXPECT_TRUE(Has("zoo~Ape"));
}

} // namespace

} // namespace paperkite::test
