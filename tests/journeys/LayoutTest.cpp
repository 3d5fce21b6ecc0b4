#include "journeys/LayoutTest.h"

#include "foundation/GlobalConfig.h"
#include "foundation/Text.h"

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QTest>

#include <filesystem>
#include <stdexcept>

namespace paperkite::test {

namespace {

TreeView& TreeIn(QWidget& window) {
    for (auto* view : window.findChildren<QTreeView*>())
        if (auto* tree = dynamic_cast<TreeView*>(view); tree && tree->isVisible()) return *tree;
    throw std::logic_error("The window shows no tree");
}

QModelIndex IndexOf(TreeView& tree, const std::string& key, const QModelIndex& above = {}) {
    const TreeItemModel& model = tree.GetItemModel();
    for (int row = 0; row < model.rowCount(above); ++row) {
        const QModelIndex index = model.index(row, 0, above);
        if (model.NodeOf(index)->GetKey() == key) return index;
        const QModelIndex below = IndexOf(tree, key, index);
        if (below.isValid()) return below;
    }
    return {};
}

void ClickRow(TreeView& tree, const std::string& key) {
    const QModelIndex index = IndexOf(tree, key);
    ASSERT_TRUE(index.isValid()) << key;
    tree.expand(index.parent());
    tree.scrollTo(index);
    const QRect row = tree.visualRect(index);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {},
                      QPoint(row.left() + 24, row.center().y()));
}

} // namespace

LayoutTest::LayoutTest() {
    std::filesystem::copy(PAPERKITE_SOURCE_DIR "/templates", mFolder / "templates",
                          std::filesystem::copy_options::recursive);
    WriteOnDisk("<!DOCTYPE html>\n<html><head><title>T</title></head><body><p>Alpha</p></body>"
                "</html>\n");
    auto& templates = GlobalConfig().Templates;
    templates.Clear();
    EXPECT_TRUE(PageTemplateDocument::OpenAll(mFolder / "templates", templates).empty());
}

void LayoutTest::OpenLayouts() {
    mWindow->GetAction("PageLayouts")->trigger();
    ASSERT_TRUE(mWindow->GetLayoutWindow());
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window()));
    WaitForLayout();
}

HtmlEditView& LayoutTest::LayoutPage() const {
    for (auto* widget : Window().findChildren<QWidget*>())
        if (auto* page = dynamic_cast<HtmlEditView*>(widget); page && page->isVisible())
            return *page;
    throw std::logic_error("The window shows no layout");
}

void LayoutTest::WaitForLayout() {
    ASSERT_TRUE(WaitUntil([&] { return LayoutPage().IsReady(); }))
        << LayoutPage().GetNotice().toStdString();
}

void LayoutTest::ClickLayout(const std::string& key) {
    ClickRow(TreeIn(Window()), key);
    Settle();
}

std::string LayoutTest::ChosenLayout() const {
    TreeView& tree = TreeIn(Window());
    const auto node = tree.GetItemModel().NodeOf(tree.currentIndex());
    return node ? node->GetKey() : std::string();
}

void LayoutTest::Do(const char* action) {
    QAction* entry = Window().GetAction(action);
    ASSERT_TRUE(entry) << action;
    // What the page can do now it says a little later.
    EXPECT_TRUE(WaitUntil([&] { return entry->isEnabled(); })) << action;
    entry->trigger();
    Settle();
}

void LayoutTest::TypeIntoLayout(const std::string& text) {
    Window().activateWindow();
    Edit().dedDocument->SetEditFocus();
    ASSERT_TRUE(WaitUntil([&] { return Edit().dedDocument->IsCommandEnabled("bold"); }));
    for (const char letter : text)
        QTest::keyClick(LayoutPage().GetSurface()->InputWidget(), letter);
    ASSERT_TRUE(WaitUntil([&] { return Body().find(text) != std::string::npos; })) << Body();
}

void LayoutTest::AnswerElementDialog(const std::string& element, const std::string& button) {
    mDialogs.Expect([element, button](QDialog& dialog) {
        if (!element.empty()) ClickRow(TreeIn(dialog), "E:" + element);
        for (auto* choice : dialog.findChildren<QAbstractButton*>())
            if (choice->text().remove('&').toStdString() == button)
                return QTest::mouseClick(choice, Qt::LeftButton);
        ADD_FAILURE() << "No button " << button;
        dialog.reject();
    });
}

std::string LayoutTest::Body() const {
    const std::string html = Edit().GetDocumentHTML();
    const std::size_t from = html.find("<body>") + 6;
    std::string joined;
    for (const std::string& line : Split(html.substr(from, html.find("</body>") - from), "\n"))
        joined += TrimWhiteSpace(line);
    return joined;
}

std::string LayoutTest::Notice() const {
    for (const auto* label : Window().findChildren<QLabel*>())
        if (label->isVisible() && label->frameShape() == QFrame::StyledPanel)
            return label->text().toStdString();
    return {};
}

} // namespace paperkite::test
