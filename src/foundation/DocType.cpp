#include "foundation/DocType.h"

namespace paperkite {

std::int32_t DocType::GetRootItemCount() const {
    if (!PlugIn) return 0;
    const Ref<ObjectCollection> items = PlugIn->RootItems({});
    return items ? static_cast<std::int32_t>(items->Count()) : 0;
}

} // namespace paperkite
