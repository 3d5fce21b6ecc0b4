#include "host/window/HomelessTexts.h"

#include "foundation/Text.h"

#include <QObject>
#include <QTextDocumentFragment>

namespace paperkite {

QString ShownName(const std::string& qualifiedName) {
    return QString::fromStdString(ReplaceAll(qualifiedName, "~", " ~ "));
}

QString CommentsText(std::size_t count) {
    return count == 1 ? QObject::tr("1 comment")
                      : QObject::tr("%1 comments").arg(qulonglong(count));
}

QString GoneText(std::size_t items) {
    return items == 1 ? QObject::tr("1 item with comments is gone")
                      : QObject::tr("%1 items with comments are gone").arg(qulonglong(items));
}

QString MovedText(const std::string& gone, const std::string& home, std::size_t count,
                  std::size_t below) {
    const QString moved = QObject::tr("Moved %1 of %2 to %3")
                              .arg(CommentsText(count), ShownName(gone), ShownName(home));
    if (below == 0) return moved + ".";
    return below == 1
               ? QObject::tr("%1, with those of 1 item below.").arg(moved)
               : QObject::tr("%1, with those of %2 items below.").arg(moved).arg(qulonglong(below));
}

QString ReadableText(const std::string& text) {
    const QString stored = QString::fromStdString(text);
    if (!Qt::mightBeRichText(stored)) return stored;
    return QTextDocumentFragment::fromHtml(stored).toPlainText();
}

} // namespace paperkite
