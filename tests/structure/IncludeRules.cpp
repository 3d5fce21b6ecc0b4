#include "structure/IncludeRules.h"

#include <fstream>
#include <regex>
#include <sstream>

namespace paperkite::test {

namespace fs = std::filesystem;

namespace {

/// The first level that may name anything outside the language.
constexpr int kFirstOpenLevel = 3;

/// Whose header it is, by the header's name.
struct LibraryHeaders {
    const char* Pattern;
    const char* Library;
};

constexpr LibraryHeaders kLibraries[] = {{"Q[A-Z][A-Za-z]*|Qt[A-Za-z]*/.*", "Qt6"},
                                         {"pugi(xml|config)\\.hpp", "pugixml"},
                                         {"simdjson\\.h", "simdjson"},
                                         {"CLI/.*", "CLI11"},
                                         {"nlohmann/.*", "nlohmann_json"},
                                         {"gumbo\\.h", "gumbo"},
                                         {"tidy/.*", "tidy"},
                                         {"hunspell/.*", "hunspell-1.7"},
                                         {"(gtest|gmock)/.*", "GTest"}};

/// What the system itself gives, from the open levels on.
const std::regex kSystem("(unistd|fcntl|iconv|spawn|poll|signal|pwd)\\.h|sys/[a-z]+\\.h");
const std::regex kStandard("[a-z_0-9]+");

std::string TextOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

bool IsSource(const fs::path& file) {
    return file.extension() == ".h" || file.extension() == ".cpp";
}

/// The words behind a keyword, up to the next one.
std::vector<std::string> WordsAfter(const BuildCommand& command, const std::string& keyword) {
    static const std::set<std::string> keywords{"USES", "LIBRARIES", "PRIVATE", "PUBLIC"};
    std::vector<std::string> words;
    bool inside = false;
    for (const std::string& word : command.Words) {
        if (keywords.contains(word))
            inside = word == keyword;
        else if (inside)
            words.push_back(word);
    }
    return words;
}

std::string Package(const std::string& target) {
    return target.substr(0, target.find("::"));
}

std::set<std::string> PackagesOf(const BuildCommand& command) {
    std::set<std::string> packages;
    for (const std::string& target : WordsAfter(command, "LIBRARIES"))
        packages.insert(Package(target));
    return packages;
}

} // namespace

std::vector<BuildCommand> ReadBuildFile(const fs::path& file) {
    static const std::regex level("^# level ([0-9]+)");
    static const std::regex call("([A-Za-z_]+)\\s*\\(([^()]*)\\)");
    std::vector<BuildCommand> commands;
    std::istringstream lines(TextOf(file));
    std::string line, pending;
    int present = 0;
    while (std::getline(lines, line)) {
        std::smatch match;
        if (std::regex_search(line, match, level)) present = std::stoi(match[1]);
        pending += line.substr(0, line.find('#')) + "\n";
        while (std::regex_search(pending, match, call)) {
            BuildCommand command{match[1], {}, present};
            std::istringstream words(match[2]);
            for (std::string word; words >> word;)
                command.Words.push_back(word);
            commands.push_back(std::move(command));
            pending = match.suffix();
        }
    }
    return commands;
}

IncludeRules::IncludeRules(fs::path root) : mRoot(std::move(root)) {
    ReadSources();
    ReadTests();
}

void IncludeRules::ReadSources() {
    for (const BuildCommand& command : ReadBuildFile(mRoot / "src/CMakeLists.txt")) {
        if (command.Words.size() < 2) continue;
        const std::string& name = command.Words[0];
        if (command.Name == "paperkite_module")
            mModules[name] = {command.Words[1], command.Level, WordsAfter(command, "USES"),
                              PackagesOf(command)};
        if (command.Name == "add_executable")
            mPrograms[name] = {command.Words[1], command.Level, {}, {}};
        if (command.Name != "target_link_libraries" || !mPrograms.contains(name)) continue;
        Module& program = mPrograms[name];
        for (const std::string& linked : WordsAfter(command, "PRIVATE"))
            if (linked.starts_with("paperkite_"))
                program.Uses.push_back(linked.substr(10));
            else
                program.Libraries.insert(Package(linked));
    }
}

void IncludeRules::ReadTests() {
    for (const BuildCommand& command : ReadBuildFile(mRoot / "tests/CMakeLists.txt")) {
        if (command.Name != "paperkite_test" || command.Words.empty()) continue;
        Module test{command.Words[0], kFirstOpenLevel, WordsAfter(command, "USES"),
                    PackagesOf(command)};
        test.Libraries.insert("GTest");
        mTests[test.Folder] = test;
    }
}

std::set<std::string> IncludeRules::PermittedFolders(const Module& module) const {
    std::set<std::string> folders{module.Folder};
    for (const std::string& used : module.Uses) {
        const auto found = mModules.find(used);
        if (found == mModules.end()) continue;
        folders.merge(PermittedFolders(found->second));
    }
    return folders;
}

/// The folder of src/ that a file belongs to: the longest that is a module's.
std::string IncludeRules::FolderOf(const std::string& header) const {
    std::string folder = fs::path(header).parent_path().string();
    for (; !folder.empty(); folder = fs::path(folder).parent_path().string())
        for (const auto& [name, module] : mModules)
            if (module.Folder == folder) return folder;
    return fs::path(header).parent_path().string();
}

const Module* IncludeRules::ModuleOf(const std::string& file) const {
    const auto slash = file.find('/');
    const std::string below = file.substr(slash + 1);
    if (file.starts_with("tests/")) {
        const auto found = mTests.find(fs::path(below).parent_path().string());
        return found == mTests.end() ? nullptr : &found->second;
    }
    for (const auto& [name, program] : mPrograms)
        if (program.Folder == below) return &program;
    const std::string folder = FolderOf(below);
    for (const auto& [name, module] : mModules)
        if (module.Folder == folder) return &module;
    return nullptr;
}

std::vector<std::string> IncludeRules::Violations() const {
    std::vector<std::string> found;
    mIncludeCount = 0;
    Walk("src", found);
    Walk("tests", found);
    return found;
}

void IncludeRules::Walk(const std::string& top, std::vector<std::string>& found) const {
    if (!fs::exists(mRoot / top)) return;
    std::set<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(mRoot / top))
        if (IsSource(entry.path())) files.insert(entry.path().lexically_relative(mRoot).string());
    for (const std::string& file : files)
        CheckFile(file, found);
}

void IncludeRules::CheckFile(const std::string& file, std::vector<std::string>& found) const {
    static const std::regex quoted("^\\s*#\\s*include\\s*\"([^\"]+)\"");
    static const std::regex angled("^\\s*#\\s*include\\s*<([^>]+)>");
    const bool isTest = file.starts_with("tests/");
    // What the tests share is bound by whoever includes it.
    const Module shared{"support",
                        kFirstOpenLevel,
                        {"foundation", "widgets", "model", "designers", "platform_html"},
                        {"GTest", "Qt6"}};
    const Module* module = file.starts_with("tests/support/") ? &shared : ModuleOf(file);
    if (!module) {
        found.push_back(file + ": no line of the build description names its folder");
        return;
    }
    std::istringstream lines(TextOf(mRoot / file));
    std::string line;
    for (std::size_t number = 1; std::getline(lines, line); ++number) {
        std::smatch match;
        std::string problem;
        if (std::regex_search(line, match, quoted))
            problem = CheckQuoted(match[1], *module, file);
        else if (std::regex_search(line, match, angled))
            problem = CheckAngled(match[1], *module, isTest);
        else
            continue;
        ++mIncludeCount;
        if (!problem.empty()) found.push_back(file + ":" + std::to_string(number) + ": " + problem);
    }
}

std::string IncludeRules::CheckQuoted(const std::string& header, const Module& module,
                                      const std::string& file) const {
    if (file.starts_with("tests/") && fs::exists(mRoot / "tests" / header)) {
        const std::string folder = fs::path(header).parent_path().string();
        return folder == module.Folder || folder == "support"
                   ? ""
                   : "tests of " + module.Folder + " may not include " + header;
    }
    if (file.starts_with("tests/") && header.starts_with("fuzz/") && fs::exists(mRoot / header))
        return "";
    if (!fs::exists(mRoot / "src" / header)) return "there is no " + header + " below src";
    if (PermittedFolders(module).contains(FolderOf(header))) return "";
    return module.Folder + " may not include " + header;
}

std::string IncludeRules::CheckAngled(const std::string& header, const Module& module,
                                      bool isTest) const {
    if (std::regex_match(header, kStandard)) return "";
    if (module.Level < kFirstOpenLevel)
        return module.Folder + " is of level " + std::to_string(module.Level) +
               " and may not include <" + header + ">, which the language does not bring";
    for (const auto& [pattern, library] : kLibraries) {
        if (!std::regex_match(header, std::regex(pattern))) continue;
        return module.Libraries.contains(library)
                   ? ""
                   : module.Folder + " may not name " + library + " (<" + header + ">)";
    }
    if (std::regex_match(header, kSystem)) return "";
    return "nobody knows whose <" + header + "> is" + (isTest ? "" : ": name its library");
}

std::set<std::string> IncludeRules::NamesAskedFor(const fs::path& root,
                                                  const std::string& command) {
    std::set<std::string> names;
    const std::size_t position = command == "find_program" ? 1 : 0;
    for (const auto& file : {root / "src/CMakeLists.txt", root / "tests/CMakeLists.txt",
                             root / "cmake/PaperkiteToolchain.cmake"})
        for (const BuildCommand& found : ReadBuildFile(file))
            if (found.Name == command && found.Words.size() > position)
                names.insert(found.Words[position]);
    return names;
}

} // namespace paperkite::test
