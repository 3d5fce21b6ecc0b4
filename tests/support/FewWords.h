#pragma once

#include "foundation/Error.h"
#include "foundation/SpellEngine.h"
#include "foundation/SpellWords.h"
#include "foundation/Text.h"

#include <set>
#include <string>
#include <vector>

namespace paperkite::test {

/// Knows the words that a test gives it, in any case, and remembers what it is told.
class FewWords : public SpellEngine {
public:
    explicit FewWords(const std::string& words) {
        for (const std::string& word : Split(words, " "))
            mKnown.insert(LowerCase(word));
    }

    void SetOptions(const SpellOptions& options) override { mOptions = options; }
    const SpellOptions& GetOptions() const override { return mOptions; }
    std::string GetProblem() const override { return {}; }
    void SetProject(ProjectSpelling) override {}
    bool Check(const std::string& word) override {
        return SpellWords::IsPassedOver(word, mOptions) || mKnown.contains(LowerCase(word));
    }
    std::vector<std::string> Suggest(const std::string& word) override { return {word + "?"}; }
    void AddIgnoreAll(const std::string& word) override {
        mKnown.insert(LowerCase(word));
        Told += "ignore " + word + ";";
        Events.WordsChanged.Raise();
    }
    void AddToCustomDictionary(const std::string& word) override {
        if (CannotLearn) RaiseError(ErrorNumber::PathOrFileAccess, "No room for " + word + ".");
        mKnown.insert(LowerCase(word));
        Told += "learn " + word + ";";
        Events.WordsChanged.Raise();
    }

    std::string Told;
    /// Refuses to keep words.
    bool CannotLearn = false;

private:
    SpellOptions mOptions;
    std::set<std::string> mKnown;
};

} // namespace paperkite::test
