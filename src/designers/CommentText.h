#pragma once

#include <string>

namespace paperkite {

/// The text of a comment while it is edited: knows what is stored, what that looks like as the
/// document writes it, and so whether anything was changed at all.
class CommentText {
public:
    /// The stored text, and how the place writes it.
    void Take(const std::string& stored, const std::string& inPlace);
    /// What is to be stored for what stands in the place now: without blanks at its ends, empty for
    /// an emptied place, and the stored text itself where the place says the same as at first.
    std::string Stored(const std::string& inPlace) const;

private:
    static std::string Trimmed(const std::string& html);

    std::string mStored;
    std::string mInPlace;
};

} // namespace paperkite
