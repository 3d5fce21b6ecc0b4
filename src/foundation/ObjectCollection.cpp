#include "foundation/ObjectCollection.h"

namespace paperkite {

namespace {

template <class Entries>
void Visit(const Entries& entries, const std::function<bool(const Value&)>& visit) {
    for (const auto& entry : entries)
        if (!visit(Value(entry))) return;
}

} // namespace

Value ObjectCollection::Get(std::string_view member) const {
    if (member == "Count") return Value(static_cast<std::int32_t>(Count()));
    return Object::Get(member);
}

void ObjectCollection::Enumerate(const std::function<bool(const Value&)>& visit) const {
    Visit<Collection<Ref<Object>>>(*this, visit);
}

Value TextCollection::Get(std::string_view member) const {
    if (member == "Count") return Value(static_cast<std::int32_t>(Count()));
    return Object::Get(member);
}

void TextCollection::Enumerate(const std::function<bool(const Value&)>& visit) const {
    Visit<Collection<std::string>>(*this, visit);
}

} // namespace paperkite
