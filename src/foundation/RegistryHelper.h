#pragma once

#include "foundation/Value.h"

#include <cstdint>
#include <string>

namespace paperkite {

/// The top of one tree of settings.
enum class RegistryHive : std::uint32_t {
    CurrentUser = 0x80000001,
    LocalMachine = 0x80000002,
};

inline constexpr RegistryHive HKEY_CURRENT_USER = RegistryHive::CurrentUser;
inline constexpr RegistryHive HKEY_LOCAL_MACHINE = RegistryHive::LocalMachine;

/// Values are written as strings.
inline constexpr int kRegistryString = 1;

/// Where settings live. Key paths are separated by "\".
class RegistryHelper {
public:
    virtual ~RegistryHelper() = default;
    virtual void CreateKey(RegistryHive root, const std::string& keyPath) = 0;
    virtual void WriteValue(RegistryHive root, const std::string& keyPath, const std::string& name,
                            int type, const std::string& value) = 0;
    /// An empty value when the key or the value is missing.
    virtual Value ReadValue(RegistryHive root, const std::string& keyPath,
                            const std::string& name) = 0;
};

} // namespace paperkite
