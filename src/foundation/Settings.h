#pragma once

#include "foundation/KiteProject.h"
#include "foundation/NamespaceDefs.h"
#include "foundation/RegistryHelper.h"
#include "foundation/Value.h"

#include <cstdint>
#include <string>

namespace paperkite {

// Per-user settings of the host application, and the process-wide values that they hang on.

/// The name of the host application. Every control with an AppName writes to this one value, so the
/// last writer wins.
extern std::string mAppName;
/// The folder that was picked last in a browse dialog.
extern std::string LastPath;

/// How GetAppValue reads what is stored.
inline constexpr int kConvertToText = 1;
inline constexpr int kConvertToNumber = 4;

/// The key of this application's settings, under the present mAppName.
std::string RegKeyPath();
/// The folder of files common to all the maker's products; always ends with "\".
std::string CommonPath();

/// A setting, or the default where it is missing or stored as an empty text. Numbers are read by
/// the leading-digits rule; everything else is given as text. An empty RootPath is RegKeyPath().
Value GetAppValue(const std::string& KeyName, const Value& DefaultValue, int ConversionType,
                  const std::string& ExtraPath, RegistryHive Root = HKEY_CURRENT_USER,
                  const std::string& RootPath = {});
/// A numeric setting as a whole number between two bounds, whatever is stored: what lies outside
/// counts as missing.
std::int32_t GetAppNumber(const std::string& KeyName, std::int32_t DefaultValue, std::int32_t least,
                          std::int32_t most, const std::string& ExtraPath);
/// Stores a setting as text, True as 1 and False as 0; its key is made where it is missing.
void SetAppValue(const std::string& KeyName, const Value& Value, const std::string& ExtraPath);

/// Gives a spelling engine, whose members are set by name, its caption and the stored options.
void InitSpellingObject(Object& SpellObject);

/// Lets the user choose a folder; empty when cancelled. Starts in InitDir, else in LastPath.
/// OwnerForm is the window that the dialog belongs to, 0 for none.
std::string GetPath(std::intptr_t OwnerForm, const std::string& Title, const std::string& InitDir);

/// Marks a definition before it is handed to a provider.
void PrepNamespaceDef(const Ref<NamespaceDef>& nd);
/// The root item that the provider of the first definition gives.
Ref<Object> GetRootItem(const Ref<KiteProject>& project, const Ref<NamespaceDefs>& namespaceDefs,
                        const std::string& Moniker);

/// The trace hook; empty in a release.
inline void OutputDebugString(const std::string&) {}

} // namespace paperkite
