#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace paperkite {

/// A word that a spell check came upon and does not know.
struct SpellQuestion {
    std::string Word;
    /// The sentence that it stands in, as plain text, and where the word begins there, in bytes.
    std::string Sentence;
    std::size_t At = 0;
    /// The likeliest first; none where the options do not ask for any.
    std::vector<std::string> Suggestions;
};

/// What an author may do with such a word.
enum class SpellAction {
    Ignore,    ///< leave it this time
    IgnoreAll, ///< pass it over from now on
    Change,    ///< write Replacement in its place
    ChangeAll, ///< and wherever else this check meets it
    Add,       ///< have it learnt
    Options,   ///< look at the options, and be asked again
    Cancel     ///< end the check
};

struct SpellAnswer {
    SpellAction Action = SpellAction::Cancel;
    /// Plain text, for Change and ChangeAll.
    std::string Replacement;
};

} // namespace paperkite
