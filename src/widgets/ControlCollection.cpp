#include "widgets/ControlCollection.h"

#include "widgets/Container.h"

#include <algorithm>

namespace paperkite {

ControlCollection::~ControlCollection() {
    for (const auto& control : mControls)
        control->mParent = nullptr;
}

void ControlCollection::Add(const Ref<Control>& control) {
    if (control->mParent == &mOwner) return;
    if (!control->GetName().empty() && Contains(control->GetName()))
        RaiseError(ErrorNumber::KeyAlreadyThere,
                   "A control named \"" + control->GetName() + "\" is already there");
    const Ref<Control> kept = control;
    if (kept->mParent) kept->mParent->Controls.Remove(kept);
    kept->mParent = &mOwner;
    mControls.push_back(kept);
    mStacking.insert(mStacking.begin(), kept.get());
    mOwner.TellControlsChanged();
}

Ref<Control> ControlCollection::Item(const std::string& name) const {
    Ref<Control> control = Find(name);
    if (!control)
        RaiseError(ErrorNumber::InvalidCall, "There is no control named \"" + name + "\"");
    return control;
}

Ref<Control> ControlCollection::Item(std::size_t position) const {
    if (position < 1 || position > mControls.size()) RaiseError(ErrorNumber::SubscriptOutOfRange);
    return mControls[position - 1];
}

Ref<Control> ControlCollection::Find(const std::string& name) const {
    const auto found = std::find_if(mControls.begin(), mControls.end(), [&](const auto& control) {
        return control->GetName() == name;
    });
    return found == mControls.end() ? Ref<Control>() : *found;
}

bool ControlCollection::Contains(const std::string& name) const {
    return bool(Find(name));
}

void ControlCollection::Remove(const std::string& name) {
    Remove(Item(name));
}

void ControlCollection::Remove(const Ref<Control>& control) {
    const auto found = std::find(mControls.begin(), mControls.end(), control);
    if (found == mControls.end())
        RaiseError(ErrorNumber::InvalidCall, "The control does not stand in this container");
    const Ref<Control> removed = *found;
    removed->mParent = nullptr;
    std::erase(mStacking, removed.get());
    mControls.erase(found);
    mOwner.TellControlsChanged();
}

void ControlCollection::Clear() {
    if (mControls.empty()) return;
    const auto removed = std::exchange(mControls, {});
    mStacking.clear();
    for (const auto& control : removed)
        control->mParent = nullptr;
    mOwner.TellControlsChanged();
}

void ControlCollection::BringToFront(Control& control) {
    std::erase(mStacking, &control);
    mStacking.insert(mStacking.begin(), &control);
}

int ControlCollection::ZOrderOf(const Control& control) const {
    const auto found = std::find(mStacking.begin(), mStacking.end(), &control);
    return static_cast<int>(found - mStacking.begin());
}

} // namespace paperkite
