#include "widgets/StackPanel.h"

namespace paperkite {

StackPanel::StackPanel(std::string name) : Container(std::move(name)) {
    mResized = ControlEvents.Resize.Connect([this](int, int) { FillControls(); });
}

Ref<Control> StackPanel::GetFrontControl() const {
    Ref<Control> front;
    for (const auto& control : Controls)
        if (control->GetVisible() && (!front || control->GetZOrder() < front->GetZOrder()))
            front = control;
    return front;
}

void StackPanel::FillControls() {
    // A handler of a control's Resize may take controls away.
    const std::vector<Ref<Control>> controls(Controls.begin(), Controls.end());
    for (const auto& control : controls)
        control->Move(0, 0, GetWidth(), GetHeight());
}

} // namespace paperkite
