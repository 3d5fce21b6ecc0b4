#pragma once

#include <functional>
#include <string>

namespace paperkite::ProcessIdentity {

// Who this process is, for what it leaves for others to read.

std::string Host();
/// Its number.
std::string Process();
std::string User();
/// "2026-02-28 09:05:00", local time.
std::string Now();

/// Where Now takes the seconds since 1970 from; tests give another clock.
inline std::function<long long()> Clock;

} // namespace paperkite::ProcessIdentity
