#include "widgets/Container.h"

namespace paperkite {

Container::Container(std::string name) : Control(std::move(name)) {}

Container::~Container() = default;

void Container::SetLayout(FormLayout layout) {
    mLayout = std::move(layout);
    TellControlsChanged();
}

void Container::TellControlsChanged() {
    Tell<ContainerObserver>([&](ContainerObserver& observer) { observer.ControlsChanged(*this); });
}

} // namespace paperkite
