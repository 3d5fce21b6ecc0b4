#include "designers/CommentText.h"

#include "foundation/Text.h"

namespace paperkite {

void CommentText::Take(const std::string& stored, const std::string& inPlace) {
    mStored = stored;
    mInPlace = Trimmed(inPlace);
}

std::string CommentText::Stored(const std::string& inPlace) const {
    const std::string text = Trimmed(inPlace);
    return text == mInPlace ? mStored : text;
}

// A blank at an end comes out of the page as an entity; one is dropped at each.
std::string CommentText::Trimmed(const std::string& html) {
    constexpr std::string_view blank = "&nbsp;";
    std::string text = TrimBlanks(html);
    if (text.starts_with(blank)) text.erase(0, blank.size());
    if (text.ends_with(blank)) text.erase(text.size() - blank.size());
    return EqualIgnoringCase(text, "<p>&nbsp;</p>") ? std::string() : text;
}

} // namespace paperkite
