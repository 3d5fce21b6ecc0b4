#pragma once

#include "foundation/MousePointer.h"

namespace paperkite {

/// The key codes that key events carry; letters and digits are their upper-case ASCII codes.
enum KeyCode : int {
    KeyNone = 0,
    KeyBackspace = 8,
    KeyTab = 9,
    KeyReturn = 13,
    KeyEscape = 27,
    KeySpace = 32,
    KeyPageUp = 33,
    KeyPageDown = 34,
    KeyEnd = 35,
    KeyHome = 36,
    KeyLeft = 37,
    KeyUp = 38,
    KeyRight = 39,
    KeyDown = 40,
    KeyInsert = 45,
    KeyDelete = 46,
    KeyC = 67,
    KeyN = 78,
    KeyP = 80,
    KeyV = 86,
    KeyX = 88,
    KeyF2 = 113,
    KeyF4 = 115,
};

/// The bits of the Shift argument of key and mouse events.
enum ShiftMask : int { ShiftNone = 0, ShiftShift = 1, ShiftControl = 2, ShiftAlt = 4 };

/// The bits of the Button argument of mouse events.
enum MouseButtonMask : int { MouseNone = 0, MouseLeft = 1, MouseRight = 2, MouseMiddle = 4 };

} // namespace paperkite
