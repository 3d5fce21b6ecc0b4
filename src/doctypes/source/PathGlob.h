#pragma once

#include <string>
#include <string_view>

namespace paperkite {

/// One pattern for paths below a folder: `?` is one character and `*` any run of characters of one
/// path step, `**` any run across steps. A pattern is compared with the whole relative path
/// ("src/gen/a.c") and with the bare name ("a.c"), so "*.c", "gen", "src/gen" and "**/gen/*.c" all
/// find something there. A slash at the end ("build/") is ignored. Case counts.
class PathGlob {
public:
    explicit PathGlob(std::string_view pattern);

    bool Matches(std::string_view relativePath) const;

private:
    static bool MatchesFrom(std::string_view pattern, std::string_view text);

    std::string mPattern;
};

} // namespace paperkite
