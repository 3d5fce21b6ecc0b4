#include "widgets/Control.h"

#include "widgets/Container.h"

#include <algorithm>

namespace paperkite {

namespace {

// One application has one keyboard focus.
Control*& FocusedControl() {
    static Control* focused = nullptr;
    return focused;
}

} // namespace

Control::Control(std::string name) : mName(std::move(name)) {}

Control::~Control() {
    Tell<ControlObserver>([&](ControlObserver& observer) { observer.ControlGone(*this); });
    if (FocusedControl() == this) FocusedControl() = nullptr;
}

void Control::SetVisible(bool value) {
    Assign(mVisible, value);
}

void Control::Move(int left, int top, int width, int height) {
    Move(Bounds{left, top, std::max(width, 0), std::max(height, 0)});
}

void Control::Move(const Bounds& bounds) {
    const Bounds before = mBounds;
    if (!Assign(mBounds, bounds)) return;
    if (before.Width != bounds.Width || before.Height != bounds.Height)
        ControlEvents.Resize.Raise(bounds.Width, bounds.Height);
}

void Control::BringToFront() {
    if (mParent) mParent->Controls.BringToFront(*this);
    Tell<ControlObserver>([&](ControlObserver& observer) { observer.BroughtToFront(*this); });
}

int Control::GetZOrder() const {
    return mParent ? mParent->Controls.ZOrderOf(*this) : 0;
}

void Control::SetFocus() {
    if (!AcceptsGestures()) return;
    Tell<ControlObserver>([&](ControlObserver& observer) { observer.FocusWanted(*this); });
    UserFocus(true);
}

bool Control::HasFocus() const {
    return FocusedControl() == this;
}

void Control::UserFocus(bool hasFocus) {
    Control*& focused = FocusedControl();
    if ((focused == this) == hasFocus) return;
    Control* const before = focused;
    focused = hasFocus ? this : nullptr;
    if (before) before->ControlEvents.LostFocus.Raise();
    if (hasFocus && focused == this) ControlEvents.GotFocus.Raise();
}

Connection Control::Observe(ControlObserver& observer) {
    std::erase_if(*mObservers, [](const Tie& tie) { return !*tie.Alive; });
    auto alive = std::make_shared<bool>(true);
    mObservers->push_back(Tie{alive, &observer});
    Connection connection(std::move(alive));
    observer.ControlChanged(*this);
    return connection;
}

void Control::TellChanged() {
    Tell<ControlObserver>([&](ControlObserver& observer) { observer.ControlChanged(*this); });
}

bool Control::HasObservers() const {
    return std::any_of(mObservers->begin(), mObservers->end(),
                       [](const Tie& tie) { return *tie.Alive; });
}

} // namespace paperkite
