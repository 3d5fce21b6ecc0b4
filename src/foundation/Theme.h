#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace paperkite {

/// The visual theme of the window system, as far as components ask for it.
class ThemeColours {
public:
    virtual ~ThemeColours() = default;
    /// Without an active theme controls keep their own colours.
    virtual bool IsActive() const = 0;
    /// 0xRRGGBB of a colour by class part, state and property, or nothing where the theme has none.
    virtual std::optional<std::uint32_t> ColourOf(int part, int state, int property) const = 0;
};

/// Measures text as the window system draws it.
class TextMeasure {
public:
    virtual ~TextMeasure() = default;
    /// The text as it fits into a width in pixels, with an ellipsis where it had to be shortened.
    virtual std::string FitWithEllipsis(const std::string& text, int width) const = 0;
    /// The width in pixels that a check box's glyph takes before its text.
    virtual int CheckBoxGlyphWidth() const = 0;
};

} // namespace paperkite
