#pragma once

#include "host/TextContext.h"

#include <QStyledItemDelegate>

#include <functional>

namespace paperkite {

/// Draws a line of text with the piece in it that was found, and with what is to stand in its
/// place.
class HitDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The line of a row; nothing for none.
    std::function<const TextContext*(const QModelIndex& index)> ContextOf;
    /// What takes the place of the piece; empty for a search alone.
    QString Replacement;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    QString HtmlOf(const TextContext& context) const;
};

} // namespace paperkite
