#include "doctypes/source/PathGlob.h"

namespace paperkite {

PathGlob::PathGlob(std::string_view pattern) : mPattern(pattern) {
    while (mPattern.starts_with("./")) {
        mPattern.erase(0, 2);
    }
    while (mPattern.size() > 1 && mPattern.back() == '/') {
        mPattern.pop_back();
    }
}

bool PathGlob::Matches(std::string_view relativePath) const {
    const std::string_view name = relativePath.substr(relativePath.rfind('/') + 1);
    return MatchesFrom(mPattern, relativePath) || MatchesFrom(mPattern, name);
}

// Backtracks to the last star only, and to the last double star when that is spent: never more
// than the square of the length, whatever the pattern.
bool PathGlob::MatchesFrom(std::string_view pattern, std::string_view text) {
    constexpr std::size_t none = std::string_view::npos;
    std::size_t p = 0, t = 0;
    std::size_t starPattern = none, starText = 0;
    std::size_t doublePattern = none, doubleText = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            const bool isDouble = p + 1 < pattern.size() && pattern[p + 1] == '*';
            p += isDouble ? 2 : 1;
            if (isDouble) {
                // "**/" also stands for no step at all
                if (p < pattern.size() && pattern[p] == '/' && (t == 0 || text[t - 1] == '/')) {
                    if (MatchesFrom(pattern.substr(p + 1), text.substr(t))) {
                        return true;
                    }
                }
                doublePattern = p, doubleText = t, starPattern = none;
            } else {
                starPattern = p, starText = t;
            }
        } else if (p < pattern.size() &&
                   (pattern[p] == text[t] || (pattern[p] == '?' && text[t] != '/'))) {
            ++p, ++t;
        } else if (starPattern != none && text[starText] != '/') {
            p = starPattern, t = ++starText;
        } else if (doublePattern != none) {
            p = doublePattern, t = ++doubleText, starPattern = none;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*') {
        ++p;
    }
    return p == pattern.size();
}

} // namespace paperkite
