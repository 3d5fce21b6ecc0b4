#pragma once

#include <cstddef>
#include <functional>

namespace paperkite {

/// How many threads the machine runs at once, at least one.
unsigned CoreCount();

/// Does `step` for each number below `count`, with several threads that take the numbers in order.
/// Meanwhile `keepGoing` is asked in the caller's thread, some twenty times a second, with the
/// count of steps that were begun; false ends the work early, and is what comes back then. What a
/// step throws ends the work too and is thrown here.
bool WorkInParallel(std::size_t count, unsigned threads,
                    const std::function<void(std::size_t number)>& step,
                    const std::function<bool(std::size_t begun)>& keepGoing);

} // namespace paperkite
