#include "platform/qt/web/PageSource.h"

#include <QBuffer>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

namespace paperkite {

QByteArray PageSource::Scheme() {
    return QByteArrayLiteral("paperkite-page");
}

void PageSource::RegisterScheme() {
    if (!QWebEngineUrlScheme::schemeByName(Scheme()).name().isEmpty()) return;
    QWebEngineUrlScheme scheme(Scheme());
    // With a host all pages are of one origin, so that one process shows them one after the other.
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
    scheme.setFlags(QWebEngineUrlScheme::LocalScheme | QWebEngineUrlScheme::LocalAccessAllowed);
    QWebEngineUrlScheme::registerScheme(scheme);
}

QUrl PageSource::Keep(const QByteArray& html) {
    const QString name = QString::number(++mNext);
    mPages.insert('/' + name, html);
    return QUrl(QString::fromLatin1(Scheme()) + "://page/" + name);
}

void PageSource::Drop(const QUrl& url) {
    mPages.remove(url.path());
}

void PageSource::requestStarted(QWebEngineUrlRequestJob* job) {
    const auto page = mPages.constFind(job->requestUrl().path());
    if (page == mPages.cend()) return job->fail(QWebEngineUrlRequestJob::UrlNotFound);
    auto* buffer = new QBuffer(job);
    buffer->setData(*page);
    job->reply(QByteArrayLiteral("text/html; charset=utf-8"), buffer);
}

} // namespace paperkite
