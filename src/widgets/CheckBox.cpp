#include "widgets/CheckBox.h"

namespace paperkite {

void CheckBox::SetValue(int value) {
    if (value < kUnticked || value > kMixed)
        RaiseError(ErrorNumber::InvalidCall, "A check box takes 0, 1 or 2");
    if (Assign(mValue, value)) Events.Click.Raise();
}

void CheckBox::UserClick() {
    if (AcceptsGestures()) SetChecked(!GetChecked());
}

} // namespace paperkite
