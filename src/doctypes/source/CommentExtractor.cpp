#include "doctypes/source/CommentExtractor.h"

#include "doctypes/source/CodeMask.h"
#include "foundation/Utf8.h"

#include <algorithm>
#include <array>

namespace paperkite {

namespace {

constexpr std::size_t none = std::string_view::npos;
constexpr std::size_t cachedFiles = 8;
constexpr std::uint32_t furthestStep = 60; ///< lines between a comment and what it is about

bool IsLineComment(std::string_view line, const CommentSyntax& syntax) {
    line = Trimmed(line);
    if ((line.starts_with("#!") && syntax.Line == "#") ||
        (line.starts_with("//!") && syntax.HasInnerDocs)) {
        return false;
    }
    const bool isTrailing = line.starts_with("///<") || line.starts_with("//!<");
    return (!syntax.Line.empty() && line.starts_with(syntax.Line) && !isTrailing) ||
           (!syntax.OtherLine.empty() && line.starts_with(syntax.OtherLine) &&
            !line.starts_with("#["));
}

int Closers(std::string_view line) {
    int balance = 0;
    for (const char c : line) {
        balance += c == ')' || c == ']' || c == '}';
        balance -= c == '(' || c == '[' || c == '{';
    }
    return balance;
}

/// Looks for the comment above a line.
class Above {
public:
    Above(const SourceText& text, SourceKind kind, SourceLanguage language,
          const CommentSyntax& syntax)
        : mText(text), mKind(kind), mLanguage(language), mSyntax(syntax) {}

    /// First and last line of it.
    std::optional<std::pair<std::uint32_t, std::uint32_t>> Find(std::uint32_t line) const {
        const std::uint32_t limit = line > furthestStep ? line - furthestStep : 0;
        int open = 0; // brackets that must open further up
        for (std::uint32_t at = line - 1; at > limit && at > 0; --at) {
            const std::string_view code = Trimmed(mText.Line(at));
            if (open == 0) {
                if (code.empty()) {
                    return std::nullopt;
                }
                if (const std::uint32_t first = CommentEndingAt(at)) {
                    return std::pair(first, at);
                }
                if (IsShared(code) || !IsOfDeclaration(code)) {
                    return std::nullopt;
                }
            }
            const bool wasOpen = open > 0;
            open = std::max(0, open + Closers(code) + Angles(code));
            if (wasOpen && open == 0 && !MayBegin(code)) {
                return std::nullopt;
            }
        }
        return std::nullopt;
    }

private:
    // 0 when the line does not end a comment that has its lines to itself
    std::uint32_t CommentEndingAt(std::uint32_t line) const {
        if (IsLineComment(mText.Line(line), mSyntax)) {
            while (line > 1 && IsLineComment(mText.Line(line - 1), mSyntax)) {
                --line;
            }
            return line;
        }
        const std::string_view code = Trimmed(mText.Line(line));
        if (mSyntax.BlockEnd.empty() || !code.ends_with(mSyntax.BlockEnd)) {
            return 0;
        }
        for (; line > 0; --line) {
            const std::string_view start = Trimmed(mText.Line(line));
            const std::size_t begin = start.find(mSyntax.BlockBegin);
            if (begin != none) {
                const bool isTrailing = start.starts_with("/**<") || start.starts_with("/*!<");
                return begin == 0 && !isTrailing ? line : 0;
            }
        }
        return 0;
    }

    // template <class T,
    //           class U>
    int Angles(std::string_view code) const {
        const bool counts = mLanguage == SourceLanguage::Cpp &&
                            (code.ends_with(">") || code.starts_with("template"));
        return counts ? static_cast<int>(std::count(code.begin(), code.end(), '>') -
                                         std::count(code.begin(), code.end(), '<'))
                      : 0;
    }

    // whether what began in this line, several lines above, may belong to the declaration
    bool MayBegin(std::string_view code) const {
        return mLanguage <= SourceLanguage::CSharp || code.starts_with("@") ||
               code.starts_with("#[");
    }

    static bool IsShared(std::string_view code) { return code.find("*/") != none; }

    // whether the line above belongs to the declaration below it
    bool IsOfDeclaration(std::string_view code) const {
        if (mKind == SourceKind::Macro || mKind == SourceKind::Enumerator) {
            return code.starts_with("[") || code.starts_with("@") || code.starts_with("#[");
        }
        const bool isClosing =
            code.starts_with(")") || code.starts_with("]") || code.starts_with("}");
        switch (mLanguage) {
        case SourceLanguage::Python:
            return code.starts_with("@") || Closers(code) > 0;
        case SourceLanguage::Rust:
        case SourceLanguage::Php:
            return code.starts_with("#[") || code.starts_with("@") || code.ends_with(")]");
        case SourceLanguage::C:
        case SourceLanguage::Cpp:
            return !code.starts_with("#") && std::string_view(";{},:").find(code.back()) == none;
        case SourceLanguage::CSharp:
        case SourceLanguage::Java:
            return std::string_view(";{},:").find(code.back()) == none ||
                   (isClosing && code.back() == ')');
        default:
            return code.starts_with("@") || code.ends_with("})");
        }
    }

    const SourceText& mText;
    SourceKind mKind;
    SourceLanguage mLanguage;
    const CommentSyntax& mSyntax;
};

SourceComment FromLines(const SourceText& text, std::uint32_t first, std::uint32_t last) {
    SourceComment comment;
    comment.Line = first;
    for (std::uint32_t line = first; line <= last; ++line) {
        comment.Raw += (line == first ? "" : "\n") + std::string(text.Line(line));
    }
    comment.Lines = CommentExtractor::CleanedLines(comment.Raw);
    return comment;
}

void RemoveCommonIndentation(std::vector<std::string>& lines, std::size_t from = 0) {
    std::size_t common = none;
    for (std::size_t i = from; i < lines.size(); ++i) {
        common = std::min(common, lines[i].find_first_not_of(" \t"));
    }
    for (std::size_t i = from; common != none && i < lines.size(); ++i) {
        lines[i].erase(0, std::min(common, lines[i].size()));
    }
}

void Tidy(std::vector<std::string>& lines) {
    for (std::string& line : lines) {
        line.erase(line.find_last_not_of(" \t\r") + 1);
    }
    while (!lines.empty() && lines.back().empty()) {
        lines.pop_back();
    }
    while (!lines.empty() && lines.front().empty()) {
        lines.erase(lines.begin());
    }
}

/// Python's string at the beginning of a body, or of the file when the line is 0.
std::optional<SourceComment> DocumentationString(const SourceText& text, std::uint32_t line) {
    const std::string masked = MaskComments(text.Text(), CommentSyntax::Of(SourceLanguage::Python));
    std::size_t at = line == 0 ? 0 : text.Offset(line);
    int depth = 0;
    for (; line != 0; ++at) {
        if (at >= masked.size()) {
            return std::nullopt;
        }
        depth -= Closers(std::string_view(masked).substr(at, 1));
        if (masked[at] == ':' && depth == 0) {
            ++at;
            break;
        }
    }
    at = masked.find_first_not_of(" \t\r\n", at);
    if (at == none) {
        return std::nullopt;
    }
    const std::size_t begin = at;
    while (at < masked.size() && std::string_view("rRuUbBfF").find(masked[at]) != none) {
        ++at;
    }
    const std::string& source = text.Text();
    if (at - begin > 2 || at >= source.size() || (source[at] != '"' && source[at] != '\'')) {
        return std::nullopt;
    }
    const bool isTriple = source.compare(at, 3, std::string(3, source[at])) == 0;
    const std::string quote(isTriple ? 3 : 1, source[at]);
    const std::size_t start = at + quote.size();
    const std::size_t end = source.find(quote, start);
    if (end == std::string::npos) {
        return std::nullopt;
    }
    SourceComment comment;
    comment.Line = text.LineAt(begin);
    comment.Raw = source.substr(begin, end + quote.size() - begin);
    std::string_view body = std::string_view(source).substr(start, end - start);
    for (std::size_t next; !body.empty(); body.remove_prefix(std::min(next + 1, body.size()))) {
        next = std::min(body.find('\n'), body.size());
        comment.Lines.emplace_back(body.substr(0, next));
    }
    if (!comment.Lines.empty()) {
        comment.Lines[0] = Trimmed(comment.Lines[0]);
    }
    RemoveCommonIndentation(comment.Lines, 1);
    Tidy(comment.Lines);
    return comment;
}

/// "int a; ///< about a"
std::optional<SourceComment> Trailing(const SourceText& text, std::uint32_t line) {
    const std::string_view code = text.Line(line);
    for (const std::string_view mark : {"///<", "//!<", "/**<", "/*!<"}) {
        const std::size_t at = code.find(mark);
        if (at == none) {
            continue;
        }
        SourceComment comment;
        comment.Line = line;
        std::string_view body = code.substr(at + mark.size());
        comment.Raw = code.substr(at);
        const std::size_t close = mark[1] == '*' ? body.find("*/") : none;
        comment.Lines.emplace_back(Trimmed(body.substr(0, close)));
        return comment;
    }
    return std::nullopt;
}

/// Rust's "//!" lines at the top of a module.
std::optional<SourceComment> TopLines(const SourceText& text, std::string_view mark) {
    std::uint32_t first = 1;
    while (first <= text.LineCount() && Trimmed(text.Line(first)).empty()) {
        ++first;
    }
    std::uint32_t last = first;
    while (last <= text.LineCount() && Trimmed(text.Line(last)).starts_with(mark)) {
        ++last;
    }
    return last == first ? std::nullopt : std::optional(FromLines(text, first, last - 1));
}

/// The comment at the very top of a file, when a blank line parts it from the code.
std::optional<SourceComment> TopBlock(const SourceText& text) {
    if (!Trimmed(text.Line(1)).starts_with("/**")) {
        return std::nullopt;
    }
    for (std::uint32_t line = 1; line <= text.LineCount(); ++line) {
        if (Trimmed(text.Line(line)).ends_with("*/")) {
            const bool isApart = Trimmed(text.Line(line + 1)).empty();
            return isApart ? std::optional(FromLines(text, 1, line)) : std::nullopt;
        }
    }
    return std::nullopt;
}

std::optional<SourceComment> OfModule(const SourceText& text, SourceLanguage language) {
    return language == SourceLanguage::Python ? DocumentationString(text, 0)
           : language == SourceLanguage::Rust ? TopLines(text, "//!")
                                              : TopBlock(text);
}

} // namespace

CommentExtractor::CommentExtractor(std::filesystem::path folder) : mFolder(std::move(folder)) {}

std::optional<SourceComment> CommentExtractor::Find(const SourceIndex& index,
                                                    SourceIndex::Id entity) {
    const SourceIndex::Id parent = index.Parent(entity);
    for (const SourcePlace& place : index.Places(entity)) {
        // a member on the line of its type does not share the comment of the type
        if (parent != SourceIndex::Nothing && !IsGroup(index.Kind(parent)) &&
            index.Place(parent).File == place.File && index.Place(parent).Line == place.Line) {
            continue;
        }
        const SourceText* text = Text(place.File);
        if (text == nullptr) {
            continue;
        }
        auto comment = At(*text, place.Line, index.Kind(entity), index.Language(entity),
                          index.LanguageName(entity));
        if (comment) {
            comment->File = place.File;
            return comment;
        }
    }
    return std::nullopt;
}

std::optional<SourceComment> CommentExtractor::At(const SourceText& text, std::uint32_t line,
                                                  SourceKind kind, SourceLanguage language,
                                                  std::string_view languageName) {
    if (line == 0 || line > text.LineCount()) {
        return std::nullopt;
    }
    std::optional<SourceComment> comment;
    if (kind == SourceKind::Module && line == 1) {
        comment = OfModule(text, language);
    } else {
        if (language == SourceLanguage::Python &&
            (IsCallable(kind) || IsType(kind) || kind == SourceKind::Property)) {
            comment = DocumentationString(text, line);
        }
        if (!comment) {
            const CommentSyntax& syntax = CommentSyntax::Of(language, languageName);
            if (const auto found = Above(text, kind, language, syntax).Find(line)) {
                comment = FromLines(text, found->first, found->second);
            }
        }
        if (!comment) {
            comment = Trailing(text, line);
        }
    }
    if (comment) {
        for (std::string& cleaned : comment->Lines) {
            cleaned = IsValidUtf8(cleaned) ? cleaned : PrintableUtf8(cleaned);
        }
    }
    return comment && !comment->Lines.empty() ? std::move(comment) : std::nullopt;
}

std::vector<std::string> CommentExtractor::CleanedLines(std::string_view raw) {
    constexpr std::array<std::string_view, 17> marks = {
        "////", "///", "//!", "//", "/**", "/*!",    "/*",   "--[[", "---",
        "--",   "{-|", "{-",  "##", "#",   "=begin", "=end", "!"};
    std::vector<std::string> lines;
    bool isInBlock = false, hasStars = false, isTight = false;
    std::string opening; // blanks as wide as what stands before the text of the first line
    for (bool isLast = false; !isLast;) {
        const std::size_t end = std::min(raw.find('\n'), raw.size());
        std::string line(raw.substr(0, end));
        isLast = end == raw.size();
        raw.remove_prefix(isLast ? end : end + 1);
        const std::string_view code = Trimmed(line);
        const auto mark = isInBlock ? marks.end()
                                    : std::find_if(marks.begin(), marks.end(),
                                                   [&](auto m) { return code.starts_with(m); });
        const bool isStar = mark == marks.end() && code.starts_with("*") &&
                            !code.starts_with("*/") && !code.starts_with("**/");
        if (mark != marks.end()) {
            isInBlock = mark->starts_with("/*") || mark->starts_with("{-") || *mark == "--[[" ||
                        *mark == "=begin";
            const std::size_t start = line.find(*mark);
            opening = lines.empty() && isInBlock ? std::string(start + mark->size(), ' ') : opening;
            line.erase(0, start + mark->size());
            isTight = lines.empty() && !line.empty() && line[0] != ' ' && line[0] != '\t';
        } else if (isStar) {
            hasStars = true;
            line.erase(0, line.find('*') + 1);
        }
        for (const std::string_view close : {"**/", "*/", "-}", "]]", "=end"}) {
            if (isInBlock && Trimmed(line).ends_with(close)) {
                line.resize(line.rfind(close));
                isInBlock = false;
                break;
            }
        }
        const std::string_view text = Trimmed(line);
        const bool isOrnament =
            text.size() > 2 && text.find_first_not_of("*-=/#~_") == std::string_view::npos;
        lines.push_back(isOrnament ? std::string() : std::move(line));
    }
    // in "/* one", with "   two" below it, both texts stand in the same column
    if (!hasStars && !Trimmed(lines[0]).empty()) {
        lines[0].insert(0, opening);
    }
    RemoveCommonIndentation(lines, isTight && hasStars ? 1 : 0);
    lines[0] = Trimmed(lines[0]);
    Tidy(lines);
    return lines;
}

const SourceText* CommentExtractor::Text(std::string_view file) {
    const std::filesystem::path path = mFolder / file;
    std::error_code error;
    const auto time = std::filesystem::last_write_time(path, error);
    const auto known = std::find_if(mCache.begin(), mCache.end(),
                                    [&](const CachedFile& cached) { return cached.file == file; });
    if (known != mCache.end()) {
        if (!error && known->time == time) {
            mCache.splice(mCache.begin(), mCache, known);
            return &mCache.front().text;
        }
        mCache.erase(known);
    }
    std::optional<SourceText> text;
    if (error || !(text = SourceText::Read(path))) {
        return nullptr;
    }
    mCache.push_front({std::string(file), time, std::move(*text)});
    if (mCache.size() > cachedFiles) {
        mCache.pop_back();
    }
    return &mCache.front().text;
}

} // namespace paperkite
