#include "host/LinkHazard.h"

#include "foundation/Text.h"

#include <algorithm>

namespace paperkite {

namespace {

constexpr const char* kScriptSchemes[] = {"javascript:", "vbscript:", "data:"};

bool IsControl(char character) {
    const auto code = static_cast<unsigned char>(character);
    return code < 0x20 || code == 0x7f;
}

/// As browsers read the beginning of an address: what cannot be seen counts for nothing.
std::string Visible(const std::string& link) {
    std::string text;
    for (const char character : link)
        if (!IsControl(character)) text += character;
    return TrimBlanks(text);
}

} // namespace

std::string LinkHazard(const std::string& link) {
    const std::string visible = LowerCase(Visible(link));
    for (const char* scheme : kScriptSchemes)
        if (visible.starts_with(scheme))
            return std::string("The link begins with \"") + scheme +
                   "\": it is a script or a text of its own, and leads to no page. It is kept in "
                   "the comment as you typed it, but nothing ever runs it here, and a click on it "
                   "opens nothing.";
    const auto found = std::find_if(link.begin(), link.end(), &IsControl);
    if (found == link.end()) return {};
    return "The link holds a character that cannot be seen, such as a tab or a line break, behind "
           "the first " +
           std::to_string(found - link.begin()) +
           " bytes. It is kept in the comment as you typed it, but browsers leave such characters "
           "out, and the link may lead elsewhere than it seems.";
}

} // namespace paperkite
