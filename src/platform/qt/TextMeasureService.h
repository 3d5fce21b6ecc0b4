#pragma once

#include "foundation/Theme.h"

#include <string>

namespace paperkite {

/// Measures in the application's font and style, as they are at the moment.
class TextMeasureService : public TextMeasure {
public:
    std::string FitWithEllipsis(const std::string& text, int width) const override;
    int CheckBoxGlyphWidth() const override;
};

} // namespace paperkite
