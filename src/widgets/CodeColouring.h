#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// What a stretch of source code is, for who colours it.
enum class CodePart { Plain, Keyword, Text, Comment, Number, Directive, Tag, Attribute };

/// In bytes of a line.
struct CodeStretch {
    std::size_t Start = 0;
    std::size_t Length = 0;
    CodePart Part = CodePart::Plain;

    bool operator==(const CodeStretch&) const = default;
};

/// Tells keywords, texts, comments and numbers of source code apart, well enough to colour it. It
/// knows the words of a language and how its comments and texts begin and end, no more.
///
///     const CodeColouring colouring("main.cpp");
///     int state = 0;
///     for (const auto& line : lines) Draw(line, colouring.Line(line, state));
class CodeColouring {
public:
    /// By the ending of a file's name; code of an ending that nobody knows is plain.
    explicit CodeColouring(const std::string& fileName);

    /// The stretches of a line that are not plain, in order. `state` is what the line before left,
    /// 0 at first, and becomes what this line leaves.
    std::vector<CodeStretch> Line(std::string_view line, int& state) const;

    struct Language;

private:
    std::size_t TakeOpen(std::string_view line, int& state, std::vector<CodeStretch>& out) const;
    std::size_t TakeComment(std::string_view line, std::size_t at, int& state,
                            std::vector<CodeStretch>& out) const;
    std::size_t TakeText(std::string_view line, std::size_t at, int& state,
                         std::vector<CodeStretch>& out) const;
    std::size_t TakeWord(std::string_view line, std::size_t at,
                         std::vector<CodeStretch>& out) const;
    std::vector<CodeStretch> MarkupLine(std::string_view line, int& state) const;

    const Language* mLanguage;
};

} // namespace paperkite
