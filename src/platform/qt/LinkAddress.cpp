#include "platform/qt/LinkAddress.h"

#include <QUrl>

namespace paperkite {

QString ResolvedLink(const QString& page, const QString& link) {
    const QUrl base(page.isEmpty() ? QStringLiteral("file:///") : page);
    const QUrl target = base.resolved(QUrl(link));
    if (!target.isValid() || target.scheme() != QLatin1String("file")) return link;
    // Names of items hold what an address cannot.
    const QString path = QUrl::fromPercentEncoding(target.path(QUrl::FullyEncoded).toUtf8());
    const QString fragment =
        target.hasFragment() ? QLatin1Char('#') + target.fragment(QUrl::FullyDecoded) : QString();
    return QStringLiteral("file://") + target.host() + path + fragment;
}

} // namespace paperkite
