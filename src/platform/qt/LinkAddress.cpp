#include "platform/qt/LinkAddress.h"

#include <QUrl>

namespace paperkite {

QString ResolvedLink(const QString& page, const QString& link) {
    const QUrl base(page.isEmpty() ? QStringLiteral("file:///") : page);
    const QUrl target = base.resolved(QUrl(link));
    if (!target.isValid() || target.scheme() != QLatin1String("file")) return link;
    // Names of items hold codes themselves: whoever knows the names decodes the rest.
    return target.toString(QUrl::FullyEncoded | QUrl::RemoveQuery);
}

} // namespace paperkite
