#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace paperkite::test {

/// Sets a variable of the process's environment for one test.
class EnvironmentChange {
public:
    EnvironmentChange(std::string name, const std::string& value) : mName(std::move(name)) {
        if (const char* before = std::getenv(mName.c_str())) mBefore = before;
        ::setenv(mName.c_str(), value.c_str(), 1);
    }
    ~EnvironmentChange() {
        if (mBefore)
            ::setenv(mName.c_str(), mBefore->c_str(), 1);
        else
            ::unsetenv(mName.c_str());
    }
    EnvironmentChange(const EnvironmentChange&) = delete;
    EnvironmentChange& operator=(const EnvironmentChange&) = delete;

private:
    std::string mName;
    std::optional<std::string> mBefore;
};

} // namespace paperkite::test
