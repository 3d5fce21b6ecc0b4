#include "platform/qt/CodeArea.h"

#include "platform/qt/Conversions.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>

namespace paperkite {

namespace {

constexpr int kBeside = 8;

} // namespace

CodeArea::CodeArea(QWidget* parent) : QPlainTextEdit(parent), mNumbers(new QWidget(this)) {
    setLineWrapMode(NoWrap);
    setTabChangesFocus(true);
    mNumbers->installEventFilter(this);
    connect(this, &QPlainTextEdit::blockCountChanged, this, [this] { MakeRoom(); });
    connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect&, int moved) {
        if (moved != 0) mNumbers->scroll(0, moved);
        mNumbers->update();
    });
    UseFixedFont();
}

void CodeArea::UseFixedFont() {
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setPointSizeF(QApplication::font().pointSizeF());
    setFont(fixed);
    setTabStopDistance(fontMetrics().horizontalAdvance(QLatin1Char(' ')) * 4);
    MakeRoom();
}

void CodeArea::SetFirstLine(int number) {
    if (mFirstLine == number) return;
    mFirstLine = number;
    MakeRoom();
    mNumbers->update();
}

void CodeArea::MakeRoom() {
    const int last = mFirstLine + blockCount() - 1;
    const int digits = std::max(2, static_cast<int>(QString::number(last).size()));
    const int room = fontMetrics().horizontalAdvance(QLatin1Char('0')) * digits + 2 * kBeside;
    setViewportMargins(room, 0, 0, 0);
    const QRect inside = contentsRect();
    mNumbers->setGeometry(inside.left(), inside.top(), room, inside.height());
}

void CodeArea::SetMark(int line, int position) {
    mMarkedLine = line;
    mMarkedPosition = position;
    ShowMark();
    mNumbers->update();
}

void CodeArea::ShowMark() {
    const QTextBlock block = document()->findBlockByNumber(mMarkedLine - 1);
    if (mMarkedLine == 0 || !block.isValid()) return setExtraSelections({});
    const QColor wrong(palette().base().color().lightness() < 128 ? 0xf0717b : 0xb3261e);
    QTextEdit::ExtraSelection line;
    line.cursor = QTextCursor(block);
    line.format.setProperty(QTextFormat::FullWidthSelection, true);
    line.format.setBackground(Mixed(wrong, palette().base().color(), 0.14));
    QTextEdit::ExtraSelection place = line;
    place.format = QTextCharFormat();
    place.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    place.format.setUnderlineColor(wrong);
    const int length = std::max(0, block.length() - 1);
    place.cursor.setPosition(block.position() +
                             std::clamp(mMarkedPosition, 0, std::max(0, length - 1)));
    place.cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    setExtraSelections({line, place});
}

void CodeArea::PaintNumbers(const QRect& exposed) {
    QPainter painter(mNumbers);
    painter.fillRect(exposed, palette().color(QPalette::AlternateBase));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(mNumbers->width() - 1, exposed.top(), mNumbers->width() - 1, exposed.bottom());
    painter.setFont(font());
    for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
        const QRectF place = blockBoundingGeometry(block).translated(contentOffset());
        if (place.top() > exposed.bottom()) break;
        const bool isMarked = block.blockNumber() + 1 == mMarkedLine;
        painter.setPen(palette().color(isMarked ? QPalette::Text : QPalette::PlaceholderText));
        painter.drawText(QRectF(0, place.top(), mNumbers->width() - kBeside, place.height()),
                         Qt::AlignRight | Qt::AlignTop,
                         QString::number(mFirstLine + block.blockNumber()));
    }
}

void CodeArea::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    MakeRoom();
}

bool CodeArea::event(QEvent* event) {
    const bool handled = QPlainTextEdit::event(event);
    if (event->type() == QEvent::ApplicationFontChange) UseFixedFont();
    return handled;
}

void CodeArea::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) ShowMark();
}

bool CodeArea::eventFilter(QObject* watched, QEvent* event) {
    if (watched == mNumbers && event->type() == QEvent::Paint) {
        PaintNumbers(static_cast<QPaintEvent*>(event)->rect());
        return true;
    }
    return QPlainTextEdit::eventFilter(watched, event);
}

} // namespace paperkite
