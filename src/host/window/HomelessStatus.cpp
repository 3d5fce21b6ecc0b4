#include "host/window/HomelessStatus.h"

#include "host/window/HomelessTexts.h"

namespace paperkite {

HomelessStatus::HomelessStatus(QWidget* parent) : QPushButton(parent) {
    setObjectName("HomelessStatus");
    setFlat(true);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    SetCount(0);
}

void HomelessStatus::SetCount(std::size_t items) {
    mWords = GoneText(items);
    mFewWords = tr("%1 gone").arg(qulonglong(items));
    setAccessibleName(mWords);
    setText(mWords);
    setVisible(items > 0);
    updateGeometry();
}

QSize HomelessStatus::SizeFor(const QString& words) const {
    QSize size = QPushButton::sizeHint();
    const int frame = size.width() - fontMetrics().horizontalAdvance(text());
    size.setWidth(frame + fontMetrics().horizontalAdvance(words));
    return size;
}

QSize HomelessStatus::sizeHint() const {
    return SizeFor(mWords);
}

QSize HomelessStatus::minimumSizeHint() const {
    return SizeFor(mFewWords);
}

void HomelessStatus::resizeEvent(QResizeEvent* event) {
    QPushButton::resizeEvent(event);
    setText(width() < sizeHint().width() ? mFewWords : mWords);
}

} // namespace paperkite
