#include "host/CommandLine.h"
#include "host/HeadlessServices.h"

#include <iostream>

int main(int argc, char** argv) {
    paperkite::WindowCommands windows;
    windows.Open = [](const std::string&) { return 0; };
    windows.Screenshot = [](const paperkite::ScreenshotRequest&) { return 0; };
    paperkite::InstallHeadlessServices(".");
    return paperkite::RunCommandLine(argc, argv, windows, std::cout, std::cerr);
}
