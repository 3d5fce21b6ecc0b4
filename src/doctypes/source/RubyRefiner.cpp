#include "doctypes/source/RubyRefiner.h"

#include "doctypes/source/ParameterList.h"

#include <algorithm>

namespace paperkite {

namespace {

constexpr std::size_t none = std::string_view::npos;

std::size_t Indentation(std::string_view line) {
    return std::min(line.find_first_not_of(" \t"), line.size());
}

SourceAccess AccessOfWord(std::string_view word) {
    return word.starts_with("private")     ? SourceAccess::Private
           : word.starts_with("protected") ? SourceAccess::Protected
                                           : SourceAccess::Public;
}

bool IsVisibility(std::string_view word) {
    return word == "private" || word == "protected" || word == "public";
}

/// What "private", "protected" and "public" alone in a line before it, or with the method's name
/// anywhere in the class, say about the method. Blocks are told by their indentation.
SourceAccess VisibilityAt(const SourceText& text, const CtagsTag& tag) {
    const std::string_view own = text.Line(tag.Line);
    const std::size_t indentation = Indentation(own);
    const std::string_view first = Trimmed(own).substr(0, Trimmed(own).find(' '));
    if (IsVisibility(first) || first == "private_class_method") {
        return AccessOfWord(first);
    }
    const bool isSingleton = tag.Kind == "singletonMethod" && own.find("self.") != none;
    SourceAccess access = SourceAccess::Public;
    for (std::uint32_t line = tag.Line - 1; line > 0; --line) {
        const std::string_view code = text.Line(line);
        const std::string_view word = Trimmed(code.substr(0, code.find('#')));
        if (!word.empty() && Indentation(code) < indentation) {
            if (Indentation(code) + 2 < indentation || !IsVisibility(word)) {
                break;
            }
        }
        if (IsVisibility(word) && Indentation(code) <= indentation && !isSingleton) {
            access = AccessOfWord(word);
            break;
        }
    }
    for (std::uint32_t line = tag.Line + 1; line <= text.LineCount(); ++line) {
        const std::string_view code = text.Line(line);
        const std::string_view statement = Trimmed(code);
        if (!statement.empty() && Indentation(code) < indentation) {
            break;
        }
        const bool isVisibility = statement.starts_with("private :") ||
                                  statement.starts_with("protected :") ||
                                  statement.starts_with("private_class_method :");
        if (isVisibility && Indentation(code) == indentation) {
            for (const std::string_view part :
                 SplitTopLevel(statement.substr(statement.find(' ')), ',')) {
                if (Trimmed(part) == ":" + tag.Name) {
                    return AccessOfWord(statement);
                }
            }
        }
    }
    return access;
}

} // namespace

std::vector<ScopeStep> RubyRefiner::GroupOf(Work&) const {
    return {};
}

bool RubyRefiner::IsWanted(const CtagsTag& tag, const Work& work) const {
    return LanguageRefiner::IsWanted(tag, work) && tag.Kind != "library";
}

SourceKind RubyRefiner::KindOf(const CtagsTag& tag) const {
    return tag.Name == "initialize" && tag.Kind == "method" ? SourceKind::Constructor
           : tag.Kind == "alias"                            ? SourceKind::Method
                                                            : CommonKind(tag.Kind);
}

bool RubyRefiner::Mend(Draft& draft, Work& work) const {
    SourceDeclaration& declaration = draft.Declaration;
    if (declaration.Kind == SourceKind::Property && declaration.Name.ends_with("=")) {
        declaration.Name.pop_back();
    }
    if (IsCallable(declaration.Kind) || declaration.Kind == SourceKind::Property) {
        declaration.Access = VisibilityAt(work.Code.Text(), draft.Tag);
        if (declaration.Kind == SourceKind::Constructor) {
            declaration.Access = SourceAccess::Public;
        }
        if (declaration.Scope.empty()) { // at the top level of a file: its module
            declaration.Scope = ModulePath(work.File.Path);
            declaration.Kind = SourceKind::Function;
        }
    }
    return true;
}

} // namespace paperkite
