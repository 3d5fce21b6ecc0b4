#pragma once

#include "widgets/Control.h"

namespace paperkite {

/// One choice of several: choosing it takes the choice from its neighbours in the same container
/// and group. Being chosen raises Click; losing the choice raises nothing.
class OptionButton : public Control {
public:
    explicit OptionButton(std::string name = {}) : Control(std::move(name)) {}

    const std::string& GetCaption() const { return mCaption; }

    void SetCaption(const std::string& value) { Assign(mCaption, value); }

    /// Buttons of one container with the same group name exclude each other.
    const std::string& GetGroup() const { return mGroup; }

    void SetGroup(const std::string& value) { Assign(mGroup, value); }

    bool GetValue() const { return mValue; }

    void SetValue(bool value);

    struct {
        Event<> Click;
    } Events;

    void UserClick();

private:
    void TakeChoiceFromNeighbours();

    std::string mCaption;
    std::string mGroup;
    bool mValue = false;
};

} // namespace paperkite
