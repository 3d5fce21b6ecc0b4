#pragma once

#include "foundation/SpellQuestion.h"
#include "host/SpellCheckWork.h"

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace paperkite {

/// Asks the author about the misspelt words of a project, one after the other.
class ProjectSpellCheck {
public:
    using Finding = SpellCheckWork::Finding;

    struct Answers {
        std::function<SpellAnswer(const SpellQuestion&)> Ask;
        /// Writes a replacement. What was decided on one comment is told from its end to its
        /// begin, so that no change moves the place of the next one.
        std::function<void(const Finding& finding, const std::string& replacement)> Change;
        /// Passes a word over from now on.
        std::function<void(const std::string& word)> Ignore;
    };

    ProjectSpellCheck(SpellEngine& engine, Answers answers)
        : mEngine(engine), mAnswers(std::move(answers)) {}

    /// False when the author ended it; what was decided until then is done.
    bool Run(const std::vector<Finding>& findings);

private:
    bool Decide(const Finding& finding);
    SpellAnswer AskFor(const Finding& finding);
    void WriteComment();

    SpellEngine& mEngine;
    Answers mAnswers;
    /// What a word is changed to wherever it stands.
    std::map<std::string, std::string> mChanges;
    /// Of the comment that is being gone through.
    std::vector<std::pair<Finding, std::string>> mDecided;
};

} // namespace paperkite
