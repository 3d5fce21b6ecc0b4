#include "doctypes/source/ItemProperties.h"

#include "foundation/Text.h"

namespace paperkite {

namespace {

/// May stand before a property's name.
constexpr std::string_view kItem = "item";

constexpr const char* kMembers[] = {
    "Name", "QualifiedName", "Access",      "Kind",     "Language", "Signature",        "Type",
    "File", "Line",          "Description", "Inherits", "Overload", "TaggedDescription"};

} // namespace

std::string PropertyOf(const Object& item, const std::string& name) {
    std::string_view wanted = name;
    if (EqualIgnoringCase(wanted.substr(0, kItem.size()), kItem))
        wanted.remove_prefix(kItem.size());
    if (EqualIgnoringCase(wanted, "caption"))
        return item.Get("Name").ToText() + item.Get("Overload").ToText();
    for (const char* member : kMembers)
        if (EqualIgnoringCase(wanted, member)) return item.Get(member).ToText();
    return {};
}

} // namespace paperkite
