#pragma once

#include "doctypes/source/SourceKind.h"

#include <cstdint>
#include <string>
#include <vector>

namespace paperkite {

/// One step on the way from the project to a declaration.
struct ScopeStep {
    std::string Name;
    SourceKind Kind = SourceKind::Other;
    bool operator==(const ScopeStep&) const = default;
};

/// Something that the source declares at one place, in terms that no longer depend on ctags.
struct SourceDeclaration {
    std::string Name;
    SourceKind Kind = SourceKind::Other;
    std::string OtherKind; ///< the word for a kind that is Other
    SourceLanguage Language = SourceLanguage::Other;
    std::string LanguageName;
    SourceAccess Access = SourceAccess::Public;
    std::vector<ScopeStep> Scope; ///< outermost first, without the project
    std::string Signature;        ///< "(int a)" with its brackets; empty without parameters
    std::string Type;             ///< of a field or typedef, or what a callable returns
    std::string Inherits;         ///< the names, parted by commas
    std::string Template;         ///< "<class T>"
    std::string Trait;            ///< the trait that a Rust method implements
    std::string Types;            ///< of a callable: ParameterList::TypesText of its signature
    std::uint32_t File = 0;       ///< as given by SourceIndexBuilder::AddFile
    std::uint32_t Line = 0;
    std::uint32_t EndLine = 0;
    bool IsForward = false;   ///< declares what is defined elsewhere: a prototype, an extern
    bool IsFileLocal = false; ///< another file may have another one of this name
    bool IsMember = false;    ///< out-of-line: Scope says to which type it belongs
    bool HasAccess = false;   ///< the place itself says the access
};

} // namespace paperkite
