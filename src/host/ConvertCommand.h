#pragma once

#include "host/Commands.h"

#include <string>

namespace paperkite {

/// Brings a page layout into the form in which it is edited, or back.
struct ConvertCommand {
    /// A layout, or the span document of one.
    std::string File;
    /// "span" or "meta"
    std::string To;
    /// The layout whose span document the file is; empty where the file is a layout itself.
    std::string Layout;

    /// Prints the result. A span document alone has no elements: on the way back they come from the
    /// layout that it was made from. A layout without spans is written as an editor would save it.
    /// What is wrong with its tags is told, and stops nothing.
    int Run(Output& output) const;
};

} // namespace paperkite
