#include "doctypes/source/RustRefiner.h"

#include "doctypes/source/CodeMask.h"
#include "doctypes/source/ParameterList.h"

namespace paperkite {

namespace {

constexpr std::size_t none = std::string_view::npos;

/// "fmt::Display" of "impl<T> fmt::Display for", and nothing of "impl<T>".
std::string TraitInHead(std::string_view head) {
    if (!head.ends_with(" for")) {
        return {};
    }
    std::size_t start = head.find("impl");
    start = start == none ? 0 : start + 4;
    if (start < head.size() && head[start] == '<') {
        const std::size_t close = ClosingBracket(head, start);
        start = close == none ? start : close + 1;
    }
    return NormalisedType(head.substr(start, head.size() - 4 - start));
}

/// The part of the head behind the last comma that stands between fields.
std::string_view OwnPart(std::string_view head) {
    const auto parts = SplitTopLevel(head, ',');
    return Trimmed(parts.back());
}

} // namespace

std::optional<std::vector<ScopeStep>> RustRefiner::GroupOfPath(std::string_view path) const {
    std::vector<ScopeStep> steps = ModulePath(path);
    const std::string file = steps.back().Name;
    if (file == "mod" || file == "lib" || file == "main") {
        steps.pop_back();
    }
    std::erase_if(steps, [](const ScopeStep& step) {
        return step.Name == "src" && step.Kind == SourceKind::Package;
    });
    if (!steps.empty()) {
        steps.back().Kind = SourceKind::Module;
    }
    return steps;
}

bool RustRefiner::IsWanted(const CtagsTag& tag, const Work& work) const {
    return LanguageRefiner::IsWanted(tag, work);
}

SourceKind RustRefiner::KindOf(const CtagsTag& tag) const {
    return tag.Kind == "interface"        ? SourceKind::Trait
           : tag.Kind == "implementation" ? SourceKind::Struct
                                          : CommonKind(tag.Kind);
}

bool RustRefiner::Mend(Draft& draft, Work& work) const {
    const CtagsTag& tag = draft.Tag;
    SourceDeclaration& declaration = draft.Declaration;
    if (tag.Kind == "implementation") {
        work.Trait = TraitInHead(draft.Head);
        return false;
    }
    const bool isOfTrait = tag.ScopeKind == "interface";
    if (tag.ScopeKind == "implementation") {
        declaration.Trait = work.Trait;
    }
    const std::string_view head = OwnPart(draft.Head);
    const bool isSeen =
        isOfTrait || !declaration.Trait.empty() || declaration.Kind == SourceKind::Enumerator;
    declaration.Access = isSeen                                             ? SourceAccess::Public
                         : head.find("pub(") != none || tag.Kind == "macro" ? SourceAccess::Friend
                         : HasWord(head, "pub")                             ? SourceAccess::Public
                                                                            : SourceAccess::Private;
    if (!IsCallable(declaration.Kind)) {
        const bool hasType = declaration.Kind == SourceKind::Field ||
                             declaration.Kind == SourceKind::Constant ||
                             declaration.Kind == SourceKind::Variable;
        declaration.Type = hasType ? TypeBehind(work, Behind(draft)) : "";
        return true;
    }
    // "<T: X>(x: &T) -> Result<(), ()> where T: Y"
    std::string_view signature = tag.Signature;
    const std::size_t generic = signature.starts_with("<") ? ClosingBracket(signature, 0) : none;
    if (generic != none) {
        declaration.Template = signature.substr(0, generic + 1);
        signature.remove_prefix(generic + 1);
    }
    const std::size_t close = ClosingBracket(signature, 0);
    if (close != none) {
        declaration.Signature = signature.substr(0, close + 1);
        std::string_view result = Trimmed(signature.substr(close + 1));
        result = result.substr(0, result.find(" where "));
        declaration.Type = result.starts_with("->") ? Trimmed(result.substr(2)) : "";
    }
    return true;
}

} // namespace paperkite
