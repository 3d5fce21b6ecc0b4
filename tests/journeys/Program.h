#pragma once

#include <map>
#include <string>
#include <vector>

namespace paperkite::test {

/// What a run of the program left.
struct ProgramResult {
    int ExitCode = -1;
    std::string Out;
    std::string Err;
};

/// The program itself, run as a process with settings of its own.
class Program {
public:
    /// Settings and what the program prints are kept below that folder.
    explicit Program(std::string folder);

    /// Sets a variable of the program's environment.
    void Set(const std::string& name, const std::string& value) { mEnvironment[name] = value; }
    /// Runs as another user from now on; only the administrator can ask for it.
    void SetUser(unsigned user) { mUser = user; }

    /// Exit code 127 where the program could not be started at all.
    ProgramResult Run(const std::vector<std::string>& arguments) const;

private:
    std::string mFolder;
    std::map<std::string, std::string> mEnvironment;
    unsigned mUser = 0;
};

/// All files below a folder with their bytes.
std::map<std::string, std::string> FilesBelow(const std::string& folder);

} // namespace paperkite::test
