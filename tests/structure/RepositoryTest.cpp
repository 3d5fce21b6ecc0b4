#include "structure/IncludeRules.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

namespace paperkite::test {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostLines = 600;

fs::path Root() {
    return PAPERKITE_SOURCE_DIR;
}

std::vector<std::string> LinesOf(const fs::path& file) {
    std::vector<std::string> lines;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::vector<fs::path> SourceFiles() {
    std::vector<fs::path> files;
    for (const char* top : {"src", "tests"})
        for (const auto& entry : fs::recursive_directory_iterator(Root() / top))
            if (entry.path().extension() == ".h" || entry.path().extension() == ".cpp")
                files.push_back(entry.path());
    return files;
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

std::set<std::string> ListedPackages() {
    std::set<std::string> packages;
    for (const std::string& line : LinesOf(Root() / "packages.txt"))
        if (!line.empty() && line[0] != '#') packages.insert(line.substr(0, line.find(' ')));
    return packages;
}

/// What a command prints, without the line break at its end.
std::string OutputOf(const std::string& command) {
    std::string text;
    std::FILE* pipe = ::popen(command.c_str(), "r");
    std::array<char, 4096> buffer;
    while (pipe && std::fgets(buffer.data(), static_cast<int>(buffer.size()), pipe))
        text += buffer.data();
    if (pipe) ::pclose(pipe);
    if (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
}

/// The entry of the build's cache, without its type.
std::string CacheEntry(const std::string& name) {
    for (const std::string& line : LinesOf(fs::path(PAPERKITE_BINARY_DIR) / "CMakeCache.txt"))
        if (line.starts_with(name + ":")) return line.substr(line.find('=') + 1);
    return {};
}

/// The Debian package that brought a file, links resolved.
std::string PackageOf(const fs::path& file) {
    std::error_code ignored;
    for (const fs::path& path : {file, fs::canonical(file, ignored)}) {
        const std::string owner = OutputOf("dpkg-query -S '" + path.string() + "' 2>/dev/null");
        if (!owner.empty()) return owner.substr(0, owner.find(':'));
    }
    return {};
}

TEST(RepositoryTest, IncludesPointOnlyWhereTheBuildDescriptionPermits) {
    const IncludeRules rules(Root());
    EXPECT_EQ(Joined(rules.Violations()), "");
    EXPECT_GT(rules.GetIncludeCount(), 1000u);
}

TEST(RepositoryTest, TheLevelsAreThoseOfTheHouse) {
    const auto modules = IncludeRules(Root()).GetModules();
    std::string levels;
    for (const char* name : {"foundation", "widgets", "itemtree", "authoring", "model"})
        levels += std::to_string(modules.at(name).Level) + " ";
    EXPECT_EQ(levels, "0 1 2 2 3 ");
}

TEST(RepositoryTest, EachOutsideLibraryHasOneFolderBesideTheProgram) {
    std::map<std::string, std::set<std::string>> folders;
    const auto modules = IncludeRules(Root()).GetModules();
    for (const auto& [name, module] : modules)
        for (const std::string& library : module.Libraries)
            if (library != "Qt6") folders[library].insert(module.Folder);
    for (const auto& [library, users] : folders)
        EXPECT_EQ(users.size(), 1u) << library;
    EXPECT_GE(folders.size(), 4u);
}

TEST(RepositoryTest, EveryHeaderIsReadOnce) {
    std::vector<std::string> found;
    for (const fs::path& file : SourceFiles()) {
        if (file.extension() != ".h") continue;
        const auto lines = LinesOf(file);
        if (lines.empty() || lines[0] != "#pragma once") found.push_back(file.string());
    }
    EXPECT_EQ(Joined(found), "");
}

TEST(RepositoryTest, NoFileIsTooLong) {
    std::vector<std::string> found;
    for (const fs::path& file : SourceFiles())
        if (LinesOf(file).size() > kMostLines) found.push_back(file.string());
    EXPECT_EQ(Joined(found), "");
}

TEST(RepositoryTest, TheListOfPackagesSaysWhatEachIsFor) {
    std::set<std::string> seen;
    for (const std::string& line : LinesOf(Root() / "packages.txt")) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream words(line);
        std::string name, reason;
        words >> name >> reason;
        EXPECT_FALSE(reason.empty()) << line;
        EXPECT_TRUE(seen.insert(name).second) << name << " is listed twice";
    }
    EXPECT_FALSE(seen.empty());
}

TEST(RepositoryTest, TheListOfPackagesNamesWhatTheBuildFinds) {
    if (OutputOf("command -v dpkg-query").empty())
        GTEST_SKIP() << "Only Debian says which package brought a file.";
    const auto listed = ListedPackages();
    for (const std::string& name : IncludeRules::NamesAskedFor(Root(), "find_package")) {
        const std::string folder = CacheEntry(name + "_DIR");
        ASSERT_FALSE(folder.empty()) << name;
        const std::string package = PackageOf(fs::directory_iterator(folder)->path());
        EXPECT_TRUE(listed.contains(package)) << name << " comes from \"" << package << "\"";
    }
    for (const std::string& name : IncludeRules::NamesAskedFor(Root(), "find_program"))
        EXPECT_TRUE(listed.contains(name)) << name;
    EXPECT_GE(IncludeRules::NamesAskedFor(Root(), "find_package").size(), 6u);
}

TEST(RepositoryTest, TheListOfPackagesNamesWhatTheProgramRuns) {
    EXPECT_TRUE(ListedPackages().contains("universal-ctags"));
    EXPECT_TRUE(ListedPackages().contains("breeze-icon-theme"));
}

} // namespace

} // namespace paperkite::test
