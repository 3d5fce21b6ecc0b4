#pragma once

#include "foundation/HtmlText.h"
#include "foundation/SpellQuestion.h"
#include "foundation/SpellWords.h"
#include "widgets/HtmlEdit.h"

#include <functional>
#include <map>
#include <string>

namespace paperkite {

/// One spell check of an HtmlEdit, from its first place to its last, word by word.
class HtmlSpellCheck {
public:
    using Ask = std::function<SpellAnswer(const SpellQuestion&)>;

    HtmlSpellCheck(HtmlEdit& edit, SpellEngine& engine, Ask ask)
        : mEdit(edit), mEngine(engine), mAsk(std::move(ask)) {}

    /// False when the author ended it.
    bool Run();

    /// The sentence of a plain text around some of its bytes, which it tells the beginning of.
    static std::string SentenceAround(const std::string& text, std::size_t from, std::size_t to,
                                      std::size_t& begin);

private:
    enum class Outcome { GoOn, Changed, Cancelled };

    bool CheckPlace(const Ref<HTMLElement>& place);
    Outcome CheckWord(const Ref<HTMLElement>& place, const HtmlText& text,
                      const SpellWords::Misspelt& word);
    Outcome Change(const Ref<HTMLElement>& place, const HtmlText& text,
                   const SpellWords::Misspelt& word, const std::string& replacement);
    SpellAnswer AskFor(const Ref<HTMLElement>& place, const HtmlText& text,
                       const SpellWords::Misspelt& word);

    HtmlEdit& mEdit;
    SpellEngine& mEngine;
    Ask mAsk;
    HtmlEdit::PlaceStep mStep;
    /// What a word is changed to wherever it stands.
    std::map<std::string, std::string> mChanges;
    /// Where the check goes on in the present place, in bytes of its text.
    std::size_t mFrom = 0;
};

} // namespace paperkite
