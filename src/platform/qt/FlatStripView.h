#pragma once

#include "widgets/FlatStrip.h"

#include <QWidget>

namespace paperkite {

/// Shows the strip as tabs below what they switch.
QWidget* MakeFlatStripView(const Ref<FlatStrip>& strip, QWidget* parent);

} // namespace paperkite
