#include "doctypes/source/SourceKind.h"

#include <array>

namespace paperkite {

std::string_view KindText(SourceKind kind) {
    constexpr std::array<std::string_view, 26> texts = {
        "Project",  "Package",     "Module",     "Namespace",   "Class",      "Interface",
        "Trait",    "Struct",      "Union",      "Enumeration", "Annotation", "Typedef",
        "Delegate", "Constructor", "Destructor", "Operator",    "Method",     "Function",
        "Property", "Event",       "Field",      "Enumerator",  "Constant",   "Variable",
        "Macro",    "Other"};
    return texts[static_cast<std::size_t>(kind)];
}

std::string_view AccessText(SourceAccess access) {
    constexpr std::array<std::string_view, 4> texts = {"PUBLIC", "PROTECTED", "FRIEND", "PRIVATE"};
    return texts[static_cast<std::size_t>(access)];
}

SourceLanguage LanguageOfName(std::string_view ctagsName) {
    constexpr std::array<std::string_view, 11> names = {
        "C",          "C++", "C#",   "Java", "Python", "JavaScript",
        "TypeScript", "Go",  "Rust", "PHP",  "Ruby"};
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (names[i] == ctagsName) {
            return static_cast<SourceLanguage>(i);
        }
    }
    return SourceLanguage::Other;
}

bool IsGroup(SourceKind kind) {
    return kind == SourceKind::Package || kind == SourceKind::Module ||
           kind == SourceKind::Namespace || kind == SourceKind::Project;
}

bool IsType(SourceKind kind) {
    return kind >= SourceKind::Class && kind <= SourceKind::Annotation;
}

bool IsCallable(SourceKind kind) {
    return kind >= SourceKind::Delegate && kind <= SourceKind::Function;
}

} // namespace paperkite
