#pragma once

#include "foundation/NamespaceDefs.h"
#include "foundation/Object.h"
#include "foundation/ObjectCollection.h"

#include <cstdint>
#include <string>

namespace paperkite {

class IKiteProjectHost;

/// Adapts the set-up of projects to one kind of source. The set-up pages call it and hand
/// themselves over as its host; during Initialise it adds its pages and casts its votes.
class DocTypePlugIn : public Object {
public:
    std::string TypeName() const override { return "DocTypePlugIn"; }

    /// The host outlives what the plug-in does with it: until the pages are unloaded.
    virtual void Initialise(IKiteProjectHost& Host) = 0;
    virtual void VoteControlStates() = 0;
    /// How many items an item selector of that class holds.
    virtual std::int32_t ItemSelectorCount(const std::string& ProgID) = 0;
    virtual void ProjectItemsChanged() = 0;

    /// The root items that the project documents; a kind ("relationshipdiagrams") asks for those of
    /// one purpose.
    virtual Ref<ObjectCollection> RootItems(const std::string& kind) = 0;
    /// The definitions that a root item is shown by.
    virtual Ref<NamespaceDefs> NamespaceDefsOf(const Ref<Object>& rootItem) = 0;
    /// Whether a Content File's related item moniker means this root item.
    virtual bool MatchesMoniker(const Ref<Object>& rootItem, const std::string& moniker) = 0;
};

} // namespace paperkite
