#include "widgets/FlatStrip.h"

namespace paperkite {

Ref<FlatTab> FlatStrip::Add(const std::string& key, const std::string& caption,
                            const std::string& icon, const std::string& toolTipText) {
    const auto tab = MakeRef<FlatTab>(FlatTab{key, caption, icon, toolTipText});
    mTabs.Add(tab, key);
    if (!mSelected) mSelected = tab;
    TellChanged();
    return tab;
}

void FlatStrip::UserClick(std::size_t position) {
    if (!AcceptsGestures()) return;
    const Ref<FlatTab> chosen = Item(position);
    const Ref<FlatTab> previous = mSelected;
    if (chosen == previous) return;
    SetSelectedTab(chosen);
    Events.Change.Raise(previous, chosen);
}

} // namespace paperkite
