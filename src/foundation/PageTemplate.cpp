#include "foundation/PageTemplate.h"

#include "foundation/MemberTable.h"

namespace paperkite {

Value PageLayout::Get(std::string_view member) const {
    static const MemberTable<PageLayout> members{
        {"Name", [](const PageLayout& l) { return Value(l.Name); }},
        {"FileName", [](const PageLayout& l) { return Value(l.FileName); }},
        {"FileNameTemplate", [](const PageLayout& l) { return Value(l.FileNameTemplate); }},
        {"Namespaces", [](const PageLayout& l) { return Value(l.Namespaces); }},
    };
    const auto get = members.FindGetter(member);
    return get ? get(*this) : Object::Get(member);
}

void PageLayouts::Add(const Ref<PageLayout>& layout) {
    mLayouts.Add(layout, layout->Name);
    Events.PageLayoutsChange.Raise();
}

void PageLayouts::Remove(const std::string& name) {
    mLayouts.Remove(name);
    Events.PageLayoutsChange.Raise();
}

void PageLayouts::Enumerate(const std::function<bool(const Value&)>& visit) const {
    for (const auto& layout : mLayouts)
        if (!visit(Value(layout))) return;
}

Value PageTemplate::Get(std::string_view member) const {
    static const MemberTable<PageTemplate> members{
        {"Name", [](const PageTemplate& t) { return Value(t.Name); }},
        {"Options", [](const PageTemplate& t) { return Value(t.Options); }},
        {"Folder", [](const PageTemplate& t) { return Value(t.Folder); }},
        {"Language", [](const PageTemplate& t) { return Value(t.Language); }},
        {"PageLayouts", [](const PageTemplate& t) { return Value(t.PageLayouts); }},
        {"NamespaceDefs", [](const PageTemplate& t) { return Value(t.NamespaceDefs); }},
    };
    const auto get = members.FindGetter(member);
    return get ? get(*this) : Object::Get(member);
}

} // namespace paperkite
