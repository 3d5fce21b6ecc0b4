#pragma once

#include <cstdint>
#include <string>

namespace paperkite {

/// One line of ctags, as it stands there.
struct CtagsTag {
    std::string Name;
    std::string Path;
    std::string Language;
    std::string Kind;
    std::string Scope;
    std::string ScopeKind;
    std::string Access;
    std::string Signature;
    std::string TypeRef; ///< "typename:int", "struct:point"
    std::string Inherits;
    std::string Implementation;
    std::string Template;
    std::string Specialization;
    std::string Properties;
    std::string Decorators;
    std::uint32_t Line = 0;
    std::uint32_t End = 0; ///< 0 when ctags does not tell
};

} // namespace paperkite
