#include "platform/qt/web/PageGuard.h"

#include "platform/qt/web/PageSource.h"

#include <QFileInfo>

namespace paperkite {

void PageGuard::SetFolders(const QStringList& folders) {
    mFolders.clear();
    for (const QString& folder : folders) {
        const QString real = QFileInfo(folder).canonicalFilePath();
        if (!real.isEmpty()) mFolders += real.endsWith('/') ? real : real + '/';
    }
}

bool PageGuard::IsReadable(const QUrl& url) const {
    if (!url.isLocalFile() || !url.host().isEmpty()) return false;
    const QString real = QFileInfo(url.toLocalFile()).canonicalFilePath();
    return std::any_of(mFolders.begin(), mFolders.end(),
                       [&](const QString& folder) { return real.startsWith(folder); });
}

void PageGuard::interceptRequest(QWebEngineUrlRequestInfo& info) {
    using Info = QWebEngineUrlRequestInfo;
    const QUrl url = info.requestUrl();
    const QString scheme = url.scheme();
    const auto type = info.resourceType();
    if (type == Info::ResourceTypeMainFrame) return info.block(scheme != PageSource::Scheme());
    const bool isPart = type == Info::ResourceTypeStylesheet || type == Info::ResourceTypeImage ||
                        type == Info::ResourceTypeFontResource || type == Info::ResourceTypeMedia;
    const bool isInText = scheme == QLatin1String("data") && type != Info::ResourceTypeStylesheet;
    info.block(!isPart || !(isInText || IsReadable(url)));
}

} // namespace paperkite
