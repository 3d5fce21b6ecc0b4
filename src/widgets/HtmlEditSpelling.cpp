#include "foundation/LearnWord.h"
#include "foundation/ScopeExit.h"
#include "foundation/Services.h"
#include "foundation/SpellWords.h"
#include "widgets/HtmlEdit.h"
#include "widgets/HtmlSpellCheck.h"

namespace paperkite {

bool HtmlEdit::CanCheckSpelling() const {
    return CanFind() && Engine();
}

void HtmlEdit::DoSpellCheck(const Ref<Object>& passedSpell, bool& cancel) {
    const auto passed = passedSpell ? passedSpell.As<SpellEngine>() : Ref<SpellEngine>();
    const Ref<SpellEngine> engine = passed ? passed : Engine();
    const auto ask = CurrentServices().AskSpelling;
    if (!CanFind() || !engine || !ask || mSpellCheckInProgress) return;
    CommitEdit();
    mSpellCheckInProgress = true;
    const ScopeExit ended([this] { mSpellCheckInProgress = false; });
    if (!HtmlSpellCheck(*this, *engine, ask).Run()) cancel = true;
}

Ref<SpellEngine> HtmlEdit::Engine() const {
    return mSpell ? mSpell : CurrentServices().Spelling;
}

void HtmlEdit::FollowEngine() {
    mWordsChanged.Disconnect();
    const auto tellMarks = [this] {
        Tell<HtmlEditObserver>([](HtmlEditObserver& observer) { observer.MarksChanged(); });
    };
    const auto engine = Engine();
    if (engine && mSpellAsYouType) mWordsChanged = engine->Events.WordsChanged.Connect(tellMarks);
    tellMarks();
}

void HtmlEdit::SetSpellObject(const Ref<SpellEngine>& engine) {
    if (mSpell == engine) return;
    mSpell = engine;
    FollowEngine();
}

void HtmlEdit::SetSpellOptions(const SpellOptions& options) {
    if (const auto engine = Engine()) engine->SetOptions(options);
}

void HtmlEdit::AddIgnoreAll(const std::string& word) {
    if (const auto engine = Engine()) engine->AddIgnoreAll(word);
}

void HtmlEdit::SetSpellAsYouType(bool value) {
    if (mSpellAsYouType == value) return;
    mSpellAsYouType = value;
    FollowEngine();
}

std::vector<TextRange> HtmlEdit::FindMisspelt(const std::string& text) const {
    std::vector<TextRange> found;
    const auto engine = Engine();
    if (!engine) return found;
    for (const auto& word : SpellWords::FindMisspelt(text, *engine))
        found.push_back({word.From, word.To - word.From});
    return found;
}

void HtmlEdit::UserIgnoreWord(const std::string& word) {
    AddIgnoreAll(word);
    Events.SpellIgnoreWordAdded.Raise(word);
}

void HtmlEdit::UserLearnWord(const std::string& word) {
    if (const auto engine = Engine()) LearnWord(*engine, word);
}

} // namespace paperkite
