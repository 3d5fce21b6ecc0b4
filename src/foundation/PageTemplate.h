#pragma once

#include "foundation/Collection.h"
#include "foundation/ElementDef.h"
#include "foundation/Event.h"
#include "foundation/NamespaceDefs.h"
#include "foundation/Object.h"
#include "foundation/TemplateText.h"
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
    /// Names of element definitions that are not offered in this layout, separated by commas.
    std::string ExcludedElements;
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
    /// The kinds of elements that its layouts may hold, by name.
    Collection<Ref<ElementDef>> ElementDefs{KeyComparison::IgnoringCase};
    /// By the name of a category: attributes that all its elements take.
    Collection<Ref<ElementDef>> CategoryDefs{KeyComparison::IgnoringCase};
};

/// A set of page layouts that a project is published with.
struct PageTemplate : Object {
    std::string TypeName() const override { return "PageTemplate"; }
    Value Get(std::string_view member) const override;

    std::string Name;
    /// What it looks like and what it is good for, in a sentence or two.
    std::string Description;
    /// Letters; "x" hides the template.
    std::string Options;
    /// The whole path, without a separator at its end.
    std::string Folder;
    std::string Language;
    std::vector<Ref<TemplateNamespace>> Namespaces;
    /// The variables that projects may set, by name.
    Collection<Ref<VariableDef>> VariableDefs{KeyComparison::IgnoringCase};
    /// By name.
    Collection<Ref<TemplateText>> Phrases{KeyComparison::IgnoringCase};
    Collection<Ref<TemplateText>> Scraps{KeyComparison::IgnoringCase};
    /// What pages need beside them, such as style sheets: paths below the folder.
    std::vector<std::string> Files;
    Ref<paperkite::PageLayouts> PageLayouts = MakeRef<paperkite::PageLayouts>();
    Ref<paperkite::NamespaceDefs> NamespaceDefs = MakeRef<paperkite::NamespaceDefs>();
};

} // namespace paperkite
