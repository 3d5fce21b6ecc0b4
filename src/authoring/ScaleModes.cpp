#include "authoring/ScaleModes.h"

#include "foundation/Error.h"

#include <array>

namespace paperkite {

namespace {

double TwipsIn(ScaleMode mode) {
    static constexpr std::array<double, 7> kTwips{1,    20,       kTwipsPerPixel, 120,
                                                  1440, 56.69286, 566.9286};
    const auto index = static_cast<std::size_t>(mode) - 1;
    if (index >= kTwips.size()) RaiseError(ErrorNumber::InvalidCall, "There is no such unit");
    return kTwips[index];
}

} // namespace

double ScaleX(double Width, ScaleMode FromScale, ScaleMode ToScale) {
    return Width * TwipsIn(FromScale) / TwipsIn(ToScale);
}

double ScaleY(double Height, ScaleMode FromScale, ScaleMode ToScale) {
    return Height * TwipsIn(FromScale) / TwipsIn(ToScale);
}

} // namespace paperkite
