#pragma once

#include "foundation/RegistryHelper.h"

#include <map>
#include <string>

namespace paperkite {

/// Settings that live as long as one picture: it depends on nothing that an author chose, and
/// changes none of it.
class PictureSettings : public RegistryHelper {
public:
    void CreateKey(RegistryHive, const std::string&) override {}
    void WriteValue(RegistryHive, const std::string& keyPath, const std::string& name, int,
                    const std::string& value) override {
        mValues[keyPath + "\\" + name] = value;
    }
    Value ReadValue(RegistryHive, const std::string& keyPath, const std::string& name) override {
        const auto found = mValues.find(keyPath + "\\" + name);
        return found == mValues.end() ? Value() : Value(found->second);
    }

private:
    std::map<std::string, std::string> mValues;
};

} // namespace paperkite
