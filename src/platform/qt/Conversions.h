#pragma once

#include "widgets/Control.h"

#include <QColor>
#include <QFont>
#include <QKeyEvent>
#include <QPalette>
#include <QRect>
#include <QString>
#include <QTextDocument>

#include <string>

namespace paperkite {

inline QString ToQString(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQString(const QString& text) {
    return text.toStdString();
}

/// What stands in a document, no-break blanks included, with "\n" between lines.
QString PlainTextOf(const QTextDocument& document);

/// The key code and the Shift bits that the widget models' key events carry.
int KeyCodeOf(const QKeyEvent& event);
int ShiftOf(Qt::KeyboardModifiers modifiers);
int ButtonOf(Qt::MouseButton button);

QRect ToQRect(const Bounds& bounds);
Bounds FromQRect(const QRect& rectangle);

/// The font of a description, built on the ambient one.
QFont ToQFont(const FontDescription& description, const QFont& ambient);

/// A model's text colour as it is to be read on this ground: the models' fixed grey becomes the
/// palette's quiet text, so that it keeps its contrast in the dark scheme too.
QColor TextColourOn(const QPalette& palette, std::uint32_t colour);

/// A colour between two, `share` (0 to 1) of the first.
QColor Mixed(const QColor& first, const QColor& second, double share);

} // namespace paperkite
