#pragma once

#include "foundation/Ref.h"
#include "widgets/HeaderBar.h"

#include <QWidget>

namespace paperkite {

/// A strip that is painted in the palette's colours and reports the pointer.
QWidget* MakeHeaderBarView(const Ref<HeaderBar>& bar, QWidget* parent);

} // namespace paperkite
