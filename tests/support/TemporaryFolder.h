#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <cstdlib>

namespace paperkite::test {

/// A folder of a test's own, which goes with it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "paperkite-XXXXXX").string();
        mPath = ::mkdtemp(pattern.data());
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(mPath, ignored);
    }

    const std::string& Path() const { return mPath; }

    std::string operator/(const std::string& name) const { return mPath + "/" + name; }

    /// Writes a file below the folder and gives its path.
    std::string Write(const std::string& name, const std::string& bytes) const {
        const std::filesystem::path path = mPath + "/" + name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << bytes;
        return path.string();
    }

    std::string Read(const std::string& name) const {
        std::ifstream stream(mPath + "/" + name, std::ios::binary);
        std::ostringstream bytes;
        bytes << stream.rdbuf();
        return bytes.str();
    }

    /// The names in the folder, sorted, separated by blanks.
    std::string Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(mPath))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        std::string result;
        for (const std::string& name : names)
            result += (result.empty() ? "" : " ") + name;
        return result;
    }

private:
    std::string mPath;
};

} // namespace paperkite::test
