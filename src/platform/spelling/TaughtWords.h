#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace paperkite {

/// Words that somebody taught, as they were written. One that was taught in small letters is known
/// in capitals too; one with capitals only so ("LevelDB"), and in capitals altogether.
class TaughtWords {
public:
    void Add(const std::string& word);
    void Clear();
    bool Knows(const std::string& word) const;
    /// Those that are most like a word, the likeliest first.
    std::vector<std::string> Like(const std::string& word, std::size_t most) const;

private:
    std::unordered_set<std::string> mWords;
    std::unordered_set<std::string> mInCapitals;
};

} // namespace paperkite
