#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace paperkite::test {

/// What the build description permits the files of one folder.
struct Module {
    /// Below src/, or of one file for a program.
    std::string Folder;
    int Level = 0;
    std::vector<std::string> Uses;
    std::set<std::string> Libraries;
};

/// Reads the build description of the sources and of the tests, and tells what in their files
/// breaks it. The description is the one source of what is permitted.
class IncludeRules {
public:
    /// The root of the repository: src/ and tests/ with a CMakeLists.txt each lie below it.
    explicit IncludeRules(std::filesystem::path root);

    /// One line for each broken rule, "file:line: what"; empty when all is well.
    std::vector<std::string> Violations() const;

    /// How many include lines the last walk has looked at.
    std::size_t GetIncludeCount() const { return mIncludeCount; }
    const std::map<std::string, Module>& GetModules() const { return mModules; }
    /// The names that find_package and find_program ask for, in every build file.
    static std::set<std::string> NamesAskedFor(const std::filesystem::path& root,
                                               const std::string& command);

private:
    struct Place {
        std::string File;
        std::size_t Line = 0;
    };

    void ReadSources();
    void ReadTests();
    std::set<std::string> PermittedFolders(const Module& module) const;
    const Module* ModuleOf(const std::string& file) const;
    std::string FolderOf(const std::string& header) const;
    void Walk(const std::string& top, std::vector<std::string>& found) const;
    void CheckFile(const std::string& file, std::vector<std::string>& found) const;
    std::string CheckQuoted(const std::string& header, const Module& module,
                            const std::string& file) const;
    std::string CheckAngled(const std::string& header, const Module& module, bool isTest) const;

    std::filesystem::path mRoot;
    std::map<std::string, Module> mModules;
    std::map<std::string, Module> mPrograms;
    std::map<std::string, Module> mTests;
    mutable std::size_t mIncludeCount = 0;
};

/// The commands of a CMake file: each with its words, comments left out.
struct BuildCommand {
    std::string Name;
    std::vector<std::string> Words;
    /// From the last "# level N" line before it.
    int Level = 0;
};
std::vector<BuildCommand> ReadBuildFile(const std::filesystem::path& file);

} // namespace paperkite::test
