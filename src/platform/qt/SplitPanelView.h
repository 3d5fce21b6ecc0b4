#pragma once

#include "platform/qt/ViewFactory.h"
#include "widgets/SplitPanel.h"

#include <QSplitter>

namespace paperkite {

/// Shows a SplitPanel with a native splitter; letting go of the handle is the author's drag.
class SplitPanelView : public QSplitter, private ControlObserver {
public:
    SplitPanelView(ViewFactory& factory, const Ref<SplitPanel>& panel, QWidget* parent);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ControlChanged(Control& control) override;

    void ShowPane(int index, const Ref<Control>& control);
    void ApplyPercentage();
    int PresentPercentage() const;

    ViewFactory& mFactory;
    Ref<SplitPanel> mPanel;
    Ref<Control> mShown[2];
    Connection mTie;
};

} // namespace paperkite
