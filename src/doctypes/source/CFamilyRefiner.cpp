#include "doctypes/source/CFamilyRefiner.h"

#include "doctypes/source/ParameterList.h"

#include <algorithm>

namespace paperkite {

namespace {

constexpr std::string_view anonymous = "__anon";

bool IsHeader(std::string_view path) {
    const std::string_view extension = path.substr(std::min(path.rfind('.'), path.size()));
    return extension.starts_with(".h") || extension.starts_with(".H") || extension == path ||
           extension == ".ipp" || extension == ".inl" || extension == ".tcc" || extension.empty();
}

std::string_view LastStep(std::string_view scoped) {
    const std::size_t at = scoped.rfind("::");
    return at == std::string_view::npos ? scoped : scoped.substr(at + 2);
}

bool LooksLikeMacro(std::string_view word) {
    return word.size() > 4 && word.find('_') != std::string_view::npos &&
           std::none_of(word.begin(), word.end(),
                        [](char c) { return (c >= 'a' && c <= 'z') || c == ':' || c == '<'; });
}

/// "bool" of "SOME_INLINE bool SOME_CALL": without macros where something else says the type.
std::string WithoutMacros(std::string_view type) {
    const auto isNoType = [](std::string_view word) {
        return LooksLikeMacro(word) || word == "const" || word == "volatile" || word == "struct" ||
               word == "union" || word == "enum" || word == "class" || word == "typename" ||
               word.find_first_not_of("*&") == std::string_view::npos;
    };
    std::vector<std::string_view> words = SplitTopLevel(type, ' ');
    if (std::all_of(words.begin(), words.end(), isNoType)) {
        return std::string(type);
    }
    while (LooksLikeMacro(words.front())) {
        words.erase(words.begin());
    }
    while (LooksLikeMacro(words.back())) {
        words.pop_back();
    }
    std::string result;
    for (const std::string_view word : words) {
        result.append(result.empty() ? "" : " ").append(word);
    }
    return result;
}

bool HasProperty(const CtagsTag& tag, std::string_view property) {
    const auto parts = SplitTopLevel(tag.Properties, ',');
    return std::find(parts.begin(), parts.end(), property) != parts.end();
}

} // namespace

std::vector<ScopeStep> CFamilyRefiner::GroupOf(Work&) const {
    return {};
}

void CFamilyRefiner::Prepare(Work& work) const {
    for (const CtagsTag& tag : work.File.Tags) {
        if (tag.Name.starts_with(anonymous)) {
            work.Types[tag.Name] = &tag;
        }
        if (!tag.Specialization.empty() && tag.Kind != "function" && tag.Kind != "prototype") {
            work.Specialised.push_back(&tag);
        }
        const std::size_t colon = tag.TypeRef.find(':');
        const std::string type(LastStep(
            std::string_view(tag.TypeRef).substr(std::min(colon + 1, tag.TypeRef.size()))));
        const std::string bare = type.substr(0, type.find_first_of(" *[&"));
        if (bare.starts_with(anonymous) && (tag.Kind == "typedef" || tag.Kind == "member" ||
                                            tag.Kind == "variable" || tag.Kind == "externvar")) {
            work.Namers.try_emplace(bare, &tag);
        }
        if (tag.Language == "QtMoc" && tag.Kind == "signal") {
            work.Signals.emplace(tag.Line, tag.Name);
        }
    }
}

bool CFamilyRefiner::IsWanted(const CtagsTag& tag, const Work& work) const {
    if (tag.Language == "QtMoc") {
        return tag.Kind == "property";
    }
    if (tag.Kind == "macro") { // not the guard of a header
        const SourceText& text = work.Code.Text();
        std::uint32_t line = tag.Line - 1;
        while (line > 0 && Trimmed(text.Line(line)).empty()) {
            --line;
        }
        const std::string_view define = Trimmed(text.Line(tag.Line));
        const std::string_view before = Trimmed(text.Line(line));
        return !(before.starts_with("#") && HasWord(before, "ifndef") &&
                 before.ends_with(tag.Name) && define.ends_with(tag.Name));
    }
    return LanguageRefiner::IsWanted(tag, work) && tag.Kind != "header" && tag.Kind != "using" &&
           tag.Kind != "name";
}

SourceKind CFamilyRefiner::KindOf(const CtagsTag& tag) const {
    const bool isInType =
        tag.ScopeKind == "class" || tag.ScopeKind == "struct" || tag.ScopeKind == "union";
    if (tag.Kind == "prototype" || tag.Kind == "function") {
        return tag.Name.starts_with("~")           ? SourceKind::Destructor
               : tag.Name.starts_with("operator ") ? SourceKind::Operator
               : isInType                          ? SourceKind::Method
                                                   : SourceKind::Function;
    }
    return tag.Kind == "alias" ? SourceKind::Other : CommonKind(tag.Kind);
}

// Steps without a name of their own take the name of what has that type; nobody's are left out.
// Members of a specialised template are told from those of the template by where they stand.
std::vector<ScopeStep> CFamilyRefiner::ScopeOf(const CtagsTag& tag, const Work& work) const {
    std::vector<ScopeStep> steps;
    std::string path;
    for (ScopeStep step : LanguageRefiner::ScopeOf(tag, work)) {
        path += (path.empty() ? "" : "::") + step.Name;
        const auto namer = work.Namers.find(step.Name);
        if (namer != work.Namers.end()) {
            const auto unnamed = work.Types.find(step.Name);
            const bool isType = namer->second->Kind == "typedef" && unnamed != work.Types.end();
            step.Kind = KindOf(isType ? *unnamed->second : *namer->second);
            step.Name = namer->second->Name;
        } else if (step.Name.starts_with(anonymous)) {
            continue;
        } else {
            for (const CtagsTag* type : work.Specialised) {
                if (type->Name == step.Name && type->Line <= tag.Line && tag.Line <= type->End &&
                    path == (type->Scope.empty() ? "" : type->Scope + "::") + type->Name) {
                    step.Name += NormalisedType(type->Specialization);
                    break;
                }
            }
        }
        steps.push_back(std::move(step));
    }
    return steps;
}

bool CFamilyRefiner::NeedsHead(SourceKind kind) const {
    return kind == SourceKind::Variable || kind == SourceKind::Field;
}

bool CFamilyRefiner::Mend(Draft& draft, Work& work) const {
    const CtagsTag& tag = draft.Tag;
    SourceDeclaration& declaration = draft.Declaration;
    if (tag.Language == "QtMoc") {
        declaration.Language = SourceLanguage::Cpp;
        declaration.LanguageName = "C++";
        return true;
    }
    if (work.Signals.contains({tag.Line, tag.Name})) {
        declaration.Kind = SourceKind::Event;
    }
    if (IsType(declaration.Kind)) {
        declaration.Name += NormalisedType(tag.Specialization);
    }
    if (declaration.Kind == SourceKind::Operator && tag.Name.size() > 9 &&
        !std::isalpha(static_cast<unsigned char>(tag.Name[9]))) {
        declaration.Name.erase(8, 1); // "operator ==" is written "operator=="
    }
    const std::string type(LastStep(declaration.Type));
    const auto unnamed = work.Types.find(type.substr(0, type.find_first_of(" *[&")));
    if (unnamed != work.Types.end()) {
        declaration.Line = std::min(tag.Line, unnamed->second->Line);
        declaration.EndLine = std::max(tag.Line, unnamed->second->End);
        declaration.Type = unnamed->second->Kind;
        if (tag.Kind == "typedef") {
            declaration.Kind = KindOf(*unnamed->second);
            declaration.Type.clear();
        }
    }
    if ((declaration.Kind == SourceKind::Variable || declaration.Kind == SourceKind::Field) &&
        HasWord(draft.Head, "constexpr")) {
        declaration.Kind = SourceKind::Constant;
    }
    if (IsCallable(declaration.Kind)) {
        declaration.Type = WithoutMacros(declaration.Type);
        const bool isOfType =
            !declaration.Scope.empty() && tag.Name == declaration.Scope.back().Name;
        if ((isOfType || declaration.Kind == SourceKind::Destructor) &&
            LooksLikeMacro(declaration.Type)) {
            declaration.Type.clear();
        }
    }
    const bool isInType = tag.ScopeKind == "class" || tag.ScopeKind == "struct";
    // "DECLARE_SOMETHING(Type);" looks like a prototype without a type
    const bool isCall =
        tag.Kind == "prototype" && tag.TypeRef.empty() && tag.Name.size() > 3 &&
        tag.Name.find('_') != std::string::npos &&
        std::none_of(tag.Name.begin(), tag.Name.end(), [](char c) { return c >= 'a' && c <= 'z'; });
    if (isCall && (declaration.Scope.empty() || declaration.Scope.back().Name != tag.Name)) {
        return false;
    }
    // what ctags could not read as a function leaves its locals behind as members
    const bool isData = tag.Kind == "member" || tag.Kind == "typedef" || tag.Kind == "variable";
    if (isData && draft.Place != std::string::npos && work.Code.IsInFunctionBody(draft.Place)) {
        return false;
    }
    declaration.IsForward = tag.Kind == "prototype" || tag.Kind == "externvar" ||
                            (tag.Kind == "member" && HasProperty(tag, "static"));
    const bool isUnnamedSpace =
        tag.Scope.find(anonymous) != std::string::npos && tag.ScopeKind == "namespace";
    const bool isStatic = HasProperty(tag, "static") && !isInType;
    if (isUnnamedSpace || (isStatic && !IsHeader(work.File.Path))) {
        declaration.IsFileLocal = !IsHeader(work.File.Path);
        declaration.Access = SourceAccess::Private;
    }
    return true;
}

} // namespace paperkite
