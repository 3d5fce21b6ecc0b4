#pragma once

#include "widgets/Control.h"

#include <cstdint>
#include <string>

namespace paperkite {

/// A field of one colour, with a text that says which.
class ColourSwatch : public Control {
public:
    explicit ColourSwatch(std::string name = {}) : Control(std::move(name)) {}

    /// R + 256 * G + 65536 * B.
    std::int32_t GetColor() const { return mColor; }

    void SetColor(std::int32_t value) { Assign(mColor, value); }

    /// May have two lines; also what a screen reader says.
    const std::string& GetCaption() const { return mCaption; }

    void SetCaption(const std::string& value) { Assign(mCaption, value); }

private:
    std::string mCaption;
    std::int32_t mColor = 0;
};

} // namespace paperkite
