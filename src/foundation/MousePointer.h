#pragma once

namespace paperkite {

/// What the mouse pointer looks like over a control or the whole screen.
enum class MousePointer : int { Default = 0, Hourglass = 11 };

} // namespace paperkite
