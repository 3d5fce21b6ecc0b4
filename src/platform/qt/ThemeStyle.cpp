#include "platform/qt/ThemeStyle.h"

#include "platform/qt/Icons.h"

#include <QPainter>
#include <QPlainTextEdit>
#include <QStyleOption>
#include <QWidget>

#include <algorithm>

namespace paperkite {

namespace {

/// Between the texts of two rows of a list, in pixels.
constexpr int kRowGap = 6;

void DrawToolButton(const QStyleOption& option, QPainter& painter) {
    const bool on = option.state & (QStyle::State_On | QStyle::State_Sunken);
    const bool hover =
        (option.state & QStyle::State_MouseOver) && (option.state & QStyle::State_Enabled);
    const bool focus = (option.state & QStyle::State_HasFocus) &&
                       (option.state & QStyle::State_KeyboardFocusChange);
    if (!on && !hover && !focus) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (on)
        painter.setBrush(option.palette.color(QPalette::Midlight));
    else if (hover)
        painter.setBrush(option.palette.color(QPalette::AlternateBase));
    const bool strong = on || focus;
    const auto line = strong ? QPalette::Highlight : QPalette::Mid;
    painter.setPen(QPen(option.palette.color(line), focus ? 2 : 1));
    painter.drawRoundedRect(QRectF(option.rect).adjusted(1.5, 1.5, -1.5, -1.5), 3, 3);
    painter.restore();
}

QPen TickPen(const QStyleOption& option) {
    const auto group = option.state & QStyle::State_Enabled ? QPalette::Active : QPalette::Disabled;
    return QPen(option.palette.color(group, QPalette::Text), option.rect.width() / 7.0,
                Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void DrawTick(const QStyleOption& option, QPainter& painter, const QRectF& box) {
    painter.setPen(TickPen(option));
    const auto at = [&](double x, double y) {
        return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
    };
    if (option.state & QStyle::State_NoChange)
        painter.drawLine(at(0.28, 0.5), at(0.72, 0.5));
    else if (option.state & QStyle::State_On)
        painter.drawPolyline(QPolygonF({at(0.24, 0.52), at(0.43, 0.72), at(0.78, 0.28)}));
}

// The edge of a box is as clear as quiet text.
void DrawIndicator(const QStyleOption& option, QPainter& painter, bool round) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const bool focus = option.state & QStyle::State_HasFocus;
    const auto role = focus ? QPalette::Highlight : QPalette::PlaceholderText;
    painter.setPen(QPen(option.palette.color(role), focus ? 2 : 1));
    painter.setBrush(option.palette.color(QPalette::Base));
    const QRectF edge = QRectF(option.rect).adjusted(1, 1, -1, -1);
    if (!round) {
        painter.drawRoundedRect(edge, 2, 2);
        DrawTick(option, painter, edge);
    } else {
        painter.drawEllipse(edge);
        painter.setPen(Qt::NoPen);
        painter.setBrush(option.palette.color(QPalette::Text));
        const double inset = edge.width() * 0.28;
        if (option.state & QStyle::State_On)
            painter.drawEllipse(edge.adjusted(inset, inset, -inset, -inset));
    }
    painter.restore();
}

void DrawSplitter(const QStyleOption& option, QPainter& painter) {
    const QRect& room = option.rect;
    const QColor line = option.palette.color(QPalette::Mid);
    painter.fillRect(room, option.palette.color(QPalette::Window));
    if (room.width() < room.height())
        painter.fillRect(QRect(room.center().x(), room.top(), 1, room.height()), line);
    else
        painter.fillRect(QRect(room.left(), room.center().y(), room.width(), 1), line);
}

// Fusion shows the focus of a line of text this way, and not that of an area.
void DrawFocusEdge(const QStyleOption& option, QPainter& painter) {
    painter.setPen(option.palette.color(QPalette::Highlight));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
}

void DrawToolBar(const QStyleOption& option, QPainter& painter) {
    painter.fillRect(option.rect, option.palette.color(QPalette::Window));
    painter.setPen(option.palette.color(QPalette::Mid));
    painter.drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
}

} // namespace

ThemeStyle::ThemeStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    switch (element) {
    case PE_PanelButtonTool:
        DrawToolButton(*option, *painter);
        break;
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        DrawIndicator(*option, *painter, false);
        break;
    case PE_IndicatorRadioButton:
        DrawIndicator(*option, *painter, true);
        break;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void ThemeStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    switch (element) {
    case CE_Splitter:
        DrawSplitter(*option, *painter);
        break;
    case CE_ShapedFrame:
        QProxyStyle::drawControl(element, option, painter, widget);
        if (qobject_cast<const QPlainTextEdit*>(widget) && widget->hasFocus())
            DrawFocusEdge(*option, *painter);
        break;
    case CE_ToolBar:
        DrawToolBar(*option, *painter);
        break;
    default:
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

QIcon ThemeStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                               const QWidget* widget) const {
    // Fusion's own picture is dark on dark.
    if (icon == SP_ToolBarHorizontalExtensionButton) return Icons::ByName("arrow-right-double");
    return QProxyStyle::standardIcon(icon, option, widget);
}

int ThemeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
    const int native = QProxyStyle::pixelMetric(metric, option, widget);
    const int text =
        option ? option->fontMetrics.height() : (widget ? widget->fontMetrics().height() : 0);
    switch (metric) {
    // What stands beside text grows with it.
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return std::max(native, text * 14 / 17);
    case PM_ButtonIconSize:
    case PM_SmallIconSize:
    case PM_LineEditIconSize:
        return std::max(native, text * 16 / 17);
    default:
        return native;
    }
}

QSize ThemeStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                   const QSize& contents, const QWidget* widget) const {
    QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (type == CT_ItemViewItem)
        size.setHeight(std::max(size.height(), option->fontMetrics.height() + kRowGap));
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (type != CT_PushButton || !button || button->text.isEmpty()) return size;
    // Fusion's own room around a caption is that of small letters.
    const int text = button->fontMetrics.height();
    size.setWidth(std::max({size.width(), contents.width() + text, 5 * text}));
    return size;
}

} // namespace paperkite
