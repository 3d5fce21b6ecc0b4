#pragma once

#include "widgets/Control.h"

namespace paperkite {

enum class Orientation { Horizontal, Vertical };

/// Two panes with a splitter between them. Each pane holds one control, which a view fits to it.
class SplitPanel : public Control {
public:
    explicit SplitPanel(std::string name = {});

    /// Horizontal: the panes stand side by side.
    Orientation GetOrientation() const { return mOrientation; }

    void SetOrientation(Orientation value);

    const Ref<Control>& GetFirstPane() const { return mFirst; }

    void SetFirstPane(const Ref<Control>& control);

    const Ref<Control>& GetSecondPane() const { return mSecond; }

    /// Nothing empties the pane: the other one then fills the panel.
    void SetSecondPane(const Ref<Control>& control);

    /// The first pane's share of the panel in per cent, kept from 0 to 100; at first 50. Writing it
    /// raises nothing.
    int GetPercentage() const { return mPercentage; }

    void SetPercentage(int value);

    struct {
        Event<> AfterDrag; ///< the author let go of the splitter
    } Events;

    /// The author dragged the splitter to that share.
    void UserDrag(int percentage);

    /// Gives the panes' controls their rectangles by size and share; a view that lays them out
    /// itself reports the real ones to the controls instead.
    void FitPanes();

private:
    Ref<Control> mFirst;
    Ref<Control> mSecond;
    int mPercentage = 50;
    Orientation mOrientation = Orientation::Horizontal;
    Connection mResized;
};

} // namespace paperkite
