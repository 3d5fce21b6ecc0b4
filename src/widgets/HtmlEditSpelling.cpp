#include "foundation/Services.h"
#include "widgets/HtmlEdit.h"

namespace paperkite {

namespace {

[[noreturn]] void RaiseNotAvailable(const char* what) {
    RaiseError(ErrorNumber::InvalidCall, std::string(what) + " is not available in this editor");
}

bool IsLetter(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte >= 128 || (byte >= '0' && byte <= '9') || (byte | 32u) - 'a' < 26u;
}

// With blanks, as many bytes, for the wide blanks and the typographic signs that no word holds.
std::string WithPlainBlanks(std::string text) {
    for (std::size_t at = 0; at + 1 < text.size(); ++at) {
        if (text.compare(at, 2, "\xC2\xA0") == 0) text.replace(at, 2, "  ");
        const bool isSign = text.compare(at, 2, "\xE2\x80") == 0;
        if (isSign && at + 2 < text.size()) text.replace(at, 3, "   ");
    }
    return text;
}

} // namespace

bool HtmlEdit::CanFind() const {
    return false;
}

bool HtmlEdit::CanCheckSpelling() const {
    return false;
}

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

// Words are runs of letters and digits, with apostrophes inside.
std::vector<TextRange> HtmlEdit::FindMisspelt(const std::string& given) const {
    const std::string text = WithPlainBlanks(given);
    std::vector<TextRange> found;
    const auto engine = Engine();
    if (!engine) return found;
    for (std::size_t at = 0; at < text.size();) {
        if (!IsLetter(text[at])) {
            ++at;
            continue;
        }
        std::size_t end = at;
        while (end < text.size() &&
               (IsLetter(text[end]) ||
                (text[end] == '\'' && end + 1 < text.size() && IsLetter(text[end + 1]))))
            ++end;
        if (!engine->Check(text.substr(at, end - at))) found.push_back({at, end - at});
        at = end;
    }
    return found;
}

void HtmlEdit::UserIgnoreWord(const std::string& word) {
    AddIgnoreAll(word);
    Events.SpellIgnoreWordAdded.Raise(word);
}

void HtmlEdit::UserLearnWord(const std::string& word) {
    if (const auto engine = Engine()) engine->AddToCustomDictionary(word);
}

} // namespace paperkite
