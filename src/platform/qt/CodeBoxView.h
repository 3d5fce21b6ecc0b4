#pragma once

#include "foundation/Ref.h"
#include "widgets/CodeBox.h"

#include <QWidget>

namespace paperkite {

/// A text area with line numbers and colours, which keeps lines unwrapped and marks a wrong place.
QWidget* MakeCodeBoxView(const Ref<CodeBox>& box, QWidget* parent);

} // namespace paperkite
