#pragma once

#include "doctypes/source/SourceKind.h"

#include <string>
#include <string_view>

namespace paperkite {

/// How a language writes its comments.
struct CommentSyntax {
    std::string_view Line;       ///< "//", "#", "--" or nothing
    std::string_view OtherLine;  ///< a second mark, PHP's "#"
    std::string_view BlockBegin; ///< or nothing
    std::string_view BlockEnd;
    bool HasCharacterQuotes = false; ///< 'a' is one character (and Rust's 'a alone is no quote)

    bool HasInnerDocs = false; ///< "//!" is about what is around it, as in Rust

    static const CommentSyntax& Of(SourceLanguage language, std::string_view languageName = {});
};

/// The code with every comment and every string turned into blanks, of the same length and the same
/// lines, so that brackets and words in it are those of the code alone. String quotes remain.
std::string MaskComments(std::string_view text, const CommentSyntax& syntax);

/// Where the bracket at `open` (one of ( [ { <) is closed in masked code, or npos. For '<' only the
/// angle brackets and round ones count.
std::size_t ClosingBracket(std::string_view masked, std::size_t open);

} // namespace paperkite
