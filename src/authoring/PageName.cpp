#include "authoring/PageName.h"

#include "commenttexts/LinkTarget.h"
#include "foundation/Text.h"

#include <algorithm>

namespace paperkite::PageName {

namespace {

constexpr std::string_view kPageEnding = ".html";
/// What engines encode in a path and steps of names do not.
constexpr std::string_view kEncodedByEngines = " \"#<>?[]^`{|}";

bool IsEncodedByEngines(const std::string& piece) {
    return piece.size() == 1 && (static_cast<unsigned char>(piece[0]) >= 0x80 ||
                                 kEncodedByEngines.find(piece[0]) != std::string_view::npos);
}

/// A step is not empty and does not begin with its parameters, so that such a "~" is a letter of
/// the step that it stands in: "~Dog" or "operator~".
bool OpensStep(std::string_view before, std::string_view behind) {
    return !before.ends_with('~') && !behind.empty() && !behind.starts_with('(') &&
           !EqualIgnoringCase(behind, kPageEnding);
}

} // namespace

std::string OfAddress(std::string_view address) {
    const std::string_view file = address.substr(address.rfind('/') + 1);
    return std::string(file.substr(0, file.size() - std::min(file.size(), kPageEnding.size())));
}

std::string Decoded(std::string_view address) {
    std::string name;
    for (std::size_t at = 0; at < address.size();) {
        const std::size_t length = address[at] == '%' && at + 2 < address.size() ? 3 : 1;
        const std::string decoded = PercentDecoded(address.substr(at, length));
        const bool isMeant = length == 3 && IsEncodedByEngines(decoded);
        if (isMeant)
            name += decoded;
        else if (address[at] == '~' && !OpensStep(name, address.substr(at + 1)))
            name += "%7E";
        else
            name += address[at];
        at += isMeant ? length : 1;
    }
    return name;
}

std::string CutLayoutSuffix(std::string& page) {
    const std::size_t step = page.rfind('~');
    const std::size_t underscore = page.rfind('_');
    if (underscore == std::string::npos) return {};
    if (step != std::string::npos && underscore < step) return {};
    const std::string suffix = page.substr(underscore);
    if (EqualIgnoringCase(suffix, "_namespace")) return {};
    page.erase(underscore);
    return suffix;
}

} // namespace paperkite::PageName
