#include "host/CommandWrapper.h"

#include "foundation/Text.h"

namespace paperkite {

Value CommandWrapper::Call(std::string_view member, const std::vector<Value>& arguments) {
    const bool wasLocked = IsLocked();
    if (EqualIgnoringCase(member, "lockrefresh"))
        ++mLocks;
    else if (EqualIgnoringCase(member, "unlockrefresh"))
        mLocks -= mLocks > 0 ? 1 : 0;
    else if (EqualIgnoringCase(member, "unlockrefreshabsolute"))
        mLocks = 0;
    else if (!EqualIgnoringCase(member, "BindTo"))
        return Object::Call(member, arguments);
    if (wasLocked && !IsLocked() && Unlocked) Unlocked();
    return {};
}

} // namespace paperkite
