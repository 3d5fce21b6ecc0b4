#include "doctypes/source/ParallelWork.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace paperkite {

namespace {

constexpr std::chrono::milliseconds askEvery{50};

struct Shared {
    std::atomic<std::size_t> next = 0;
    std::atomic<bool> isStopped = false;
    std::mutex mutex;
    std::condition_variable change;
    unsigned running = 0;
    std::exception_ptr failure;
};

void Work(Shared& shared, std::size_t count, const std::function<void(std::size_t)>& step) {
    std::exception_ptr failure;
    try {
        for (std::size_t i; !shared.isStopped && (i = shared.next++) < count;) {
            step(i);
        }
    } catch (...) {
        failure = std::current_exception();
        shared.isStopped = true;
    }
    const std::lock_guard lock(shared.mutex);
    shared.failure = failure ? failure : shared.failure;
    --shared.running;
    shared.change.notify_all();
}

} // namespace

unsigned CoreCount() {
    return std::max(1u, std::thread::hardware_concurrency());
}

bool WorkInParallel(std::size_t count, unsigned threads,
                    const std::function<void(std::size_t)>& step,
                    const std::function<bool(std::size_t)>& keepGoing) {
    Shared shared;
    shared.running = static_cast<unsigned>(std::min<std::size_t>(std::max(1u, threads), count));
    bool goesOn = true;
    std::vector<std::jthread> workers;
    for (unsigned i = shared.running; i > 0; --i) {
        workers.emplace_back([&] { Work(shared, count, step); });
    }
    std::unique_lock lock(shared.mutex);
    while (!shared.change.wait_for(lock, askEvery, [&] { return shared.running == 0; })) {
        lock.unlock();
        goesOn = goesOn && keepGoing(std::min<std::size_t>(shared.next, count));
        shared.isStopped = shared.isStopped || !goesOn;
        lock.lock();
    }
    lock.unlock();
    workers.clear();
    if (shared.failure) {
        std::rethrow_exception(shared.failure);
    }
    return goesOn;
}

} // namespace paperkite
