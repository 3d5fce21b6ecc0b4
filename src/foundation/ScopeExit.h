#pragma once

#include "foundation/Error.h"

#include <utility>

namespace paperkite {

/// Runs an action once: when Run is called, or at the latest when the scope is left by a failure.
template <class Action>
class [[nodiscard]] ScopeExit {
public:
    explicit ScopeExit(Action action) : mAction(std::move(action)) {}
    ~ScopeExit() {
        Ignoring([this] { Run(); });
    }
    ScopeExit(const ScopeExit&) = delete;
    ScopeExit& operator=(const ScopeExit&) = delete;

    void Run() {
        if (mDone) return;
        mDone = true;
        mAction();
    }

private:
    Action mAction;
    bool mDone = false;
};

} // namespace paperkite
