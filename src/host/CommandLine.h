#pragma once

#include <functional>
#include <iosfwd>
#include <string>

namespace paperkite {

/// What a picture of the main window is to show.
struct ScreenshotRequest {
    std::string Project;
    std::string Out;
    /// Empty: the root.
    std::string Item;
    int Width = 1280;
    int Height = 800;
    bool Dark = false;
    /// Per cent of the ordinary text size.
    int TextSize = 100;
};

/// The parts of the program that need a window system; the command line calls them.
struct WindowCommands {
    /// Opens the main window, with a project unless the path is empty.
    std::function<int(const std::string& project)> Open;
    std::function<int(const ScreenshotRequest& request)> Screenshot;
};

/// Exit codes of the program.
inline constexpr int kExitDone = 0;
inline constexpr int kExitCheckFailed = 1;
inline constexpr int kExitBadInput = 2;

/// Runs one command; results go to `out`, and one clear message for wrong use or bad input to
/// `err`.
int RunCommandLine(int argc, const char* const* argv, const WindowCommands& windows,
                   std::ostream& out, std::ostream& err);

} // namespace paperkite
