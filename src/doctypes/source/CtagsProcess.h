#pragma once

#include "doctypes/source/ScanOutcome.h"

#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// What is to be known of the program Universal Ctags before it is put to work, see
/// CtagsConversation.
class CtagsProcess {
public:
    /// Asked some twenty times a second while the program runs. False kills it.
    using KeepGoing = std::function<bool()>;

    /// The program to run; empty stands for "ctags" wherever the PATH finds it.
    explicit CtagsProcess(std::string program = {})
        : mProgram(program.empty() ? "ctags" : std::move(program)), mIsGiven(mProgram != "ctags") {}

    const std::string& Program() const { return mProgram; }

    /// Fails unless the program is there, answers, is Universal Ctags and can write JSON.
    ScanOutcome Check(const KeepGoing& keepGoing = {});

    /// What the program said of itself at the last check: version and features.
    const std::string& Version() const { return mVersion; }

    /// Fails unless the program can be run in the folder with these options, on no file at all.
    ScanOutcome CheckOptions(const std::string& folder, const std::vector<std::string>& options,
                             const KeepGoing& keepGoing = {}) const;

private:
    ScanOutcome JudgeVersion(int reason) const;

    std::string mProgram;
    bool mIsGiven;
    std::string mVersion;
};

/// "ended with code 3: what it said", or "was ended by signal 11"; for messages.
std::string HowProgramEnded(int exitCode, const std::string& errorText);

} // namespace paperkite
