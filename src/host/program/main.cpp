#include "host/CommandLine.h"
#include "host/HeadlessServices.h"
#include "host/window/WindowProgram.h"
#include "platform/qt/WebLibrary.h"

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

bool HasDisplay() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (qEnvironmentVariableIsSet(name)) return true;
    return false;
}

int Run(int argc, char** argv) {
    using namespace paperkite;
    const auto helper = InstallHeadlessServices(ApplicationFolder(argv[0]));
    // Only commands with a window cost the window system.
    std::unique_ptr<QApplication> application;
    const auto start = [&]() -> QApplication& {
        WebLibrary::PrepareApplication();
        application = std::make_unique<QApplication>(argc, argv);
        QApplication::setApplicationName("Paperkite");
        return *application;
    };
    WindowCommands windows;
    windows.Open = [&](const std::string& project) {
        if (HasDisplay()) return RunWindow(start(), *helper, project);
        std::cerr << "There is no display to open a window on. The commands tree, comments, "
                     "coverage and screenshot work without one; see --help.\n";
        return kExitBadInput;
    };
    windows.Screenshot = [&](const ScreenshotRequest& request) {
        if (!HasDisplay()) qputenv("QT_QPA_PLATFORM", "offscreen");
        QuietenWindowSystem();
        return WriteScreenshot(start(), *helper, request);
    };
    const int code = RunCommandLine(argc, argv, windows, std::cout, std::cerr);
    return code == kExitDone && ShownMessageCount() > 0 ? kExitBadInput : code;
}

} // namespace

int main(int argc, char** argv) {
    try {
        return Run(argc, argv);
    } catch (const std::exception& exception) {
        std::cerr << exception.what() << '\n';
        return paperkite::kExitBadInput;
    }
}
