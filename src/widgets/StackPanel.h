#pragma once

#include "widgets/Container.h"

namespace paperkite {

/// Surfaces that share one rectangle: every control is given the panel's size, and of the visible
/// ones the front one is seen.
class StackPanel : public Container {
public:
    explicit StackPanel(std::string name = {});

    /// The visible control that lies in front, or nothing.
    Ref<Control> GetFrontControl() const;

    /// Gives every control the panel's whole rectangle; runs by itself when the panel is resized.
    void FillControls();

private:
    Connection mResized;
};

} // namespace paperkite
