#include "model/ProcessIdentity.h"

#include <ctime>

#include <pwd.h>
#include <unistd.h>

namespace paperkite::ProcessIdentity {

std::string Host() {
    char name[256] = {};
    return ::gethostname(name, sizeof name - 1) == 0 ? name : "unknown";
}

std::string Process() {
    return std::to_string(::getpid());
}

std::string User() {
    const passwd* entry = ::getpwuid(::geteuid());
    return entry ? entry->pw_name : std::to_string(::geteuid());
}

std::string Now() {
    const std::time_t seconds = Clock ? static_cast<std::time_t>(Clock()) : std::time(nullptr);
    std::tm parts{};
    ::localtime_r(&seconds, &parts);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &parts);
    return text;
}

} // namespace paperkite::ProcessIdentity
