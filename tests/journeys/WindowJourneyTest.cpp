#include "journeys/WindowTest.h"

#include "support/EnvironmentChange.h"

#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QProgressDialog>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>

#include <filesystem>

namespace paperkite::test {

namespace {

namespace fs = std::filesystem;

constexpr auto kControlShift = Qt::ControlModifier | Qt::ShiftModifier;

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

class WindowJourneyTest : public WindowTest {
protected:
    /// The project open, and the dog's members in sight.
    void OpenToDog() {
        OpenProject();
        ASSERT_TRUE(mWindow->GetWorkspace()->Select("zoo~animals~Dog~Age"));
        Settle();
        ClickItem("zoo~animals~Dog");
    }
    void Drop(const std::string& path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
        QDragEnterEvent enter(QPoint(200, 200), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(mWindow.get(), &enter);
        if (!enter.isAccepted()) return;
        QDropEvent drop(QPointF(200, 200), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(mWindow.get(), &drop);
        Settle();
    }
    QMenu* Menu(const QString& title, const QMenu* above = nullptr) const {
        const auto actions = above ? above->actions() : mWindow->menuBar()->actions();
        for (QAction* action : actions)
            if (action->menu() && action->text().remove('&') == title) return action->menu();
        return nullptr;
    }
    std::vector<std::string> Recent() const {
        QMenu* menu = Menu("Open Recent", Menu("File"));
        emit menu->aboutToShow();
        std::vector<std::string> names;
        for (QAction* action : menu->actions())
            names.push_back(action->text().toStdString());
        return names;
    }
    bool IsStartPageShown() const {
        for (auto* button : mWindow->findChildren<QPushButton*>())
            if (button->isVisible() && button->text().contains("New Project")) return true;
        return false;
    }
};

// The whole way

TEST_F(WindowJourneyTest, AnAuthorWritesSavesAndFindsEverythingAgain) {
    OpenProject();
    EXPECT_EQ(Title(), "Our Zoo[*] — Paperkite");
    EXPECT_FALSE(IsTitleMarked());
    EXPECT_TRUE(Contains(Status(), "[0 % of the project]")) << Status();

    if (!Tree().isExpanded(FindIndex("zoo"))) ClickExpander("zoo");
    ClickExpander("zoo~animals");
    ASSERT_TRUE(IsShown("zoo~animals~Dog"));
    ClickItem("zoo~animals~Dog");
    EXPECT_TRUE(Contains(Status(), "[zoo ~ animals ~ Dog]")) << Status();
    EXPECT_TRUE(Contains(Status(), "[0 of 3 members documented]")) << Status();

    WriteComment("##", "Guards the house.");
    EXPECT_EQ(TextOf("zoo~animals~Dog", "##"), "Guards the house.;");
    EXPECT_TRUE(IsTitleMarked());
    EXPECT_TRUE(Contains(Status(), "[Modified]")) << Status();
    ASSERT_TRUE(Flag("Deprecated"));
    QTest::mouseClick(Flag("Deprecated"), Qt::LeftButton, {}, QPoint(8, 8));
    Settle();
    EXPECT_TRUE(Flag("Deprecated")->isChecked());

    PressKey(Qt::Key_F8);
    EXPECT_EQ(Selected(), "zoo~animals~Dog~Age");
    WriteComment("##returns", "Years.");
    EXPECT_TRUE(Contains(Status(), "[1 of 3 members documented]")) << Status();
    EXPECT_TRUE(Contains(Status(), "[28 % of the project]")) << Status();

    PressKey(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(IsTitleMarked());
    EXPECT_FALSE(Contains(Status(), "[Modified]")) << Status();
    EXPECT_TRUE(Contains(mFolder.Read("zoo.ktc"), "Guards the house."));

    PressKey(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(mWindow->GetWorkspace());
    EXPECT_TRUE(IsStartPageShown());
    EXPECT_EQ(Title(), "Paperkite");

    Start();
    ASSERT_TRUE(mWindow->OpenPath(QString::fromStdString(ProjectFile())));
    Settle();
    EXPECT_FALSE(IsTitleMarked());
    ASSERT_TRUE(mWindow->GetWorkspace()->Select("zoo~animals~Dog~Age"));
    EXPECT_EQ(FindRow("##returns", false)->GetValue(), "Years.");
    ClickItem("zoo~animals~Dog");
    ASSERT_TRUE(FindRow("##", false));
    EXPECT_EQ(FindRow("##", false)->GetValue(), "Guards the house.");
    ASSERT_TRUE(Flag("Deprecated"));
    EXPECT_TRUE(Flag("Deprecated")->isChecked());
    EXPECT_FALSE(Flag("Internal")->isChecked());
    EXPECT_FALSE(IsTitleMarked());
}

TEST_F(WindowJourneyTest, OpeningLookingAndSavingLeavesEveryByte) {
    MakeProject();
    mFolder.Write("zoo.kiteproject", "<kiteproject version='1'><!-- ours -->\n<source "
                                     "folder='zoo'/><contentfile path='zoo.ktc'/></kiteproject>");
    mFolder.Write("zoo.ktc", "<contentfile version='1'><comment id='a1' tag='##'\n"
                             "item='zoo~animals~Dog'>A dog.</comment></contentfile>");
    const std::string project = mFolder.Read("zoo.kiteproject");
    const std::string content = mFolder.Read("zoo.ktc");
    ASSERT_TRUE(mWindow->OpenPath(QString::fromStdString(ProjectFile())));
    for (int step = 0; step < 4; ++step)
        PressKey(Qt::Key_F8);
    EXPECT_FALSE(IsTitleMarked());
    PressKey(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(mFolder.Read("zoo.kiteproject"), project);
    EXPECT_EQ(mFolder.Read("zoo.ktc"), content);
}

// The tree

TEST_F(WindowJourneyTest, TheExpanderOpensAndClosesARow) {
    OpenProject();
    ClickItem("zoo");
    if (!Tree().isExpanded(FindIndex("zoo"))) ClickExpander("zoo");
    EXPECT_FALSE(IsShown("zoo~animals~Dog"));
    ClickExpander("zoo~animals");
    EXPECT_TRUE(IsShown("zoo~animals~Dog"));
    EXPECT_EQ(Selected(), "zoo");
    ClickExpander("zoo~animals");
    EXPECT_FALSE(IsShown("zoo~animals~Dog"));
}

TEST_F(WindowJourneyTest, TheKeyboardOpensClosesAndMoves) {
    OpenToDog();
    Tree().setFocus();
    EXPECT_EQ(Selected(), "zoo~animals~Dog");
    PressKey(Qt::Key_Left);
    Tree().setFocus();
    EXPECT_FALSE(IsShown("zoo~animals~Dog~Age"));
    PressKey(Qt::Key_Right);
    EXPECT_TRUE(IsShown("zoo~animals~Dog~Age"));
    Tree().setFocus();
    PressKey(Qt::Key_Down);
    EXPECT_EQ(Selected(), "zoo~animals~Dog~Age");
    EXPECT_TRUE(Contains(Status(), "[zoo ~ animals ~ Dog ~ Age]")) << Status();
}

TEST_F(WindowJourneyTest, TheArrowKeysWalkWithoutLosingTheTree) {
    OpenToDog();
    Tree().setFocus();
    for (int step = 0; step < 3; ++step)
        PressKey(Qt::Key_Down);
    EXPECT_EQ(Selected(), "zoo~animals~Dog~Weight");
    EXPECT_TRUE(Tree().hasFocus());
}

TEST_F(WindowJourneyTest, TypingAheadFindsTheRow) {
    OpenToDog();
    Tree().setFocus();
    QTest::keyClicks(&Tree(), "we");
    Settle();
    EXPECT_EQ(Selected(), "zoo~animals~Dog~Weight");
}

TEST_F(WindowJourneyTest, TheKeysInTheToolTipsGoToTheNextUndocumentedSibling) {
    OpenToDog();
    ClickItem("zoo~animals~Dog~Bark");
    WriteComment("##", "Makes a noise.");
    ClickItem("zoo~animals~Dog~Age");
    PressKey(Qt::Key_N, kControlShift);
    EXPECT_EQ(Selected(), "zoo~animals~Dog~Weight");
    PressKey(Qt::Key_P, kControlShift);
    EXPECT_EQ(Selected(), "zoo~animals~Dog~Age");
}

TEST_F(WindowJourneyTest, F8GoesThroughTheWholeProjectAndSaysWhenItIsDone) {
    OpenProject();
    std::string walked;
    for (int step = 0; step < 7; ++step) {
        PressKey(Qt::Key_F8);
        walked += Selected().substr(Selected().rfind('~') + 1) + " ";
    }
    EXPECT_EQ(walked, "animals Cat Purr Dog Age Bark Weight ");
    PressKey(Qt::Key_F8);
    EXPECT_TRUE(Contains(Status(), "Every item from here on is documented.")) << Status();
    PressKey(Qt::Key_F8, Qt::ShiftModifier);
    EXPECT_EQ(Selected(), "zoo~animals~Dog~Bark");
}

TEST_F(WindowJourneyTest, TheFinderLeadsToAnItemByAPartOfItsName) {
    OpenProject();
    PressKey(Qt::Key_F, Qt::ControlModifier);
    auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_TRUE(field);
    QTest::keyClicks(field, "bar");
    QTest::keyClick(field, Qt::Key_Return);
    Settle();
    EXPECT_EQ(Selected(), "zoo~animals~Dog~Bark");
    EXPECT_TRUE(IsShown("zoo~animals~Dog~Bark"));
}

TEST_F(WindowJourneyTest, TheFinderStaysWhereItIsWhenNothingFits) {
    OpenProject();
    const std::string before = Selected();
    PressKey(Qt::Key_F, Qt::ControlModifier);
    auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_TRUE(field);
    QTest::keyClicks(field, "unicorn");
    QTest::keyClick(field, Qt::Key_Return);
    Settle();
    EXPECT_EQ(Selected(), before);
}

TEST_F(WindowJourneyTest, RowsTellScreenReadersTheirState) {
    OpenToDog();
    EXPECT_FALSE(Contains(Spoken("zoo~animals~Dog"), "documented"));
    WriteComment("##", "Guards the house.");
    EXPECT_TRUE(Contains(Spoken("zoo~animals~Dog"), "Dog")) << Spoken("zoo~animals~Dog");
    EXPECT_TRUE(Contains(Spoken("zoo~animals~Dog"), ", documented")) << Spoken("zoo~animals~Dog");
    mWindow->GetWorkspace()->GetEditor().Project.SetShowPrivate(true);
    mWindow->GetWorkspace()->GetEditor().Project.Refresh();
    ASSERT_TRUE(mWindow->GetWorkspace()->Select("zoo~animals~Dog~mAge"));
    EXPECT_TRUE(Contains(Spoken("zoo~animals~Dog~mAge"), ", private"))
        << Spoken("zoo~animals~Dog~mAge");
}

// Comments

TEST_F(WindowJourneyTest, TheDocumentedShareCountsAnItemOnce) {
    OpenToDog();
    ClickItem("zoo~animals~Dog~Age");
    WriteComment("##", "One.");
    const std::string share = "[1 of 3 members documented][14 % of the project]";
    EXPECT_TRUE(Contains(Status(), share)) << Status();
    WriteComment("##remarks", "Two.");
    EXPECT_TRUE(Contains(Status(), share)) << Status();
}

TEST_F(WindowJourneyTest, DeletingTheLastCommentTakesTheMarkAway) {
    OpenToDog();
    ClickItem("zoo~animals~Dog~Age");
    WriteComment("##", "One.");
    EXPECT_TRUE(Contains(Spoken("zoo~animals~Dog~Age"), "documented"));
    const auto row = FindRow("##", false);
    QTest::mouseClick(
        Tags().viewport(), Qt::LeftButton, {},
        Tags()
            .visualRect(Tags().GetItemModel().index(Tags().GetItemModel().Find(row), 0))
            .center());
    Settle();
    ASSERT_TRUE(Tags().GetButton("DeleteButton"));
    QTest::mouseClick(Tags().GetButton("DeleteButton"), Qt::LeftButton);
    Settle();
    EXPECT_EQ(TextOf("zoo~animals~Dog~Age", "##"), "");
    EXPECT_FALSE(Contains(Spoken("zoo~animals~Dog~Age"), "documented"));
    EXPECT_TRUE(Contains(Status(), "[0 of 3 members documented]")) << Status();
}

TEST_F(WindowJourneyTest, EscapeDropsTheText) {
    OpenToDog();
    WriteComment("##", "Stays.");
    ClickAdd("##remarks");
    QTest::keyClicks(Tags().GetEditor(), "Goes.");
    QTest::keyClick(Tags().GetEditor(), Qt::Key_Escape);
    Settle();
    EXPECT_FALSE(Tags().GetEditor());
    EXPECT_EQ(TextOf("zoo~animals~Dog", "##"), "Stays.;");
    EXPECT_EQ(TextOf("zoo~animals~Dog", "##remarks"), ";");
}

TEST_F(WindowJourneyTest, AnotherItemTakesTheOpenTextWithIt) {
    OpenToDog();
    ClickAdd("##");
    QTest::keyClicks(Tags().GetEditor(), "Not ended.");
    ClickItem("zoo~animals~Dog~Age");
    EXPECT_EQ(TextOf("zoo~animals~Dog", "##"), "Not ended.;");
    EXPECT_EQ(TextOf("zoo~animals~Dog~Age", "##"), "");
}

TEST_F(WindowJourneyTest, CommentsAreCopiedFromOneItemToAnother) {
    OpenToDog();
    ClickItem("zoo~animals~Dog~Age");
    WriteComment("##", "A number.");
    PressKey(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(IsTitleMarked());
    PressKey(Qt::Key_C, kControlShift);
    EXPECT_FALSE(mWindow->GetAction("PasteComments")->isEnabled());
    ClickItem("zoo~animals~Dog");
    EXPECT_FALSE(mWindow->GetAction("PasteComments")->isEnabled());
    ClickItem("zoo~animals~Dog~Weight");
    ASSERT_TRUE(mWindow->GetAction("PasteComments")->isEnabled());
    PressKey(Qt::Key_V, kControlShift);
    EXPECT_EQ(TextOf("zoo~animals~Dog~Weight", "##"), "A number.;");
    ASSERT_TRUE(FindRow("##", false));
    EXPECT_EQ(FindRow("##", false)->GetValue(), "A number.");
    EXPECT_TRUE(IsTitleMarked());
    EXPECT_TRUE(Contains(Status(), "[2 of 3 members documented]")) << Status();
    PressKey(Qt::Key_S, Qt::ControlModifier);
    const auto opened = ProjectSession::Open(ProjectFile());
    ASSERT_TRUE(opened.Session);
    EXPECT_TRUE(
        opened.Session->GetProject()->GetComments()->IsDocumented("zoo~animals~Dog~Weight"));
}

// Unsaved work

TEST_F(WindowJourneyTest, CancelKeepsTheWindowAndTheWork) {
    OpenToDog();
    WriteComment("##", "Unsaved.");
    mDialogs.ExpectBox("Cancel");
    EXPECT_FALSE(mWindow->close());
    EXPECT_EQ(mDialogs.GetText(), "Unsaved Comments: Save the changes to “Our Zoo”? Comments that "
                                  "are not saved are lost.");
    EXPECT_TRUE(mWindow->isVisible());
    EXPECT_EQ(TextOf("zoo~animals~Dog", "##"), "Unsaved.;");
    EXPECT_TRUE(IsTitleMarked());
}

TEST_F(WindowJourneyTest, DiscardClosesAndWritesNothing) {
    OpenToDog();
    WriteComment("##", "Unsaved.");
    mDialogs.ExpectBox("Discard");
    PressKey(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(mWindow->GetWorkspace());
    EXPECT_EQ(mFolder.Names(), "settings zoo zoo.kiteproject zoo.ktc");
    EXPECT_FALSE(Contains(mFolder.Read("zoo.ktc"), "Unsaved."));
}

TEST_F(WindowJourneyTest, SaveSavesWhatIsStillBeingTyped) {
    OpenToDog();
    ClickAdd("##");
    QTest::keyClicks(Tags().GetEditor(), "To the last word");
    mDialogs.ExpectBox("Save");
    EXPECT_TRUE(mWindow->close());
    EXPECT_TRUE(Contains(mFolder.Read("zoo.ktc"), "To the last word"));
}

TEST_F(WindowJourneyTest, WithoutChangesNothingIsAsked) {
    OpenToDog();
    EXPECT_TRUE(mWindow->close());
}

TEST_F(WindowJourneyTest, AFileThatAnotherProgramChangedIsNotReplacedUnasked) {
    OpenToDog();
    WriteComment("##", "Mine.");
    PressKey(Qt::Key_S, Qt::ControlModifier);
    mFolder.Write("zoo.ktc", "<contentfile version='1'><!-- theirs --></contentfile>");
    WriteComment("##remarks", "Mine too.");
    mDialogs.ExpectBox("Cancel");
    PressKey(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(Contains(mDialogs.GetText(), "Another program has changed this file"));
    EXPECT_TRUE(Contains(mFolder.Read("zoo.ktc"), "theirs"));
    EXPECT_TRUE(IsTitleMarked());
    mDialogs.ExpectBox("Overwrite");
    PressKey(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(Contains(mFolder.Read("zoo.ktc"), "Mine too."));
    EXPECT_FALSE(IsTitleMarked());
}

// Coming in

TEST_F(WindowJourneyTest, AFolderThatIsDroppedBecomesAProject) {
    mDialogs.Expect([this](QDialog& dialog) {
        const auto field = [&](const char* name) {
            return dialog.findChild<QLineEdit*>(name)->text().toStdString();
        };
        EXPECT_EQ(dialog.windowTitle(), "New Project");
        EXPECT_EQ(field("SourceFolder"), mFolder / "zoo");
        EXPECT_EQ(field("Title"), "zoo");
        EXPECT_EQ(field("ProjectFile"), mFolder / "zoo/zoo.kiteproject");
        auto* title = dialog.findChild<QLineEdit*>("Title");
        title->selectAll();
        QTest::keyClicks(title, "Dropped Zoo");
        for (auto* button : dialog.findChildren<QPushButton*>())
            if (button->text() == "&Create") QTest::mouseClick(button, Qt::LeftButton);
    });
    Drop(mFolder / "zoo");
    EXPECT_EQ(Title(), "Dropped Zoo[*] — Paperkite");
    EXPECT_TRUE(fs::exists(mFolder / "zoo/zoo.kiteproject"));
}

TEST_F(WindowJourneyTest, TheDialogSaysWhatIsMissing) {
    mDialogs.Expect([](QDialog& dialog) {
        auto* folder = dialog.findChild<QLineEdit*>("SourceFolder");
        QPushButton* create = nullptr;
        for (auto* button : dialog.findChildren<QPushButton*>())
            if (button->text() == "&Create") create = button;
        ASSERT_TRUE(create);
        EXPECT_FALSE(create->isEnabled());
        QTest::keyClicks(folder, "/no/such/folder");
        EXPECT_FALSE(create->isEnabled());
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    PressKey(Qt::Key_N, Qt::ControlModifier);
    EXPECT_FALSE(mWindow->GetWorkspace());
}

TEST_F(WindowJourneyTest, AProjectThatIsDroppedOpens) {
    MakeProject();
    Drop(ProjectFile());
    EXPECT_EQ(Title(), "Our Zoo[*] — Paperkite");
}

TEST_F(WindowJourneyTest, AnyOtherFileIsNotTaken) {
    mFolder.Write("letter.txt", "Dear zoo");
    Drop(mFolder / "letter.txt");
    EXPECT_FALSE(mWindow->GetWorkspace());
}

TEST_F(WindowJourneyTest, TheProjectsOpenedLastAreOffered) {
    EXPECT_EQ(Recent(), std::vector<std::string>{"No project was opened yet"});
    OpenProject();
    ASSERT_TRUE(
        ProjectSession::Create({mFolder / "second", mFolder / "zoo", "Second", {}}).Session);
    ASSERT_TRUE(mWindow->OpenPath(QString::fromStdString(mFolder / "second.kiteproject")));
    EXPECT_EQ(Recent(), (std::vector<std::string>{"second", "zoo"}));
    Start();
    EXPECT_EQ(Recent(), (std::vector<std::string>{"second", "zoo"}));
    Menu("Open Recent", Menu("File"))->actions().at(1)->trigger();
    EXPECT_EQ(Title(), "Our Zoo[*] — Paperkite");
}

TEST_F(WindowJourneyTest, AProjectThatIsGoneIsToldAndNotOfferedAgain) {
    OpenProject();
    PressKey(Qt::Key_W, Qt::ControlModifier);
    fs::remove(ProjectFile());
    Recent();
    mDialogs.ExpectBox("OK");
    Menu("Open Recent", Menu("File"))->actions().at(0)->trigger();
    EXPECT_TRUE(Contains(mDialogs.GetText(), "There is no such file")) << mDialogs.GetText();
    EXPECT_EQ(Recent(), std::vector<std::string>{"No project was opened yet"});
}

TEST_F(WindowJourneyTest, ABrokenProjectLeavesTheOpenOne) {
    OpenToDog();
    mFolder.Write("broken.kiteproject", "<kiteproject version='1'>\n<title>");
    mDialogs.ExpectBox("OK");
    EXPECT_FALSE(mWindow->OpenPath(QString::fromStdString(mFolder / "broken.kiteproject")));
    EXPECT_TRUE(Contains(mDialogs.GetText(), "broken.kiteproject:2:")) << mDialogs.GetText();
    EXPECT_EQ(Title(), "Our Zoo[*] — Paperkite");
    EXPECT_EQ(Selected(), "zoo~animals~Dog");
}

TEST_F(WindowJourneyTest, AScanThatIsCancelledLeavesEverything) {
    OpenToDog();
    fs::remove_all(mCacheFolder / "paperkite"); // as on a first scan
    // A ctags that comes to no end.
    const std::string program = mFolder.Write(
        "bin/ctags", "#!/bin/sh\n"
                     "[ \"$1\" = --version ] && echo 'Universal Ctags +json' && exit\n"
                     "exec sleep 600\n");
    fs::permissions(program, fs::perms::owner_all);
    const EnvironmentChange path("PATH", mFolder / "bin:/usr/bin:/bin");
    mDialogs.Expect([](QDialog& dialog) {
        auto* progress = qobject_cast<QProgressDialog*>(&dialog);
        ASSERT_TRUE(progress);
        EXPECT_EQ(progress->windowTitle(), "Reading source code");
        QTest::mouseClick(progress->findChild<QPushButton*>(), Qt::LeftButton);
    });
    EXPECT_FALSE(mWindow->OpenPath(QString::fromStdString(ProjectFile())));
    EXPECT_EQ(Title(), "Our Zoo[*] — Paperkite");
    EXPECT_EQ(Selected(), "zoo~animals~Dog");
}

TEST_F(WindowJourneyTest, ReadingTheCodeAgainKeepsPlaceAndComments) {
    OpenToDog();
    WriteComment("##", "Guards the house.");
    mFolder.Write("zoo/more.h", "class Emu {};\n");
    PressKey(Qt::Key_F5);
    EXPECT_EQ(Selected(), "zoo~animals~Dog");
    EXPECT_TRUE(IsShown("zoo~Emu"));
    ASSERT_TRUE(FindRow("##", false));
    EXPECT_EQ(FindRow("##", false)->GetValue(), "Guards the house.");
    EXPECT_TRUE(IsTitleMarked());
}

// Failures and looks

/// A provider whose items cannot be had.
class FailingProvider : public NamespaceProvider {
public:
    Ref<DataProvider> GetDataProvider() override { return {}; }
    Ref<Object> GetRootItem(Ref<NamespaceDef>&, const std::string&) override { return {}; }
    Ref<Object> GetItem(const std::string&) override {
        RaiseError(ErrorNumber::InvalidCall, "The shelf has fallen down");
    }
    Ref<Object> ItemByQualifiedName(const std::string&) override { return {}; }
    Ref<ObjectCollection> GetItems(Ref<NamespaceDef>&, const Ref<Object>&,
                                   const std::string&) override {
        return {};
    }
};

TEST_F(WindowJourneyTest, AFailureOfTheModelIsReportedAndTheWindowGoesOn) {
    OpenToDog();
    ProjectSession& session = mWindow->GetWorkspace()->GetSession();
    session.GetProject()->RegisterProvider(kSourceMoniker, MakeRef<FailingProvider>());
    mDialogs.ExpectBox("OK");
    ClickItem("zoo~animals~Dog~Age");
    EXPECT_TRUE(Contains(mDialogs.GetText(),
                         "Application Error: Paperkite4Controls has encountered "
                         "a problem. We are sorry for the inconvenience."))
        << mDialogs.GetText();
    EXPECT_TRUE(Contains(mDialogs.GetText(), "Module: ProjectEditor\nProcedure: Project_NodeClick"))
        << mDialogs.GetText();
    EXPECT_TRUE(Contains(mDialogs.GetText(), "The shelf has fallen down (5)"))
        << mDialogs.GetText();
    session.GetProject()->RegisterProvider(kSourceMoniker, session.GetProvider());
    ClickItem("zoo~animals~Dog~Weight");
    WriteComment("##", "Goes on.");
    EXPECT_EQ(TextOf("zoo~animals~Dog~Weight", "##"), "Goes on.;");
}

TEST_F(WindowJourneyTest, TheColoursChangeAtOnceAndAreKept) {
    OpenToDog();
    const auto choose = [this](const QString& name) {
        for (QAction* action : Menu("Colours", Menu("View"))->actions())
            if (action->text().remove('&') == name) action->trigger();
        Settle();
        return mWindow->palette().color(QPalette::Window).lightness();
    };
    EXPECT_LT(choose("Dark"), 100);
    EXPECT_LT(Tree().palette().color(QPalette::Base).lightness(), 100);
    EXPECT_GT(choose("Light"), 200);
    EXPECT_GT(Tree().palette().color(QPalette::Base).lightness(), 200);
    choose("Dark");
    mWindow.reset();
    mTheme.reset();
    Start();
    EXPECT_TRUE(mTheme->IsDark());
}

TEST_F(WindowJourneyTest, WithoutAProjectNothingIsOfferedThatNeedsOne) {
    for (const char* name : {"Save", "SaveAs", "Rescan", "Close", "NextUndocumented", "NextSibling",
                             "CopyComments", "PasteComments", "Grouped"})
        EXPECT_FALSE(mWindow->GetAction(name)->isEnabled()) << name;
    EXPECT_TRUE(IsStartPageShown());
    EXPECT_TRUE(mWindow->close());
}

} // namespace

} // namespace paperkite::test
