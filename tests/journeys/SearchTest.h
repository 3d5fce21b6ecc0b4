#pragma once

#include "host/window/FindDialog.h"
#include "journeys/PageTest.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <stdexcept>
#include <string>

namespace paperkite::test {

inline constexpr const char* kDog = "zoo~animals~Dog";
inline constexpr const char* kCat = "zoo~animals~Cat";

/// Pages with text, and the dialogs that search and check them.
class SearchTest : public PageTest {
protected:
    void OpenZoo() {
        OpenProject();
        ClickExpander("zoo~animals");
    }
    /// The same with comments that were written before: "<comment item=…>…</comment>".
    void OpenZooWith(const std::string& comments) {
        MakeProject();
        mFolder.Write("zoo.ktc",
                      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<contentfile version=\"1\">\n" +
                          comments + "</contentfile>\n");
        ASSERT_TRUE(mWindow->OpenPath(QString::fromStdString(ProjectFile())));
        Settle();
        ClickExpander("zoo~animals");
    }
    static std::string CommentOn(const std::string& item, const std::string& html) {
        return "  <comment item=\"" + item + "\" tag=\"##\" id=\"" + item + "\"><![CDATA[" + html +
               "]]></comment>\n";
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
    void Fill(QWidget& dialog, const char* name, const std::string& text) {
        auto& edit = In<QLineEdit>(dialog, name);
        edit.setFocus();
        edit.selectAll();
        if (text.empty())
            QTest::keyClick(&edit, Qt::Key_Delete);
        else
            QTest::keyClicks(&edit, QString::fromStdString(text));
    }
    void Click(QWidget& dialog, const char* name) {
        QTest::mouseClick(&In<QPushButton>(dialog, name), Qt::LeftButton);
        Settle();
    }
    std::string Result(QWidget& dialog) {
        return In<QLabel>(dialog, "Result").text().toStdString();
    }
};

} // namespace paperkite::test
