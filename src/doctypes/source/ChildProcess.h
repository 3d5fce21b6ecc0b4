#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace paperkite {

/// A program with pipes on its three standard streams. One object runs one program once.
class ChildProcess {
public:
    /// Gets what the program wrote, in pieces as they come; false kills the program.
    using OutputHandler = std::function<bool(std::string_view piece)>;
    using KeepGoing = std::function<bool()>;

    struct Result {
        int StartError = 0;      ///< an errno value when the program could not be started
        bool WasStopped = false; ///< a handler said false
        int ExitCode = 0;        ///< 128 and the signal's number after a signal
        std::string ErrorText;   ///< standard error, at most 64 KiB of it
    };

    ChildProcess() = default;
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    /// The first argument is the program, looked up on the PATH. An empty folder is the present
    /// one. Returns when the program ended or was killed.
    Result Run(const std::vector<std::string>& arguments, const std::string& folder,
               std::string_view input, const OutputHandler& output,
               const KeepGoing& keepGoing = {});

private:
    int Start(const std::vector<std::string>& arguments, const std::string& folder);
    bool PumpOnce(std::string_view& input, const OutputHandler& output, Result& result);
    void CloseAll();

    pid_t mProcess = -1;
    int mInput = -1;
    int mOutput = -1;
    int mError = -1;
};

} // namespace paperkite
