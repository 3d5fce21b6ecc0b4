#include "platform/qt/SplitPanelView.h"

#include "platform/qt/ControlView.h"

#include <QMouseEvent>
#include <QResizeEvent>

#include <numeric>

namespace paperkite {

SplitPanelView::SplitPanelView(ViewFactory& factory, const Ref<SplitPanel>& panel, QWidget* parent)
    : QSplitter(parent), mFactory(factory), mPanel(panel) {
    setChildrenCollapsible(false);
    setHandleWidth(4);
    addWidget(new QWidget(this));
    addWidget(new QWidget(this));
    widget(0)->hide();
    widget(1)->hide();
    ControlView::Attach(panel, this);
    mTie = panel->Observe(*this);
}

void SplitPanelView::ControlChanged(Control&) {
    setOrientation(mPanel->GetOrientation() == Orientation::Horizontal ? Qt::Horizontal
                                                                       : Qt::Vertical);
    ShowPane(0, mPanel->GetFirstPane());
    ShowPane(1, mPanel->GetSecondPane());
    ApplyPercentage();
}

void SplitPanelView::ShowPane(int index, const Ref<Control>& control) {
    if (mShown[index] == control) return;
    mShown[index] = control;
    QWidget* before = widget(index);
    QWidget* view = control ? mFactory.MakeView(control, this) : new QWidget(this);
    insertWidget(index, view);
    before->hide();
    before->setParent(nullptr);
    before->deleteLater();
    view->setVisible(control && control->GetVisible());
    handle(1)->removeEventFilter(this);
    handle(1)->installEventFilter(this);
}

void SplitPanelView::ApplyPercentage() {
    const int room = orientation() == Qt::Horizontal ? width() : height();
    const int share = mPanel->GetPercentage();
    setSizes({room * share / 100, room * (100 - share) / 100});
}

int SplitPanelView::PresentPercentage() const {
    const QList<int> present = sizes();
    const int room = std::accumulate(present.begin(), present.end(), 0);
    return room > 0 ? (present.first() * 100 + room / 2) / room : mPanel->GetPercentage();
}

void SplitPanelView::resizeEvent(QResizeEvent* event) {
    QSplitter::resizeEvent(event);
    ApplyPercentage();
}

bool SplitPanelView::eventFilter(QObject* watched, QEvent* event) {
    const bool handled = QSplitter::eventFilter(watched, event);
    if (event->type() == QEvent::MouseButtonRelease && !handled)
        QMetaObject::invokeMethod(
            this, [this] { mPanel->UserDrag(PresentPercentage()); }, Qt::QueuedConnection);
    return handled;
}

} // namespace paperkite
