#pragma once

#include "foundation/RegistryHelper.h"

#include <memory>
#include <string>

namespace paperkite {

/// The settings store: the native registry on Windows, and INI files elsewhere, one for the user's
/// settings and one for those of the machine. Several processes may use it at the same time; each
/// sees what another has written, and no write loses another one.
///
/// Key paths are cut at "\"; empty steps count for nothing. Names may hold any characters. Text is
/// UTF-8.
class SettingsRegistry : public RegistryHelper {
public:
    /// The standard places of the system.
    SettingsRegistry();
    /// Files of one's own, which are made when something is written.
    SettingsRegistry(const std::string& userFile, const std::string& machineFile);
    ~SettingsRegistry() override;

    /// Checks that the hive can be written to; a key stands there from its first value on.
    void CreateKey(RegistryHive root, const std::string& keyPath) override;
    /// A place that cannot be written to is error 70.
    void WriteValue(RegistryHive root, const std::string& keyPath, const std::string& name,
                    int type, const std::string& value) override;
    Value ReadValue(RegistryHive root, const std::string& keyPath,
                    const std::string& name) override;

private:
    struct Stores;
    std::unique_ptr<Stores> mStores;
};

} // namespace paperkite
