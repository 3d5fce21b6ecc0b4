#pragma once

#include "foundation/Collection.h"
#include "widgets/Control.h"

#include <string>

namespace paperkite {

/// One tab of a FlatStrip.
struct FlatTab {
    std::string Key;
    std::string Caption;
    /// Name of an icon of the icon theme; empty for none.
    std::string Icon;
    std::string ToolTipText;
};

/// A strip of tabs that choose how something beside it is shown. The first tab that is added is
/// selected.
class FlatStrip : public Control {
public:
    explicit FlatStrip(std::string name = {}) : Control(std::move(name)) {}

    /// A key that is already there raises error 457.
    Ref<FlatTab> Add(const std::string& key, const std::string& caption,
                     const std::string& icon = {}, const std::string& toolTipText = {});

    std::size_t Count() const { return mTabs.Count(); }

    /// A key or position (from 1) that is not there raises error 5 or 9.
    Ref<FlatTab> Item(const std::string& key) const { return mTabs.Item(key); }

    Ref<FlatTab> Item(std::size_t position) const { return mTabs.Item(position); }

    /// Nothing while the strip has no tabs.
    const Ref<FlatTab>& GetSelectedTab() const { return mSelected; }

    /// Selects without raising anything; the caller knows what follows.
    void SetSelectedTab(const Ref<FlatTab>& tab) { Assign(mSelected, tab); }

    struct {
        Event<const Ref<FlatTab>&, const Ref<FlatTab>&> Change; ///< PreviousTab, FlatTab
    } Events;

    /// The author chose a tab; the one that is selected raises nothing.
    void UserClick(std::size_t position);

private:
    Collection<Ref<FlatTab>> mTabs;
    Ref<FlatTab> mSelected;
};

} // namespace paperkite
