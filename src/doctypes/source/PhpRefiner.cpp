#include "doctypes/source/PhpRefiner.h"

#include "doctypes/source/ParameterList.h"

#include <algorithm>

namespace paperkite {

std::vector<ScopeStep> PhpRefiner::GroupOf(Work&) const {
    return {};
}

// ctags leaves the members of an enum in the namespace around it.
void PhpRefiner::Prepare(Work& work) const {
    for (const CtagsTag& tag : work.File.Tags) {
        if (tag.Kind == "enum") {
            work.Types[tag.Name] = &tag;
        }
    }
}

std::vector<ScopeStep> PhpRefiner::ScopeOf(const CtagsTag& tag, const Work& work) const {
    CtagsTag own = tag;
    std::replace(own.Scope.begin(), own.Scope.end(), ':', '\\');
    if (tag.Kind == "enum" || tag.Kind == "case") { // found by a pattern, without a scope
        own.ScopeKind = "namespace";
        for (const CtagsTag& other : work.File.Tags) {
            if (other.Kind == "namespace" && other.Line <= tag.Line) {
                own.Scope = other.Name;
            }
        }
    }
    std::vector<ScopeStep> steps = LanguageRefiner::ScopeOf(own, work);
    for (const auto& [name, enumeration] : work.Types) {
        const std::size_t place = work.Code.Text().Offset(enumeration->Line);
        if (tag.Line > enumeration->Line && tag.Line <= work.Code.EndOfBody(place)) {
            steps.push_back({name, SourceKind::Enumeration});
        }
    }
    return steps;
}

bool PhpRefiner::IsWanted(const CtagsTag& tag, const Work& work) const {
    if (tag.Kind == "case") {
        return std::any_of(work.Types.begin(), work.Types.end(), [&](const auto& pair) {
            const std::size_t place = work.Code.Text().Offset(pair.second->Line);
            return tag.Line > pair.second->Line && tag.Line <= work.Code.EndOfBody(place);
        });
    }
    return LanguageRefiner::IsWanted(tag, work) && tag.Kind != "alias" && tag.Kind != "local";
}

SourceKind PhpRefiner::KindOf(const CtagsTag& tag) const {
    if (tag.Kind == "case") {
        return SourceKind::Enumerator;
    }
    const bool isInType =
        tag.ScopeKind == "class" || tag.ScopeKind == "interface" || tag.ScopeKind == "trait";
    if (tag.Kind == "function" && isInType) {
        return tag.Name == "__construct"  ? SourceKind::Constructor
               : tag.Name == "__destruct" ? SourceKind::Destructor
                                          : SourceKind::Method;
    }
    return tag.Kind == "variable" && isInType ? SourceKind::Field : CommonKind(tag.Kind);
}

bool PhpRefiner::Mend(Draft& draft, Work&) const {
    SourceDeclaration& declaration = draft.Declaration;
    declaration.Access = HasWord(draft.Head, "private")     ? SourceAccess::Private
                         : HasWord(draft.Head, "protected") ? SourceAccess::Protected
                                                            : SourceAccess::Public;
    if (declaration.Kind == SourceKind::Field) {
        std::string type = DeclaredType(draft.Head);
        while (type.ends_with("$") || type.ends_with(" ")) {
            type.pop_back();
        }
        declaration.Type = type;
    } else if (!IsCallable(declaration.Kind)) {
        declaration.Type.clear();
    }
    if (declaration.Kind == SourceKind::Function && !declaration.Scope.empty() &&
        declaration.Scope.back().Kind == SourceKind::Enumeration) {
        declaration.Kind = SourceKind::Method;
    }
    return true;
}

} // namespace paperkite
