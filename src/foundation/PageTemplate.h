#pragma once

#include "foundation/Collection.h"
#include "foundation/Event.h"
#include "foundation/NamespaceDefs.h"
#include "foundation/Object.h"
#include "foundation/VariableDef.h"

#include <string>
#include <vector>

namespace paperkite {

/// One page of a template: an HTML file with variable places, for the namespaces that it names.
struct PageLayout : Object {
    std::string TypeName() const override { return "PageLayout"; }
    Value Get(std::string_view member) const override;

    std::string Name;
    std::string FileName;
    /// The name of the published page, with "%%itemqualifiedname%%" for the item's name.
    std::string FileNameTemplate;
    /// Names of namespace definitions, separated by commas.
    std::string Namespaces;
    /// Used by the template itself, never offered.
    bool Internal = false;
};

/// The layouts of a template, by name.
class PageLayouts : public Object {
public:
    std::string TypeName() const override { return "PageLayouts"; }
    bool IsEnumerable() const override { return true; }
    void Enumerate(const std::function<bool(const Value&)>& visit) const override;
    void Add(const Ref<PageLayout>& layout);
    void Remove(const std::string& name);
    std::size_t Count() const { return mLayouts.Count(); }
    Ref<PageLayout> Item(std::size_t position) const { return mLayouts.Item(position); }
    Ref<PageLayout> Item(const std::string& name) const { return mLayouts.Item(name); }
    bool Contains(const std::string& name) const { return mLayouts.Contains(name); }
    auto begin() const { return mLayouts.begin(); }
    auto end() const { return mLayouts.end(); }

    struct LayoutsEvents {
        Event<> PageLayoutsChange;
    } Events;

private:
    Collection<Ref<PageLayout>> mLayouts;
};

/// A namespace that a template serves.
struct TemplateNamespace : Object {
    std::string TypeName() const override { return "TemplateNamespace"; }

    std::string Moniker;
};

/// A set of page layouts that a project is published with.
struct PageTemplate : Object {
    std::string TypeName() const override { return "PageTemplate"; }
    Value Get(std::string_view member) const override;

    std::string Name;
    /// Letters; "x" hides the template.
    std::string Options;
    std::string Folder;
    std::string Language;
    std::vector<Ref<TemplateNamespace>> Namespaces;
    /// The variables that projects may set, by name.
    Collection<Ref<VariableDef>> VariableDefs{KeyComparison::IgnoringCase};
    Ref<paperkite::PageLayouts> PageLayouts = MakeRef<paperkite::PageLayouts>();
    Ref<paperkite::NamespaceDefs> NamespaceDefs = MakeRef<paperkite::NamespaceDefs>();
};

} // namespace paperkite
