#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace paperkite {

/// What an entity of source code is, the same words for every language.
enum class SourceKind : std::uint8_t {
    Project,
    Package,
    Module,
    Namespace,
    Class,
    Interface,
    Trait,
    Struct,
    Union,
    Enumeration,
    Annotation,
    Typedef,
    Delegate,
    Constructor,
    Destructor,
    Operator,
    Method,
    Function,
    Property,
    Event,
    Field,
    Enumerator,
    Constant,
    Variable,
    Macro,
    Other, ///< anything else; its text is the word that ctags has for it
};

inline constexpr std::size_t kSourceKindCount = static_cast<std::size_t>(SourceKind::Other) + 1;

enum class SourceLanguage : std::uint8_t {
    C,
    Cpp,
    CSharp,
    Java,
    Python,
    JavaScript,
    TypeScript,
    Go,
    Rust,
    Php,
    Ruby,
    Other,
};

/// From what is seen everywhere to what is seen inside only. Friend is what a language shows to the
/// same package, assembly or crate.
enum class SourceAccess : std::uint8_t { Public, Protected, Friend, Private };

/// "Class", "Method" ...
std::string_view KindText(SourceKind kind);

/// "PUBLIC", "PROTECTED", "FRIEND", "PRIVATE"
std::string_view AccessText(SourceAccess access);

/// The language that ctags names so.
SourceLanguage LanguageOfName(std::string_view ctagsName);

/// Package, Module, Namespace: what may be opened again and again.
bool IsGroup(SourceKind kind);

/// Class, Struct, Enumeration ...: types that have members.
bool IsType(SourceKind kind);

/// What has a parameter list.
bool IsCallable(SourceKind kind);

} // namespace paperkite
