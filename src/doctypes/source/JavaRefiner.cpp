#include "doctypes/source/JavaRefiner.h"

#include "doctypes/source/ParameterList.h"

namespace paperkite {

// A package is one step with its dots: packages do not hold each other.
std::vector<ScopeStep> JavaRefiner::GroupOf(Work& work) const {
    for (const CtagsTag& tag : work.File.Tags) {
        if (tag.Kind == "package") {
            return {{tag.Name, SourceKind::Package}};
        }
    }
    return {};
}

SourceKind JavaRefiner::KindOf(const CtagsTag& tag) const {
    return CommonKind(tag.Kind);
}

bool JavaRefiner::Mend(Draft& draft, Work& work) const {
    const CtagsTag& tag = draft.Tag;
    SourceDeclaration& declaration = draft.Declaration;
    const std::string_view head = draft.Head;
    if (declaration.Kind == SourceKind::Package) {
        declaration.Scope.clear();
        return true;
    }
    const bool isInInterface = tag.ScopeKind == "interface" || tag.ScopeKind == "annotation";
    declaration.Access = HasWord(head, "public")      ? SourceAccess::Public
                         : HasWord(head, "protected") ? SourceAccess::Protected
                         : HasWord(head, "private")   ? SourceAccess::Private
                         : isInInterface || declaration.Kind == SourceKind::Enumerator
                             ? SourceAccess::Public
                             : SourceAccess::Friend;
    declaration.Template = BracketedText(work, Behind(draft), '<');
    if (IsType(declaration.Kind) || declaration.Kind == SourceKind::Enumerator) {
        return true;
    }
    const bool isOfType = !declaration.Scope.empty() && declaration.Scope.back().Name == tag.Name;
    if (declaration.Kind == SourceKind::Method && HasWord(head, "record")) {
        declaration.Kind = SourceKind::Class;
        return true;
    }
    if (declaration.Kind == SourceKind::Method && isOfType) {
        declaration.Kind = SourceKind::Constructor;
        return true;
    }
    if (declaration.Kind == SourceKind::Field &&
        (isInInterface || (HasWord(head, "static") && HasWord(head, "final")))) {
        declaration.Kind = SourceKind::Constant;
    }
    declaration.Type = DeclaredType(head);
    return true;
}

} // namespace paperkite
