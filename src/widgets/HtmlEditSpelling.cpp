#include "foundation/Services.h"
#include "widgets/HtmlEdit.h"

namespace paperkite {

namespace {

[[noreturn]] void RaiseNotAvailable(const char* what) {
    RaiseError(ErrorNumber::InvalidCall, std::string(what) + " is not available in this editor");
}

} // namespace

void HtmlEdit::DoFind(const std::string&, bool, bool, bool) {
    RaiseNotAvailable("Searching");
}

void HtmlEdit::DoReplace(const std::string&, const std::string&, bool, bool, bool) {
    RaiseNotAvailable("Replacing");
}

void HtmlEdit::DoSpellCheck(const Ref<Object>&, bool&) {
    RaiseNotAvailable("The spell check");
}

Ref<SpellEngine> HtmlEdit::Engine() const {
    return mSpell ? mSpell : CurrentServices().Spelling;
}

void HtmlEdit::SetSpellObject(const Ref<SpellEngine>& engine) {
    if (mSpell == engine) return;
    mSpell = engine;
    mWordsChanged.Disconnect();
    const auto tellMarks = [this] {
        Tell<HtmlEditObserver>([](HtmlEditObserver& observer) { observer.MarksChanged(); });
    };
    if (engine) mWordsChanged = engine->Events.WordsChanged.Connect(tellMarks);
    tellMarks();
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
    Tell<HtmlEditObserver>([](HtmlEditObserver& observer) { observer.MarksChanged(); });
}

void HtmlEdit::UserIgnoreWord(const std::string& word) {
    AddIgnoreAll(word);
    Events.SpellIgnoreWordAdded.Raise(word);
}

void HtmlEdit::UserLearnWord(const std::string& word) {
    if (const auto engine = Engine()) engine->AddToCustomDictionary(word);
}

} // namespace paperkite
