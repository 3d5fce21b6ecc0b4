#include "foundation/LearnWord.h"

#include "foundation/Error.h"
#include "foundation/Services.h"
#include "foundation/SpellEngine.h"

namespace paperkite {

bool LearnWord(SpellEngine& engine, const std::string& word) {
    try {
        engine.AddToCustomDictionary(word);
        return true;
    } catch (const Error& error) {
        const auto& messages = CurrentServices().MessageBox;
        if (messages) messages->Show(error.GetDescription(), "Spelling", MessageIcon::Warning);
        return false;
    }
}

} // namespace paperkite
