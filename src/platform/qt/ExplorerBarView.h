#pragma once

#include "platform/qt/ViewFactory.h"
#include "widgets/ExplorerBar.h"

#include <QHash>
#include <QScrollArea>

class QVBoxLayout;

namespace paperkite {

/// Shows an ExplorerBar as a column of cards. Each line is a radio button to the keyboard and to
/// screen readers; up and down move between the lines.
class ExplorerBarView : public QScrollArea, private ExplorerBarObserver {
public:
    ExplorerBarView(ViewFactory& factory, const Ref<ExplorerBar>& bar, QWidget* parent);

    /// The line of an item by the keys of its group and its own, or nullptr.
    QWidget* LineOf(const std::string& group, const std::string& item) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void ControlChanged(Control& control) override;
    void GroupsChanged() override;
    void SelectionChanged() override;

    void RebuildSoon();
    void Rebuild();
    void AddCard(QVBoxLayout& column, const Ref<ExplorerBarGroup>& group);
    void AddLine(QVBoxLayout& card, const Ref<GroupItem>& item);
    void MoveFocus(QWidget* from, int step);

    ViewFactory& mFactory;
    Ref<ExplorerBar> mBar;
    QWidget* mContent = nullptr;
    QHash<const GroupItem*, QWidget*> mLines;
    QList<QWidget*> mLineOrder;
    bool mRebuildPending = false;
    Connection mTie;
};

} // namespace paperkite
