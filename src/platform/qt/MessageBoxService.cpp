#include "platform/qt/MessageBoxService.h"

#include "platform/qt/Conversions.h"

#include <QApplication>
#include <QMessageBox>

namespace paperkite {

namespace {

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Warning:
        return QMessageBox::Warning;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    case MessageIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ButtonsOf(MessageButtons buttons) {
    switch (buttons) {
    case MessageButtons::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case MessageButtons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MessageButtons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

// Escape and the close box count as the answer that does nothing.
MessageAnswer AnswerOf(int button, MessageButtons buttons) {
    if (button == QMessageBox::Ok) return MessageAnswer::Ok;
    if (button == QMessageBox::Yes) return MessageAnswer::Yes;
    if (button == QMessageBox::No || buttons == MessageButtons::YesNo) return MessageAnswer::No;
    return buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::Cancel;
}

} // namespace

MessageAnswer MessageBoxService::Show(const std::string& text, const std::string& title,
                                      MessageIcon icon, MessageButtons buttons) {
    QMessageBox box(IconOf(icon), ToQString(title), ToQString(text), ButtonsOf(buttons),
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    return AnswerOf(box.exec(), buttons);
}

} // namespace paperkite
