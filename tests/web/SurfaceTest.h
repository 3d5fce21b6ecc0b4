#pragma once

#include "platform/qt/WebLibrary.h"
#include "support/Waiting.h"

#include <QApplication>
#include <QEventLoop>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>

namespace paperkite::test {

/// Writes down what a surface tells.
class SurfaceLog : public WebSurfaceListener {
public:
    void PageReady() override { ++Loads; }
    void PlaceTyped(const WebReport& report) override {
        Typed += std::to_string(report.Place) + ":" + report.Html.toStdString() + ";";
        Last = report.Html.toStdString();
        ++Reports;
    }
    void PageTouched(bool) override { ++Touches; }
    void ElementEvent(const WebElementEvent& event) override { Element = event; }
    void SelectionMoved(const WebSelection& selection) override { Selection = selection; }
    void LinkClicked(const QString& href) override { Links += href.toStdString() + ";"; }
    void MenuWanted(const WebMenuRequest& request) override {
        Menu = request;
        ++Menus;
    }
    void CommandPressed(const QString& name) override { Commands += name.toStdString() + ";"; }
    void PictureRefused() override { ++Pictures; }
    void PartCopied(const QString&, const QString&) override {}
    void PartPasted(const QString&, const QString&) override {}
    void PageLost(WebLoss) override { ++Losses; }
    QList<WebMark> MisspeltWords(const QString& text) override {
        Asked += text.toStdString() + "|";
        return Mark ? Mark(text) : QList<WebMark>();
    }

    int Loads = 0;
    int Reports = 0;
    int Menus = 0;
    int Pictures = 0;
    int Losses = 0;
    int Touches = 0;
    std::string Typed;
    std::string Last;
    std::string Links;
    std::string Commands;
    std::string Asked;
    WebSelection Selection;
    WebMenuRequest Menu;
    WebElementEvent Element;
    std::function<QList<WebMark>(const QString&)> Mark;
};

/// A window with one surface of the real engine, which all tests share: starting the engine takes
/// longer than most of them.
class SurfaceTest : public testing::Test {
protected:
    SurfaceTest() : mWindow(Window()), mSurface(Surface()) {
        mSurface->SetListener(&mLog);
        mSurface->SetColours(
            {false, Qt::white, Qt::black, Qt::gray, Qt::lightGray, Qt::blue, Qt::darkBlue});
        mWindow.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mWindow));
    }
    ~SurfaceTest() override {
        mSurface->RefreshMarks(false);
        mSurface->SetListener(nullptr);
    }

    static QWidget& Window() {
        static auto* window = new QWidget;
        return *window;
    }
    static WebSurface* Surface() {
        static WebSurface* surface = nullptr;
        if (surface) return surface;
        Window().resize(600, 400);
        surface = WebLibrary::MakeSurface(&Window());
        if (!surface) throw std::runtime_error(WebLibrary::GetProblem().toStdString());
        surface->setGeometry(0, 0, 600, 400);
        Window().show();
        return surface;
    }

    /// Loads a page and waits until it stands.
    void Load(const WebPage& page) {
        const int before = mLog.Loads;
        mLog.Selection = {};
        mSurface->Load(page);
        ASSERT_TRUE(WaitUntil([&] { return mLog.Loads > before; })) << "the page did not come up";
    }
    /// A page with one place for each text.
    void Load(const QStringList& places, const QString& around = {}) {
        WebPage page;
        page.Html = "<html><head></head><body>" + around;
        for (int index = 0; index < places.size(); ++index)
            page.Html += QStringLiteral("<p>Before</p><div id=\"p%1\" contenteditable=\"true\">"
                                        "</div>")
                             .arg(index);
        page.Html += "</body></html>";
        page.Places = places;
        Load(page);
    }
    void Focus() {
        mSurface->FocusText();
        ASSERT_TRUE(WaitUntil([&] { return mLog.Selection.Enabled.contains("bold"); }));
    }
    /// Real keys to the widget that takes them.
    void Type(const QString& text) {
        for (const QChar letter : text)
            QTest::keyClick(mSurface->InputWidget(), letter.toLatin1());
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(mSurface->InputWidget(), key, modifiers);
    }
    /// A command, until the page has carried it out.
    void Do(const QString& command, const QStringList& arguments = {}) {
        mSurface->Run(command, arguments);
        Settled();
    }
    /// What a place holds when all that was done has been reported.
    std::string Settled() {
        for (const WebReport& report : mSurface->Flush())
            mLog.PlaceTyped(report);
        return mLog.Last;
    }
    QWidget& mWindow;
    WebSurface* mSurface;
    SurfaceLog mLog;
};

} // namespace paperkite::test
