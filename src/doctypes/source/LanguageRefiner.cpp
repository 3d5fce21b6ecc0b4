#include "doctypes/source/LanguageRefiner.h"

#include "doctypes/source/CFamilyRefiner.h"
#include "doctypes/source/CSharpRefiner.h"
#include "doctypes/source/CodeMask.h"
#include "doctypes/source/GoRefiner.h"
#include "doctypes/source/JavaRefiner.h"
#include "doctypes/source/NameCharacter.h"
#include "doctypes/source/ParameterList.h"
#include "doctypes/source/PhpRefiner.h"
#include "doctypes/source/PythonRefiner.h"
#include "doctypes/source/RubyRefiner.h"
#include "doctypes/source/RustRefiner.h"
#include "doctypes/source/ScriptRefiner.h"
#include "foundation/Utf8.h"

#include <algorithm>
#include <array>

namespace paperkite {

namespace {

constexpr std::size_t none = std::string_view::npos;

/// Words that stand before a type without being part of it, in any of the languages.
bool IsModifier(std::string_view word) {
    constexpr std::array<std::string_view, 36> modifiers = {
        "public",       "private",  "protected", "internal",  "static",   "final",
        "abstract",     "virtual",  "override",  "sealed",    "async",    "extern",
        "unsafe",       "readonly", "new",       "partial",   "volatile", "native",
        "synchronized", "strictfp", "default",   "transient", "const",    "inline",
        "explicit",     "implicit", "event",     "delegate",  "required", "file",
        "declare",      "export",   "function",  "var",       "ref",      "fixed"};
    return std::find(modifiers.begin(), modifiers.end(), word) != modifiers.end();
}

std::string Collapsed(std::string_view text) {
    std::string result;
    text = Trimmed(text);
    result.reserve(text.size());
    for (const char c : text) {
        const bool isBlank = c == ' ' || c == '\t' || c == '\r' || c == '\n';
        if (!isBlank) {
            result += c;
        } else if (!result.empty() && result.back() != ' ') {
            result += ' ';
        }
    }
    return result;
}

} // namespace

TaggedCode::TaggedCode(const SourceText& text, SourceLanguage language,
                       std::string_view languageName)
    : mText(text), mHasSigils(language == SourceLanguage::Php),
      mMasked(MaskComments(text.Text(), CommentSyntax::Of(language, languageName))) {}

std::size_t TaggedCode::Locate(const CtagsTag& tag) {
    constexpr std::uint32_t linesToSearch = 3;
    std::size_t from = mText.Offset(tag.Line);
    const std::size_t end = mText.Offset(tag.Line + linesToSearch);
    const auto searched = std::string_view(mMasked).substr(0, end + tag.Name.size());
    auto [at, isNew] = mFound.try_emplace({tag.Line, tag.Name}, from);
    from = at->second;
    for (std::size_t found; (found = searched.find(tag.Name, from)) != none && found < end;
         from = found + 1) {
        const std::size_t after = found + tag.Name.size();
        const bool isWhole =
            !(found > 0 && IsNameCharacter(mMasked[found - 1]) && IsNameCharacter(tag.Name[0]) &&
              !(mHasSigils && mMasked[found - 1] == '$')) &&
            !(after < mMasked.size() && IsNameCharacter(mMasked[after]) &&
              IsNameCharacter(tag.Name.back()));
        if (isWhole) {
            at->second = after;
            return found;
        }
    }
    return none;
}

std::string TaggedCode::HeadBefore(std::size_t place) const {
    constexpr std::size_t furthest = 2000;
    const std::size_t limit = place > furthest ? place - furthest : 0;
    std::size_t start = place;
    int depth = 0;
    while (start > limit) {
        const char c = mMasked[start - 1];
        depth += c == ')' || c == ']';
        depth -= (c == '(' || c == '[') && depth > 0;
        if (depth == 0 && (c == ';' || c == '{' || c == '}')) {
            break;
        }
        --start;
    }
    return Collapsed(std::string_view(mMasked).substr(start, place - start));
}

bool TaggedCode::IsInFunctionBody(std::size_t place) const {
    constexpr std::size_t furthest = 4000;
    const std::size_t limit = place > furthest ? place - furthest : 0;
    int depth = 0;
    for (std::size_t i = place; i > limit; --i) {
        const char c = mMasked[i - 1];
        depth += c == '}';
        if (c != '{' || --depth >= 0) {
            continue;
        }
        const std::string_view before = Trimmed(std::string_view(mMasked).substr(0, i - 1));
        return before.ends_with(")") || before.ends_with(" const") ||
               before.ends_with("noexcept") || before.ends_with("override") ||
               before.ends_with("else");
    }
    return false;
}

std::uint32_t TaggedCode::EndOfBody(std::size_t place) const {
    int depth = 0;
    for (std::size_t i = place; i < mMasked.size() && i < place + 4000; ++i) {
        const char c = mMasked[i];
        depth += c == '(' || c == '[';
        depth -= c == ')' || c == ']';
        if (depth < 0 || (depth == 0 && (c == ';' || c == '}'))) {
            return 0;
        }
        if (depth == 0 && c == '{') {
            const std::size_t close = ClosingBracket(mMasked, i);
            return close == none ? 0 : mText.LineAt(close);
        }
    }
    return 0;
}

std::vector<SourceDeclaration> LanguageRefiner::Refine(const TaggedFile& file,
                                                       const SourceText& text) const {
    std::vector<SourceDeclaration> declarations;
    if (file.Tags.empty()) {
        return declarations;
    }
    const std::string& languageName = file.Tags[0].Language;
    TaggedCode code(text, LanguageOfName(languageName), languageName);
    Work work{file, code, {}, {}, {}, {}, {}, {}, {}};
    work.Group = GroupOf(work);
    Prepare(work);
    AddModule(work, declarations);
    std::vector<const CtagsTag*> tags;
    const auto better = BetterTags(work);
    for (const CtagsTag& tag : better ? *better : file.Tags) {
        tags.push_back(&tag);
    }
    std::stable_sort(tags.begin(), tags.end(),
                     [](const CtagsTag* a, const CtagsTag* b) { return a->Line < b->Line; });
    for (const CtagsTag* tag : tags) {
        if (auto declaration = RefineTag(*tag, work)) {
            declarations.push_back(std::move(*declaration));
        }
    }
    return declarations;
}

// The file itself is an entity where it is a module.
void LanguageRefiner::AddModule(const Work& work,
                                std::vector<SourceDeclaration>& declarations) const {
    if (work.Group.empty() || work.Group.back().Kind != SourceKind::Module) {
        return;
    }
    SourceDeclaration module;
    module.Scope.assign(work.Group.begin(), work.Group.end() - 1);
    module.Name = work.Group.back().Name;
    module.Kind = SourceKind::Module;
    module.LanguageName = work.File.Tags[0].Language;
    module.Language = LanguageOfName(module.LanguageName);
    module.Line = 1;
    module.EndLine = work.Code.Text().LineCount();
    declarations.push_back(std::move(module));
}

std::optional<SourceDeclaration> LanguageRefiner::RefineTag(const CtagsTag& tag, Work& work) const {
    const std::string path =
        tag.Scope.empty() ? tag.Name : tag.Scope + std::string(ScopeSeparator()) + tag.Name;
    if (IsLocal(tag, work) || work.Locals.contains(tag.Scope)) {
        work.Locals.insert(path);
        return std::nullopt;
    }
    if (!IsWanted(tag, work)) {
        return std::nullopt;
    }
    const std::size_t place = work.Code.Locate(tag);
    Draft draft{tag, place, {}, {}};
    TakeCommonFacts(draft);
    if (place != none && NeedsHead(draft.Declaration.Kind)) {
        draft.Head = work.Code.HeadBefore(place);
    }
    SourceDeclaration& declaration = draft.Declaration;
    declaration.Scope = work.Group;
    for (ScopeStep& step : ScopeOf(tag, work)) {
        declaration.Scope.push_back(std::move(step));
    }
    if (declaration.Kind == SourceKind::Namespace) { // "A.B" is B in A
        for (std::size_t at; (at = declaration.Name.find(ScopeSeparator())) != none;) {
            declaration.Scope.push_back({declaration.Name.substr(0, at), SourceKind::Namespace});
            declaration.Name.erase(0, at + ScopeSeparator().size());
        }
    }
    if (!Mend(draft, work) || declaration.Name.empty()) {
        return std::nullopt;
    }
    if (declaration.EndLine == 0 && place != none &&
        (IsCallable(declaration.Kind) || IsType(declaration.Kind))) {
        declaration.EndLine = work.Code.EndOfBody(place + tag.Name.size());
    }
    declaration.EndLine = std::max(declaration.EndLine, declaration.Line);
    // texts that were read from the source may be in another encoding; the index sees to names
    for (std::string* text : {&declaration.Signature, &declaration.Type, &declaration.Inherits,
                              &declaration.Template, &declaration.Trait}) {
        *text = IsValidUtf8(*text) ? std::move(*text) : PrintableUtf8(*text);
    }
    return std::move(declaration);
}

void LanguageRefiner::TakeCommonFacts(Draft& draft) const {
    const CtagsTag& tag = draft.Tag;
    SourceDeclaration& declaration = draft.Declaration;
    declaration.Name = tag.Name;
    declaration.Kind = KindOf(tag);
    declaration.OtherKind = declaration.Kind == SourceKind::Other ? tag.Kind : "";
    declaration.LanguageName = tag.Language;
    declaration.Language = LanguageOfName(tag.Language);
    declaration.Line = tag.Line;
    declaration.EndLine = tag.End;
    declaration.Signature = tag.Signature;
    declaration.Inherits = tag.Inherits;
    declaration.Template = tag.Template;
    const std::size_t colon = tag.TypeRef.find(':');
    declaration.Type = colon == none ? tag.TypeRef : tag.TypeRef.substr(colon + 1);
    declaration.HasAccess = !tag.Access.empty();
    declaration.Access = tag.Access == "private"     ? SourceAccess::Private
                         : tag.Access == "protected" ? SourceAccess::Protected
                         : tag.Access == "default" || tag.Access == "internal"
                             ? SourceAccess::Friend
                             : SourceAccess::Public;
}

std::vector<ScopeStep> LanguageRefiner::ScopeOf(const CtagsTag& tag, const Work&) const {
    std::vector<ScopeStep> steps;
    const std::string_view separator = ScopeSeparator();
    std::string_view rest = tag.Scope;
    std::size_t depth = 0, start = 0;
    const auto add = [&](std::string_view name) {
        // what an unnamed function of a script holds belongs to what is around it
        if (!name.empty() && !name.starts_with("AnonymousFunction")) {
            steps.push_back({std::string(name), SourceKind::Namespace});
        }
    };
    for (std::size_t i = 0; i < rest.size(); ++i) {
        depth += rest[i] == '<' || rest[i] == '(';
        depth -= depth > 0 && (rest[i] == '>' || rest[i] == ')');
        if (depth == 0 && rest.substr(i, separator.size()) == separator) {
            add(rest.substr(start, i - start));
            i += separator.size() - 1;
            start = i + 1;
        }
    }
    add(rest.substr(start));
    if (!steps.empty()) {
        CtagsTag container;
        container.Kind = tag.ScopeKind;
        const SourceKind kind = KindOf(container);
        steps.back().Kind = IsGroup(kind) || IsType(kind) ? kind : SourceKind::Class;
    }
    return steps;
}

bool LanguageRefiner::IsWanted(const CtagsTag& tag, const Work&) const {
    return !tag.Name.starts_with("__anon") && !tag.Name.starts_with("AnonymousFunction") &&
           !tag.Name.starts_with("anonymous");
}

bool LanguageRefiner::IsLocal(const CtagsTag& tag, Work&) const {
    const std::string_view scopeKind = tag.ScopeKind;
    return scopeKind == "function" || scopeKind == "method" || scopeKind == "func" ||
           scopeKind == "generator" || scopeKind == "prototype" || scopeKind == "subroutine" ||
           scopeKind == "procedure" || scopeKind == "macro" || scopeKind == "singletonMethod" ||
           scopeKind == "getter" || scopeKind == "setter";
}

std::vector<ScopeStep> LanguageRefiner::GroupOf(Work& work) const {
    return GroupOfPath(work.File.Path).value_or(std::vector<ScopeStep>());
}

std::vector<ScopeStep> LanguageRefiner::ModulePath(std::string_view path) {
    std::vector<ScopeStep> steps;
    for (std::size_t slash; (slash = path.find('/')) != none; path.remove_prefix(slash + 1)) {
        steps.push_back({std::string(path.substr(0, slash)), SourceKind::Package});
    }
    const std::size_t dot = path.rfind('.');
    steps.push_back({std::string(path.substr(0, dot == 0 ? none : dot)), SourceKind::Module});
    return steps;
}

bool LanguageRefiner::HasWord(std::string_view head, std::string_view word) {
    for (std::size_t at = 0; (at = head.find(word, at)) != none; ++at) {
        const std::size_t after = at + word.size();
        if ((at == 0 || !IsNameCharacter(head[at - 1])) &&
            (after == head.size() || !IsNameCharacter(head[after]))) {
            return true;
        }
    }
    return false;
}

std::string LanguageRefiner::TypeInHead(std::string_view head) {
    for (;;) {
        head = Trimmed(head);
        if (head.starts_with("[") || head.starts_with("@")) {
            std::size_t end = 0;
            if (head[0] == '[') {
                end = ClosingBracket(head, 0);
                end = end == none ? head.size() : end + 1;
            } else {
                for (end = 1;
                     end < head.size() && (IsNameCharacter(head[end]) || head[end] == '.');) {
                    ++end;
                }
                const std::size_t open = head.find_first_not_of(' ', end);
                if (open != none && head[open] == '(') {
                    const std::size_t close = ClosingBracket(head, open);
                    end = close == none ? head.size() : close + 1;
                }
            }
            head.remove_prefix(end);
            continue;
        }
        std::size_t end = 0;
        while (end < head.size() && IsNameCharacter(head[end])) {
            ++end;
        }
        if (end == 0 || !IsModifier(head.substr(0, end))) {
            break;
        }
        head.remove_prefix(end);
    }
    if (head.starts_with("<")) { // Java's type parameters
        const std::size_t close = ClosingBracket(head, 0);
        head = close == none ? std::string_view() : Trimmed(head.substr(close + 1));
    }
    return std::string(head);
}

std::string LanguageRefiner::BracketedText(const Work& work, std::size_t place, char open) {
    const std::string& masked = work.Code.Masked();
    if (place >= masked.size() || masked[place] != open) {
        return {};
    }
    const std::size_t close = ClosingBracket(masked, place);
    return close == none
               ? std::string()
               : Collapsed(
                     std::string_view(work.Code.Text().Text()).substr(place, close + 1 - place));
}

std::size_t LanguageRefiner::Behind(const Draft& draft) {
    return draft.Place == none ? none : draft.Place + draft.Tag.Name.size();
}

std::string LanguageRefiner::DeclaredType(std::string_view head) {
    const auto parts = SplitTopLevel(head, ',');
    std::string type = TypeInHead(parts[0]);
    if (parts.size() > 1) {
        type.resize(std::min(type.find('='), type.size()));
        type = Trimmed(type);
        while (!type.empty() && IsNameCharacter(type.back())) {
            type.pop_back();
        }
    }
    return std::string(Trimmed(type));
}

std::string LanguageRefiner::TypeBehind(const Work& work, std::size_t place) {
    const std::string& masked = work.Code.Masked();
    std::size_t at = masked.find_first_not_of(" \t\r\n?!", place);
    if (at == none || masked[at] != ':') {
        return {};
    }
    const std::size_t start = masked.find_first_not_of(" \t\r\n", at + 1);
    for (at = start; at < masked.size() && at < start + 2000; ++at) {
        const char c = masked[at];
        if (c == '(' || c == '[' || c == '<' || (c == '{' && at == start)) {
            const std::size_t close = ClosingBracket(masked, at);
            if (close == none) {
                break;
            }
            at = close;
        } else if (masked.compare(at, 2, "=>") == 0) {
            ++at;
        } else if (std::string_view(";={,)}\n\r").find(c) != none) {
            break;
        }
    }
    return start == none ? std::string()
                         : NormalisedType(std::string_view(masked).substr(start, at - start));
}

SourceKind CommonKind(std::string_view kind) {
    struct Pair {
        std::string_view word;
        SourceKind kind;
    };

    constexpr std::array<Pair, 45> pairs = {{
        {"namespace", SourceKind::Namespace},
        {"package", SourceKind::Package},
        {"module", SourceKind::Module},
        {"class", SourceKind::Class},
        {"interface", SourceKind::Interface},
        {"trait", SourceKind::Trait},
        {"struct", SourceKind::Struct},
        {"union", SourceKind::Union},
        {"enum", SourceKind::Enumeration},
        {"enumeration", SourceKind::Enumeration},
        {"annotation", SourceKind::Annotation},
        {"typedef", SourceKind::Typedef},
        {"type", SourceKind::Typedef},
        {"talias", SourceKind::Typedef},
        {"typealias", SourceKind::Typedef},
        {"method", SourceKind::Method},
        {"singletonMethod", SourceKind::Method},
        {"methodSpec", SourceKind::Method},
        {"function", SourceKind::Function},
        {"func", SourceKind::Function},
        {"procedure", SourceKind::Function},
        {"subroutine", SourceKind::Function},
        {"prototype", SourceKind::Function},
        {"generator", SourceKind::Function},
        {"property", SourceKind::Property},
        {"getter", SourceKind::Property},
        {"setter", SourceKind::Property},
        {"accessor", SourceKind::Property},
        {"event", SourceKind::Event},
        {"signal", SourceKind::Event},
        {"field", SourceKind::Field},
        {"member", SourceKind::Field},
        {"anonMember", SourceKind::Field},
        {"enumerator", SourceKind::Enumerator},
        {"enumConstant", SourceKind::Enumerator},
        {"constant", SourceKind::Constant},
        {"const", SourceKind::Constant},
        {"define", SourceKind::Constant},
        {"variable", SourceKind::Variable},
        {"var", SourceKind::Variable},
        {"externvar", SourceKind::Variable},
        {"globalVar", SourceKind::Variable},
        {"macro", SourceKind::Macro},
        {"object", SourceKind::Class},
        {"protocol", SourceKind::Interface},
    }};
    const auto at =
        std::find_if(pairs.begin(), pairs.end(), [&](const Pair& p) { return p.word == kind; });
    return at == pairs.end() ? SourceKind::Other : at->kind;
}

std::optional<std::vector<ScopeStep>> PlainRefiner::GroupOfPath(std::string_view path) const {
    return ModulePath(path);
}

SourceKind PlainRefiner::KindOf(const CtagsTag& tag) const {
    return CommonKind(tag.Kind);
}

const LanguageRefiner& LanguageRefiner::For(SourceLanguage language) {
    static const CFamilyRefiner cFamily;
    static const CSharpRefiner cSharp;
    static const JavaRefiner java;
    static const PythonRefiner python;
    static const ScriptRefiner script;
    static const GoRefiner go;
    static const RustRefiner rust;
    static const PhpRefiner php;
    static const RubyRefiner ruby;
    static const PlainRefiner plain;
    switch (language) {
    case SourceLanguage::C:
    case SourceLanguage::Cpp:
        return cFamily;
    case SourceLanguage::CSharp:
        return cSharp;
    case SourceLanguage::Java:
        return java;
    case SourceLanguage::Python:
        return python;
    case SourceLanguage::JavaScript:
    case SourceLanguage::TypeScript:
        return script;
    case SourceLanguage::Go:
        return go;
    case SourceLanguage::Rust:
        return rust;
    case SourceLanguage::Php:
        return php;
    case SourceLanguage::Ruby:
        return ruby;
    default:
        return plain;
    }
}

} // namespace paperkite
