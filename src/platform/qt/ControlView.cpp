#include "platform/qt/ControlView.h"

#include "platform/qt/Conversions.h"
#include "widgets/FramePanel.h"

#include <QEvent>

namespace paperkite {

namespace {

// The boxes of a frame without a layout are placed by the component, in units of its own.
bool IsPlacedByItsComponent(const Control& control) {
    const auto* frame = dynamic_cast<const FramePanel*>(control.GetParent());
    return frame && frame->GetLayout().GetKind() == FormLayout::Kind::Empty;
}

} // namespace

ControlView::ControlView(Ref<Control> control, QWidget* widget)
    : QObject(widget), mControl(std::move(control)), mWidget(widget), mFocusTarget(widget) {
    widget->setObjectName(ToQString(mControl->GetName()));
    widget->installEventFilter(this);
}

ControlView* ControlView::Attach(const Ref<Control>& control, QWidget* widget,
                                 QWidget* focusTarget) {
    auto* view = new ControlView(control, widget);
    if (focusTarget) view->SetFocusTarget(focusTarget);
    view->Tie();
    return view;
}

void ControlView::SetFocusTarget(QWidget* target) {
    mFocusTarget = target;
    mFocusTarget->installEventFilter(this);
}

void ControlView::Tie() {
    mTie = mControl->Observe(*this);
}

void ControlView::ControlChanged(Control& control) {
    if (!mWidget) return;
    mWidget->setEnabled(control.GetEnabled());
    if (mWidget->isHidden() == control.GetVisible()) mWidget->setVisible(control.GetVisible());
    mWidget->setToolTip(ToQString(control.GetToolTipText()));
    if (!control.GetAccessibleName().empty())
        mFocusTarget->setAccessibleName(ToQString(control.GetAccessibleName()));
    Show();
}

void ControlView::FocusWanted(Control&) {
    if (mFocusTarget && !mFocusTarget->hasFocus()) mFocusTarget->setFocus(Qt::OtherFocusReason);
}

void ControlView::BroughtToFront(Control&) {
    if (mWidget) mWidget->raise();
}

void ControlView::ReportBounds() {
    if (IsPlacedByItsComponent(*mControl)) return;
    mControl->Move(FromQRect(mWidget->geometry()));
}

bool ControlView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == mWidget && (event->type() == QEvent::Resize || event->type() == QEvent::Move))
        ReportBounds();
    if (watched == mFocusTarget &&
        (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)) {
        mControl->UserFocus(event->type() == QEvent::FocusIn);
        if (mFocusTarget) mFocusTarget->update();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace paperkite
