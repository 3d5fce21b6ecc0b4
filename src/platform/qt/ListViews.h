#pragma once

#include "foundation/Ref.h"
#include "widgets/ComboBox.h"
#include "widgets/ListBox.h"

#include <QWidget>

namespace paperkite {

/// The native widgets of the list roles, below the parent, in step with their controls.
QWidget* MakeListBoxView(const Ref<ListBox>& list, QWidget* parent);
QWidget* MakeComboBoxView(const Ref<ComboBox>& box, QWidget* parent);

} // namespace paperkite
