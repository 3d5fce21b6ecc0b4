#pragma once

#include "foundation/Value.h"

#include <map>
#include <string>

namespace paperkite {

/// Where a host keeps the design properties of a control.
class PropertyBag {
public:
    /// The stored value, or the default.
    Value ReadProperty(const std::string& name, const Value& defaultValue) const {
        const auto found = mProperties.find(name);
        return found == mProperties.end() ? defaultValue : found->second;
    }
    void WriteProperty(const std::string& name, const Value& value) { mProperties[name] = value; }
    bool Contains(const std::string& name) const { return mProperties.contains(name); }

private:
    std::map<std::string, Value> mProperties;
};

} // namespace paperkite
