#pragma once

#include "host/Commands.h"

#include <string>

namespace paperkite {

/// Makes one page with a page template, and writes it to a file or to the output. Names of other
/// items are no links there, since their pages are not made. Mistakes in the layout's tags, and
/// what the page cannot show, go to the error stream, and the page is made all the same.
struct PreviewCommand {
    /// Empty: the layout of the item's level.
    std::string Layout;
    /// A name, or the path of a folder; empty: the template "Modern", or the first one.
    std::string Template;
    /// Empty: the page goes to the output, style sheets included.
    std::string Out;
    bool Edit = false;

    int Run(const CommandTarget& target, Output& output) const;
};

} // namespace paperkite
