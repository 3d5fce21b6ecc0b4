#pragma once

#include "host/CommandLine.h"

class QApplication;

namespace paperkite {

class ModelControlHelper;

/// Runs the desktop program until its window is closed.
int RunWindow(QApplication& application, ModelControlHelper& helper, const std::string& project);

/// Lets only failures of the window system be told; called before it starts.
void QuietenWindowSystem();

/// Writes a picture of the main window on a project.
int WriteScreenshot(QApplication& application, ModelControlHelper& helper,
                    const ScreenshotRequest& request);

} // namespace paperkite
