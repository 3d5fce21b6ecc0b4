#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The links in the HTML of comments.
namespace paperkite::CommentLinks {

struct Link {
    /// The attribute's value, entities decoded.
    std::string Address;
    /// What a reader clicks on, in one line; empty for a picture, and for areas of one.
    std::string Caption;

    bool operator==(const Link&) const = default;
};

/// Whether a text may hold a link at all: a look at its tags' first letters.
bool MayHoldLinks(std::string_view html);

/// The A and AREA elements with an address, in order. No document is built; takes linear time.
std::vector<Link> Find(std::string_view html);

} // namespace paperkite::CommentLinks
