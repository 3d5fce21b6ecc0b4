#include "foundation/NodeDef.h"

#include "foundation/KeyGenerator.h"

namespace paperkite {

namespace {

constexpr int kClosedBook = 1;
constexpr int kOpenBook = 2;
constexpr int kPage = 11;

} // namespace

NodeDef::NodeDef() : mKey(KeyGenerator().Generate()) {}

int NodeDef::GetImage(bool hasChildren) const {
    if (CustomIcon) return Icon;
    return hasChildren ? kClosedBook : kPage;
}

int NodeDef::GetExpandedImage(bool hasChildren) const {
    if (CustomIcon) return Icon;
    return hasChildren ? kOpenBook : kPage;
}

} // namespace paperkite
