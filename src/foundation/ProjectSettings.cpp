#include "foundation/ProjectSettings.h"

#include <unordered_map>

namespace paperkite {

namespace {

struct Setting {
    const char* Name;
    Value Default;
};

const std::vector<Setting>& Table() {
    static const std::vector<Setting> table{
        {"ProjectGroupName", ""},
        {"OutputFolder", ""},
        {"CHMFileName", ""},
        {"CompileHelpFile", false},
        {"ShowHelpFile", false},
        {"RefreshIfExists", true},
        {"AlwaysCopySupportFiles", false},
        {"HHNamespace", ""},
        {"HHIdentifier", ""},
        {"H2PlugIn", false},
        {"H2PlugInNamespace", ""},
        {"HTMLHelpVersion", "1"},
        {"UseALinkMenus", false},
        {"Language", "English"},
        {"Locale", 0},
        {"OutputCodePage", 65001},
        {"IdentifyVisibility", false},
        {"DocumentSourceCode", false},
        {"CreateContextLinks", false},
        {"WriteHelpDescriptions", false},
        {"CopySourceCode", false},
        {"CreateWinhelpStub", false},
        {"SupressSingleObjectDiagrams", false},
        {"DefRelForCollections", false},
        {"PropertyCommentsFrom", 0},
        {"RelationshipsFrom", 0},
        {"HelpDescriptionImport", 0},
        {"PageNestingLevels", 2},
        {"OverviewNestingLevels", 2},
        {"ExtractBlocks", false},
        {"ExtractEnumerations", false},
        {"ExtractEvents", false},
        {"ExtractModules", false},
        {"ExtractUDTs", false},
        {"ExtractVariables", false},
    };
    return table;
}

const Value* FindDefault(std::string_view name) {
    static const auto defaults = [] {
        std::unordered_map<std::string_view, const Value*> result;
        for (const Setting& setting : Table())
            result.emplace(setting.Name, &setting.Default);
        return result;
    }();
    const auto found = defaults.find(name);
    return found == defaults.end() ? nullptr : found->second;
}

Value InTypeOf(const Value& model, const Value& value) {
    if (model.IsBoolean()) return Value(value.ToBoolean());
    if (model.IsInteger()) return Value(value.ToInteger());
    return Value(value.ToText());
}

} // namespace

const std::vector<std::string>& ProjectSettings::Names() {
    static const auto names = [] {
        std::vector<std::string> result;
        for (const Setting& setting : Table())
            result.emplace_back(setting.Name);
        return result;
    }();
    return names;
}

bool ProjectSettings::Has(std::string_view name) {
    return FindDefault(name) != nullptr;
}

const Value& ProjectSettings::DefaultOf(std::string_view name) {
    const Value* result = FindDefault(name);
    if (!result)
        RaiseError(ErrorNumber::NoSuchMember,
                   "A project has no setting \"" + std::string(name) + "\"");
    return *result;
}

const Value& ProjectSettings::Get(std::string_view name) const {
    const auto found = mChanged.find(name);
    return found == mChanged.end() ? DefaultOf(name) : found->second;
}

void ProjectSettings::Set(std::string_view name, const Value& value) {
    const Value& standard = DefaultOf(name);
    Value converted = InTypeOf(standard, value);
    if (converted.ToText() == standard.ToText()) {
        mChanged.erase(std::string(name));
        return;
    }
    mChanged.insert_or_assign(std::string(name), std::move(converted));
}

bool ProjectSettings::IsDefault(std::string_view name) const {
    DefaultOf(name);
    return mChanged.find(name) == mChanged.end();
}

} // namespace paperkite
