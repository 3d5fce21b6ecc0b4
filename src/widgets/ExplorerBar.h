#pragma once

#include "widgets/Control.h"
#include "widgets/ExplorerBarGroup.h"
#include "widgets/GroupItem.h"

#include <string>
#include <vector>

namespace paperkite {

/// Told beyond the common things; while painting is suspended nothing, at its end GroupsChanged.
class ExplorerBarObserver : public ControlObserver {
public:
    /// Groups or items came, went or changed: read them again.
    virtual void GroupsChanged() {}

    virtual void SelectionChanged() {}
};

/// A column of captioned cards whose items choose what is shown beside it. At most one item of the
/// whole bar is selected.
class ExplorerBar : public Control {
public:
    explicit ExplorerBar(std::string name = {});
    ~ExplorerBar() override;

    /// Adds a group at the end, or before the group of the key `before`. A key that is already
    /// there raises error 457, an unknown `before` error 5.
    Ref<ExplorerBarGroup> AddGroup(const std::string& key, const std::string& caption,
                                   const std::string& before = {});

    std::size_t GetGroupCount() const { return mGroups.size(); }

    /// A key or position (from 1) that is not there raises error 5 or 9.
    Ref<ExplorerBarGroup> GetGroup(const std::string& key) const;
    Ref<ExplorerBarGroup> GetGroup(std::size_t position) const;
    /// The group of that key, or nothing.
    Ref<ExplorerBarGroup> FindGroup(const std::string& key) const;
    void RemoveGroup(const std::string& key);
    void RemoveGroup(std::size_t position);

    /// The groups in order, as they stand now.
    const std::vector<Ref<ExplorerBarGroup>>& GetGroups() const { return mGroups; }

    /// Nothing when no item is selected.
    const Ref<GroupItem>& GetSelectedItem() const { return mSelected; }

    /// A new item, or nothing, raises SelChange.
    void SetSelectedItem(const Ref<GroupItem>& item);

    const Ref<ImageList>& GetImageList() const { return mImageList; }

    void SetImageList(const Ref<ImageList>& value) { Assign(mImageList, value); }

    /// Pixels a row.
    int GetRowHeight() const { return mRowHeight; }

    void SetRowHeight(int value) { Assign(mRowHeight, value); }

    /// The unit of hosted controls' sizes; 0 when the bar names none.
    int GetScaleMode() const { return mScaleMode; }

    void SetScaleMode(int value) { Assign(mScaleMode, value); }

    const Colour& GetGroupBackColor() const { return mGroupBackColor; }

    void SetGroupBackColor(const Colour& value) { Assign(mGroupBackColor, value); }

    /// Painting stays suspended until every call is matched.
    void SuspendPainting();
    void ResumePainting();

    struct {
        /// Group, Item and SelectedObject; all nothing when the selection was taken away.
        Event<const Ref<ExplorerBarGroup>&, const Ref<GroupItem>&, const Ref<GroupItem>&> SelChange;
        Event<const Ref<GroupItem>&> ItemClick; ///< the author clicked it, selected or not
        Event<> GroupCollapse;
    } Events;

    /// Selects the item; one that is disabled, hidden or holds a control ignores it.
    void UserClick(const Ref<GroupItem>& item);
    /// Folds or unfolds the group.
    void UserToggle(const Ref<ExplorerBarGroup>& group);

private:
    friend class ExplorerBarGroup;
    friend class GroupItem;

    std::size_t SlotOf(const std::string& key) const;
    void TakeOut(std::size_t slot);
    void TellGroupsChanged();
    void DropSelection(const Ref<GroupItem>& item);
    Ref<ExplorerBarGroup> GroupOf(const GroupItem& item) const;

    std::vector<Ref<ExplorerBarGroup>> mGroups;
    Ref<GroupItem> mSelected;
    Ref<ImageList> mImageList;
    Colour mGroupBackColor;
    int mRowHeight = 26;
    int mScaleMode = 0;
    int mSuspended = 0;
    bool mTouched = false;
};

} // namespace paperkite
