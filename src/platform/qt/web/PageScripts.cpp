#include "platform/qt/web/PageScripts.h"

#include <QFile>
#include <QJsonDocument>
#include <QStringList>

namespace paperkite {

const char* PlacesScript();
const char* CommandsScript();
const char* TablesScript();
const char* PasteScript();
const char* MarksScript();
const char* WholeScript();
const char* StartScript();
const char* SourceStyle();

namespace {

const QString kCodeMirror = QStringLiteral("/usr/share/javascript/codemirror/");

QString TextOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QWebEngineScript Script(const QString& name, const QString& code,
                        QWebEngineScript::InjectionPoint when) {
    QWebEngineScript script;
    script.setName(name);
    script.setSourceCode(code);
    script.setInjectionPoint(when);
    script.setWorldId(kPageWorld);
    script.setRunsOnSubFrames(false);
    return script;
}

} // namespace

QWebEngineScript EditingScript() {
    QString code = TextOf(QStringLiteral(":/qtwebchannel/qwebchannel.js"));
    for (const char* part : {PlacesScript(), CommandsScript(), TablesScript(), PasteScript(),
                             MarksScript(), WholeScript(), StartScript()})
        code += QString::fromUtf8(part) + '\n';
    return Script(QStringLiteral("paperkite-editing"), code, QWebEngineScript::DocumentCreation);
}

QWebEngineScript StartingScript(const QJsonObject& given) {
    const QString json = QString::fromUtf8(QJsonDocument(given).toJson(QJsonDocument::Compact));
    return Script(QStringLiteral("paperkite-start"), "kite.start(" + json + ");",
                  QWebEngineScript::DocumentReady);
}

QString SourcePage(const QString& text) {
    return "<!DOCTYPE html><html><head><meta charset=\"utf-8\"><style>" +
           TextOf(kCodeMirror + "lib/codemirror.css") + QString::fromUtf8(SourceStyle()) +
           "</style></head><body><pre id=\"source\">\n" + text.toHtmlEscaped() +
           "</pre></body></html>";
}

QString SourceScript() {
    QStringList parts;
    for (const char* name :
         {"lib/codemirror.js", "mode/xml/xml.js", "mode/javascript/javascript.js",
          "mode/css/css.js", "mode/htmlmixed/htmlmixed.js"})
        parts += TextOf(kCodeMirror + QLatin1String(name));
    if (parts.contains(QString())) return {};
    parts += QStringLiteral(
        "(() => { const plain = document.getElementById('source');"
        "const view = CodeMirror(place => plain.replaceWith(place), {value: plain.textContent,"
        "mode: 'htmlmixed', lineNumbers: true, lineWrapping: true, readOnly: true,"
        "viewportMargin: 40}); view.getInputField().setAttribute('aria-label', 'HTML'); })();");
    return parts.join('\n');
}

} // namespace paperkite
