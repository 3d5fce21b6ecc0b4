#pragma once

#include "foundation/Error.h"

#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace paperkite::test {

/// What a failing use raises: the library's own error, the standard library's, no memory, and
/// something that is no exception class at all.
enum class FailureKind { RunTimeError, StandardException, OutOfMemory, NoExceptionClass };

/// Counts uses of the world around a component, and lets one of them fail.
class FailureSwitch {
public:
    /// Counts from 0 again; `use` 0 lets nothing fail.
    void Arm(int use, FailureKind kind = FailureKind::RunTimeError) {
        mArmed = true;
        mUses = 0;
        mFailAt = use;
        mKind = kind;
        mFailed.clear();
        mUsed.clear();
    }
    void Disarm() { mArmed = false; }

    void Use(const std::string& what) {
        if (!mArmed) return;
        if (OnUse) OnUse(what);
        mUsed.push_back(what + (Context ? Context() : std::string()));
        if (++mUses != mFailAt) return;
        mFailed = mUsed.back();
        Raise();
    }

    int GetUses() const { return mUses; }
    /// What was used since Arm, in order.
    const std::vector<std::string>& GetUsed() const { return mUsed; }
    /// What failed since Arm, or an empty text.
    const std::string& GetFailed() const { return mFailed; }

    /// Says under which circumstances a use happens; stands behind its name.
    std::function<std::string()> Context;
    /// Runs at each use.
    std::function<void(const std::string&)> OnUse;

private:
    [[noreturn]] void Raise() const {
        switch (mKind) {
        case FailureKind::RunTimeError:
            throw Error(1000, "the world failed");
        case FailureKind::StandardException:
            throw std::runtime_error("the world failed");
        case FailureKind::OutOfMemory:
            throw std::bad_alloc();
        default:
            throw 42;
        }
    }

    bool mArmed = false;
    int mUses = 0;
    int mFailAt = 0;
    FailureKind mKind = FailureKind::RunTimeError;
    std::string mFailed;
    std::vector<std::string> mUsed;
};

} // namespace paperkite::test
