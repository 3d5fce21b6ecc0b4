#include "journeys/Program.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace paperkite::test {

namespace fs = std::filesystem;

namespace {

constexpr const char* kProgram = PAPERKITE_BINARY_DIR "/bin/paperkite";

std::string BytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

void Redirect(const std::string& file, int to) {
    const int from = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    ::dup2(from, to);
    ::close(from);
}

} // namespace

Program::Program(std::string folder) : mFolder(std::move(folder)) {
    fs::create_directories(mFolder);
    mEnvironment["XDG_CONFIG_HOME"] = mFolder + "/settings";
    mEnvironment["XDG_STATE_HOME"] = mFolder + "/state";
    mEnvironment["XDG_CACHE_HOME"] = mFolder + "/cache";
    mEnvironment["QT_QPA_PLATFORM"] = "offscreen";
}

ProgramResult Program::Run(const std::vector<std::string>& arguments) const {
    std::vector<char*> words{const_cast<char*>(kProgram)};
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        Redirect(mFolder + "/out", STDOUT_FILENO);
        Redirect(mFolder + "/err", STDERR_FILENO);
        for (const auto& [name, value] : mEnvironment)
            ::setenv(name.c_str(), value.c_str(), 1);
        if (mUser != 0 && ::setuid(mUser) != 0) ::_exit(127);
        ::execv(kProgram, words.data());
        ::_exit(127);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), BytesOf(mFolder + "/out"),
            BytesOf(mFolder + "/err")};
}

std::map<std::string, std::string> FilesBelow(const std::string& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files[entry.path().lexically_relative(folder).string()] = BytesOf(entry.path());
    return files;
}

} // namespace paperkite::test
