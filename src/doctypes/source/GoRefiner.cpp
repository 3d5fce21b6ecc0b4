#include "doctypes/source/GoRefiner.h"

#include "doctypes/source/CodeMask.h"
#include "doctypes/source/ParameterList.h"

#include <utility>

namespace paperkite {

namespace {

constexpr std::size_t none = std::string_view::npos;

/// "List" of "func (l *List[T])".
std::string ReceiverType(std::string_view head) {
    const std::size_t open = head.find('(');
    const std::size_t close = head.rfind(')');
    if (!head.starts_with("func") || open == none || close == none || close < open) {
        return {};
    }
    std::string_view receiver = Trimmed(head.substr(open + 1, close - open - 1));
    receiver = Trimmed(receiver.substr(0, receiver.find('[')));
    const std::size_t before = receiver.find_last_of(" *(");
    return std::string(receiver.substr(before == none ? 0 : before + 1));
}

} // namespace

// The folders are the packages; the package in the project's own folder has its name. The package
// of tests beside another one ("p_test") stands apart.
std::vector<ScopeStep> GoRefiner::GroupOf(Work& work) const {
    std::vector<ScopeStep> steps = ModulePath(work.File.Path);
    steps.pop_back();
    for (const CtagsTag& tag : work.File.Tags) {
        if (tag.Kind == "package") {
            if (steps.empty()) {
                steps.push_back({tag.Name, SourceKind::Package});
            } else if (tag.Name.ends_with("_test")) {
                steps.back().Name += "_test";
            }
            break;
        }
    }
    return steps;
}

bool GoRefiner::IsWanted(const CtagsTag& tag, const Work& work) const {
    return LanguageRefiner::IsWanted(tag, work) && tag.Kind != "packageName" &&
           tag.Kind != "receiver" && tag.Kind != "unknown" && tag.Name != "_";
}

SourceKind GoRefiner::KindOf(const CtagsTag& tag) const {
    const bool isOfType = !tag.ScopeKind.empty() && tag.ScopeKind != "package";
    return tag.Kind == "func" && isOfType ? SourceKind::Method : CommonKind(tag.Kind);
}

std::vector<ScopeStep> GoRefiner::ScopeOf(const CtagsTag& tag, const Work& work) const {
    std::vector<ScopeStep> steps = LanguageRefiner::ScopeOf(tag, work);
    if (!steps.empty()) {
        steps.erase(steps.begin());
    }
    return steps;
}

bool GoRefiner::Mend(Draft& draft, Work& work) const {
    SourceDeclaration& declaration = draft.Declaration;
    if (declaration.Kind == SourceKind::Package) {
        declaration.Scope.assign(work.Group.begin(), work.Group.end() - 1);
        declaration.Name = work.Group.back().Name;
        return true;
    }
    const std::string receiver = ReceiverType(draft.Head);
    if (IsCallable(declaration.Kind) && !receiver.empty()) {
        declaration.Scope = work.Group;
        declaration.Scope.push_back({receiver, SourceKind::Struct});
        declaration.Kind = SourceKind::Method;
    }
    if (IsCallable(declaration.Kind) && declaration.Signature.starts_with("[")) {
        // type parameters: ctags takes them for the parameters and those for the result
        declaration.Template = std::exchange(declaration.Signature, "");
        const std::size_t close = ClosingBracket(declaration.Type, 0);
        if (close != none) {
            declaration.Signature = declaration.Type.substr(0, close + 1);
            declaration.Type = Trimmed(std::string_view(declaration.Type).substr(close + 1));
        }
    }
    if (declaration.Kind == SourceKind::Typedef && declaration.Type.starts_with("[")) {
        const std::size_t close = ClosingBracket(declaration.Type, 0);
        const std::string rest(Trimmed(declaration.Type.substr(close == none ? 0 : close + 1)));
        if (rest.starts_with("struct") || rest.starts_with("interface")) {
            declaration.Template = declaration.Type.substr(0, close + 1);
            declaration.Kind =
                rest.starts_with("struct") ? SourceKind::Struct : SourceKind::Interface;
            declaration.Type.clear();
        }
    }
    const unsigned char first = static_cast<unsigned char>(declaration.Name[0]);
    const bool isExported = first >= 0x80 || (first >= 'A' && first <= 'Z');
    declaration.Access = isExported ? SourceAccess::Public : SourceAccess::Friend;
    return true;
}

} // namespace paperkite
