#pragma once

#include "foundation/TaggedComment.h"
#include "model/XmlElement.h"

#include <string>
#include <string_view>
#include <vector>

namespace paperkite::StoredComment {

/// The comment of a <comment> element; what else stands in the element is passed over. Without an
/// id it gets a fresh one.
Ref<TaggedComment> FromElement(const XmlElement& element);

/// The element that a comment is written as.
XmlElement ToElement(const std::string& item, const TaggedComment& comment);

/// A comment with the bytes that it was read from, its line break included.
struct Parsed {
    Ref<TaggedComment> Comment;
    std::string_view Bytes;
};

/// The comments of a run of ContentFileIndex. The bytes must outlive what comes back.
std::vector<Parsed> ParseRun(std::string_view bytes);

/// Whether the bytes say what the comment says, however they are laid out.
bool SaysTheSame(std::string_view bytes, const TaggedComment& comment);

} // namespace paperkite::StoredComment
