#include "foundation/Settings.h"

#include "foundation/Services.h"
#include "foundation/Text.h"
#include "foundation/Utilities.h"

namespace paperkite {

std::string mAppName;
std::string LastPath;

namespace {

constexpr const char* kMakerKey = "Software\\Brindlewick";
constexpr const char* kSpellingPath = "Spelling";
constexpr const char* kSpellingOptionsCaption = "Options...";

std::string WithExtraPath(std::string path, const std::string& extraPath) {
    return extraPath.empty() ? path : path + "\\" + extraPath;
}

} // namespace

std::string RegKeyPath() {
    return std::string(kMakerKey) + "\\" + mAppName;
}

std::string CommonPath() {
    std::string path =
        Utilities::TextOf(Required(CurrentServices().Registry)
                              .ReadValue(HKEY_LOCAL_MACHINE, kMakerKey, "CommonPath"));
    if (!path.ends_with('\\')) path += '\\';
    return path;
}

Value GetAppValue(const std::string& KeyName, const Value& DefaultValue, int ConversionType,
                  const std::string& ExtraPath, RegistryHive Root, const std::string& RootPath) {
    const std::string keyPath =
        WithExtraPath(RootPath.empty() ? RegKeyPath() : RootPath, ExtraPath);
    Value value = Required(CurrentServices().Registry).ReadValue(Root, keyPath, KeyName);
    if (Utilities::TextOf(value).empty()) value = DefaultValue;
    if (ConversionType == kConvertToNumber) return Value(LeadingNumber(value.ToText()));
    return Value(value.ToText());
}

std::int32_t GetAppNumber(const std::string& KeyName, std::int32_t DefaultValue, std::int32_t least,
                          std::int32_t most, const std::string& ExtraPath) {
    const double stored =
        GetAppValue(KeyName, DefaultValue, kConvertToNumber, ExtraPath).ToNumber();
    return stored >= least && stored <= most ? Value(stored).ToInteger() : DefaultValue;
}

void SetAppValue(const std::string& KeyName, const Value& Value, const std::string& ExtraPath) {
    const std::string text = Value.IsBoolean() ? (Value.ToBoolean() ? "1" : "0") : Value.ToText();
    const std::string keyPath = WithExtraPath(RegKeyPath(), ExtraPath);
    RegistryHelper& registry = Required(CurrentServices().Registry);
    registry.CreateKey(HKEY_CURRENT_USER, keyPath);
    registry.WriteValue(HKEY_CURRENT_USER, keyPath, KeyName, kRegistryString, text);
}

void InitSpellingObject(Object& SpellObject) {
    const auto number = [&](const char* name, double byDefault, const char* member) {
        SpellObject.Set(member, GetAppValue(name, byDefault, kConvertToNumber, kSpellingPath));
    };
    const auto file = [&](const char* name, const char* byDefault, const char* member) {
        SpellObject.Set(member,
                        GetAppValue(name, CommonPath() + byDefault, kConvertToText, kSpellingPath));
    };
    SpellObject.Set("OptionBtnCaption", kSpellingOptionsCaption);
    number("AlwaysSuggest", 1, "Suggest");
    number("IgnoreUppercase", 1, "IgnoreInUpperCase");
    number("IgnoreNumbers", 1, "IgnoreWithNumbers");
    number("IgnoreMixedCase", 0, "IgnoreInMixedCase");
    file("PrimaryDictionary", "Brindlewick.dct", "MainDictFile");
    file("CustomDictionary", "Custom.dct", "CustomDictFile");
}

std::string GetPath(std::intptr_t OwnerForm, const std::string& Title, const std::string& InitDir) {
    if (!CurrentServices().CreateFolderBrowser) RaiseError(ErrorNumber::CannotCreateComponent);
    const auto browser = CurrentServices().CreateFolderBrowser();
    browser->SetFolderMode(true);
    if (OwnerForm != 0) browser->SetOwner(OwnerForm);
    browser->SetStartFolder(InitDir.empty() ? LastPath : InitDir);
    browser->SetTitle(Title);
    browser->SetNewFolder(true);
    std::string path = browser->Run();
    if (!path.empty()) LastPath = path;
    return path;
}

void PrepNamespaceDef(const Ref<NamespaceDef>& nd) {
    nd->Prepared = true;
}

Ref<Object> GetRootItem(const Ref<KiteProject>& project, const Ref<NamespaceDefs>& namespaceDefs,
                        const std::string& Moniker) {
    Ref<NamespaceDef> nd = namespaceDefs->Item(1);
    const auto provider = project->NamespaceProvider(nd->Moniker);
    return provider->GetRootItem(nd, Moniker);
}

} // namespace paperkite
