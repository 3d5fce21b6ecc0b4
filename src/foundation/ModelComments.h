#pragma once

#include "foundation/Collection.h"
#include "foundation/ModelComment.h"
#include "foundation/NamespaceDefs.h"
#include "foundation/Object.h"

namespace paperkite {

/// The model comments of a set of namespace definitions, by their keys.
class ModelComments : public Object, public Collection<Ref<ModelComment>> {
public:
    std::string TypeName() const override { return "ModelComments"; }

    const Ref<paperkite::NamespaceDefs>& GetNamespaceDefs() const { return mNamespaceDefs; }
    void SetNamespaceDefs(const Ref<paperkite::NamespaceDefs>& value) { mNamespaceDefs = value; }

private:
    Ref<paperkite::NamespaceDefs> mNamespaceDefs;
};

} // namespace paperkite
