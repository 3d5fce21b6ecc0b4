#include "platform/spelling/TaughtWords.h"

#include "foundation/EditDistance.h"
#include "foundation/Unicode.h"

#include <algorithm>

namespace paperkite {

namespace {

std::string Folded(std::string_view word) {
    std::string result;
    for (std::size_t at = 0; at < word.size();)
        AppendCharacter(result, FoldCase(NextCharacter(word, at)));
    return result;
}

bool IsInCapitals(std::string_view word) {
    for (std::size_t at = 0; at < word.size();)
        if (IsLowerCase(NextCharacter(word, at))) return false;
    return true;
}

} // namespace

void TaughtWords::Add(const std::string& word) {
    if (word.empty()) return;
    mWords.insert(word);
    mInCapitals.insert(Folded(word));
}

void TaughtWords::Clear() {
    mWords.clear();
    mInCapitals.clear();
}

bool TaughtWords::Knows(const std::string& word) const {
    if (mWords.empty()) return false;
    if (mWords.contains(word)) return true;
    const std::string folded = Folded(word);
    return mWords.contains(folded) || (IsInCapitals(word) && mInCapitals.contains(folded));
}

std::vector<std::string> TaughtWords::Like(const std::string& word, std::size_t most) const {
    const std::string wanted = Folded(word);
    const std::size_t farthest = wanted.size() < 5 ? 1 : 2;
    std::vector<std::pair<std::size_t, std::string>> near;
    for (const std::string& known : mWords) {
        const std::size_t distance = EditDistance(wanted, Folded(known), farthest);
        if (distance <= farthest) near.emplace_back(distance, known);
    }
    std::sort(near.begin(), near.end());
    if (near.size() > most) near.resize(most);
    std::vector<std::string> words;
    for (auto& [distance, known] : near)
        words.push_back(std::move(known));
    return words;
}

} // namespace paperkite
