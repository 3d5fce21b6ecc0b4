#pragma once

#include <QString>

namespace paperkite {

/// Where a link of a page leads, as a browser resolves it against the page's address: a file as
/// "file:///" with its path as a browser encodes it, without a query, and anything else as it was
/// written. Without an address of its own a page stands in "file:///". What is no address comes
/// back unchanged.
QString ResolvedLink(const QString& page, const QString& link);

} // namespace paperkite
