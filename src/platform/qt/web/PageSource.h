#pragma once

#include <QByteArray>
#include <QHash>
#include <QUrl>
#include <QWebEngineUrlSchemeHandler>

namespace paperkite {

/// Hands the engine the text of pages from memory, whatever their length, under an address of our
/// own that may read local files.
class PageSource : public QWebEngineUrlSchemeHandler {
public:
    using QWebEngineUrlSchemeHandler::QWebEngineUrlSchemeHandler;

    static QByteArray Scheme();
    /// To be called before the engine starts; more often does no harm.
    static void RegisterScheme();

    /// The address of a text that is handed over as often as it is asked for, until it is dropped.
    QUrl Keep(const QByteArray& html);
    void Drop(const QUrl& url);

    void requestStarted(QWebEngineUrlRequestJob* job) override;

private:
    QHash<QString, QByteArray> mPages;
    int mNext = 0;
};

} // namespace paperkite
