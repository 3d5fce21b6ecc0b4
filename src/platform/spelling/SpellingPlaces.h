#pragma once

#include <string>
#include <vector>

namespace paperkite {

/// Where a spelling engine finds its dictionaries, and what it speaks.
struct SpellingPlaces {
    /// Folders with dictionaries: pairs of files such as "en_US.dic" and "en_US.aff". The first one
    /// that has a language counts.
    std::vector<std::string> Folders;
    /// "de_AT"; a language without dictionary gives way to another country's, and that to en_US.
    std::string Language = "en_US";
    /// The user's own words, made on first use; empty for none.
    std::string CustomFile;

    /// DICPATH, the user's folders and the system's; the language of LC_ALL, LC_MESSAGES or LANG;
    /// the user's words in $XDG_DATA_HOME/paperkite/custom.words, usually below ~/.local/share.
    static SpellingPlaces OfSystem();

    /// The ".dic" file for the language, or its next best; empty for none.
    std::string FindDictionary() const;
};

} // namespace paperkite
