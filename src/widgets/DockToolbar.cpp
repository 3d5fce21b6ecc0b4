#include "widgets/DockToolbar.h"

#include "widgets/DockHost.h"

namespace paperkite {

void DockToolbar::SetVisible(bool value) {
    if (mVisible == value) return;
    mVisible = value;
    TellChanged();
}

void DockToolbar::Add(const Ref<DockCommand>& command, bool beginGroup) {
    mControls.push_back(DockToolbarControl{command, nullptr, beginGroup});
    TellChanged();
}

void DockToolbar::AddControl(const Ref<Control>& control, bool beginGroup) {
    mControls.push_back(DockToolbarControl{nullptr, control, beginGroup});
    TellChanged();
}

const DockToolbarControl& DockToolbar::Item(std::size_t position) const {
    if (position < 1 || position > mControls.size()) RaiseError(ErrorNumber::SubscriptOutOfRange);
    return mControls[position - 1];
}

void DockToolbar::Remove(std::size_t position) {
    Item(position);
    mControls.erase(mControls.begin() + static_cast<std::ptrdiff_t>(position - 1));
    TellChanged();
}

void DockToolbar::Remove(const Ref<DockCommand>& command) {
    if (std::erase_if(mControls, [&](const auto& control) { return control.Command == command; }))
        TellChanged();
}

void DockToolbar::Clear() {
    if (mControls.empty()) return;
    mControls.clear();
    TellChanged();
}

void DockToolbar::TellChanged() {
    if (mHost) mHost->TellToolbarsChanged();
}

} // namespace paperkite
