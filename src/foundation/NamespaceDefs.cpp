#include "foundation/NamespaceDefs.h"

#include "foundation/MemberTable.h"

#include <unordered_set>

namespace paperkite {

namespace {

const MemberTable<NamespaceDef>& Members() {
    using D = NamespaceDef;
    static const MemberTable<D> members{
        {"Name", [](const D& d) { return Value(d.Name); }},
        {"Moniker", [](const D& d) { return Value(d.Moniker); }},
        {"ItemType", [](const D& d) { return Value(d.ItemType); }},
        {"GroupCaption", [](const D& d) { return Value(d.GroupCaption); }},
        {"ImageKey", [](const D& d) { return Value(d.ImageKey); }},
        {"ItemTextTemplate", [](const D& d) { return Value(d.ItemTextTemplate); }},
        {"TreeFlags", [](const D& d) { return Value(d.TreeFlags); }},
        {"Selectable", [](const D& d) { return Value(d.Selectable); }},
        {"Excludable", [](const D& d) { return Value(d.Excludable); }},
        {"ChildDefs", [](const D& d) { return Value(d.GetChildDefs()); }},
        {"ParentDefs", [](const D& d) { return Value(d.GetParentDefs()); }},
    };
    return members;
}

using Visited = std::unordered_set<const NamespaceDefs*>;

void Collect(const NamespaceDefs& level, const std::string& itemType, NamespaceDefs::Found& found,
             Visited& visited) {
    if (!visited.insert(&level).second) return;
    for (const auto& definition : level)
        if (definition->ItemType == itemType) found.push_back(definition);
    for (const auto& definition : level)
        Collect(*definition->GetChildDefs(), itemType, found, visited);
}

void Gather(const NamespaceDefs& level, std::vector<Ref<NamespaceDef>>& all, Visited& visited) {
    if (!visited.insert(&level).second) return;
    for (const auto& definition : level) {
        all.push_back(definition);
        Gather(*definition->GetChildDefs(), all, visited);
    }
}

} // namespace

Value NamespaceDef::Get(std::string_view member) const {
    const auto get = Members().FindGetter(member);
    return get ? get(*this) : Object::Get(member);
}

Ref<NamespaceDefs> NamespaceDef::GetChildDefs() const {
    if (!mChildDefs) mChildDefs = MakeRef<NamespaceDefs>();
    return mChildDefs;
}

Value NamespaceDefs::Get(std::string_view member) const {
    if (member == "Name") return Value(mName);
    if (member == "ScopeFlags") return Value(mScopeFlags);
    if (member == "Count") return Value(static_cast<std::int32_t>(Count()));
    return Object::Get(member);
}

void NamespaceDefs::Enumerate(const std::function<bool(const Value&)>& visit) const {
    for (const auto& definition : mDefinitions)
        if (!visit(Value(definition))) return;
}

void NamespaceDefs::Add(const Ref<NamespaceDef>& definition, const std::string& key) {
    mDefinitions.Add(definition, key);
    if (!definition->GetParentDefs()) definition->mParentDefs = RefTo(*this);
}

NamespaceDefs::Found NamespaceDefs::ItemsForType(const std::string& itemType,
                                                 Found accumulator) const {
    Visited visited;
    Collect(*this, itemType, accumulator, visited);
    return accumulator;
}

void NamespaceDefs::Release() {
    std::vector<Ref<NamespaceDef>> all;
    Visited visited;
    Gather(*this, all, visited);
    for (const auto& definition : all)
        definition->SetChildDefs(nullptr);
}

Ref<NamespaceDef> FirstDefinitionForType(const Ref<NamespaceDefs>& definitions,
                                         const std::string& itemType) {
    const NamespaceDefs::Found found = definitions->ItemsForType(itemType);
    if (found.empty())
        RaiseError(ErrorNumber::InvalidCall,
                   "No namespace definition has the item type \"" + itemType + "\"");
    return found.front();
}

} // namespace paperkite
