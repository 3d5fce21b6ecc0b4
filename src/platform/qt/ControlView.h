#pragma once

#include "foundation/Ref.h"
#include "widgets/Control.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace paperkite {

/// What every view does: ties one control to one Qt widget, keeps state, names, tool tip and focus
/// in step, and reports the widget's place and focus to the control. The view is a child of its
/// widget and ends with it; it keeps its control alive.
class ControlView : public QObject, public ControlObserver {
public:
    ControlView(Ref<Control> control, QWidget* widget);

    /// For views that observe their role themselves: does the common things only.
    static ControlView* Attach(const Ref<Control>& control, QWidget* widget,
                               QWidget* focusTarget = nullptr);

    const Ref<Control>& GetControl() const { return mControl; }

    QWidget* GetWidget() const { return mWidget; }

    void ControlChanged(Control& control) override;
    void FocusWanted(Control& control) override;
    void BroughtToFront(Control& control) override;

protected:
    /// Ties the view; the last thing that a view's constructor does, since it is told the present
    /// state at once.
    void Tie();

    /// The widget that takes the focus and speaks the name, where it is not the outer one.
    void SetFocusTarget(QWidget* target);

    /// Shows the role's own state; runs at every change.
    virtual void Show() {}

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ReportBounds();

    Ref<Control> mControl;
    QPointer<QWidget> mWidget;
    QPointer<QWidget> mFocusTarget;
    Connection mTie;
};

} // namespace paperkite
