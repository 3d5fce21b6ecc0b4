#include "foundation/KiteProject.h"

#include "foundation/MemberTable.h"

namespace paperkite {

namespace {

const MemberTable<KiteProject>& Members() {
    using P = KiteProject;
    static const MemberTable<P> members{
        {"IncludePrivate", [](const P& p) { return Value(p.GetIncludePrivate()); },
         [](P& p, const Value& v) { p.SetIncludePrivate(v.ToBoolean()); }},
        {"IncludeFriend", [](const P& p) { return Value(p.GetIncludeFriend()); },
         [](P& p, const Value& v) { p.SetIncludeFriend(v.ToBoolean()); }},
        {"IncludeProtected", [](const P& p) { return Value(p.GetIncludeProtected()); },
         [](P& p, const Value& v) { p.SetIncludeProtected(v.ToBoolean()); }},
        {"IncludeProtectedFriend", [](const P& p) { return Value(p.GetIncludeProtectedFriend()); },
         [](P& p, const Value& v) { p.SetIncludeProtectedFriend(v.ToBoolean()); }},
        {"Dirty", {}, [](P& p, const Value& v) { p.SetDirty(v.ToBoolean()); }},
        {"SourceProjectCount", [](const P& p) { return Value(p.GetSourceProjectCount()); }},
        {"CompiledComponentCount", [](const P& p) { return Value(p.GetCompiledComponentCount()); }},
        {"ClassicSourceProjectCount",
         [](const P& p) { return Value(p.GetClassicSourceProjectCount()); }},
    };
    return members;
}

} // namespace

Value KiteProject::Get(std::string_view member) const {
    if (ProjectSettings::Has(member)) return mSettings.Get(member);
    const auto get = Members().FindGetter(member);
    return get ? get(*this) : Object::Get(member);
}

void KiteProject::Set(std::string_view member, const Value& value) {
    if (ProjectSettings::Has(member))
        mSettings.Set(member, value);
    else if (!Members().Set(*this, member, value))
        Object::Set(member, value);
}

Ref<ProjectTemplate> KiteProject::AddTemplate(const Ref<PageTemplate>& value) {
    if (mTemplates.Contains(value->Name)) {
        const auto bound = mTemplates.Item(value->Name);
        if (bound->Template == value) return bound;
    }
    const auto binding = MakeRef<ProjectTemplate>();
    binding->Template = value;
    binding->NamespaceDefs = value->NamespaceDefs;
    binding->Language = value->Language;
    for (const auto& served : value->Namespaces) {
        binding->NamespaceProvider = NamespaceProvider(served->Moniker);
        if (binding->NamespaceProvider) break;
    }
    mTemplates.Add(binding, value->Name);
    return binding;
}

std::int32_t KiteProject::GetOutputCodePage() const {
    return mSettings.Get("OutputCodePage").ToInteger();
}

void KiteProject::SetOutputCodePage(std::int32_t value) {
    mSettings.Set("OutputCodePage", Value(value));
}

} // namespace paperkite
