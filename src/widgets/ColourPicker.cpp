#include "widgets/ColourPicker.h"

#include "foundation/Services.h"

namespace paperkite {

ColourPicker::ColourPicker(std::string name) : Control(std::move(name)) {
    SetVisible(false);
}

bool ColourPicker::TextToComponents(const std::string& text, int& red, int& green,
                                    int& blue) const {
    const auto colour = WebColours::Read(text);
    if (!colour) return false;
    const auto parts = WebColours::ToComponents(*colour);
    red = parts.Red;
    green = parts.Green;
    blue = parts.Blue;
    return true;
}

std::optional<std::int32_t> ColourPicker::ShowCustom(std::int32_t color) {
    const auto& choose = CurrentServices().ChooseColour;
    if (!choose) RaiseError(ErrorNumber::CannotCreateComponent);
    return choose(color, static_cast<std::intptr_t>(GetHWnd()));
}

} // namespace paperkite
