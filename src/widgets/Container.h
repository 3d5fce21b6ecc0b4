#pragma once

#include "widgets/Control.h"
#include "widgets/ControlCollection.h"
#include "widgets/FormLayout.h"

namespace paperkite {

class Container;

/// Told beyond the common things: which controls a container holds, and how they stand.
class ContainerObserver : public ControlObserver {
public:
    /// Controls came or went, or the layout is another one.
    virtual void ControlsChanged(Container& /*container*/) {}
};

/// A control that holds others: a component's surface, a pane, a page. How they stand is said by a
/// FormLayout; without one every visible control fills the whole container, the front one above
/// (the surfaces that share one rectangle).
class Container : public Control {
public:
    explicit Container(std::string name = {});
    ~Container() override;

    ControlCollection Controls{*this};

    const FormLayout& GetLayout() const { return mLayout; }

    void SetLayout(FormLayout layout);

private:
    friend class ControlCollection;
    void TellControlsChanged();

    FormLayout mLayout;
};

} // namespace paperkite
