#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

namespace paperkite {

/// A program with pipes on its three standard streams. One object runs one program once, and kills
/// it at the end when it still runs. Used by one thread, from beginning to end.
///
/// Either Run does all, or the program is talked to: Start, then Pump again and again while IsOpen,
/// then Finish.
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

    ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    /// The first argument is the program, looked up on the PATH. An empty folder is the present
    /// one. Gives an errno value when the program cannot be started.
    int Start(const std::vector<std::string>& arguments, const std::string& folder);

    /// Adds to what the program gets on its standard input while it is pumped.
    void Write(std::string_view input) { mPending += input; }

    /// Nothing more will be written: the program's standard input ends behind what it got.
    void EndInput() { mIsInputEnded = true; }

    /// Passes input and output on for the given time at most, until there is something; false when
    /// the handler said false.
    bool Pump(int milliseconds, const OutputHandler& output);

    /// Whether the program may still write.
    bool IsOpen() const { return mOutput >= 0 || mError >= 0; }

    /// Closes the pipes, kills the program if asked to, and waits for its end. Gives its exit code;
    /// 128 and the signal's number after a signal.
    int Finish(bool kill);

    /// Standard error so far, at most 64 KiB of it.
    const std::string& ErrorText() const { return mErrorText; }

    /// Start to end in one. Returns when the program ended or was killed.
    Result Run(const std::vector<std::string>& arguments, const std::string& folder,
               std::string_view input, const OutputHandler& output,
               const KeepGoing& keepGoing = {});

private:
    class BrokenPipeGuard;

    void Feed();
    std::string_view Drain(int& handle, short events);
    void CloseAll();

    pid_t mProcess = -1;
    int mInput = -1;
    int mOutput = -1;
    int mError = -1;
    std::string mPending;
    std::size_t mSent = 0; ///< bytes of mPending that the program has got
    bool mIsInputEnded = false;
    std::string mErrorText;
    std::vector<char> mBuffer;
    std::unique_ptr<BrokenPipeGuard> mGuard;
};

} // namespace paperkite
