#include "widgets/CodeColouring.h"

#include "foundation/Text.h"

#include <algorithm>

namespace paperkite {

struct CodeColouring::Language {
    /// Endings of file names, each with a blank behind it.
    const char* Endings;
    /// The beginning of a comment that goes to the end of its line; empty for none.
    const char* LineComment;
    const char* CommentBegin;
    const char* CommentEnd;
    /// The signs that begin and end a text.
    const char* Quotes;
    /// What begins and ends a text of several lines.
    const char* LongQuotes[2];
    /// A line that begins with this sign is an instruction to the compiler.
    char Directive;
    bool IsMarkup;
    /// With a blank before and behind each.
    const char* Keywords;
};

namespace {

#define PAPERKITE_C_WORDS                                                                          \
    " auto bool break case char const continue default do double else enum extern false float "    \
    "for goto if inline int long nullptr register restrict return short signed sizeof static "     \
    "struct switch true typedef union unsigned void volatile while NULL "

constexpr CodeColouring::Language kLanguages[] = {
    {".c .h .cc .cpp .cxx .hpp .hh .hxx .ipp .inl .m .mm ",
     "//",
     "/*",
     "*/",
     "\"'",
     {"", ""},
     '#',
     false,
     PAPERKITE_C_WORDS "alignas alignof and catch class co_await co_return co_yield concept "
                       "consteval constexpr constinit const_cast decltype delete dynamic_cast "
                       "explicit export final friend import module mutable namespace new noexcept "
                       "not operator or override private protected public reinterpret_cast "
                       "requires static_assert static_cast template this thread_local throw try "
                       "typename using virtual xor "},
    {".cs ",
     "//",
     "/*",
     "*/",
     "\"'",
     {"\"\"\"", ""},
     '#',
     false,
     " abstract as async await base bool break byte case catch char checked class const continue "
     "decimal default delegate do double else enum event explicit extern false finally fixed "
     "float for foreach get goto if implicit in init int interface internal is lock long "
     "namespace new null object operator out override params partial private protected public "
     "readonly record ref return sbyte sealed set short sizeof stackalloc static string struct "
     "switch this throw true try typeof uint ulong unchecked unsafe ushort using value var "
     "virtual void volatile when where while yield "},
    {".java .kt .scala .groovy ",
     "//",
     "/*",
     "*/",
     "\"'",
     {"\"\"\"", ""},
     '\0',
     false,
     " abstract assert boolean break byte case catch char class const continue default do double "
     "else enum extends false final finally float for fun if implements import instanceof int "
     "interface long native new null object override package permits private protected public "
     "record return sealed short static strictfp super switch synchronized this throw throws "
     "transient true try val var void volatile when while yield "},
    {".js .jsx .mjs .ts .tsx .json ",
     "//",
     "/*",
     "*/",
     "\"'",
     {"`", ""},
     '\0',
     false,
     " abstract any as async await boolean break case catch class const constructor continue "
     "debugger declare default delete do else enum export extends false finally for from function "
     "get if implements import in instanceof interface let namespace never new null number object "
     "of override private protected public readonly return set static string super switch symbol "
     "this throw true try type typeof undefined unknown var void while with yield "},
    {".go ",
     "//",
     "/*",
     "*/",
     "\"'",
     {"`", ""},
     '\0',
     false,
     " any bool break byte case chan const continue default defer else error fallthrough false "
     "float32 float64 for func go goto if import int int32 int64 interface iota map nil package "
     "range return rune select string struct switch true type uint uint32 uint64 uintptr var "},
    {".rs ",
     "//",
     "/*",
     "*/",
     "\"",
     {"", ""},
     '\0',
     false,
     " as async await bool break char const continue crate dyn else enum extern f32 f64 false fn "
     "for i32 i64 if impl in let loop match mod move mut pub ref return self Self static str "
     "struct super trait true type u32 u64 u8 union unsafe use usize where while "},
    {".php ",
     "//",
     "/*",
     "*/",
     "\"'",
     {"", ""},
     '\0',
     false,
     " abstract and array as break callable case catch class clone const continue declare default "
     "do echo else elseif empty enum extends false final finally fn for foreach function global "
     "if implements include instanceof interface isset list match namespace new null or private "
     "protected public readonly require return static switch this throw trait true try use var "
     "while yield "},
    {".py .pyi ",
     "#",
     "",
     "",
     "\"'",
     {"\"\"\"", "'''"},
     '@',
     false,
     " False None True and as assert async await break case class continue def del elif else "
     "except finally for from global if import in is lambda match nonlocal not or pass raise "
     "return self try while with yield "},
    {".rb ",
     "#",
     "=begin",
     "=end",
     "\"'",
     {"", ""},
     '\0',
     false,
     " BEGIN END alias and begin break case class def defined do else elsif end ensure false for "
     "if in module next nil not or redo rescue retry return self super then true undef unless "
     "until when while yield "},
    {".sh .bash .zsh .cmake .toml .yml .yaml .ini .conf CMakeLists.txt ",
     "#",
     "",
     "",
     "\"'",
     {"", ""},
     '\0',
     false,
     " case do done elif else endforeach endfunction endif esac exit export fi for foreach "
     "function if in local return set then while "},
    {".sql .lua .hs .adb .ads ",
     "--",
     "",
     "",
     "\"'",
     {"", ""},
     '\0',
     false,
     " add all alter and as begin by case create data default delete desc distinct do drop else "
     "elseif end exists false for from function group if in index inner insert into is join key "
     "left like local nil not null on or order outer primary repeat return select set table then "
     "true type union unique update values view when where while with ADD ALL ALTER AND AS BEGIN "
     "BY CASE CREATE DEFAULT DELETE DESC DISTINCT DROP ELSE END EXISTS FROM GROUP IF IN INDEX "
     "INNER INSERT INTO IS JOIN KEY LEFT LIKE NOT NULL ON OR ORDER OUTER PRIMARY SELECT SET TABLE "
     "THEN UNION UNIQUE UPDATE VALUES VIEW WHEN WHERE WITH "},
    {".xml .html .htm .xhtml .svg .xsd .xsl .kiteproject .ktc .ui .qrc ",
     "",
     "<!--",
     "-->",
     "\"'",
     {"", ""},
     '\0',
     true,
     " "},
};

// What a line may leave open, beside 0 for nothing.
constexpr int kInComment = 1;
constexpr int kInLongText = 2; ///< or 3, for the second kind
constexpr int kInTag = 4;

bool IsWordSign(char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9') || letter == '_' ||
           static_cast<unsigned char>(letter) >= 0x80;
}

bool IsDigit(char letter) {
    return letter >= '0' && letter <= '9';
}

bool BeginsWith(std::string_view line, std::size_t at, std::string_view wanted) {
    return !wanted.empty() && line.substr(at).starts_with(wanted);
}

/// Behind `end`, or npos.
std::size_t Behind(std::string_view line, std::size_t from, std::string_view end) {
    const std::size_t found = line.find(end, from);
    return found == line.npos ? found : found + end.size();
}

/// Behind the sign that ends a text of one line, "\" taking the next sign with it.
std::size_t EndOfText(std::string_view line, std::size_t at) {
    const char quote = line[at];
    for (++at; at < line.size(); ++at) {
        if (line[at] == '\\')
            ++at;
        else if (line[at] == quote)
            return at + 1;
    }
    return line.size();
}

void Add(std::vector<CodeStretch>& out, std::size_t from, std::size_t to, CodePart part) {
    if (to > from) out.push_back({from, to - from, part});
}

} // namespace

CodeColouring::CodeColouring(const std::string& fileName) : mLanguage(nullptr) {
    for (const Language& language : kLanguages)
        for (const std::string& ending : Split(language.Endings, " "))
            if (!ending.empty() && EndsWithIgnoringCase(fileName, ending)) mLanguage = &language;
}

std::vector<CodeStretch> CodeColouring::Line(std::string_view line, int& state) const {
    if (!mLanguage) return {};
    if (mLanguage->IsMarkup) return MarkupLine(line, state);
    std::vector<CodeStretch> out;
    std::size_t at = TakeOpen(line, state, out);
    const std::size_t first = line.find_first_not_of(" \t");
    if (at == 0 && first != line.npos && mLanguage->Directive != '\0' &&
        line[first] == mLanguage->Directive) {
        at = std::min(line.find_first_of(" \t(", line.find_first_not_of(" \t", first + 1)),
                      line.size());
        Add(out, first, at, CodePart::Directive);
    }
    while (at < line.size()) {
        std::size_t next = TakeComment(line, at, state, out);
        if (next == at) next = TakeText(line, at, state, out);
        if (next == at) next = TakeWord(line, at, out);
        at = next == at ? at + 1 : next;
    }
    return out;
}

std::size_t CodeColouring::TakeOpen(std::string_view line, int& state,
                                    std::vector<CodeStretch>& out) const {
    if (state == 0) return 0;
    const bool isComment = state == kInComment;
    const std::string_view end =
        isComment ? mLanguage->CommentEnd : mLanguage->LongQuotes[state - kInLongText];
    const std::size_t behind = Behind(line, 0, end);
    const std::size_t to = std::min(behind, line.size());
    Add(out, 0, to, isComment ? CodePart::Comment : CodePart::Text);
    if (behind != line.npos) state = 0;
    return to;
}

std::size_t CodeColouring::TakeComment(std::string_view line, std::size_t at, int& state,
                                       std::vector<CodeStretch>& out) const {
    std::size_t to = at;
    if (BeginsWith(line, at, mLanguage->LineComment)) {
        to = line.size();
    } else if (BeginsWith(line, at, mLanguage->CommentBegin)) {
        const std::string_view begin = mLanguage->CommentBegin;
        const std::size_t behind = Behind(line, at + begin.size(), mLanguage->CommentEnd);
        if (behind == line.npos) state = kInComment;
        to = std::min(behind, line.size());
    }
    Add(out, at, to, CodePart::Comment);
    return to;
}

std::size_t CodeColouring::TakeText(std::string_view line, std::size_t at, int& state,
                                    std::vector<CodeStretch>& out) const {
    for (int kind = 0; kind < 2; ++kind) {
        const std::string_view quote = mLanguage->LongQuotes[kind];
        if (!BeginsWith(line, at, quote)) continue;
        const std::size_t behind = Behind(line, at + quote.size(), quote);
        if (behind == line.npos) state = kInLongText + kind;
        Add(out, at, std::min(behind, line.size()), CodePart::Text);
        return std::min(behind, line.size());
    }
    if (std::string_view(mLanguage->Quotes).find(line[at]) == std::string_view::npos) return at;
    const std::size_t to = EndOfText(line, at);
    Add(out, at, to, CodePart::Text);
    return to;
}

std::size_t CodeColouring::TakeWord(std::string_view line, std::size_t at,
                                    std::vector<CodeStretch>& out) const {
    std::size_t to = at;
    const bool isNumber = IsDigit(line[at]);
    while (to < line.size() && (IsWordSign(line[to]) || (isNumber && line[to] == '.')))
        ++to;
    if (isNumber) {
        Add(out, at, to, CodePart::Number);
    } else if (to > at) {
        const std::string word = " " + std::string(line.substr(at, to - at)) + " ";
        if (std::string_view(mLanguage->Keywords).find(word) != std::string_view::npos)
            Add(out, at, to, CodePart::Keyword);
    }
    return to;
}

std::vector<CodeStretch> CodeColouring::MarkupLine(std::string_view line, int& state) const {
    std::vector<CodeStretch> out;
    std::size_t at = state == kInComment ? TakeOpen(line, state, out) : 0;
    while (at < line.size()) {
        std::size_t to = at + 1;
        if (state == kInTag) {
            if (line[at] == '>') {
                Add(out, at, to, CodePart::Tag);
                state = 0;
            } else if (line[at] == '"' || line[at] == '\'') {
                to = std::min(Behind(line, at + 1, line.substr(at, 1)), line.size());
                Add(out, at, to, CodePart::Text);
            } else if (IsWordSign(line[at])) {
                to = std::min(line.find_first_of(" \t=/>", at), line.size());
                Add(out, at, to, CodePart::Attribute);
            }
        } else if (const std::size_t comment = TakeComment(line, at, state, out); comment != at) {
            to = comment;
        } else if (line[at] == '<') {
            to = std::min(line.find_first_of(" \t>", at), line.size());
            Add(out, at, to, CodePart::Tag);
            state = kInTag;
        } else if (line[at] == '&') {
            to = std::min(Behind(line, at, ";"), line.size());
            Add(out, at, to, CodePart::Number);
        }
        at = to;
    }
    return out;
}

} // namespace paperkite
