#pragma once

#include "doctypes/source/CtagsTag.h"

#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// Finds the classes, their members and the functions of a TypeScript file. ctags loses the rest of
/// a class behind an optional member, an overload, an abstract method or an arrow function, so that
/// these tags take the place of its own.
class TypeScriptReader {
public:
    /// Works on masked code, see MaskComments.
    explicit TypeScriptReader(std::string_view masked) : mCode(masked) {}

    /// Tags of the kinds "class", "function", and in classes "constructor", "method", "getter",
    /// "setter" and "property".
    std::vector<CtagsTag> Read();

private:
    void Block(const std::string& scope);
    void Class(const std::string& scope);
    void Member(const std::string& scope);
    void Function(const std::string& scope);
    CtagsTag& AddTag(std::string_view name, std::string_view kind, std::size_t place,
                     const std::string& scope, std::string_view scopeKind);

    void SkipBlanks();
    std::string_view Word();
    bool Take(std::string_view text);
    void SkipBracket();
    void SkipToBody();
    void SkipStatement();

    std::string_view mCode;
    std::size_t mAt = 0;
    std::vector<CtagsTag> mTags;
    std::vector<std::size_t> mPlaces;
};

} // namespace paperkite
