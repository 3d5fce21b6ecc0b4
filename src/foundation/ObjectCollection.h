#pragma once

#include "foundation/Collection.h"
#include "foundation/Object.h"

namespace paperkite {

/// A shared ordered collection of model objects.
class ObjectCollection : public Object, public Collection<Ref<Object>> {
public:
    using Collection<Ref<Object>>::Collection;

    std::string TypeName() const override { return "Collection"; }
    Value Get(std::string_view member) const override;
    bool IsEnumerable() const override { return true; }
    void Enumerate(const std::function<bool(const Value&)>& visit) const override;
};

/// A shared ordered collection of texts, each usually its own key.
class TextCollection : public Object, public Collection<std::string> {
public:
    using Collection<std::string>::Collection;

    std::string TypeName() const override { return "Collection"; }
    Value Get(std::string_view member) const override;
    bool IsEnumerable() const override { return true; }
    void Enumerate(const std::function<bool(const Value&)>& visit) const override;
};

} // namespace paperkite
