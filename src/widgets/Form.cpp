#include "widgets/Form.h"

#include "widgets/Button.h"

namespace paperkite {

namespace {

Form::Runner& DefaultRunner() {
    static Form::Runner runner;
    return runner;
}

Ref<Button> FindButton(const Form& form, bool (Button::*wanted)() const) {
    for (const auto& control : form.Controls)
        if (auto button = control.As<Button>(); button && (button.get()->*wanted)()) return button;
    return nullptr;
}

} // namespace

Form::Form(std::string name) : Container(std::move(name)) {
    Control::SetVisible(false);
}

void Form::SetDefaultRunner(Runner runner) {
    DefaultRunner() = std::move(runner);
}

void Form::SetVisible(bool value) {
    if (value)
        Show();
    else
        Hide();
}

void Form::Show(FormMode mode) {
    if (GetVisible()) return;
    mMode = mode;
    Control::SetVisible(true);
    Events.Shown.Raise();
    const Runner runner = mRunner ? mRunner : DefaultRunner();
    if (runner && GetVisible()) runner(*this, mode);
}

void Form::Hide() {
    if (!GetVisible()) return;
    Control::SetVisible(false);
    Events.Hidden.Raise();
}

void Form::UserCloseBox() {
    bool cancel = false;
    Events.QueryClose.Raise(cancel);
    if (!cancel) Hide();
}

void Form::UserEnter() {
    if (auto button = FindButton(*this, &Button::GetDefault)) button->UserClick();
}

void Form::UserEscape() {
    if (auto button = FindButton(*this, &Button::GetCancel))
        button->UserClick();
    else
        UserCloseBox();
}

int Form::UserKeyDown(int keyCode, int shift) {
    Events.KeyDown.Raise(keyCode, shift);
    return keyCode;
}

} // namespace paperkite
