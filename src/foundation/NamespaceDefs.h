#pragma once

#include "foundation/Collection.h"
#include "foundation/Object.h"

#include <string>
#include <vector>

namespace paperkite {

class NamespaceDefs;

/// One level of the item hierarchy of a namespace: how its items are shown, grouped and opened.
struct NamespaceDef : Object {
    std::string TypeName() const override { return "NamespaceDef"; }
    Value Get(std::string_view member) const override;

    /// A namespace name, a colon, and the name of the level.
    std::string Name;
    /// Names the provider that serves the items.
    std::string Moniker;
    /// Kept in the tag of every tree node of this level.
    std::string ItemType;
    std::string GroupCaption;
    std::string ImageKey;
    /// Not empty: the node text is this template with the item's properties filled in.
    std::string ItemTextTemplate;
    /// Letters: "f" listed even when only topic items are, "t" never listed as a child, "r" may be
    /// made a root.
    std::string TreeFlags;
    /// Listed where items are ticked.
    bool Selectable = true;
    /// False: always ticked.
    bool Excludable = true;
    bool GroupInEditing = false;
    bool GroupInSelection = false;
    /// The children are loaded at once.
    bool AutoExpandOnLoad = false;
    /// The children are loaded at once, and the node is closed again.
    bool PreloadChildren = false;
    bool PreloadChildrenInSelection = false;
    /// Set before the definition is handed to a provider.
    bool Prepared = false;
    /// Pages of this level are made.
    bool Included = false;

    /// The definitions of the next level; never nothing.
    Ref<NamespaceDefs> GetChildDefs() const;
    void SetChildDefs(const Ref<NamespaceDefs>& value) { mChildDefs = value; }

    /// The collection that owns this definition.
    Ref<NamespaceDefs> GetParentDefs() const { return mParentDefs.Lock(); }

private:
    friend class NamespaceDefs;
    mutable Ref<NamespaceDefs> mChildDefs;
    WeakRef<NamespaceDefs> mParentDefs;
};

/// The definitions of one level, by name. A level may be its own child level; Release cuts such
/// circles when the owner of the hierarchy is done with it.
class NamespaceDefs : public Object {
public:
    explicit NamespaceDefs(std::string name = {}) : mName(std::move(name)) {}
    std::string TypeName() const override { return "NamespaceDefs"; }
    Value Get(std::string_view member) const override;
    bool IsEnumerable() const override { return true; }
    void Enumerate(const std::function<bool(const Value&)>& visit) const override;

    /// The name of the namespace profile.
    const std::string& GetName() const { return mName; }
    void SetName(std::string value) { mName = std::move(value); }

    /// Letters of the wanted scope commands: p private, i inherited, f friend, t protected.
    const std::string& GetScopeFlags() const { return mScopeFlags; }
    void SetScopeFlags(std::string value) { mScopeFlags = std::move(value); }

    /// The first collection that takes a definition in is its owner.
    void Add(const Ref<NamespaceDef>& definition, const std::string& key);
    std::size_t Count() const { return mDefinitions.Count(); }
    Ref<NamespaceDef> Item(std::size_t position) const { return mDefinitions.Item(position); }
    Ref<NamespaceDef> Item(const std::string& key) const { return mDefinitions.Item(key); }
    bool Contains(const std::string& key) const { return mDefinitions.Contains(key); }

    /// The definitions of an item type in the whole hierarchy, this level first, appended to the
    /// accumulator, which is passed empty. Each definition comes once, also where levels recur.
    using Found = std::vector<Ref<NamespaceDef>>;
    Found ItemsForType(const std::string& itemType, Found accumulator = {}) const;

    /// Lets go of the whole hierarchy below.
    void Release();
    auto begin() const { return mDefinitions.begin(); }
    auto end() const { return mDefinitions.end(); }

private:
    Collection<Ref<NamespaceDef>> mDefinitions;
    std::string mName;
    std::string mScopeFlags;
};

/// The first definition of an item type in the hierarchy; none is an error.
Ref<NamespaceDef> FirstDefinitionForType(const Ref<NamespaceDefs>& definitions,
                                         const std::string& itemType);

} // namespace paperkite
