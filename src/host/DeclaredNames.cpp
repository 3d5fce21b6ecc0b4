#include "host/DeclaredNames.h"

#include "foundation/SpellWords.h"
#include "foundation/Unicode.h"

namespace paperkite {

namespace {

bool IsNameByte(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return code >= 128 || byte == '_' || (code >= '0' && code <= '9') ||
           ((code | 32u) >= 'a' && (code | 32u) <= 'z');
}

std::string Folded(std::string_view word) {
    std::string result;
    for (std::size_t at = 0; at < word.size();)
        AppendCharacter(result, FoldCase(NextCharacter(word, at)));
    return result;
}

} // namespace

void DeclaredNames::Add(const SourceIndex& index) {
    for (std::size_t entity = 0; entity < index.Size(); ++entity) {
        const auto id = static_cast<SourceIndex::Id>(entity);
        AddNames(index.Name(id));
        AddNames(index.Signature(id));
        AddNames(index.Type(id));
    }
}

void DeclaredNames::AddNames(std::string_view code) {
    for (std::size_t at = 0; at < code.size();) {
        std::size_t end = at;
        while (end < code.size() && IsNameByte(code[end]))
            ++end;
        if (end > at) AddName(code.substr(at, end - at));
        at = end + 1;
    }
}

void DeclaredNames::AddName(std::string_view name) {
    if (!mNames.emplace(name).second) return;
    for (std::size_t at = 0; at < name.size();) {
        const std::size_t end = std::min(name.find('_', at), name.size());
        const std::string_view step = name.substr(at, end - at);
        for (const auto& part : SpellWords::PartsOf(step))
            if (part.To - part.From > 1)
                mWords.insert(Folded(step.substr(part.From, part.To - part.From)));
        at = end + 1;
    }
}

bool DeclaredNames::Knows(const std::string& word) const {
    return mNames.contains(word) || mWords.contains(Folded(word));
}

} // namespace paperkite
