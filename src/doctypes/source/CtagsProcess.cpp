#include "doctypes/source/CtagsProcess.h"

#include "doctypes/source/ChildProcess.h"
#include "doctypes/source/Utf8.h"

#include <cerrno>
#include <cstring>

namespace paperkite {

namespace {

constexpr int commandNotFound = 127;

} // namespace

std::string CtagsProcess::InstallHint() const {
    return mProgram.empty()
               ? "Install the package universal-ctags."
               : "Install the package universal-ctags, or mend the path of the program.";
}

ScanOutcome CtagsProcess::Check() const {
    ChildProcess child;
    std::string features;
    const auto result = child.Run({Program(), "--version"}, "", "", [&](std::string_view piece) {
        features += piece;
        return true;
    });
    const std::string shown = "\"" + PrintableUtf8(Program()) + "\"";
    if (result.StartError != 0 || result.ExitCode == commandNotFound) {
        const int reason = result.StartError != 0 ? result.StartError : ENOENT;
        return ScanOutcome::Failure("The program " + shown +
                                    " that reads source code cannot be run: " +
                                    std::strerror(reason) + ". " + InstallHint());
    }
    if (features.find("Universal Ctags") == std::string::npos) {
        return ScanOutcome::Failure("The program " + shown + " is not Universal Ctags. " +
                                    InstallHint());
    }
    if (features.find("+json") == std::string::npos) {
        return ScanOutcome::Failure("The program " + shown +
                                    " was built without JSON output, which is needed. " +
                                    InstallHint());
    }
    return {};
}

ScanOutcome CtagsProcess::Run(const std::string& folder, const std::vector<std::string>& options,
                              const std::vector<std::string>& files, const LineHandler& handler) {
    if (ScanOutcome check = Check(); !check.IsDone()) {
        return check;
    }
    std::vector<std::string> arguments = {Program()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    arguments.insert(arguments.end(), {"-L", "-", "-f", "-"});
    std::string names;
    for (const std::string& file : files) {
        names += file + "\n";
    }
    std::string rest;
    const auto takePiece = [&](std::string_view piece) {
        for (std::size_t end; (end = piece.find('\n')) != std::string_view::npos;) {
            const std::string_view line = piece.substr(0, end);
            const bool goesOn = rest.empty() ? handler(line) : handler(rest.append(line));
            rest.clear();
            if (!goesOn) {
                return false;
            }
            piece.remove_prefix(end + 1);
        }
        rest += piece;
        return true;
    };
    ChildProcess child;
    const auto result = child.Run(arguments, folder, names, takePiece, mKeepGoing);
    mErrorText = result.ErrorText;
    if (result.WasStopped) {
        return ScanOutcome::Cancellation("Reading the source code was cancelled.");
    }
    if (result.StartError != 0) {
        return ScanOutcome::Failure("The program \"" + PrintableUtf8(Program()) +
                                    "\" cannot be run in \"" + PrintableUtf8(folder) +
                                    "\": " + std::strerror(result.StartError) + ".");
    }
    if (!rest.empty() && !handler(rest)) {
        return ScanOutcome::Cancellation("Reading the source code was cancelled.");
    }
    if (result.ExitCode != 0) {
        return ScanOutcome::Failure("The program \"" + PrintableUtf8(Program()) +
                                    "\" ended with code " + std::to_string(result.ExitCode) + ": " +
                                    PrintableUtf8(mErrorText.substr(0, 500)));
    }
    return {};
}

} // namespace paperkite
