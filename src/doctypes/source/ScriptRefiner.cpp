#include "doctypes/source/ScriptRefiner.h"

#include "doctypes/source/CodeMask.h"
#include "doctypes/source/ParameterList.h"
#include "doctypes/source/TypeScriptReader.h"

#include <algorithm>

namespace paperkite {

namespace {

constexpr std::size_t none = std::string_view::npos;

bool IsExports(std::string_view scope) {
    return scope == "exports" || scope == "module.exports" || scope == "module";
}

} // namespace

std::optional<std::vector<ScopeStep>> ScriptRefiner::GroupOfPath(std::string_view path) const {
    return ModulePath(path);
}

void ScriptRefiner::Prepare(Work& work) const {
    for (const CtagsTag& tag : work.File.Tags) {
        if (tag.Kind == "class") {
            work.Types[tag.Scope + "." + tag.Name] = &tag;
        }
    }
}

std::optional<std::vector<CtagsTag>> ScriptRefiner::BetterTags(const Work& work) const {
    if (work.File.Tags[0].Language != "TypeScript") {
        return std::nullopt;
    }
    std::vector<CtagsTag> tags = TypeScriptReader(work.Code.Masked()).Read();
    for (const CtagsTag& tag : work.File.Tags) {
        if (tag.Kind != "class" && tag.Kind != "function" && tag.Kind != "generator" &&
            tag.ScopeKind != "class") {
            tags.push_back(tag);
        }
    }
    return tags;
}

// "Ctor.make = function" is a member of Ctor, though Ctor is a function.
bool ScriptRefiner::IsLocal(const CtagsTag& tag, Work& work) const {
    if (IsExports(tag.Scope) || !LanguageRefiner::IsLocal(tag, work)) {
        return false;
    }
    const std::string_view line = work.Code.Text().Line(tag.Line);
    const std::size_t step = tag.Scope.rfind('.');
    const std::string member =
        tag.Scope.substr(step == std::string::npos ? 0 : step + 1) + "." + tag.Name;
    return line.find(member) == none;
}

bool ScriptRefiner::IsWanted(const CtagsTag& tag, const Work& work) const {
    const char first = tag.Name[0]; // keys like "&" are data
    const bool isName = std::isalpha(static_cast<unsigned char>(first)) || first == '_' ||
                        first == '$' || first == '#' || static_cast<unsigned char>(first) >= 0x80;
    if (!isName || tag.Kind == "local" || tag.Kind == "parameter") {
        return false;
    }
    if (IsExports(tag.Scope) || tag.Name == "exports") { // "module.exports = { f }" for a known f
        return tag.Name != "exports" && std::none_of(work.File.Tags.begin(), work.File.Tags.end(),
                                                     [&](const CtagsTag& other) {
                                                         return other.Name == tag.Name &&
                                                                other.Scope.empty();
                                                     });
    }
    return LanguageRefiner::IsWanted(tag, work);
}

SourceKind ScriptRefiner::KindOf(const CtagsTag& tag) const {
    const bool isInType = tag.ScopeKind == "class" || tag.ScopeKind == "interface" ||
                          (!tag.Scope.empty() && tag.ScopeKind == "function");
    if (tag.Name == "constructor" && tag.Kind == "method") {
        return SourceKind::Constructor;
    }
    if (tag.Kind == "function" || tag.Kind == "generator") {
        return isInType && !IsExports(tag.Scope) ? SourceKind::Method : SourceKind::Function;
    }
    return tag.Kind == "alias"      ? SourceKind::Typedef
           : tag.Kind == "property" ? SourceKind::Field
                                    : CommonKind(tag.Kind);
}

bool ScriptRefiner::Mend(Draft& draft, Work& work) const {
    SourceDeclaration& declaration = draft.Declaration;
    const std::string& masked = work.Code.Masked();
    if (IsExports(draft.Tag.Scope)) {
        declaration.Scope = work.Group;
    }
    if (draft.Place == none) {
        return true;
    }
    // "function Old() {}" with "Old.prototype.run = ..." is a class, reported as both
    if (declaration.Kind == SourceKind::Function &&
        work.Types.contains(draft.Tag.Scope + "." + draft.Tag.Name)) {
        declaration.Kind = SourceKind::Class;
    }
    if (draft.Place > 0 && masked[draft.Place - 1] == '#') {
        declaration.Name = std::string(1, '#').append(draft.Tag.Name);
        declaration.Access = SourceAccess::Private;
    }
    if (declaration.Kind == SourceKind::Property) {
        declaration.Signature.clear();
    }
    if (declaration.Language != SourceLanguage::TypeScript) {
        return true;
    }
    std::size_t behind = Behind(draft);
    behind += masked.compare(behind, 1, "?") == 0 ? 1 : 0;
    declaration.Template = BracketedText(work, behind, '<');
    if (!declaration.Template.empty()) {
        behind = ClosingBracket(masked, behind) + 1;
    }
    if (IsCallable(declaration.Kind) && declaration.Signature.empty()) {
        behind = std::min(masked.find_first_not_of(" \t", behind), masked.size());
        declaration.Signature = BracketedText(work, behind, '(');
        if (!declaration.Signature.empty()) {
            behind = ClosingBracket(masked, behind) + 1;
        }
    }
    if (!IsType(declaration.Kind) && !IsGroup(declaration.Kind)) {
        declaration.Type = TypeBehind(work, behind);
    }
    return true;
}

} // namespace paperkite
