#include "host/window/HitDelegate.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QPainter>
#include <QTextDocument>
#include <QTextOption>

namespace paperkite {

QString HitDelegate::HtmlOf(const TextContext& context) const {
    const auto part = [&](std::size_t from, std::size_t length) {
        return QString::fromStdString(context.Line.substr(from, length)).toHtmlEscaped();
    };
    const QString found = part(context.At, context.Length);
    const QString piece =
        Replacement.isNull() || Replacement.isEmpty()
            ? "<b>" + found + "</b>"
            : "<s>" + found + "</s>&nbsp;<b>" + Replacement.toHtmlEscaped() + "</b>";
    return part(0, context.At) + piece + part(context.At + context.Length, std::string::npos);
}

void HitDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    const TextContext* context = ContextOf ? ContextOf(index) : nullptr;
    if (!context) return QStyledItemDelegate::paint(painter, option, index);
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    row.text.clear();
    const QStyle& style = *(row.widget ? row.widget->style() : QApplication::style());
    style.drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);
    QTextDocument text;
    text.setDefaultFont(row.font);
    text.setDocumentMargin(2);
    text.setHtml(HtmlOf(*context));
    QTextOption lines;
    lines.setWrapMode(QTextOption::NoWrap);
    text.setDefaultTextOption(lines);
    QAbstractTextDocumentLayout::PaintContext colours;
    const bool isSelected = row.state.testFlag(QStyle::State_Selected);
    const auto group =
        row.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    colours.palette.setColor(
        QPalette::Text,
        row.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text));
    painter->save();
    painter->setClipRect(row.rect);
    painter->translate(row.rect.left(),
                       row.rect.top() + (row.rect.height() - text.size().height()) / 2);
    text.documentLayout()->draw(painter, colours);
    painter->restore();
}

} // namespace paperkite
