#include "platform/qt/ColumnHeader.h"

#include <QPainter>

#include <algorithm>

namespace paperkite {

QSize ColumnHeader::sizeHint() const {
    return QSize(QHeaderView::sizeHint().width(), std::max(25, fontMetrics().height() + 8));
}

void ColumnHeader::paintSection(QPainter* painter, const QRect& rectangle, int section) const {
    painter->save();
    painter->fillRect(rectangle, palette().color(QPalette::Window));
    painter->setPen(palette().color(QPalette::Mid));
    painter->drawLine(rectangle.bottomLeft(), rectangle.bottomRight());
    if (visualIndex(section) < count() - 1)
        painter->drawLine(rectangle.topRight() + QPoint(0, 4),
                          rectangle.bottomRight() - QPoint(0, 4));
    painter->setPen(palette().color(QPalette::WindowText));
    const QRect room = rectangle.adjusted(8, 0, -8, 0);
    const QString text = model()->headerData(section, orientation()).toString();
    painter->drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                      fontMetrics().elidedText(text, Qt::ElideRight, room.width()));
    painter->restore();
}

} // namespace paperkite
