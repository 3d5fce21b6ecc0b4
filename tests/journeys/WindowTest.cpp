#include "journeys/WindowTest.h"

#include "foundation/GlobalConfig.h"
#include "host/HeadlessServices.h"
#include "host/window/DesktopServices.h"
#include "platform/settings/SettingsRegistry.h"
#include "support/ListedTags.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>

namespace paperkite::test {

WindowTest::WindowTest() : mBefore(CurrentServices()) {
    const auto helper = InstallHeadlessServices(PAPERKITE_SOURCE_DIR);
    InstallDesktopServices(*helper);
    // Without a page the lists come first; tests of pages load the templates themselves.
    GlobalConfig().Templates.Clear();
    ListAllTags();
    CurrentServices().Registry = std::make_shared<SettingsRegistry>(mFolder / "settings/user.ini",
                                                                    mFolder / "settings/all.ini");
    GlobalConfig().ProjectViewOptions = {};
    GlobalConfig().ProjectViewOptions.Grouped = false;
    GlobalConfig().ProjectViewOptions.AutoExpandChildren = false;
    mFolder.Write("zoo/animals.h", "namespace animals {\n"
                                   "/// Barks at night.\n"
                                   "class Dog {\n"
                                   "public:\n"
                                   "    void Bark(int times);\n"
                                   "    int Age() const;\n"
                                   "    int Weight() const;\n"
                                   "private:\n"
                                   "    int mAge;\n"
                                   "};\n"
                                   "class Cat {\n"
                                   "public:\n"
                                   "    void Purr();\n"
                                   "};\n"
                                   "}\n");
    Start();
}

WindowTest::~WindowTest() {
    EXPECT_TRUE(mDialogs.AreDone()) << "A dialog that was expected did not come.";
    mWindow.reset();
    mTheme.reset();
    CurrentServices() = mBefore;
}

void WindowTest::Start() {
    mWindow.reset();
    if (!mTheme) mTheme = std::make_unique<Theme>(*qApp);
    mWindow = std::make_unique<MainWindow>(*mTheme);
    mWindow->show();
    mWindow->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(mWindow.get()));
}

void WindowTest::MakeProject() {
    const auto made = ProjectSession::Create({ProjectFile(), mFolder / "zoo", "Our Zoo", {}});
    ASSERT_EQ(made.Problem, "");
}

void WindowTest::OpenProject() {
    MakeProject();
    ASSERT_TRUE(mWindow->OpenPath(QString::fromStdString(ProjectFile())));
    Settle();
}

void WindowTest::Settle() const {
    for (int round = 0; round < 5; ++round)
        QApplication::processEvents();
}

std::string WindowTest::Title() const {
    return mWindow->windowTitle().toStdString();
}

std::string WindowTest::Status() const {
    std::string texts;
    for (const auto* label : mWindow->statusBar()->findChildren<QLabel*>())
        if (!label->text().isEmpty()) texts += "[" + label->text().toStdString() + "]";
    return texts + mWindow->statusBar()->currentMessage().toStdString();
}

std::string WindowTest::Selected() const {
    const auto node = Tree().GetItemModel().NodeOf(Tree().currentIndex());
    return node ? node->GetKey() : std::string();
}

std::string WindowTest::TextOf(const std::string& item, const std::string& tag) const {
    const auto comments =
        mWindow->GetWorkspace()->GetSession().GetProject()->GetComments()->Find(item);
    std::string text;
    if (!comments) return text;
    for (const auto& comment : *comments)
        if (comment->GetTagIdentifier() == tag && comment->GetState() != kTaggedCommentTombstone)
            text += comment->GetText() + ";";
    return text;
}

std::string WindowTest::Spoken(const std::string& item) const {
    return FindIndex(item).data(Qt::AccessibleTextRole).toString().toStdString();
}

TreeView& WindowTest::Tree() const {
    for (auto* view : mWindow->findChildren<QTreeView*>())
        if (auto* tree = dynamic_cast<TreeView*>(view)) return *tree;
    throw std::logic_error("The window shows no tree");
}

PropertiesTable& WindowTest::Tags() const {
    for (auto* view : mWindow->findChildren<QTableView*>())
        if (auto* table = dynamic_cast<PropertiesTable*>(view))
            if (table->GetList() == Editor().prpTags) return *table;
    throw std::logic_error("The window shows no tag list");
}

QModelIndex WindowTest::FindIndex(const std::string& item, const QModelIndex& above) const {
    const TreeItemModel& model = Tree().GetItemModel();
    for (int row = 0; row < model.rowCount(above); ++row) {
        const QModelIndex index = model.index(row, 0, above);
        if (model.NodeOf(index)->GetKey() == item) return index;
        if (!Tree().isExpanded(index)) continue;
        const QModelIndex below = FindIndex(item, index);
        if (below.isValid()) return below;
    }
    return {};
}

Ref<PropertyItem> WindowTest::FindRow(const std::string& tag, bool offer) const {
    for (const auto& row : *Editor().prpTags)
        if (!row->IsHeader() && row->GetReadOnly() == offer && row->GetCaption() == tag) return row;
    return {};
}

void WindowTest::PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    // Without a window manager nobody gives the window back what a dialog took.
    mWindow->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(mWindow.get()));
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus ? focus : mWindow.get(), key, modifiers);
    Settle();
}

void WindowTest::ClickExpander(const std::string& item) {
    const QModelIndex index = FindIndex(item);
    ASSERT_TRUE(index.isValid()) << item;
    Tree().scrollTo(index);
    const QRect row = Tree().visualRect(index);
    const QPoint expander(row.left() - Tree().indentation() / 2, row.center().y());
    QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, expander);
    Settle();
}

void WindowTest::ClickItem(const std::string& item) {
    const QModelIndex index = FindIndex(item);
    ASSERT_TRUE(index.isValid()) << item;
    Tree().scrollTo(index);
    const QRect row = Tree().visualRect(index);
    QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {},
                      QPoint(row.left() + 24, row.center().y()));
    Settle();
}

void WindowTest::ClickAdd(const std::string& tag) {
    const auto row = FindRow(tag, true);
    ASSERT_TRUE(row) << tag << " is not offered";
    PropertiesTable& table = Tags();
    const QModelIndex index = table.GetItemModel().index(table.GetItemModel().Find(row), 0);
    table.scrollTo(index);
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualRect(index).center());
    Settle();
    QPushButton* button = table.GetButton("AddButton");
    ASSERT_TRUE(button) << "The row of " << tag << " shows no button";
    QTest::mouseClick(button, Qt::LeftButton);
    Settle();
}

void WindowTest::WriteComment(const std::string& tag, const QString& text) {
    ClickAdd(tag);
    QWidget* editor = Tags().GetEditor();
    ASSERT_TRUE(editor) << "The row of " << tag << " is not being edited";
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    Settle();
}

QCheckBox* WindowTest::Flag(const std::string& caption) const {
    for (auto* box : mWindow->findChildren<QCheckBox*>())
        if (box->isVisible() && box->text().remove('&').toStdString() == caption) return box;
    return nullptr;
}

} // namespace paperkite::test
