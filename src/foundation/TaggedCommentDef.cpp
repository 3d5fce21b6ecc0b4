#include "foundation/TaggedCommentDef.h"

#include "foundation/MemberTable.h"

namespace paperkite {

namespace {

const MemberTable<TaggedCommentDef>& Members() {
    using D = TaggedCommentDef;
    static const MemberTable<D> members{
        {"TagIdentifier", [](const D& d) { return Value(d.TagIdentifier); }},
        {"DisplayName", [](const D& d) { return Value(d.DisplayName); }},
        {"DesignerProgID", [](const D& d) { return Value(d.DesignerProgID); }},
        {"TagType", [](const D& d) { return Value(d.TagType); }},
        {"LegacyName", [](const D& d) { return Value(d.LegacyName); }},
        {"TabName", [](const D& d) { return Value(d.TabName); }},
        {"Tip", [](const D& d) { return Value(d.Tip); }},
        {"Options", [](const D& d) { return Value(d.Options); }},
        {"Namespaces", [](const D& d) { return Value(d.Namespaces); }},
        {"GroupName", [](const D& d) { return Value(d.GroupName); }},
        {"XMLTags", [](const D& d) { return Value(d.XMLTags); }},
        {"IconName", [](const D& d) { return Value(d.IconName); }},
        {"AppendsToDescription", [](const D& d) { return Value(d.AppendsToDescription); }},
        {"DescriptionFormat", [](const D& d) { return Value(d.DescriptionFormat); }},
        {"IsGeneral", [](const D& d) { return Value(d.IsGeneral); }},
    };
    return members;
}

} // namespace

Value TaggedCommentDef::Get(std::string_view member) const {
    const auto get = Members().FindGetter(member);
    return get ? get(*this) : Object::Get(member);
}

void TaggedCommentDefs::Add(const Ref<TaggedCommentDef>& definition) {
    mDefinitions.Add(definition, definition->TagIdentifier);
}

Ref<TaggedCommentDef> TaggedCommentDefs::Find(const std::string& tagIdentifier) const {
    const Ref<TaggedCommentDef>* found = mDefinitions.Find(tagIdentifier);
    return found ? *found : Ref<TaggedCommentDef>();
}

void TaggedCommentDefs::Enumerate(const std::function<bool(const Value&)>& visit) const {
    for (const auto& definition : mDefinitions)
        if (!visit(Value(definition))) return;
}

} // namespace paperkite
