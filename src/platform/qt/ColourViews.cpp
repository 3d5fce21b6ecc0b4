#include "platform/qt/ColourViews.h"

#include "platform/qt/ControlView.h"
#include "platform/qt/Conversions.h"
#include "widgets/Keys.h"
#include "widgets/WebColours.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace paperkite {

namespace {

constexpr double kRowShare = 0.8660254; // rows lie closer than cells are wide

class Honeycomb : public QWidget {
public:
    Honeycomb(Ref<ColourHexagon> hexagon, QWidget* parent)
        : QWidget(parent), mHexagon(std::move(hexagon)) {
        setFocusPolicy(Qt::StrongFocus);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }

    QSize sizeHint() const override { return SizeFor(std::max(22, fontMetrics().height() + 4)); }

    QSize minimumSizeHint() const override { return SizeFor(14); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const auto& cells = mHexagon->GetCells();
        for (const auto& cell : cells) {
            // A line that shows the cells of the ground's own colour too.
            painter.setPen(QPen(palette().color(QPalette::Mid), 1));
            painter.setBrush(ToQColor(cell.Color));
            painter.drawPolygon(PolygonOf(cell));
        }
        const int current = mHexagon->GetCurrentCell();
        if (current >= 0) PaintCurrent(painter, cells[static_cast<std::size_t>(current)]);
        if (!hasFocus()) return;
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }

    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton) mHexagon->UserClick(CellAt(event->position()));
    }

    void mouseMoveEvent(QMouseEvent* event) override {
        if (event->buttons() & Qt::LeftButton) mHexagon->UserClick(CellAt(event->position()));
    }

    void mouseDoubleClickEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton) mHexagon->UserDblClick(CellAt(event->position()));
    }

    void keyPressEvent(QKeyEvent* event) override {
        const int code = KeyCodeOf(*event);
        const int shift = ShiftOf(event->modifiers());
        if (code == KeyNone || mHexagon->UserKeyDown(code, shift) != 0)
            QWidget::keyPressEvent(event);
    }

    bool event(QEvent* event) override {
        if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
        return QWidget::event(event);
    }

private:
    QSize SizeFor(double cellWidth) const {
        return QSize(static_cast<int>(mHexagon->GetColumns() * cellWidth / 2) + 8,
                     static_cast<int>((mHexagon->GetRows() + 0.4) * cellWidth * kRowShare) + 8);
    }

    double CellWidth() const {
        const double byWidth = (width() - 8) * 2.0 / mHexagon->GetColumns();
        const double byHeight = (height() - 8) / ((mHexagon->GetRows() + 0.4) * kRowShare);
        return std::max(1.0, std::min(byWidth, byHeight));
    }

    QPointF MiddleOf(const ColourHexagon::Cell& cell) const {
        const double size = CellWidth();
        const double left = (width() - mHexagon->GetColumns() * size / 2) / 2;
        const double top = (height() - (mHexagon->GetRows() + 0.4) * size * kRowShare) / 2;
        return QPointF(left + (cell.X + 1) * size / 2, top + (cell.Row + 0.7) * size * kRowShare);
    }

    QPolygonF PolygonOf(const ColourHexagon::Cell& cell, double grow = 0) const {
        const double radius = CellWidth() / (2 * kRowShare) + grow;
        const QPointF middle = MiddleOf(cell);
        QPolygonF polygon;
        for (int corner = 0; corner < 6; ++corner) {
            const double angle = (60 * corner + 30) * M_PI / 180;
            polygon << middle + QPointF(std::cos(angle), std::sin(angle)) * radius;
        }
        return polygon;
    }

    // A dark and a light line, one of which shows on every colour.
    void PaintCurrent(QPainter& painter, const ColourHexagon::Cell& cell) const {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(Qt::black, 2.5));
        painter.drawPolygon(PolygonOf(cell, 1));
        painter.setPen(QPen(Qt::white, 1.5));
        painter.drawPolygon(PolygonOf(cell, -1));
    }

    int CellAt(const QPointF& position) const {
        const auto& cells = mHexagon->GetCells();
        for (std::size_t at = 0; at < cells.size(); ++at)
            if (PolygonOf(cells[at]).containsPoint(position, Qt::OddEvenFill))
                return static_cast<int>(at);
        return -1;
    }

    Ref<ColourHexagon> mHexagon;
};

class ColourHexagonView : public ControlView {
public:
    ColourHexagonView(const Ref<ColourHexagon>& hexagon, QWidget* widget)
        : ControlView(hexagon, widget), mHexagon(hexagon), mHoneycomb(widget) {
        Tie();
    }

protected:
    void Show() override {
        mHoneycomb->setAccessibleDescription(ToQString(WebColours::Text(mHexagon->GetColor())));
        mHoneycomb->update();
    }

private:
    Ref<ColourHexagon> mHexagon;
    QWidget* mHoneycomb;
};

class Swatch : public QWidget {
public:
    Swatch(Ref<ColourSwatch> swatch, QWidget* parent)
        : QWidget(parent), mSwatch(std::move(swatch)) {
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override {
        return QSize(20 * fontMetrics().averageCharWidth(), 4 * fontMetrics().height());
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QColor ground = ToQColor(mSwatch->GetColor());
        painter.setPen(palette().color(QPalette::Mid));
        painter.setBrush(ground);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        painter.setPen(TextColourOn(ground));
        painter.drawText(rect(), Qt::AlignCenter, ToQString(mSwatch->GetCaption()));
    }

private:
    Ref<ColourSwatch> mSwatch;
};

class ColourSwatchView : public ControlView {
public:
    ColourSwatchView(const Ref<ColourSwatch>& swatch, QWidget* widget)
        : ControlView(swatch, widget), mSwatch(swatch), mField(widget) {
        Tie();
    }

protected:
    void Show() override {
        mField->setAccessibleDescription(ToQString(mSwatch->GetCaption()));
        mField->update();
    }

private:
    Ref<ColourSwatch> mSwatch;
    QWidget* mField;
};

} // namespace

QColor ToQColor(std::int32_t colour) {
    const auto parts = WebColours::ToComponents(colour);
    return QColor(parts.Red, parts.Green, parts.Blue);
}

QColor TextColourOn(const QColor& ground) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    const double luminance = 0.2126 * linear(ground.redF()) + 0.7152 * linear(ground.greenF()) +
                             0.0722 * linear(ground.blueF());
    // Here the contrasts with black and with white are the same.
    constexpr double kMiddle = 0.179;
    return luminance > kMiddle ? Qt::black : Qt::white;
}

QIcon SwatchIcon(const QColor& colour, const QPalette& palette, int size) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setPen(palette.color(QPalette::PlaceholderText));
    painter.setBrush(colour);
    painter.drawRect(1, 1, size - 3, size - 3);
    return QIcon(picture);
}

QWidget* MakeColourHexagonView(const Ref<ColourHexagon>& hexagon, QWidget* parent) {
    auto* honeycomb = new Honeycomb(hexagon, parent);
    new ColourHexagonView(hexagon, honeycomb);
    return honeycomb;
}

QWidget* MakeColourSwatchView(const Ref<ColourSwatch>& swatch, QWidget* parent) {
    auto* field = new Swatch(swatch, parent);
    new ColourSwatchView(swatch, field);
    return field;
}

} // namespace paperkite
