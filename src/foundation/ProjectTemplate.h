#pragma once

#include "foundation/DocType.h"
#include "foundation/NamespaceProvider.h"

#include <string>

namespace paperkite {

/// A page template that is bound to a project: the pages of which namespaces it makes, and who
/// serves their items.
class ProjectTemplate : public DocType {
public:
    std::string TypeName() const override { return "ProjectTemplate"; }

    /// Of the first namespace of the template that the project serves; nothing where it serves
    /// none.
    Ref<paperkite::NamespaceProvider> NamespaceProvider;
    std::string Language;
};

} // namespace paperkite
