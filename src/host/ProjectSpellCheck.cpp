#include "host/ProjectSpellCheck.h"

#include "foundation/LearnWord.h"

namespace paperkite {

bool ProjectSpellCheck::Run(const std::vector<Finding>& findings) {
    bool goesOn = true;
    const Finding* before = nullptr;
    for (const Finding& finding : findings) {
        if (before && before->CommentId != finding.CommentId) WriteComment();
        before = &finding;
        goesOn = Decide(finding);
        if (!goesOn) break;
    }
    WriteComment();
    return goesOn;
}

bool ProjectSpellCheck::Decide(const Finding& finding) {
    if (const auto known = mChanges.find(finding.Word); known != mChanges.end()) {
        mDecided.emplace_back(finding, known->second);
        return true;
    }
    // What was learnt or passed over meanwhile, or by other options, is right now.
    while (!mEngine.Check(finding.Word)) {
        const SpellAnswer answer = AskFor(finding);
        switch (answer.Action) {
        case SpellAction::Cancel:
            return false;
        case SpellAction::IgnoreAll:
            mAnswers.Ignore(finding.Word);
            return true;
        case SpellAction::ChangeAll:
            mChanges[finding.Word] = answer.Replacement;
            [[fallthrough]];
        case SpellAction::Change:
            mDecided.emplace_back(finding, answer.Replacement);
            return true;
        case SpellAction::Add:
            if (LearnWord(mEngine, finding.Word)) return true;
            break;
        case SpellAction::Options:
            mEngine.Events.OptionBtnClick.Raise();
            break;
        case SpellAction::Ignore:
            return true;
        }
    }
    return true;
}

SpellAnswer ProjectSpellCheck::AskFor(const Finding& finding) {
    SpellQuestion question;
    question.Word = finding.Word;
    question.Sentence = finding.Context.Line;
    question.At = finding.Context.At;
    if (mEngine.GetOptions().Suggest) question.Suggestions = mEngine.Suggest(finding.Word);
    return mAnswers.Ask(question);
}

void ProjectSpellCheck::WriteComment() {
    for (auto decided = mDecided.rbegin(); decided != mDecided.rend(); ++decided)
        mAnswers.Change(decided->first, decided->second);
    mDecided.clear();
}

} // namespace paperkite
