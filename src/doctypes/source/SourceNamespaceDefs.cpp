#include "doctypes/source/SourceNamespaceDefs.h"

#include "doctypes/source/SourceNamespaceProvider.h"
#include "foundation/Text.h"

#include <algorithm>
#include <array>
#include <set>

namespace paperkite {

namespace {

enum class Grouping { None, Grouped };

struct Level {
    SourceKind Kind;
    const char* Plural;
    Grouping Groups;
    /// May be published as a page of its own, and ticked.
    bool IsTopic;
    /// Name in the icon theme.
    const char* Icon;
};

/// In the order of the tree.
constexpr Level kLevels[] = {
    {SourceKind::Project, "Projects", Grouping::None, true, "project-development"},
    {SourceKind::Package, "Packages", Grouping::None, true, "package-x-generic"},
    {SourceKind::Module, "Modules", Grouping::None, true, "text-x-script"},
    {SourceKind::Namespace, "Namespaces", Grouping::None, true, "code-context"},
    {SourceKind::Class, "Classes", Grouping::Grouped, true, "code-class"},
    {SourceKind::Interface, "Interfaces", Grouping::Grouped, true, "code-class"},
    {SourceKind::Trait, "Traits", Grouping::Grouped, true, "code-class"},
    {SourceKind::Struct, "Structures", Grouping::Grouped, true, "code-block"},
    {SourceKind::Union, "Unions", Grouping::Grouped, true, "code-block"},
    {SourceKind::Enumeration, "Enumerations", Grouping::Grouped, true, "code-typedef"},
    {SourceKind::Annotation, "Annotations", Grouping::Grouped, true, "code-typedef"},
    {SourceKind::Typedef, "Type Definitions", Grouping::Grouped, true, "code-typedef"},
    {SourceKind::Delegate, "Delegates", Grouping::Grouped, true, "code-typedef"},
    {SourceKind::Constructor, "Constructors", Grouping::Grouped, false, "code-function"},
    {SourceKind::Destructor, "Destructors", Grouping::Grouped, false, "code-function"},
    {SourceKind::Operator, "Operators", Grouping::Grouped, false, "code-function"},
    {SourceKind::Method, "Methods", Grouping::Grouped, false, "code-function"},
    {SourceKind::Function, "Functions", Grouping::Grouped, true, "code-function"},
    {SourceKind::Property, "Properties", Grouping::Grouped, false, "code-variable"},
    {SourceKind::Event, "Events", Grouping::Grouped, false, "flag"},
    {SourceKind::Field, "Fields", Grouping::Grouped, false, "code-variable"},
    {SourceKind::Enumerator, "Enumerators", Grouping::None, false, "code-variable"},
    {SourceKind::Constant, "Constants", Grouping::Grouped, false, "code-variable"},
    {SourceKind::Variable, "Variables", Grouping::Grouped, false, "code-variable"},
    {SourceKind::Macro, "Macros", Grouping::Grouped, false, "code-block"},
    {SourceKind::Other, "Others", Grouping::Grouped, false, "code-block"},
};

/// What kinds the code has, below which kinds.
class Census {
public:
    explicit Census(const std::vector<const SourceIndex*>& indexes) {
        for (const SourceIndex* index : indexes)
            for (SourceIndex::Id entity = 1; entity < index->Size(); ++entity)
                Count(*index, entity);
    }
    bool HasBelow(SourceKind parent, SourceKind child) const {
        return mChildren[static_cast<std::size_t>(parent)][static_cast<std::size_t>(child)];
    }
    bool Has(SourceAccess access) const { return mAccesses.contains(access); }

private:
    void Count(const SourceIndex& index, SourceIndex::Id entity) {
        const auto parent = static_cast<std::size_t>(index.Kind(index.Parent(entity)));
        mChildren[parent][static_cast<std::size_t>(index.Kind(entity))] = true;
        mAccesses.insert(index.Access(entity));
    }

    std::array<std::array<bool, kSourceKindCount>, kSourceKindCount> mChildren{};
    std::set<SourceAccess> mAccesses;
};

Ref<NamespaceDef> MakeDefinition(const Level& level) {
    const std::string kind(KindText(level.Kind));
    auto definition = MakeRef<NamespaceDef>();
    definition->Name = std::string(kSourceMoniker) + ":" + kind;
    definition->Moniker = kSourceMoniker;
    definition->ItemType = kind;
    definition->GroupCaption = level.Plural;
    definition->ImageKey = LowerCase(kind);
    // Overloads must be told apart; everything else goes by its name alone, which is quicker.
    if (IsCallable(level.Kind)) definition->ItemTextTemplate = "%%itemcaption%%";
    definition->GroupInEditing = level.Groups == Grouping::Grouped;
    definition->GroupInSelection = definition->GroupInEditing;
    definition->Selectable = level.IsTopic;
    definition->Excludable = level.Kind != SourceKind::Project;
    definition->TreeFlags = level.IsTopic ? "f" : "";
    if (level.Kind == SourceKind::Project || IsGroup(level.Kind)) definition->TreeFlags += "r";
    definition->AutoExpandOnLoad = level.Kind == SourceKind::Project;
    definition->PreloadChildrenInSelection = IsGroup(level.Kind);
    return definition;
}

std::string ScopeFlagsOf(const Census& census) {
    std::string flags;
    if (census.Has(SourceAccess::Private)) flags += 'p';
    if (census.Has(SourceAccess::Friend)) flags += 'f';
    if (census.Has(SourceAccess::Protected)) flags += 't';
    return flags;
}

} // namespace

Ref<NamespaceDefs> MakeSourceNamespaceDefs(const std::vector<const SourceIndex*>& indexes) {
    const Census census(indexes);
    const std::string scopeFlags = ScopeFlagsOf(census);
    const auto makeCollection = [&] {
        auto collection = MakeRef<NamespaceDefs>(kSourceMoniker);
        collection->SetScopeFlags(scopeFlags);
        return collection;
    };
    std::vector<Ref<NamespaceDef>> definitions;
    for (const Level& level : kLevels)
        definitions.push_back(MakeDefinition(level));
    auto root = makeCollection();
    root->Add(definitions.front(), definitions.front()->Name);
    for (std::size_t parent = 0; parent < definitions.size(); ++parent) {
        auto children = makeCollection();
        for (std::size_t child = 1; child < definitions.size(); ++child)
            if (census.HasBelow(kLevels[parent].Kind, kLevels[child].Kind))
                children->Add(definitions[child], definitions[child]->Name);
        definitions[parent]->SetChildDefs(children);
    }
    return root;
}

std::string_view PluralText(SourceKind kind) {
    for (const Level& level : kLevels)
        if (level.Kind == kind) return level.Plural;
    return KindText(kind);
}

std::string_view IconText(SourceKind kind) {
    for (const Level& level : kLevels)
        if (level.Kind == kind) return level.Icon;
    return {};
}

bool IsTopic(SourceKind kind) {
    return std::any_of(std::begin(kLevels), std::end(kLevels),
                       [&](const Level& level) { return level.Kind == kind && level.IsTopic; });
}

Ref<ImageList> MakeSourceImages() {
    auto images = MakeRef<ImageList>();
    images->Add("Closed", {"folder", {}, "group"});
    images->Add("Open", {"folder-open", {}, "group"});
    for (const Level& level : kLevels) {
        const std::string kind = LowerCase(KindText(level.Kind));
        images->Add(kind, {level.Icon, {}, kind});
    }
    return images;
}

} // namespace paperkite
