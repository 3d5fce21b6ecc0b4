#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace paperkite::test {

/// A fragment as it may be written, and what normalising makes of it (tests/corpus/html).
struct HtmlFixture {
    std::string Name;
    std::string Source;
    std::string Result;
};

inline std::string BytesOfFile(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

/// All of them, by name.
inline std::vector<HtmlFixture> HtmlFixtures() {
    constexpr std::string_view ending = ".source.html";
    const auto folder = std::filesystem::path(PAPERKITE_SOURCE_DIR) / "tests/corpus/html";
    std::vector<HtmlFixture> fixtures;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string file = entry.path().filename().string();
        if (!file.ends_with(ending)) continue;
        const std::string name = file.substr(0, file.size() - ending.size());
        fixtures.push_back(
            {name, BytesOfFile(entry.path()), BytesOfFile(folder / (name + ".result.html"))});
    }
    std::sort(fixtures.begin(), fixtures.end(),
              [](const auto& left, const auto& right) { return left.Name < right.Name; });
    return fixtures;
}

} // namespace paperkite::test
