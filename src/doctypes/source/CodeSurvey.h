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

    bool HeadersAreCpp() const { return mHasCpp; }

    /// Definitions for ctags' option -D that make macros vanish: attribute macros ("FOO_EXPORT",
    /// macros defined as nothing or as an attribute) and statements without a semicolon
    /// ("Q_DISABLE_COPY(X)").
    std::set<std::string> Definitions() const;

private:
    void LookAtDirective(std::string_view line);
    void LookAtLine(std::string_view line, std::string_view next);
    void LookAtWords(std::string_view line);

    bool mHasCpp = false;
    std::set<std::string, std::less<>> mAttributes;
    std::set<std::string, std::less<>> mStatements;
    std::set<std::string, std::less<>> mBlocks; ///< macros that are seen with a body behind them
};

} // namespace paperkite
