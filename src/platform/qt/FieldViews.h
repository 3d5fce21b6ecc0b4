#pragma once

#include "foundation/Ref.h"
#include "widgets/Button.h"
#include "widgets/CheckBox.h"
#include "widgets/FormHeader.h"
#include "widgets/Label.h"
#include "widgets/OptionButton.h"
#include "widgets/TextBox.h"

#include <QWidget>

namespace paperkite {

// The views of the small roles: each makes the native widget, below the parent, and keeps it in
// step with the control.

QWidget* MakeLabelView(const Ref<Label>& label, QWidget* parent);
QWidget* MakeButtonView(const Ref<Button>& button, QWidget* parent);
QWidget* MakeCheckBoxView(const Ref<CheckBox>& box, QWidget* parent);
QWidget* MakeOptionButtonView(const Ref<OptionButton>& button, QWidget* parent);
/// A line, or a text area for a box of many lines.
QWidget* MakeTextBoxView(const Ref<TextBox>& box, QWidget* parent);
QWidget* MakeFormHeaderView(const Ref<FormHeader>& header, QWidget* parent);

} // namespace paperkite
