#include "platform/qt/PropertyDelegate.h"

#include "platform/qt/ColourViews.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/Icons.h"
#include "platform/qt/PropertiesTable.h"
#include "widgets/WebColours.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPainter>

namespace paperkite {

namespace {

constexpr int kIndent = 26;
constexpr int kMargin = 8;
constexpr int kTickSize = 16;

} // namespace

PropertyDelegate::PropertyDelegate(PropertiesTable& table)
    : QStyledItemDelegate(&table), mTable(table) {}

PropertyDelegate::Part PropertyDelegate::PartAt(const PropertiesTable& table,
                                                const QModelIndex& index, const QPoint& position) {
    const auto row = table.GetItemModel().RowAt(index.row());
    if (!row) return Part::None;
    const int left = table.columnViewportPosition(0);
    if (row->IsHeader()) return position.x() < left + kIndent ? Part::FoldArrow : Part::Name;
    if (position.x() >= table.columnViewportPosition(1)) return Part::Value;
    const bool onTick = table.GetList()->GetCheckBoxes() && position.x() < left + kIndent;
    return onTick ? Part::Tick : Part::Name;
}

void PropertyDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    const auto row = mTable.GetItemModel().RowAt(index.row());
    if (!row) return;
    painter->save();
    const QPalette& palette = mTable.palette();
    const bool selected = option.state & QStyle::State_Selected;
    const QColor ground =
        row->IsHeader() ? palette.color(QPalette::AlternateBase) : palette.color(QPalette::Base);
    painter->fillRect(option.rect, selected ? palette.color(QPalette::Midlight) : ground);
    if (row->IsHeader())
        PaintHeader(*painter, option.rect, *row);
    else
        PaintCell(*painter, option.rect, *row, index);
    painter->setPen(Mixed(palette.color(QPalette::Mid), palette.color(QPalette::Base), 0.55));
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    // The row that has the keyboard bears a bar at its left edge.
    if (selected && index.column() == 0 && mTable.hasFocus())
        painter->fillRect(QRect(option.rect.topLeft(), QSize(4, option.rect.height())),
                          palette.color(QPalette::Highlight));
    painter->restore();
}

void PropertyDelegate::PaintHeader(QPainter& painter, const QRect& rectangle,
                                   const PropertyItem& row) const {
    QStyleOption arrow;
    arrow.initFrom(&mTable);
    arrow.rect = QRect(rectangle.left() + 8, rectangle.center().y() - 4, 10, 10);
    const auto element =
        row.GetExpanded() ? QStyle::PE_IndicatorArrowDown : QStyle::PE_IndicatorArrowRight;
    mTable.style()->drawPrimitive(element, &arrow, &painter, &mTable);
    QFont bold = mTable.font();
    bold.setBold(true);
    painter.setPen(mTable.palette().color(QPalette::Text));
    const std::string& text = row.GetDisplayText();
    PaintText(painter, rectangle.adjusted(kIndent, 0, -kMargin, 0),
              ToQString(text.empty() ? row.GetCaption() : text), bold);
}

void PropertyDelegate::PaintCell(QPainter& painter, const QRect& rectangle, const PropertyItem& row,
                                 const QModelIndex& index) const {
    const QPalette& palette = mTable.palette();
    const bool quiet = index.column() == 1 && row.GetValueColour() == ValueColour::GrayText;
    QFont font = mTable.font();
    font.setBold(row.GetBold());
    QRect room = rectangle.adjusted(index.column() == 0 ? kIndent : kMargin, 0, -kMargin, 0);
    if (index.column() == 0) {
        painter.setPen(palette.color(QPalette::Mid));
        painter.drawLine(rectangle.topRight(), rectangle.bottomRight());
        if (mTable.GetList()->GetCheckBoxes()) PaintTick(painter, rectangle, row.GetChecked());
    } else if (mTable.GetList()->GetSelectedItem().get() == &row) {
        // The text ends where the row's buttons begin.
        for (auto* button : mTable.viewport()->findChildren<QAbstractButton*>())
            if (!button->isHidden()) room.setRight(std::min(room.right(), button->x() - kMargin));
    }
    if (index.column() == 1) PaintMark(painter, room, row);
    painter.setPen(palette.color(quiet ? QPalette::PlaceholderText : QPalette::Text));
    PaintText(painter, room, index.data().toString(), font);
}

// A colour's swatch, or the sign that the value is no good one, before the text.
void PropertyDelegate::PaintMark(QPainter& painter, QRect& room, const PropertyItem& row) const {
    QIcon mark;
    const auto colour = row.GetValueType() == PropertyValueType::Color
                            ? WebColours::Read(row.GetValue())
                            : std::nullopt;
    if (colour)
        mark = SwatchIcon(ToQColor(*colour), mTable.palette(), kTickSize);
    else if (!row.GetProblem().empty())
        mark = Icons::ByName("data-warning");
    if (mark.isNull()) return;
    mark.paint(&painter,
               QRect(room.left(), room.center().y() - kTickSize / 2, kTickSize, kTickSize));
    room.setLeft(room.left() + kTickSize + kMargin);
}

void PropertyDelegate::PaintText(QPainter& painter, const QRect& room, const QString& text,
                                 const QFont& font) const {
    painter.setFont(font);
    const QFontMetrics metrics(font);
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     metrics.elidedText(text, Qt::ElideRight, room.width()));
}

void PropertyDelegate::PaintTick(QPainter& painter, const QRect& rectangle, bool ticked) const {
    QStyleOptionButton box;
    box.initFrom(&mTable);
    box.rect =
        QRect(rectangle.left() + 5, rectangle.center().y() - kTickSize / 2, kTickSize, kTickSize);
    box.state |= ticked ? QStyle::State_On : QStyle::State_Off;
    mTable.style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter, &mTable);
}

} // namespace paperkite
