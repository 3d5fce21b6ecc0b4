#include "support/EnvironmentChange.h"
#include "support/TemporaryFolder.h"

#include "platform/qt/WebLibrary.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <unistd.h>

// The windows are driven on the offscreen platform, so that the tests need no screen. Settings are
// kept in a folder that goes with the tests: whoever runs them keeps their own.
int main(int argc, char** argv) {
    const paperkite::test::TemporaryFolder settings;
    const paperkite::test::EnvironmentChange place("XDG_CONFIG_HOME", settings.Path());
    const paperkite::test::EnvironmentChange state("XDG_STATE_HOME", settings / "state");
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // The engine's own sandbox refuses to start for root, which is who runs tests in containers.
    if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    paperkite::WebLibrary::PrepareApplication();
    QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
