#pragma once

#include <QStringList>
#include <QWebEngineUrlRequestInterceptor>

namespace paperkite {

/// Lets a page read itself and the files of named folders, and nothing else. The folders are
/// compared by their real paths, so that no link leads out of them.
class PageGuard : public QWebEngineUrlRequestInterceptor {
public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

    void SetFolders(const QStringList& folders);
    void interceptRequest(QWebEngineUrlRequestInfo& info) override;

private:
    bool IsReadable(const QUrl& url) const;

    QStringList mFolders;
};

} // namespace paperkite
