#include "platform/qt/WebLibrary.h"

#include <QApplication>
#include <QWidget>

#include <gtest/gtest.h>

#include <unistd.h>

// Pages are driven in the real engine, on the offscreen platform, so that the tests need no screen.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // The engine's own sandbox refuses to start for root, which is who runs tests in containers.
    if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    paperkite::WebLibrary::PrepareApplication();
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    // Pages end before the engine does.
    qDeleteAll(QApplication::topLevelWidgets());
    return result;
}
