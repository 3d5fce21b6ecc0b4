#pragma once

#include "foundation/Value.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// The plain options of a project, by name: each has a fixed type and a default.
///
///     settings.Set("CompileHelpFile", Value(true));
///     settings.Get("Language");        // "English" until somebody sets it
class ProjectSettings {
public:
    /// All names, in the order in which they are kept in files.
    static const std::vector<std::string>& Names();
    static bool Has(std::string_view name);
    /// The value that a project holds which never set the option; an unknown name is error 438.
    static const Value& DefaultOf(std::string_view name);

    const Value& Get(std::string_view name) const;
    /// The value is converted to the option's type; what cannot be is error 13.
    void Set(std::string_view name, const Value& value);
    bool IsDefault(std::string_view name) const;

private:
    // Only what differs from the defaults.
    std::map<std::string, Value, std::less<>> mChanged;
};

} // namespace paperkite
