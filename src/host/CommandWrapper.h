#pragma once

#include "foundation/Object.h"

#include <functional>

namespace paperkite {

/// The host's command wrapper: counts the locks under which the command bars are not to repaint,
/// and tells when the last one opens.
class CommandWrapper : public Object {
public:
    std::string TypeName() const override { return "CommandWrapper"; }
    /// lockrefresh, unlockrefresh, unlockrefreshabsolute (opens all locks), BindTo.
    Value Call(std::string_view member, const std::vector<Value>& arguments) override;

    bool IsLocked() const { return mLocks > 0; }
    /// Called when the bars may repaint again.
    std::function<void()> Unlocked;

private:
    int mLocks = 0;
};

} // namespace paperkite
