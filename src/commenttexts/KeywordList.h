#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// The words under which an index lists an item besides its name, each of one or several levels.
///
/// The text has a line for each keyword, its levels joined by " > ":
///
///     databases
///     files > opening > read only
///
/// Commas separate keywords too, when a text is read.
class KeywordList {
public:
    /// Nothing for a text that is none of keywords, such as HTML.
    static std::optional<KeywordList> Read(std::string_view text);
    /// A line for each keyword; empty when there are none.
    std::string Write() const;

    const std::vector<std::string>& GetKeywords() const { return mKeywords; }
    /// Adds what is typed, which may be several keywords; gives those that were there already. A
    /// list in the order of the alphabet stays so.
    std::vector<std::string> Add(std::string_view typed);
    /// Puts another keyword in the place of one, from 0. False, and nothing changes, when the list
    /// has that one already or it is empty.
    bool Change(std::size_t position, std::string_view keyword);
    void Remove(std::size_t position);

    /// A keyword with one blank between its words and around each ">" between levels. A ">" that
    /// touches a letter belongs to a word ("operator>>").
    static std::string Normal(std::string_view keyword);
    /// The levels of a keyword.
    static std::vector<std::string> Levels(std::string_view keyword);

private:
    /// Where a keyword is, letter case ignored; the end when it is not there.
    std::vector<std::string>::const_iterator Find(const std::string& keyword) const;
    std::size_t PlaceFor(const std::string& keyword) const;

    std::vector<std::string> mKeywords;
};

} // namespace paperkite
