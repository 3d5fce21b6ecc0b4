#pragma once

#include "foundation/Event.h"

namespace paperkite {

/// Tells when the pointer came to rest on a control, and when it left it. Both end the tracking,
/// which whoever wants to hear more starts again.
class MouseTracker {
public:
    bool GetHoverRunning() const { return mRunning; }

    void Start() { mRunning = true; }

    void Stop() { mRunning = false; }

    struct {
        Event<> MouseHover;
        Event<> MouseLeave;
    } Events;

    /// The pointer came to rest on the control.
    void UserHover() {
        if (!mRunning) return;
        mRunning = false;
        Events.MouseHover.Raise();
    }

    /// The pointer left the control.
    void UserLeave() {
        if (!mRunning) return;
        mRunning = false;
        Events.MouseLeave.Raise();
    }

private:
    bool mRunning = false;
};

} // namespace paperkite
