#pragma once

#include "widgets/Control.h"

namespace paperkite {

/// A box to tick. A new value raises Click, whoever wrote it.
class CheckBox : public Control {
public:
    static constexpr int kUnticked = 0;
    static constexpr int kTicked = 1;
    /// Neither: the box stands for several things that differ.
    static constexpr int kMixed = 2;

    explicit CheckBox(std::string name = {}) : Control(std::move(name)) {}

    const std::string& GetCaption() const { return mCaption; }

    void SetCaption(const std::string& value) { Assign(mCaption, value); }

    int GetValue() const { return mValue; }

    /// 0, 1 or 2; anything else raises error 5.
    void SetValue(int value);

    bool GetChecked() const { return mValue == kTicked; }

    void SetChecked(bool value) { SetValue(value ? kTicked : kUnticked); }

    struct {
        Event<> Click;
    } Events;

    /// Ticks what is not ticked, and the other way round.
    void UserClick();

private:
    std::string mCaption;
    int mValue = kUnticked;
};

} // namespace paperkite
