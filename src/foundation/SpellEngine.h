#pragma once

#include "foundation/Event.h"
#include "foundation/Object.h"

#include <functional>
#include <string>
#include <vector>

namespace paperkite {

/// The options of spell checking that a host hands over.
struct SpellOptions {
    bool Suggest = true;
    bool IgnoreInUpperCase = true;
    bool IgnoreWithNumbers = true;
    bool IgnoreInMixedCase = false;
    /// Path of a dictionary's ".dic" file; empty for the language of the system.
    std::string MainDictionaryFile;
    /// A text file with a word a line, which the author adds to; empty for none.
    std::string CustomDictionaryFile;
    /// Words to pass over, separated by blanks or line breaks.
    std::string IgnoreWordList;

    bool operator==(const SpellOptions&) const = default;
};

/// What a project adds to the words that are right. Members that are empty add nothing.
struct ProjectSpelling {
    /// True for the names that the documented code declares, and the words that they are made of.
    std::function<bool(const std::string& word)> IsDeclared;
    /// Words that the project's authors had learnt, and those that they pass over.
    std::vector<std::string> Learnt;
    std::vector<std::string> Ignored;
    /// Keeps a word that an author has learnt now; raises an error where it cannot.
    std::function<void(const std::string& word)> Learn;
};

/// Knows which words are spelt right. One object serves all surfaces of a process; it is used in
/// one thread. Words are UTF-8, taken out of their text by whoever asks.
class SpellEngine : public Object {
public:
    std::string TypeName() const override { return "SpellEngine"; }

    /// A dictionary that is missing is told by GetProblem; then every word counts as right.
    virtual void SetOptions(const SpellOptions& options) = 0;
    virtual const SpellOptions& GetOptions() const = 0;
    /// A sentence that says which dictionary could not be read and what to do; empty when all is
    /// well.
    virtual std::string GetProblem() const = 0;
    /// The project that is written in from now on; an empty one for none.
    virtual void SetProject(ProjectSpelling project) = 0;

    /// True for a word that is right, passed over by the options, or taught.
    virtual bool Check(const std::string& word) = 0;
    virtual std::vector<std::string> Suggest(const std::string& word) = 0;
    /// Passes the word over from now on.
    virtual void AddIgnoreAll(const std::string& word) = 0;
    /// Hands the word to the project to keep, or writes it into the custom dictionary where no
    /// project keeps words; error 75 where there is none or it is read-only.
    virtual void AddToCustomDictionary(const std::string& word) = 0;

    struct SpellEvents {
        /// The author pressed the options button of a check.
        Event<> OptionBtnClick;
        /// What counts as right changed: marks have to be drawn anew.
        Event<> WordsChanged;
    } Events;
};

} // namespace paperkite
