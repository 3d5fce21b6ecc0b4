#include "doctypes/source/CodeSurvey.h"

#include "doctypes/source/ByteReader.h"
#include "doctypes/source/ByteWriter.h"
#include "doctypes/source/CodeMask.h"
#include "doctypes/source/ParameterList.h"

#include <algorithm>
#include <array>
#include <vector>

namespace paperkite {

namespace {

constexpr std::size_t none = std::string_view::npos;

constexpr std::array<std::string_view, 11> cppExtensions = {
    ".cpp", ".cc", ".cxx", ".c++", ".C", ".hpp", ".hh", ".hxx", ".h++", ".ipp", ".tcc"};

std::string_view Extension(std::string_view path) {
    const std::string_view name = path.substr(path.rfind('/') + 1);
    const std::size_t dot = name.rfind('.');
    return dot == none ? std::string_view() : name.substr(dot);
}

bool IsMacroCharacter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

bool IsNameCharacter(char c) {
    return IsMacroCharacter(c) || (c >= 'a' && c <= 'z');
}

bool LooksLikeMacro(std::string_view word) {
    return word.size() > 2 && (word[0] < '0' || word[0] > '9') &&
           std::all_of(word.begin(), word.end(), IsMacroCharacter);
}

bool IsExportName(std::string_view word) {
    return LooksLikeMacro(word) && (word.ends_with("_EXPORT") || word.ends_with("_API") ||
                                    word.ends_with("_EXPORTS") || word.ends_with("_DLL"));
}

std::string_view Word(std::string_view text) {
    std::size_t end = 0;
    while (end < text.size() && IsNameCharacter(text[end])) {
        ++end;
    }
    return text.substr(0, end);
}

/// A body that says nothing about what is declared.
bool IsEmptyOrAttribute(std::string_view body) {
    for (const std::string_view word :
         {"extern", "inline", "__inline__", "__inline", "__forceinline"}) {
        if (body.starts_with(word)) {
            return IsEmptyOrAttribute(Trimmed(body.substr(word.size())));
        }
    }
    return body.empty() || body.starts_with("__attribute__") || body.starts_with("__declspec") ||
           body.starts_with("[[") || body.starts_with("__attribute(") ||
           body.starts_with("_Pragma") || body.ends_with("_EXPORT") || body.ends_with("_IMPORT");
}

/// What ctags itself understands in Qt's classes.
bool IsForMoc(std::string_view name) {
    constexpr std::string_view names[] = {"Q_OBJECT",      "Q_GADGET", "Q_SIGNALS", "Q_SLOTS",
                                          "Q_PROPERTY(x)", "Q_SIGNAL", "Q_SLOT"};
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

} // namespace

bool CodeSurvey::IsOfInterest(std::string_view path) {
    const std::string_view extension = Extension(path);
    return extension == ".h" || extension == ".c" || extension == ".inl" || extension == ".H" ||
           std::find(cppExtensions.begin(), cppExtensions.end(), extension) != cppExtensions.end();
}

void CodeSurvey::Look(std::string_view path, std::string_view text) {
    const std::string_view extension = Extension(path);
    mHasCpp = mHasCpp || std::find(cppExtensions.begin(), cppExtensions.end(), extension) !=
                             cppExtensions.end();
    const std::string masked = MaskComments(text, CommentSyntax::Of(SourceLanguage::Cpp));
    std::vector<std::string_view> lines;
    std::string_view rest = masked;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const std::string_view line = Trimmed(rest.substr(0, end));
        if (!line.empty()) {
            lines.push_back(line);
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].starts_with("#")) {
            LookAtDirective(lines[i]);
        } else if (i == 0 || !lines[i - 1].ends_with("\\")) {
            LookAtLine(lines[i], i + 1 < lines.size() ? lines[i + 1] : std::string_view());
        }
    }
}

void CodeSurvey::LookAtDirective(std::string_view line) {
    line = Trimmed(line.substr(1));
    if (!line.starts_with("define")) {
        return;
    }
    line = Trimmed(line.substr(6));
    const std::string_view name = Word(line);
    line.remove_prefix(name.size());
    if (!LooksLikeMacro(name)) {
        return;
    }
    if (line.starts_with("(")) {
        const std::size_t close = ClosingBracket(line, 0);
        const std::string_view body = close == none ? line : Trimmed(line.substr(close + 1));
        const bool isNotice = name.find("DEPRECATED") != none && LooksLikeMacro(Word(body));
        if (isNotice || (!body.empty() && IsEmptyOrAttribute(body))) {
            mAttributes.insert(std::string(name) + "(x)");
        }
        return;
    }
    // a header guard is defined as nothing, too; to make it vanish does no harm
    if (IsEmptyOrAttribute(Trimmed(line))) {
        mAttributes.emplace(name);
    }
}

void CodeSurvey::LookAtLine(std::string_view line, std::string_view next) {
    const std::string_view first = Word(line);
    mHasCpp = mHasCpp || first == "namespace" || first == "template" ||
              (first == "class" && line.size() > 6);
    LookAtWords(line);
    if (!LooksLikeMacro(first)) {
        return;
    }
    const std::string_view behind = Trimmed(line.substr(first.size()));
    // a word alone in its line may be an enumerator: without brackets, the definition has to tell
    if (behind.starts_with("(")) {
        const std::size_t close = ClosingBracket(behind, 0);
        const bool isAlone = close != none && Trimmed(behind.substr(close + 1)).empty();
        if (!isAlone || next.starts_with("{")) {
            mBlocks.insert(std::string(first) + "(x)");
        } else {
            mStatements.insert(std::string(first) + "(x)");
        }
    }
}

void CodeSurvey::LookAtWords(std::string_view line) {
    std::string_view before;
    for (std::size_t at = 0; at < line.size();) {
        if (!IsNameCharacter(line[at])) {
            ++at;
            continue;
        }
        const std::string_view word = Word(line.substr(at));
        at += word.size();
        const std::string_view next = Trimmed(line.substr(at));
        const bool isBetween = (before == "class" || before == "struct") && LooksLikeMacro(word) &&
                               !next.empty() && IsNameCharacter(next[0]) && Word(next) != "final";
        if (isBetween || IsExportName(word)) {
            mAttributes.emplace(word);
        }
        before = word;
    }
}

void CodeSurvey::Merge(const CodeSurvey& other) {
    mHasCpp = mHasCpp || other.mHasCpp;
    mAttributes.insert(other.mAttributes.begin(), other.mAttributes.end());
    mStatements.insert(other.mStatements.begin(), other.mStatements.end());
    mBlocks.insert(other.mBlocks.begin(), other.mBlocks.end());
}

std::string CodeSurvey::Encoded() const {
    ByteWriter writer;
    writer.Number(mHasCpp);
    for (const Names* names : {&mAttributes, &mStatements, &mBlocks}) {
        writer.Number(names->size());
        for (const std::string& name : *names) {
            writer.Text(name);
        }
    }
    return writer.Take();
}

bool CodeSurvey::MergeEncoded(std::string_view bytes) {
    ByteReader reader(bytes);
    mHasCpp = reader.NumberUpTo(1) == 1 || mHasCpp;
    for (Names* names : {&mAttributes, &mStatements, &mBlocks}) {
        for (std::uint64_t left = reader.Number(); left > 0 && reader.IsGood(); --left) {
            const std::string_view name = reader.Text();
            if (name.empty() || name.find_first_of("=\n") != none) {
                return false;
            }
            names->emplace(name);
        }
    }
    return reader.IsGood() && reader.IsAtEnd();
}

std::set<std::string> CodeSurvey::Definitions() const {
    // what Qt's headers define with a body or leave to its own preprocessor
    std::set<std::string> definitions = {"Q_INVOKABLE=",
                                         "Q_SCRIPTABLE=",
                                         "Q_REVISION(x)=",
                                         "Q_DECL_CONSTEXPR=constexpr",
                                         "Q_DECL_OVERRIDE=override",
                                         "Q_DECL_FINAL=final",
                                         "Q_DECL_NOEXCEPT=noexcept",
                                         "Q_DECL_NOTHROW=noexcept",
                                         "QT_BEGIN_NAMESPACE=",
                                         "QT_END_NAMESPACE=",
                                         "Q_WEAK_OVERLOAD=",
                                         "Q_REQUIRED_RESULT="};
    for (const std::string& name : mAttributes) {
        if (!IsForMoc(name)) {
            definitions.insert(name + "=");
        }
    }
    for (const std::string& name : mStatements) {
        if (!mBlocks.contains(name) && !IsForMoc(name)) {
            definitions.insert(name + "=");
        }
    }
    return definitions;
}

} // namespace paperkite
