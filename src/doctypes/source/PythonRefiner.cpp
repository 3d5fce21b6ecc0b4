#include "doctypes/source/PythonRefiner.h"

#include "doctypes/source/ParameterList.h"

#include <algorithm>

namespace paperkite {

std::optional<std::vector<ScopeStep>> PythonRefiner::GroupOfPath(std::string_view path) const {
    std::vector<ScopeStep> steps = ModulePath(path);
    if (steps.back().Name == "__init__") {
        steps.pop_back();
        if (!steps.empty()) {
            steps.back().Kind = SourceKind::Module;
        }
    }
    return steps;
}

bool PythonRefiner::IsLocal(const CtagsTag& tag, Work& work) const {
    return tag.ScopeKind == "member" || LanguageRefiner::IsLocal(tag, work);
}

bool PythonRefiner::IsWanted(const CtagsTag& tag, const Work& work) const {
    return LanguageRefiner::IsWanted(tag, work) && tag.Kind != "unknown" &&
           tag.Kind != "namespace" && tag.Kind != "module" && tag.Kind != "local" &&
           tag.Kind != "parameter";
}

SourceKind PythonRefiner::KindOf(const CtagsTag& tag) const {
    if (tag.Kind == "member") {
        const auto decorators = SplitTopLevel(tag.Decorators, ',');
        const bool isProperty =
            std::any_of(decorators.begin(), decorators.end(), [](std::string_view name) {
                name = Trimmed(name);
                return name == "property" || name.ends_with("cached_property") ||
                       name.ends_with("abstractproperty") || name.ends_with(".setter") ||
                       name.ends_with(".deleter") || name.ends_with(".getter");
            });
        return isProperty               ? SourceKind::Property
               : tag.Name == "__init__" ? SourceKind::Constructor
                                        : SourceKind::Method;
    }
    if (tag.Kind == "variable") {
        const bool isConstant = std::any_of(tag.Name.begin(), tag.Name.end(),
                                            [](char c) { return c >= 'A' && c <= 'Z'; }) &&
                                std::none_of(tag.Name.begin(), tag.Name.end(),
                                             [](char c) { return c >= 'a' && c <= 'z'; });
        return isConstant                 ? SourceKind::Constant
               : tag.ScopeKind == "class" ? SourceKind::Field
                                          : SourceKind::Variable;
    }
    return CommonKind(tag.Kind);
}

bool PythonRefiner::Mend(Draft& draft, Work&) const {
    SourceDeclaration& declaration = draft.Declaration;
    const std::string& name = declaration.Name;
    const bool isSpecial = name.size() > 4 && name.starts_with("__") && name.ends_with("__");
    declaration.Access = isSpecial || !name.starts_with("_") ? SourceAccess::Public
                         : name.starts_with("__")            ? SourceAccess::Private
                                                             : SourceAccess::Protected;
    std::string bases;
    for (const std::string_view base : SplitTopLevel(declaration.Inherits, ',')) {
        if (base.find('=') == std::string_view::npos) { // not "metaclass=M"
            bases.append(bases.empty() ? "" : ",").append(Trimmed(base));
        }
    }
    declaration.Inherits = bases;
    if (declaration.Kind == SourceKind::Property) {
        declaration.Signature.clear();
    }
    return true;
}

} // namespace paperkite
