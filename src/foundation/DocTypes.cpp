#include "foundation/DocTypes.h"

namespace paperkite {

Collection<Ref<DocType>> DocTypes::GetEnabledDocTypes() const {
    Collection<Ref<DocType>> result(KeyComparison::IgnoringCase);
    for (const auto& docType : mDocTypes)
        if (docType->GetEnabled()) result.Add(docType, docType->Definition->Name);
    return result;
}

} // namespace paperkite
