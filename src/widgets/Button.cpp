#include "widgets/Button.h"

namespace paperkite {

void Button::UserClick() {
    if (AcceptsGestures()) Events.Click.Raise();
}

} // namespace paperkite
