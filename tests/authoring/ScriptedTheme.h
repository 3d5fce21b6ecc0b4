#pragma once

#include "foundation/Services.h"

#include <cstdint>
#include <map>
#include <optional>

namespace paperkite::test {

/// A visual theme that knows the ground and the text of an explorer bar's groups.
class ScriptedTheme : public ThemeColours {
public:
    bool IsActive() const override { return Active; }
    std::optional<std::uint32_t> ColourOf(int part, int state, int property) const override {
        if (part != 5 || state != 1) return std::nullopt;
        const auto found = Colours.find(property);
        return found == Colours.end() ? std::nullopt : std::optional(found->second);
    }

    bool Active = true;
    std::map<int, std::uint32_t> Colours{{3802, 0x112233}, {3803, 0x445566}};
};

} // namespace paperkite::test
