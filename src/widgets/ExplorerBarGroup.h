#pragma once

#include "foundation/Collection.h"
#include "widgets/Changing.h"
#include "widgets/GroupItem.h"

#include <string>

namespace paperkite {

class ExplorerBar;

/// A card of the bar: a caption and its items, by key and by position from 1, in order.
class ExplorerBarGroup : public Changing {
public:
    ExplorerBarGroup(std::string key, std::string caption);
    ExplorerBarGroup(const ExplorerBarGroup&) = delete;
    ExplorerBarGroup& operator=(const ExplorerBarGroup&) = delete;
    ~ExplorerBarGroup() override;

    const std::string& GetKey() const { return mKey; }

    const std::string& GetCaption() const { return mCaption; }

    void SetCaption(const std::string& value) { Assign(mCaption, value); }

    const std::string& GetTag() const { return mTag; }

    void SetTag(const std::string& value) { mTag = value; }

    /// Key of the caption's icon; empty for none.
    const std::string& GetIcon() const { return mIcon; }

    void SetIcon(const std::string& value) { Assign(mIcon, value); }

    bool GetVisible() const { return mVisible; }

    void SetVisible(bool value) { Assign(mVisible, value); }

    bool GetCollapsed() const { return mCollapsed; }

    void SetCollapsed(bool value) { Assign(mCollapsed, value); }

    /// Shown while the group has no items.
    const std::string& GetEmptyText() const { return mEmptyText; }

    void SetEmptyText(const std::string& value) { Assign(mEmptyText, value); }

    /// Pixels beside the items.
    int GetLeftMargin() const { return mLeftMargin; }

    int GetRightMargin() const { return mRightMargin; }

    void SetMargins(int left, int right);

    /// A key that is already there raises error 457.
    Ref<GroupItem> Add(const std::string& key, const std::string& caption);

    std::size_t Count() const { return mItems.Count(); }

    /// A key or position that is not there raises error 5 or 9.
    Ref<GroupItem> Item(const std::string& key) const { return mItems.Item(key); }

    Ref<GroupItem> Item(std::size_t position) const { return mItems.Item(position); }

    /// The item of that key, or nothing.
    Ref<GroupItem> Find(const std::string& key) const;

    bool Contains(const std::string& key) const { return mItems.Contains(key); }

    /// Removing the selected item takes the selection away, which raises SelChange.
    void Remove(const std::string& key);
    void Remove(std::size_t position);
    void Clear();

    auto begin() const { return mItems.begin(); }

    auto end() const { return mItems.end(); }

    /// Nothing once the group was removed.
    ExplorerBar* GetBar() const { return mBar; }

private:
    friend class ExplorerBar;
    friend class GroupItem;

    void TellChanged() override;
    void Release(const Ref<GroupItem>& item);

    ExplorerBar* mBar = nullptr;
    std::string mKey;
    std::string mCaption;
    std::string mTag;
    std::string mIcon;
    std::string mEmptyText;
    Collection<Ref<GroupItem>> mItems;
    int mLeftMargin = 8;
    int mRightMargin = 8;
    bool mVisible = true;
    bool mCollapsed = false;
};

} // namespace paperkite
