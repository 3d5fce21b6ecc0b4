#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Colours as web pages write them. A colour is R + 256 * G + 65536 * B, each part from 0 to 255.
namespace paperkite::WebColours {

struct Components {
    int Red = 0;
    int Green = 0;
    int Blue = 0;

    bool operator==(const Components&) const = default;
};

/// A named colour as lists of colours hold it.
struct Named {
    /// With blanks between its words, such as "Antique White".
    std::string Text;
    /// The colour as a decimal number.
    std::string Tag;
    /// Two lines: "#FAEBD7", and "250,235,215".
    std::string ToolTipText;
    /// "#FAEBD7"
    std::string Key;
    std::int32_t Color = 0;
};

/// The 136 named colours, by name.
const std::vector<Named>& NamedColours();

std::int32_t FromComponents(const Components& components);
Components ToComponents(std::int32_t colour);

/// "#" and six hexadecimal digits in capitals.
std::string Text(std::int32_t colour);
/// Three parts in decimal, joined by ",".
std::string ComponentsText(std::int32_t colour);
/// Reads "#FAEBD7", "#fed", the same without "#" and "250,235,215", or a name of the list without
/// regard to letter case and blanks; nothing for any other text. Blanks around it don't count.
std::optional<std::int32_t> Read(std::string_view text);

} // namespace paperkite::WebColours
