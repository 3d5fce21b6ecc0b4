#pragma once

#include "foundation/DataProvider.h"
#include "foundation/NamespaceDefs.h"
#include "foundation/ObjectCollection.h"

#include <string>

namespace paperkite {

/// Serves the items of one namespace moniker. The host brings one for each document type.
///
/// The same qualified name gives the same object for as long as the provider lives: comments refer
/// to their item by identity.
class NamespaceProvider : public Object {
public:
    std::string TypeName() const override { return "NamespaceProvider"; }
    virtual Ref<DataProvider> GetDataProvider() = 0;
    virtual Ref<Object> GetRootItem(Ref<NamespaceDef>& definition, const std::string& moniker) = 0;
    /// Nothing when there is no such item.
    virtual Ref<Object> GetItem(const std::string& qualifiedName) = 0;
    virtual Ref<Object> ItemByQualifiedName(const std::string& qualifiedName) = 0;
    /// The children of an item that a definition covers, by a filter of comma-separated key=value
    /// pairs: IgnoreNamespaceIncludeFlag=true, scope=public+friend+protected+private,
    /// IncludeInherited=True, includeall=true. Nothing where the definition has no such items.
    virtual Ref<ObjectCollection> GetItems(Ref<NamespaceDef>& definition,
                                           const Ref<Object>& parentItem,
                                           const std::string& filter) = 0;
};

} // namespace paperkite
