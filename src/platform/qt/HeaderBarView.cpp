#include "platform/qt/HeaderBarView.h"

#include "platform/qt/ControlView.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/Icons.h"
#include "widgets/Keys.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace paperkite {

namespace {

/// System colours become those of the palette, whatever its scheme.
QColor PaintedColour(const QPalette& palette, std::uint32_t colour) {
    switch (colour) {
    case HeaderBar::kButtonShadow:
        return palette.color(QPalette::AlternateBase);
    case HeaderBar::kInverseWindowText:
        return palette.color(QPalette::WindowText);
    case HeaderBar::kHighlight:
        return palette.color(QPalette::Highlight);
    case HeaderBar::kHighlightText:
        return palette.color(QPalette::HighlightedText);
    default:
        return QColor(QRgb(colour));
    }
}

class Strip : public QWidget {
public:
    Strip(Ref<HeaderBar> bar, QWidget* parent) : QWidget(parent), mBar(std::move(bar)) {
        setMouseTracking(true);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override {
        const QFontMetrics metrics(TextFont());
        const QString text = ToQString(mBar->GetText());
        return QSize(metrics.horizontalAdvance(text) + 32, std::max(24, metrics.height() + 8));
    }

    QSize minimumSizeHint() const override { return QSize(32, sizeHint().height()); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), PaintedColour(palette(), mBar->GetBandColor()));
        painter.setPen(PaintedColour(palette(), mBar->GetTextColor()));
        const QFont font = TextFont();
        painter.setFont(font);
        const QRect room = ToQRect(mBar->lblText->GetBounds());
        painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                         QFontMetrics(font).elidedText(ToQString(mBar->GetText()), Qt::ElideRight,
                                                       room.width()));
        if (mBar->GetPicture().IsEmpty()) return;
        Icons::Of(mBar->GetPicture())
            .paint(&painter, ToQRect(mBar->imgPicture->GetBounds()), Qt::AlignCenter);
    }

    void mousePressEvent(QMouseEvent* event) override {
        Report(*event, &HeaderBar::UserMouseDown, ButtonOf(event->button()));
    }

    void mouseMoveEvent(QMouseEvent* event) override {
        Report(*event, &HeaderBar::UserMouseMove, MouseNone);
    }

    void mouseReleaseEvent(QMouseEvent* event) override {
        Report(*event, &HeaderBar::UserMouseUp, ButtonOf(event->button()));
        if (event->button() == Qt::LeftButton && rect().contains(event->pos())) mBar->UserClick();
    }

    void mouseDoubleClickEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton) mBar->UserDblClick();
    }

    bool event(QEvent* event) override {
        // Where a tool tip is due, the pointer rests.
        if (event->type() == QEvent::ToolTip) mBar->ioeTracking.UserHover();
        return QWidget::event(event);
    }

    void leaveEvent(QEvent*) override { mBar->ioeTracking.UserLeave(); }

private:
    // The faces that the bar names are not on every system: weight and the ambient size count.
    QFont TextFont() const {
        QFont font = this->font();
        font.setBold(mBar->lblText->GetFont().Bold);
        if (!mBar->GetLightFont()) font.setPointSizeF(font.pointSizeF() * 1.1);
        return font;
    }

    void Report(const QMouseEvent& event,
                void (HeaderBar::*gesture)(int, int, int, int, HeaderBar::Part), int button) {
        (mBar.get()->*gesture)(button, ShiftOf(event.modifiers()), event.pos().x(), event.pos().y(),
                               HeaderBar::Part::Strip);
    }

    Ref<HeaderBar> mBar;
};

class HeaderBarView : public ControlView {
public:
    HeaderBarView(const Ref<HeaderBar>& bar, QWidget* strip)
        : ControlView(bar, strip), mBar(bar), mStrip(strip) {
        Tie();
    }

protected:
    void Show() override {
        mStrip->setAccessibleName(ToQString(mBar->GetText()));
        mStrip->updateGeometry();
        mStrip->update();
    }

private:
    Ref<HeaderBar> mBar;
    QWidget* mStrip;
};

} // namespace

QWidget* MakeHeaderBarView(const Ref<HeaderBar>& bar, QWidget* parent) {
    auto* strip = new Strip(bar, parent);
    new HeaderBarView(bar, strip);
    return strip;
}

} // namespace paperkite
