#pragma once

#include "foundation/Ref.h"
#include "widgets/ColourHexagon.h"
#include "widgets/ColourSwatch.h"

#include <QColor>
#include <QIcon>
#include <QWidget>

#include <cstdint>

namespace paperkite {

/// A colour of the models, R + 256 * G + 65536 * B.
QColor ToQColor(std::int32_t colour);

/// The one of black and white that is read better on that ground: its contrast is 4.5 to 1 or more.
QColor TextColourOn(const QColor& ground);

/// A small square of a colour with a line around it that shows on every ground.
QIcon SwatchIcon(const QColor& colour, const QPalette& palette, int size);

/// The honeycomb: a click chooses, a double click takes, the arrow keys move.
QWidget* MakeColourHexagonView(const Ref<ColourHexagon>& hexagon, QWidget* parent);
QWidget* MakeColourSwatchView(const Ref<ColourSwatch>& swatch, QWidget* parent);

} // namespace paperkite
