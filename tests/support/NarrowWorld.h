#pragma once

#include <csignal>
#include <cstdlib>

#include <sys/resource.h>
#include <unistd.h>

namespace paperkite::test {

/// The administrator may write everywhere; within this scope he is nobody.
class OrdinaryUser {
public:
    OrdinaryUser() : mChanged(::geteuid() == 0 && ::seteuid(kNobody) == 0) {}
    ~OrdinaryUser() {
        if (mChanged && ::seteuid(0) != 0) std::abort();
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    static constexpr uid_t kNobody = 65534;
    bool mChanged;
};

/// No file may grow over a size within this scope, as on a disk that is full.
class FullDisk {
public:
    explicit FullDisk(rlim_t size) : mOldSignal(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &mOld);
        const rlimit tight{size, mOld.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &tight);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &mOld);
        std::signal(SIGXFSZ, mOldSignal);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit mOld{};
    void (*mOldSignal)(int);
};

} // namespace paperkite::test
