#include "widgets/HtmlSpellCheck.h"

#include "foundation/Error.h"
#include "foundation/LearnWord.h"

#include <algorithm>

namespace paperkite {

bool HtmlSpellCheck::Run() {
    const std::vector<Ref<HTMLElement>> places = mEdit.GetPlaces();
    bool goesOn = true;
    try {
        for (auto place = places.begin(); goesOn && place != places.end(); ++place)
            goesOn = CheckPlace(*place);
    } catch (...) {
        mEdit.KeepStep(std::move(mStep));
        throw;
    }
    mEdit.KeepStep(std::move(mStep));
    return goesOn;
}

bool HtmlSpellCheck::CheckPlace(const Ref<HTMLElement>& place) {
    mFrom = 0;
    for (bool isAgain = true; isAgain;) {
        isAgain = false;
        if (!mEdit.IsPlace(place)) return true;
        const std::string html = place->GetInnerHTML();
        const HtmlText text(html);
        for (const auto& word : SpellWords::FindMisspelt(text, mEngine)) {
            if (word.From < mFrom) continue;
            const Outcome outcome = CheckWord(place, text, word);
            if (outcome == Outcome::Cancelled) return false;
            isAgain = outcome == Outcome::Changed;
            if (isAgain) break;
        }
    }
    return true;
}

HtmlSpellCheck::Outcome HtmlSpellCheck::CheckWord(const Ref<HTMLElement>& place,
                                                  const HtmlText& text,
                                                  const SpellWords::Misspelt& word) {
    if (const auto known = mChanges.find(word.Word); known != mChanges.end())
        return Change(place, text, word, known->second);
    // What was learnt or passed over meanwhile, or by other options, is right now.
    while (!mEngine.Check(word.Word)) {
        const SpellAnswer answer = AskFor(place, text, word);
        if (answer.Action == SpellAction::Cancel) return Outcome::Cancelled;
        // The author may have changed the document while he was asked.
        if (!mEdit.IsPlace(place) || place->GetInnerHTML() != text.GetSource()) {
            mFrom = word.From;
            return Outcome::Changed;
        }
        switch (answer.Action) {
        case SpellAction::IgnoreAll:
            mEngine.AddIgnoreAll(word.Word);
            mEdit.Events.SpellIgnoreWordAdded.Raise(word.Word);
            return Outcome::GoOn;
        case SpellAction::ChangeAll:
            mChanges[word.Word] = answer.Replacement;
            return Change(place, text, word, answer.Replacement);
        case SpellAction::Change:
            return Change(place, text, word, answer.Replacement);
        case SpellAction::Add:
            if (LearnWord(mEngine, word.Word)) return Outcome::GoOn;
            break;
        case SpellAction::Options:
            mEngine.Events.OptionBtnClick.Raise();
            break;
        default:
            return Outcome::GoOn;
        }
    }
    return Outcome::GoOn;
}

HtmlSpellCheck::Outcome HtmlSpellCheck::Change(const Ref<HTMLElement>& place, const HtmlText& text,
                                               const SpellWords::Misspelt& word,
                                               const std::string& replacement) {
    mFrom = word.From + replacement.size();
    mEdit.ChangePlace(place, text.Replaced({{word.From, word.To}}, replacement), mStep);
    return Outcome::Changed;
}

SpellAnswer HtmlSpellCheck::AskFor(const Ref<HTMLElement>& place, const HtmlText& text,
                                   const SpellWords::Misspelt& word) {
    const auto& places = mEdit.GetPlaces();
    const auto index =
        static_cast<std::size_t>(std::find(places.begin(), places.end(), place) - places.begin());
    const auto source = text.SourceOf(word.From, word.To);
    if (index < places.size() && !source.empty())
        mEdit.SelectSource(index, std::string(text.GetSource()), source.front().From,
                           source.back().To);
    SpellQuestion question;
    question.Word = word.Word;
    std::size_t begin = 0;
    question.Sentence = SentenceAround(text.GetText(), word.From, word.To, begin);
    question.At = word.From - begin;
    if (mEngine.GetOptions().Suggest) question.Suggestions = mEngine.Suggest(word.Word);
    return mAsk(question);
}

std::string HtmlSpellCheck::SentenceAround(const std::string& text, std::size_t from,
                                           std::size_t to, std::size_t& begin) {
    const auto endsSentence = [&](std::size_t at) {
        const bool isSign = text[at] == '.' || text[at] == '!' || text[at] == '?';
        return isSign && (at + 1 == text.size() || text[at + 1] == ' ' || text[at + 1] == '\n');
    };
    begin = from;
    while (begin > 0 && text[begin - 1] != '\n' && !endsSentence(begin - 1))
        --begin;
    while (begin < from && text[begin] == ' ')
        ++begin;
    std::size_t end = to;
    while (end < text.size() && text[end] != '\n' && !endsSentence(end))
        ++end;
    if (end < text.size() && text[end] != '\n') ++end;
    return text.substr(begin, end - begin);
}

} // namespace paperkite
