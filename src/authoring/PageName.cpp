#include "authoring/PageName.h"

#include "foundation/Text.h"

#include <algorithm>

namespace paperkite::PageName {

namespace {

constexpr std::string_view kPageEnding = ".html";

} // namespace

std::string OfAddress(std::string_view address) {
    const std::string_view file = address.substr(address.rfind('/') + 1);
    return std::string(file.substr(0, file.size() - std::min(file.size(), kPageEnding.size())));
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
