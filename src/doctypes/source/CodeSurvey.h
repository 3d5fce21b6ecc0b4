#pragma once

#include <set>
#include <string>
#include <string_view>

namespace paperkite {

/// A look at the C and C++ files of a project before ctags reads them: which macros would lead it
/// astray, and whether a ".h" file is C or C++.
///
/// Rule for ".h": they are C++ when the project has a source or header with an extension of C++, or
/// when a ".h" file has a line that begins with "class", "namespace" or "template".
class CodeSurvey {
public:
    /// Whether the survey wants to see the file at all.
    static bool IsOfInterest(std::string_view path);

    void Look(std::string_view path, std::string_view text);

    /// As if this one had looked at all that the other one has looked at.
    void Merge(const CodeSurvey& other);

    /// What was seen, as bytes that can be kept.
    std::string Encoded() const;

    /// False when the bytes cannot be right.
    bool MergeEncoded(std::string_view bytes);

    bool HeadersAreCpp() const { return mHasCpp; }

    /// Definitions for ctags' option -D that make macros vanish: attribute macros ("FOO_EXPORT",
    /// macros defined as nothing or as an attribute) and statements without a semicolon
    /// ("Q_DISABLE_COPY(X)").
    std::set<std::string> Definitions() const;

private:
    using Names = std::set<std::string, std::less<>>;

    void LookAtDirective(std::string_view line);
    void LookAtLine(std::string_view line, std::string_view next);
    void LookAtWords(std::string_view line);

    bool mHasCpp = false;
    Names mAttributes;
    Names mStatements;
    Names mBlocks; ///< macros that are seen with a body behind them
};

} // namespace paperkite
