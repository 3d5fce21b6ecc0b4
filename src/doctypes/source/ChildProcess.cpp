#include "doctypes/source/ChildProcess.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
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
constexpr int pollMilliseconds = 200;

void CloseHandle(int& handle) {
    if (handle >= 0) {
        ::close(handle);
        handle = -1;
    }
}

/// Keeps a write to a pipe that nobody reads any more from ending this program.
class BrokenPipeGuard {
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

    const sigset_t& Before() const { return mBefore; }

private:
    sigset_t mSignal;
    sigset_t mBefore;
    bool mWasPending = false;
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

ChildProcess::~ChildProcess() {
    CloseAll();
}

void ChildProcess::CloseAll() {
    CloseHandle(mInput);
    CloseHandle(mOutput);
    CloseHandle(mError);
}

int ChildProcess::Start(const std::vector<std::string>& arguments, const std::string& folder) {
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
    const int failure =
        posix_spawnp(&mProcess, argv[0], &actions, &attributes, argv.data(), environ);
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
    return 0;
}

bool ChildProcess::PumpOnce(std::string_view& input, const OutputHandler& output, Result& result) {
    if (input.empty()) {
        CloseHandle(mInput);
    }
    std::array<pollfd, 3> waits = {pollfd{mInput, POLLOUT, 0}, pollfd{mOutput, POLLIN, 0},
                                   pollfd{mError, POLLIN, 0}};
    if (::poll(waits.data(), waits.size(), pollMilliseconds) < 0 && errno != EINTR) {
        return false;
    }
    if (waits[0].revents != 0) {
        const ssize_t count = ::write(mInput, input.data(), input.size());
        if (count > 0) {
            input.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EAGAIN && errno != EINTR) {
            input = {};
        }
    }
    std::array<char, 64 * 1024> buffer;
    const auto drain = [&](int& handle, short events) -> std::string_view {
        if (events == 0) {
            return {};
        }
        const ssize_t count = ::read(handle, buffer.data(), buffer.size());
        if (count == 0 || (count < 0 && errno != EINTR && errno != EAGAIN)) {
            CloseHandle(handle);
        }
        return {buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
    };
    const std::string_view complaint = drain(mError, waits[2].revents);
    result.ErrorText +=
        complaint.substr(0, errorTextLimit - std::min(errorTextLimit, result.ErrorText.size()));
    const std::string_view piece = drain(mOutput, waits[1].revents);
    return piece.empty() || output(piece);
}

ChildProcess::Result ChildProcess::Run(const std::vector<std::string>& arguments,
                                       const std::string& folder, std::string_view input,
                                       const OutputHandler& output, const KeepGoing& keepGoing) {
    Result result;
    const BrokenPipeGuard guard;
    result.StartError = Start(arguments, folder);
    if (result.StartError != 0) {
        return result;
    }
    try {
        while ((mOutput >= 0 || mError >= 0) && !result.WasStopped) {
            result.WasStopped = !PumpOnce(input, output, result) || (keepGoing && !keepGoing());
        }
    } catch (...) {
        ::kill(mProcess, SIGKILL);
        ::waitpid(mProcess, nullptr, 0);
        throw;
    }
    CloseAll();
    if (result.WasStopped) {
        ::kill(mProcess, SIGKILL);
    }
    int status = 0;
    while (::waitpid(mProcess, &status, 0) < 0 && errno == EINTR) {}
    result.ExitCode = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    return result;
}

} // namespace paperkite
