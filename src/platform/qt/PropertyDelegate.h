#pragma once

#include <QStyledItemDelegate>

namespace paperkite {

class PropertiesTable;
class PropertyItem;

/// Paints the rows of a PropertiesTable: headers over both columns, lines between the rows, and a
/// selection that leaves the text its colour.
class PropertyDelegate : public QStyledItemDelegate {
public:
    explicit PropertyDelegate(PropertiesTable& table);

    enum class Part { None, FoldArrow, Tick, Name, Value };

    /// What lies under a point of the viewport.
    static Part PartAt(const PropertiesTable& table, const QModelIndex& index,
                       const QPoint& position);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    void PaintHeader(QPainter& painter, const QRect& rectangle, const PropertyItem& row) const;
    void PaintCell(QPainter& painter, const QRect& rectangle, const PropertyItem& row,
                   const QModelIndex& index) const;
    void PaintMark(QPainter& painter, QRect& room, const PropertyItem& row) const;
    void PaintText(QPainter& painter, const QRect& room, const QString& text,
                   const QFont& font) const;
    void PaintTick(QPainter& painter, const QRect& rectangle, bool ticked) const;

    PropertiesTable& mTable;
};

} // namespace paperkite
