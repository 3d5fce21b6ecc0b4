#include "foundation/Services.h"

namespace paperkite {

Services& CurrentServices() {
    static Services services;
    return services;
}

} // namespace paperkite
