#pragma once

#include <QHeaderView>

namespace paperkite {

/// A flat header of columns: text with room beside it, and lines from the palette.
class ColumnHeader : public QHeaderView {
public:
    explicit ColumnHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

    QSize sizeHint() const override;

protected:
    void paintSection(QPainter* painter, const QRect& rectangle, int section) const override;
};

} // namespace paperkite
