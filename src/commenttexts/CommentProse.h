#pragma once

#include "commenttexts/CommentForm.h"

#include <cstddef>
#include <string_view>
#include <vector>

/// What searches and spell checks have to know of the forms of comments.
namespace paperkite::CommentProse {

/// The form that a text really has: that of its definition, or HTML where it is not in that one.
CommentForm FormOfText(const TaggedCommentDef* definition, std::string_view text);

/// Whether the text is HTML; otherwise every byte means itself.
bool IsHtml(CommentForm form);

/// Bytes of a text, from From up to To.
struct Stretch {
    std::size_t From = 0;
    std::size_t To = 0;

    bool operator==(const Stretch&) const = default;
};

/// Where a text of a form that is no HTML is written in a language: keywords, titles, captions and
/// the steps of menus. Names of items and files, keys, versions and XML are none.
std::vector<Stretch> StretchesOf(CommentForm form, std::string_view text);

} // namespace paperkite::CommentProse
