#pragma once

#include "doctypes/source/ScanOutcome.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// Runs Universal Ctags as a process of its own: the file names go in through its standard input,
/// its lines come out one by one while it works.
///
///     CtagsProcess ctags;
///     ScanOutcome outcome = ctags.Run(folder, options, files, [&](std::string_view line) {
///         return Take(line);          // false ends the process at once
///     });
class CtagsProcess {
public:
    /// Gets a line without its line end. False kills the process; the run then is cancelled.
    using LineHandler = std::function<bool(std::string_view line)>;

    /// Called between lines, at least some five times a second. False kills the process.
    using KeepGoing = std::function<bool()>;

    /// The program to run; empty stands for "ctags" wherever the PATH finds it.
    void SetProgram(std::string program) { mProgram = std::move(program); }

    void SetKeepGoing(KeepGoing keepGoing) { mKeepGoing = std::move(keepGoing); }

    /// Fails unless the program is there, is Universal Ctags and can write JSON.
    ScanOutcome Check() const;

    /// Runs with the working folder, the options and the files (relative to the folder). Fails when
    /// the program cannot be run or ends with a failure; what it wrote until then was handed on.
    ScanOutcome Run(const std::string& folder, const std::vector<std::string>& options,
                    const std::vector<std::string>& files, const LineHandler& handler);

    /// What the last run wrote on its standard error: at most the first 64 KiB.
    const std::string& ErrorText() const { return mErrorText; }

private:
    std::string Program() const { return mProgram.empty() ? "ctags" : mProgram; }

    std::string InstallHint() const;

    std::string mProgram;
    KeepGoing mKeepGoing;
    std::string mErrorText;
};

} // namespace paperkite
