#pragma once

#include "foundation/DocTypeDefinition.h"
#include "foundation/DocTypePlugIn.h"
#include "foundation/NamespaceDefs.h"
#include "foundation/Object.h"
#include "foundation/PageTemplate.h"
#include "foundation/TOCChoice.h"

#include <cstdint>

namespace paperkite {

/// A kind of source that a project documents.
class DocType : public Object {
public:
    std::string TypeName() const override { return "DocType"; }

    Ref<DocTypeDefinition> Definition = MakeRef<DocTypeDefinition>();
    paperkite::TOCChoice TOCChoice;
    /// Nothing where the definition has none.
    Ref<DocTypePlugIn> PlugIn;
    Ref<PageTemplate> Template;
    Ref<paperkite::NamespaceDefs> NamespaceDefs;

    /// How many root items the project has of this type; none without a plug-in.
    std::int32_t GetRootItemCount() const;
    /// A type is enabled while the project has root items of it.
    bool GetEnabled() const { return GetRootItemCount() > 0; }
};

} // namespace paperkite
