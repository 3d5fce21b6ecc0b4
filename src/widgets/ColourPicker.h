#pragma once

#include "widgets/Control.h"
#include "widgets/WebColours.h"

#include <cstdint>
#include <optional>
#include <string>

namespace paperkite {

/// A picker that is never seen: it turns colours into texts and back, and opens the dialog for any
/// colour. Colours are R + 256 * G + 65536 * B.
class ColourPicker : public Control {
public:
    explicit ColourPicker(std::string name = {});

    /// "#" and six hexadecimal digits.
    std::string ColorToText(std::int32_t color) const { return WebColours::Text(color); }

    /// False, and the components stay as they are, for a text that names no colour.
    bool TextToComponents(const std::string& text, int& red, int& green, int& blue) const;

    /// Asks for any colour, beginning with one; nothing when the author cancels. Needs the service
    /// ChooseColour: error 429 without.
    std::optional<std::int32_t> ShowCustom(std::int32_t color);
};

} // namespace paperkite
