#include "fuzz/FuzzTarget.h"
#include "fuzz/LayoutTrip.h"

namespace paperkite::fuzz {
namespace {

const FuzzTarget target("layout", [](std::string_view input) {
    const std::string html(input);
    const LayoutTrip once(html);
    if (once.Saved().empty()) {
        Require(!once.Messages().empty(), "a layout is lost without a word");
        return;
    }
    // What is no text cannot be kept as one, and whoever made it is told.
    if (once.Edited().find('\0') != std::string::npos)
        return Require(!once.Messages().empty(), "a zero byte passes without a word");
    for (const std::string& source : LayoutTrip::Sources(html))
        Require(once.Saved().find(source) != std::string::npos,
                "an element is lost: " + source + "\n---\n" + once.Saved());
    // Tags that were refused are text, and whoever made them was told.
    if (!once.Messages().empty()) return;
    const LayoutTrip twice(once.Saved());
    Require(twice.Saved() == once.Saved(),
            "saving again changes a layout:\n" + once.Saved() + "\n---\n" + twice.Saved());
});

} // namespace
} // namespace paperkite::fuzz
