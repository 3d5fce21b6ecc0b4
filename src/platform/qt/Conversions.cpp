#include "platform/qt/Conversions.h"

#include "widgets/Keys.h"

namespace paperkite {

QString PlainTextOf(const QTextDocument& document) {
    QString text = document.toRawText();
    for (QChar& letter : text)
        if (letter == QChar::ParagraphSeparator || letter == QChar::LineSeparator)
            letter = QLatin1Char('\n');
    return text;
}

int KeyCodeOf(const QKeyEvent& event) {
    const int key = event.key();
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return 112 + key - Qt::Key_F1;
    switch (key) {
    case Qt::Key_Backspace:
        return KeyBackspace;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return KeyTab;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return KeyReturn;
    case Qt::Key_Escape:
        return KeyEscape;
    case Qt::Key_PageUp:
        return KeyPageUp;
    case Qt::Key_PageDown:
        return KeyPageDown;
    case Qt::Key_End:
        return KeyEnd;
    case Qt::Key_Home:
        return KeyHome;
    case Qt::Key_Left:
        return KeyLeft;
    case Qt::Key_Up:
        return KeyUp;
    case Qt::Key_Right:
        return KeyRight;
    case Qt::Key_Down:
        return KeyDown;
    case Qt::Key_Insert:
        return KeyInsert;
    case Qt::Key_Delete:
        return KeyDelete;
    default:
        return key < 128 ? key : KeyNone;
    }
}

int ShiftOf(Qt::KeyboardModifiers modifiers) {
    return (modifiers & Qt::ShiftModifier ? ShiftShift : 0) |
           (modifiers & Qt::ControlModifier ? ShiftControl : 0) |
           (modifiers & Qt::AltModifier ? ShiftAlt : 0);
}

int ButtonOf(Qt::MouseButton button) {
    if (button == Qt::LeftButton) return MouseLeft;
    if (button == Qt::RightButton) return MouseRight;
    return button == Qt::MiddleButton ? MouseMiddle : MouseNone;
}

QRect ToQRect(const Bounds& bounds) {
    return QRect(bounds.Left, bounds.Top, bounds.Width, bounds.Height);
}

Bounds FromQRect(const QRect& rectangle) {
    return Bounds{rectangle.x(), rectangle.y(), rectangle.width(), rectangle.height()};
}

QFont ToQFont(const FontDescription& description, const QFont& ambient) {
    QFont font = ambient;
    if (!description.Name.empty()) font.setFamily(ToQString(description.Name));
    if (description.Size > 0) font.setPointSizeF(description.Size);
    if (description.Bold) font.setBold(true);
    if (description.Italic) font.setItalic(true);
    return font;
}

QColor TextColourOn(const QPalette& palette, std::uint32_t colour) {
    constexpr std::uint32_t kGrey = 0x808080;
    return colour == kGrey ? palette.color(QPalette::PlaceholderText) : QColor(QRgb(colour));
}

QColor Mixed(const QColor& first, const QColor& second, double share) {
    const auto mix = [share](int a, int b) { return int(a * share + b * (1 - share) + 0.5); };
    return QColor(mix(first.red(), second.red()), mix(first.green(), second.green()),
                  mix(first.blue(), second.blue()));
}

} // namespace paperkite
