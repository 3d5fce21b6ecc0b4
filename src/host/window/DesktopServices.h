#pragma once

namespace paperkite {

class ModelControlHelper;

/// Puts the window system's services in place of those that a program without a screen has: message
/// boxes, the pointer, the shell, the browsers for folders, files and colours, and the clipboard.
void InstallDesktopServices(ModelControlHelper& helper);

} // namespace paperkite
