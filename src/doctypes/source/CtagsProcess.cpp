#include "doctypes/source/CtagsProcess.h"

#include "doctypes/source/ChildProcess.h"
#include "foundation/Utf8.h"

#include <cerrno>
#include <cstring>

namespace paperkite {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int commandNotFound = 127;
constexpr int firstSignalCode = 128;
constexpr std::size_t longestComplaint = 500;
constexpr std::chrono::seconds longestAnswer{20};

ScanOutcome Cancelled() {
    return ScanOutcome::Cancellation("Reading the source code was cancelled.");
}

} // namespace

std::string HowProgramEnded(int exitCode, const std::string& errorText) {
    if (exitCode > firstSignalCode) {
        return "was ended by signal " + std::to_string(exitCode - firstSignalCode);
    }
    const std::string said = PrintableUtf8(errorText.substr(0, longestComplaint));
    return "ended with code " + std::to_string(exitCode) + (said.empty() ? "" : ": " + said);
}

ScanOutcome CtagsProcess::Check(const KeepGoing& keepGoing) {
    mVersion.clear();
    ChildProcess child;
    const auto end = Clock::now() + longestAnswer;
    bool isCancelled = false;
    const auto takePiece = [&](std::string_view piece) {
        mVersion += piece;
        return true;
    };
    const auto result = child.Run({mProgram, "--version"}, "", "", takePiece, [&] {
        isCancelled = keepGoing && !keepGoing();
        return !isCancelled && Clock::now() < end;
    });
    if (isCancelled) {
        return Cancelled();
    }
    if (result.WasStopped) {
        return ScanOutcome::Failure("The program \"" + PrintableUtf8(mProgram) +
                                    "\" that reads source code does not answer. Run it by hand "
                                    "with --version to see why.");
    }
    const bool isMissing = result.ExitCode == commandNotFound;
    return JudgeVersion(result.StartError != 0 ? result.StartError : isMissing ? ENOENT : 0);
}

ScanOutcome CtagsProcess::JudgeVersion(int reason) const {
    const std::string shown = "\"" + PrintableUtf8(mProgram) + "\"";
    const std::string hint =
        mIsGiven ? "Install the package universal-ctags, or mend the path of the program."
                 : "Install the package universal-ctags.";
    if (reason != 0) {
        return ScanOutcome::Failure(
            "The program " + shown +
            " that reads source code cannot be run: " + std::strerror(reason) + ". " + hint);
    }
    if (mVersion.find("Universal Ctags") == std::string::npos) {
        return ScanOutcome::Failure("The program " + shown + " is not Universal Ctags. " + hint);
    }
    if (mVersion.find("+json") == std::string::npos) {
        return ScanOutcome::Failure("The program " + shown +
                                    " was built without JSON output, which is needed. " + hint);
    }
    return {};
}

ScanOutcome CtagsProcess::CheckOptions(const std::string& folder,
                                       const std::vector<std::string>& options,
                                       const KeepGoing& keepGoing) const {
    std::vector<std::string> arguments = {mProgram};
    arguments.insert(arguments.end(), options.begin(), options.end());
    arguments.emplace_back("--filter=yes");
    ChildProcess child;
    const auto end = Clock::now() + longestAnswer;
    bool isCancelled = false;
    const auto result = child.Run(
        arguments, folder, "", [](std::string_view) { return true; },
        [&] {
            isCancelled = keepGoing && !keepGoing();
            return !isCancelled && Clock::now() < end;
        });
    if (isCancelled) {
        return Cancelled();
    }
    const std::string shown = "The program \"" + PrintableUtf8(mProgram) + "\" ";
    if (result.StartError != 0) {
        return ScanOutcome::Failure(shown + "cannot be run in \"" + PrintableUtf8(folder) +
                                    "\": " + std::strerror(result.StartError) + ".");
    }
    if (result.WasStopped) {
        return ScanOutcome::Failure(shown + "does not come to an end, even without a file.");
    }
    return result.ExitCode == 0
               ? ScanOutcome()
               : ScanOutcome::Failure(shown + HowProgramEnded(result.ExitCode, result.ErrorText));
}

} // namespace paperkite
