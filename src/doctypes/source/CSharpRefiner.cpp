#include "doctypes/source/CSharpRefiner.h"

#include "doctypes/source/CodeMask.h"
#include "doctypes/source/ParameterList.h"

namespace paperkite {

namespace {

constexpr std::size_t none = std::string_view::npos;

} // namespace

// "namespace A.B;" holds for the whole file, and ctags says nothing of it.
std::vector<ScopeStep> CSharpRefiner::GroupOf(Work& work) const {
    std::vector<ScopeStep> steps;
    const SourceText& text = work.Code.Text();
    for (std::uint32_t line = 1; line <= text.LineCount(); ++line) {
        std::string_view code =
            std::string_view(work.Code.Masked()).substr(text.Offset(line), text.Line(line).size());
        code = Trimmed(code);
        if (!code.starts_with("namespace ") || !code.ends_with(";")) {
            continue;
        }
        for (const std::string_view step : SplitTopLevel(code.substr(10, code.size() - 11), '.')) {
            steps.push_back({std::string(Trimmed(step)), SourceKind::Namespace});
        }
        break;
    }
    return steps;
}

SourceKind CSharpRefiner::KindOf(const CtagsTag& tag) const {
    return CommonKind(tag.Kind);
}

namespace {

SourceAccess AccessOf(std::string_view head, const CtagsTag& tag, SourceKind kind,
                      bool (*hasWord)(std::string_view, std::string_view)) {
    if (hasWord(head, "protected")) {
        return SourceAccess::Protected;
    }
    if (hasWord(head, "public") || kind == SourceKind::Namespace || tag.ScopeKind == "enum" ||
        (tag.ScopeKind == "interface" && !hasWord(head, "private"))) {
        return SourceAccess::Public;
    }
    const bool isTopLevel = tag.ScopeKind.empty() || tag.ScopeKind == "namespace";
    return hasWord(head, "internal") || (isTopLevel && !hasWord(head, "private"))
               ? SourceAccess::Friend
               : SourceAccess::Private;
}

/// "Base, IFoo" behind "class Foo<T>" and before "where" or the body.
std::string BaseTypes(std::string_view masked, std::size_t place) {
    std::string_view rest = masked.substr(place, masked.find_first_of("{;", place) - place);
    const std::size_t where = rest.find(" where ");
    rest = rest.substr(0, where);
    const std::size_t colon = rest.find(':');
    return colon == none ? std::string() : NormalisedType(rest.substr(colon + 1));
}

} // namespace

bool CSharpRefiner::Mend(Draft& draft, Work& work) const {
    const CtagsTag& tag = draft.Tag;
    SourceDeclaration& declaration = draft.Declaration;
    if (draft.Place == none) {
        return true;
    }
    const std::string& masked = work.Code.Masked();
    std::string_view head = draft.Head;
    declaration.Access = AccessOf(head, tag, declaration.Kind, HasWord);
    const std::size_t behind = Behind(draft);
    declaration.Template = BracketedText(work, behind, '<');
    if (IsType(declaration.Kind)) {
        declaration.Inherits = BaseTypes(masked, behind);
        return true;
    }
    const std::string_view owner =
        declaration.Scope.empty() ? "" : std::string_view(declaration.Scope.back().Name);
    if (declaration.Kind == SourceKind::Method) {
        const bool isInNamespace = tag.ScopeKind.empty() || tag.ScopeKind == "namespace";
        if (HasWord(head, "delegate")) {
            declaration.Kind = SourceKind::Delegate;
        } else if (HasWord(head, "record") || (isInNamespace && HasWord(head, "struct"))) {
            declaration.Kind = HasWord(head, "struct") ? SourceKind::Struct : SourceKind::Class;
            return true;
        } else if (isInNamespace) {
            return false;
        } else if (tag.Name == owner) {
            declaration.Kind = SourceKind::Constructor;
            return true;
        } else if (tag.Name.starts_with("~")) {
            declaration.Kind = SourceKind::Destructor;
            return true;
        } else if (tag.Name.starts_with("operator")) {
            declaration.Kind = SourceKind::Operator;
            declaration.Name.erase(declaration.Name.compare(0, 9, "operator ") == 0 ? 8 : 0,
                                   declaration.Name.compare(0, 9, "operator ") == 0 ? 1 : 0);
        }
    } else if (declaration.Kind == SourceKind::Field) {
        const std::size_t next = masked.find_first_not_of(" \t\r\n", behind);
        declaration.Kind = next != none && masked.compare(next, 2, "=>") == 0 ? SourceKind::Property
                           : HasWord(head, "const")                           ? SourceKind::Constant
                                                                              : SourceKind::Field;
    }
    if (tag.ScopeKind != "enum" && declaration.Kind != SourceKind::Namespace) {
        declaration.Type = DeclaredType(head);
    }
    return true;
}

} // namespace paperkite
