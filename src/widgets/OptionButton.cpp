#include "widgets/OptionButton.h"

#include "widgets/Container.h"

namespace paperkite {

void OptionButton::SetValue(bool value) {
    if (mValue == value) return;
    if (value) TakeChoiceFromNeighbours();
    Assign(mValue, value);
    if (value) Events.Click.Raise();
}

void OptionButton::TakeChoiceFromNeighbours() {
    if (!GetParent()) return;
    for (const auto& control : GetParent()->Controls) {
        auto* other = dynamic_cast<OptionButton*>(control.get());
        if (other && other != this && other->mGroup == mGroup) other->Assign(other->mValue, false);
    }
}

void OptionButton::UserClick() {
    if (AcceptsGestures()) SetValue(true);
}

} // namespace paperkite
