#include "widgets/SplitPanel.h"

#include <algorithm>

namespace paperkite {

SplitPanel::SplitPanel(std::string name) : Control(std::move(name)) {
    mResized = ControlEvents.Resize.Connect([this](int, int) { FitPanes(); });
}

void SplitPanel::SetOrientation(Orientation value) {
    if (Assign(mOrientation, value)) FitPanes();
}

void SplitPanel::SetFirstPane(const Ref<Control>& control) {
    if (Assign(mFirst, control)) FitPanes();
}

void SplitPanel::SetSecondPane(const Ref<Control>& control) {
    if (Assign(mSecond, control)) FitPanes();
}

void SplitPanel::SetPercentage(int value) {
    if (Assign(mPercentage, std::clamp(value, 0, 100))) FitPanes();
}

void SplitPanel::UserDrag(int percentage) {
    if (!AcceptsGestures()) return;
    SetPercentage(percentage);
    Events.AfterDrag.Raise();
}

void SplitPanel::FitPanes() {
    const bool sideBySide = mOrientation == Orientation::Horizontal;
    const int room = sideBySide ? GetWidth() : GetHeight();
    const bool both = mFirst && mFirst->GetVisible() && mSecond && mSecond->GetVisible();
    const int first = both ? room * mPercentage / 100 : room;
    const int second = both ? room - first : room;
    const int start = both ? first : 0;
    const auto fit = [&](const Ref<Control>& pane, int from, int length) {
        if (!pane) return;
        if (sideBySide)
            pane->Move(from, 0, length, GetHeight());
        else
            pane->Move(0, from, GetWidth(), length);
    };
    fit(mFirst, 0, first);
    fit(mSecond, start, second);
}

} // namespace paperkite
