#pragma once

#include <QJsonObject>
#include <QString>
#include <QWebEngineScript>

namespace paperkite {

/// The world of our own script: it sees the page, the page does not see it.
inline constexpr quint32 kPageWorld = QWebEngineScript::UserWorld;

/// The script that makes a page editable.
QWebEngineScript EditingScript();
/// What it is started with; runs when the page's text is there, before it is drawn.
QWebEngineScript StartingScript(const QJsonObject& given);

/// A page that shows a text of HTML with line numbers and colours, where CodeMirror is installed;
/// otherwise as plain text.
QString SourcePage(const QString& text);
/// What colours it, or an empty text.
QString SourceScript();

} // namespace paperkite
