#pragma once

#include "widgets/Changing.h"
#include "widgets/Control.h"

#include <string>

namespace paperkite {

class ExplorerBarGroup;

/// One line of a group: a text to choose, or a place that holds a control. A removed item keeps its
/// fields and is heard no more.
class GroupItem : public Changing {
public:
    GroupItem(std::string key, std::string caption);
    GroupItem(const GroupItem&) = delete;
    GroupItem& operator=(const GroupItem&) = delete;

    const std::string& GetKey() const { return mKey; }

    const std::string& GetCaption() const { return mCaption; }

    void SetCaption(const std::string& value) { Assign(mCaption, value); }

    const std::string& GetTag() const { return mTag; }

    void SetTag(const std::string& value) { mTag = value; }

    /// Key into the bar's image list; empty for none.
    const std::string& GetIcon() const { return mIcon; }

    void SetIcon(const std::string& value) { Assign(mIcon, value); }

    const std::string& GetToolTipText() const { return mToolTipText; }

    void SetToolTipText(const std::string& value) { Assign(mToolTipText, value); }

    bool GetBold() const { return mBold; }

    void SetBold(bool value) { Assign(mBold, value); }

    bool GetVisible() const { return mVisible; }

    void SetVisible(bool value) { Assign(mVisible, value); }

    bool GetEnabled() const { return mEnabled; }

    void SetEnabled(bool value) { Assign(mEnabled, value); }

    bool GetSelected() const;
    /// Selecting takes the selection from another item and raises the bar's SelChange.
    void SetSelected(bool value);

    /// The control that stands in the item's place; nothing for a line of text. Such an item
    /// cannot be chosen by the author.
    const Ref<Control>& GetControl() const { return mControl; }

    void SetControl(const Ref<Control>& value) { Assign(mControl, value); }

    /// In rows of the bar's RowHeight; at first 1.
    double GetHeight() const { return mHeight; }

    void SetHeight(double value) { Assign(mHeight, value); }

    /// Nothing once the item was removed.
    ExplorerBarGroup* GetGroup() const { return mGroup; }

private:
    friend class ExplorerBar;
    friend class ExplorerBarGroup;

    void TellChanged() override;

    ExplorerBarGroup* mGroup = nullptr;
    std::string mKey;
    std::string mCaption;
    std::string mTag;
    std::string mIcon;
    std::string mToolTipText;
    Ref<Control> mControl;
    double mHeight = 1;
    bool mBold = false;
    bool mVisible = true;
    bool mEnabled = true;
};

} // namespace paperkite
