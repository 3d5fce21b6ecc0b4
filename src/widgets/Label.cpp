#include "widgets/Label.h"

namespace paperkite {

void Label::UserClickLink(const std::string& address) {
    if (AcceptsGestures()) Events.LinkClick.Raise(address);
}

} // namespace paperkite
