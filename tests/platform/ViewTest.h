#pragma once

#include "platform/qt/Theme.h"
#include "platform/qt/ViewFactory.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace paperkite {

/// A window with one view in it, in the application's theme.
class ViewTest : public testing::Test {
protected:
    ViewTest() : mTheme(*qApp) { mTheme.SetScheme(ColourScheme::Light); }

    ~ViewTest() override { mTheme.SetTextScale(100); }

    /// Shows the control's view and waits until it stands.
    template <class View = QWidget>
    View* Show(const Ref<Control>& control, QSize size = QSize(400, 300)) {
        mWindow = std::make_unique<QWidget>();
        auto* view = mFactory.MakeView(control, mWindow.get());
        view->setGeometry(QRect(QPoint(0, 0), size));
        mWindow->resize(size);
        mWindow->show();
        mWindow->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(mWindow.get()));
        QTest::qWait(0);
        return dynamic_cast<View*>(view);
    }

    /// A picture of the window, kept for looking at where PAPERKITE_PICTURES names a folder.
    QImage Picture(const QString& name) { return Picture(name, *mWindow); }
    QImage Picture(const QString& name, QWidget& shown) {
        QApplication::processEvents();
        const QImage image = shown.grab().toImage();
        const QString folder = qEnvironmentVariable("PAPERKITE_PICTURES");
        if (!folder.isEmpty()) image.save(QDir(folder).filePath(name + ".png"));
        return image;
    }

    Theme mTheme;
    ViewFactory mFactory;
    std::unique_ptr<QWidget> mWindow;
};

} // namespace paperkite
