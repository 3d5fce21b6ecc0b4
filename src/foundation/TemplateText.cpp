#include "foundation/TemplateText.h"

#include "foundation/MemberTable.h"

namespace paperkite {

Value TemplateText::Get(std::string_view member) const {
    static const MemberTable<TemplateText> members{
        {"Name", [](const TemplateText& t) { return Value(t.Name); }},
        {"Text", [](const TemplateText& t) { return Value(t.Text); }},
    };
    const auto get = members.FindGetter(member);
    return get ? get(*this) : Object::Get(member);
}

} // namespace paperkite
