#include "host/CommandLine.h"
#include "host/HeadlessServices.h"
#include "host/window/WindowProgram.h"

#include <QApplication>

#include <filesystem>
#include <iostream>
#include <memory>

namespace {

/// The folder of the program's data: beside the program, or the source it was built from.
std::string ApplicationFolder(const char* program) {
    std::error_code ignored;
    const auto own = std::filesystem::canonical("/proc/self/exe", ignored);
    const auto beside = (ignored ? std::filesystem::path(program) : own).parent_path();
    if (std::filesystem::exists(beside / "config", ignored)) return beside.string();
    return PAPERKITE_SOURCE_DIR;
}

} // namespace

int main(int argc, char** argv) {
    using namespace paperkite;
    const auto helper = InstallHeadlessServices(ApplicationFolder(argv[0]));
    // Only commands with a window cost the window system.
    std::unique_ptr<QApplication> application;
    const auto start = [&]() -> QApplication& {
        application = std::make_unique<QApplication>(argc, argv);
        QApplication::setApplicationName("Paperkite");
        return *application;
    };
    WindowCommands windows;
    windows.Open = [&](const std::string& project) { return RunWindow(start(), *helper, project); };
    windows.Screenshot = [&](const ScreenshotRequest& request) {
        if (!qEnvironmentVariableIsSet("DISPLAY") &&
            !qEnvironmentVariableIsSet("WAYLAND_DISPLAY") &&
            !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        QuietenWindowSystem();
        return WriteScreenshot(start(), *helper, request);
    };
    return RunCommandLine(argc, argv, windows, std::cout, std::cerr);
}
