#include "doctypes/source/ChildProcess.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

extern char** environ;

namespace paperkite {

namespace {

constexpr std::size_t errorTextLimit = 64 * 1024;
constexpr std::size_t readSize = 256 * 1024;
constexpr int pollMilliseconds = 50;
constexpr int endMilliseconds = 5000;
constexpr int pipeSize = 1 << 20;

void CloseHandle(int& handle) {
    if (handle >= 0) {
        ::close(handle);
        handle = -1;
    }
}

} // namespace

/// Keeps a write to a pipe that nobody reads any more from ending this program.
class ChildProcess::BrokenPipeGuard {
public:
    BrokenPipeGuard() {
        sigset_t pending;
        sigpending(&pending);
        mWasPending = sigismember(&pending, SIGPIPE) == 1;
        sigemptyset(&mSignal);
        sigaddset(&mSignal, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &mSignal, &mBefore);
    }

    ~BrokenPipeGuard() {
        const timespec atOnce = {0, 0};
        while (!mWasPending && sigtimedwait(&mSignal, nullptr, &atOnce) > 0) {}
        pthread_sigmask(SIG_SETMASK, &mBefore, nullptr);
    }

private:
    sigset_t mSignal;
    sigset_t mBefore;
    bool mWasPending = false;
};

namespace {

/// This program's own environment, and a place in memory for the many small files that ctags makes
/// and deletes, unless the user has chosen one.
class ChildEnvironment {
public:
    ChildEnvironment() {
        for (char** variable = environ; *variable; ++variable) {
            mVariables.push_back(*variable);
        }
        if (!::getenv("TMPDIR") && ::access(memoryFolder, W_OK | X_OK) == 0) {
            mVariables.push_back(mTemporary.data());
        }
        mVariables.push_back(nullptr);
    }

    char** Variables() { return mVariables.data(); }

private:
    static constexpr const char* memoryFolder = "/dev/shm";

    std::string mTemporary = std::string("TMPDIR=") + memoryFolder;
    std::vector<char*> mVariables;
};

struct Pipe {
    int read = -1;
    int write = -1;

    int Open() {
        std::array<int, 2> ends;
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
            return errno;
        }
        read = ends[0], write = ends[1];
        return 0;
    }

    ~Pipe() {
        CloseHandle(read);
        CloseHandle(write);
    }

    static int Take(int& end) { return std::exchange(end, -1); }
};

} // namespace

ChildProcess::ChildProcess() : mBuffer(readSize) {}

ChildProcess::~ChildProcess() {
    Finish(true);
}

void ChildProcess::CloseAll() {
    CloseHandle(mInput);
    CloseHandle(mOutput);
    CloseHandle(mError);
}

int ChildProcess::Start(const std::vector<std::string>& arguments, const std::string& folder) {
    mGuard = std::make_unique<BrokenPipeGuard>();
    Pipe input, output, error;
    if (int failure = input.Open() + output.Open() + error.Open()) {
        return failure;
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (!folder.empty()) {
        posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
    }
    posix_spawn_file_actions_adddup2(&actions, input.read, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output.write, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, error.write, STDERR_FILENO);

    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);

    std::vector<char*> argv;
    for (const std::string& argument : arguments) {
        argv.push_back(const_cast<char*>(argument.c_str()));
    }
    argv.push_back(nullptr);
    ChildEnvironment environment;
    const int failure = posix_spawnp(&mProcess, argv[0], &actions, &attributes, argv.data(),
                                     environment.Variables());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) {
        mProcess = -1;
        return failure;
    }
    mInput = Pipe::Take(input.write);
    mOutput = Pipe::Take(output.read);
    mError = Pipe::Take(error.read);
    ::fcntl(mInput, F_SETFL, O_NONBLOCK);
    ::fcntl(mOutput, F_SETPIPE_SZ, pipeSize); // the program works on while its lines are read
    return 0;
}

void ChildProcess::Feed() {
    const std::string_view rest = std::string_view(mPending).substr(mSent);
    const ssize_t count = ::write(mInput, rest.data(), rest.size());
    if (count > 0) {
        mSent += static_cast<std::size_t>(count);
    } else if (errno != EAGAIN && errno != EINTR) {
        CloseHandle(mInput); // nobody reads any more
    }
    if (mSent == mPending.size() || mInput < 0) {
        mPending.clear();
        mSent = 0;
    }
}

std::string_view ChildProcess::Drain(int& handle, short events) {
    if (events == 0) {
        return {};
    }
    const ssize_t count = ::read(handle, mBuffer.data(), mBuffer.size());
    if (count == 0 || (count < 0 && errno != EINTR && errno != EAGAIN)) {
        CloseHandle(handle);
    }
    return {mBuffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
}

bool ChildProcess::Pump(int milliseconds, const OutputHandler& output) {
    const bool hasInput = mSent < mPending.size();
    if (!hasInput && mIsInputEnded) {
        CloseHandle(mInput);
    }
    std::array<pollfd, 3> waits = {pollfd{hasInput ? mInput : -1, POLLOUT, 0},
                                   pollfd{mOutput, POLLIN, 0}, pollfd{mError, POLLIN, 0}};
    if (::poll(waits.data(), waits.size(), milliseconds) < 0 && errno != EINTR) {
        return false;
    }
    if (waits[0].revents != 0) {
        Feed();
    }
    const std::string_view complaint = Drain(mError, waits[2].revents);
    mErrorText += complaint.substr(0, errorTextLimit - std::min(errorTextLimit, mErrorText.size()));
    const std::string_view piece = Drain(mOutput, waits[1].revents);
    return piece.empty() || output(piece);
}

int ChildProcess::Finish(bool kill) {
    CloseAll();
    if (mProcess <= 0) {
        return 0;
    }
    if (kill) {
        ::kill(mProcess, SIGKILL);
    }
    int status = 0;
    int patience = kill ? 0 : endMilliseconds;
    while (patience > 0 && ::waitpid(mProcess, &status, WNOHANG) == 0) {
        ::poll(nullptr, 0, 1);
        if (--patience == 0) {
            ::kill(mProcess, SIGKILL); // it closed its streams and stayed
            kill = true;
        }
    }
    while (kill && ::waitpid(mProcess, &status, 0) < 0 && errno == EINTR) {}
    mProcess = -1;
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

ChildProcess::Result ChildProcess::Run(const std::vector<std::string>& arguments,
                                       const std::string& folder, std::string_view input,
                                       const OutputHandler& output, const KeepGoing& keepGoing) {
    Result result;
    result.StartError = Start(arguments, folder);
    if (result.StartError != 0) {
        return result;
    }
    Write(input);
    EndInput();
    while (IsOpen() && !result.WasStopped) {
        result.WasStopped = !Pump(pollMilliseconds, output) || (keepGoing && !keepGoing());
    }
    result.ExitCode = Finish(result.WasStopped);
    result.ErrorText = std::move(mErrorText);
    return result;
}

} // namespace paperkite
