#include "host/LinkHazard.h"

#include "commenttexts/LinkTarget.h"

#include <algorithm>

namespace paperkite {

namespace {

bool IsControl(char character) {
    const auto code = static_cast<unsigned char>(character);
    return code < 0x20 || code == 0x7f;
}

} // namespace

std::string LinkHazard(const std::string& link) {
    if (const std::string scheme = ScriptSchemeOf(link); !scheme.empty())
        return "The link begins with \"" + scheme +
               "\": it is a script or a text of its own, and leads to no page. It is kept in the "
               "comment as you typed it, but nothing ever runs it here, and a click on it opens "
               "nothing.";
    const auto found = std::find_if(link.begin(), link.end(), &IsControl);
    if (found == link.end()) return link.empty() ? std::string() : LinkTarget::Of(link).Problem;
    return "The link holds a character that cannot be seen, such as a tab or a line break, behind "
           "the first " +
           std::to_string(found - link.begin()) +
           " bytes. It is kept in the comment as you typed it, but browsers leave such characters "
           "out, and the link may lead elsewhere than it seems.";
}

} // namespace paperkite
