#include "foundation/GlobalConfig.h"

namespace paperkite {

GlobalConfigData& GlobalConfig() {
    static GlobalConfigData data;
    return data;
}

} // namespace paperkite
