#include "platform/spelling/SpellingPlaces.h"

#include "foundation/Text.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace paperkite {

namespace {

namespace fs = std::filesystem;

constexpr const char* kFallBack = "en_US";

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : std::string();
}

std::string DataFolder() {
    const std::string given = Environment("XDG_DATA_HOME");
    if (given.starts_with('/')) return given;
    const std::string home = Environment("HOME");
    return home.empty() ? std::string() : home + "/.local/share";
}

/// "de_AT.UTF-8@euro" is "de_AT"; a system that speaks no language speaks en_US.
std::string LanguageOf(const std::string& locale) {
    const std::string name = locale.substr(0, locale.find_first_of(".@"));
    return name.empty() || name == "C" || name == "POSIX" ? kFallBack : name;
}

std::string SystemLanguage() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const std::string value = Environment(name); !value.empty()) return LanguageOf(value);
    return kFallBack;
}

bool IsDictionary(const fs::path& file) {
    std::error_code ignored;
    fs::path rules = file;
    return file.extension() == ".dic" && fs::is_regular_file(file, ignored) &&
           fs::is_regular_file(rules.replace_extension(".aff"), ignored);
}

/// The first dictionary of a language whatever the country; its own country is the likeliest.
std::string AnyOf(const std::vector<std::string>& folders, const std::string& language) {
    const std::string own = language + "_" + UpperCase(language) + ".dic";
    std::string best;
    for (const std::string& folder : folders) {
        std::error_code failed;
        for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end;
             entry.increment(failed)) {
            const std::string name = entry->path().filename().string();
            if (!name.starts_with(language + "_") && name != language + ".dic") continue;
            if (!IsDictionary(entry->path())) continue;
            const bool isBetter =
                best.empty() || name == own ||
                (fs::path(best).filename() != own && name < fs::path(best).filename().string());
            if (isBetter) best = entry->path().string();
        }
        if (!best.empty()) return best;
    }
    return best;
}

} // namespace

SpellingPlaces SpellingPlaces::OfSystem() {
    SpellingPlaces places;
    places.Language = SystemLanguage();
    for (std::string& folder : Split(Environment("DICPATH"), ":"))
        if (!folder.empty()) places.Folders.push_back(std::move(folder));
    if (const std::string data = DataFolder(); !data.empty()) {
        places.Folders.push_back(data + "/hunspell");
        places.CustomFile = data + "/paperkite/custom.words";
    }
    for (const char* folder : {"/usr/share/hunspell", "/usr/share/myspell/dicts",
                               "/usr/share/myspell", "/usr/local/share/hunspell"})
        places.Folders.emplace_back(folder);
    return places;
}

std::string SpellingPlaces::FindDictionary() const {
    const auto exact = [&](const std::string& language) {
        for (const std::string& folder : Folders)
            if (const fs::path file = fs::path(folder) / (language + ".dic"); IsDictionary(file))
                return file.string();
        return std::string();
    };
    if (std::string found = exact(Language); !found.empty()) return found;
    const std::string bare = Language.substr(0, Language.find('_'));
    if (std::string found = AnyOf(Folders, bare); !found.empty()) return found;
    if (std::string found = exact(kFallBack); !found.empty()) return found;
    return AnyOf(Folders, "en");
}

} // namespace paperkite
