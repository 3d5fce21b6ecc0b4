#include "doctypes/source/CodeMask.h"

#include <algorithm>
#include <array>

namespace paperkite {

namespace {

constexpr CommentSyntax cStyle = {"//", "", "/*", "*/", true};
constexpr CommentSyntax rustStyle = {"//", "", "/*", "*/", true, true};
constexpr CommentSyntax scriptStyle = {"//", "", "/*", "*/", false};
constexpr CommentSyntax phpStyle = {"//", "#", "/*", "*/", false};
constexpr CommentSyntax hashStyle = {"#", "", "", "", false};
constexpr CommentSyntax rubyStyle = {"#", "", "=begin", "=end", false};
constexpr CommentSyntax luaStyle = {"--", "", "--[[", "]]", false};
constexpr CommentSyntax haskellStyle = {"--", "", "{-", "-}", true};
constexpr CommentSyntax dashStyle = {"--", "", "/*", "*/", false};
constexpr CommentSyntax fortranStyle = {"!", "", "", "", false};
constexpr CommentSyntax pascalStyle = {"//", "", "{", "}", false};

const CommentSyntax& OfOther(std::string_view name) {
    constexpr std::array<std::string_view, 8> hashLanguages = {"Perl",  "Perl6",  "Sh",  "R",
                                                               "Julia", "Elixir", "Tcl", "Awk"};
    if (std::find(hashLanguages.begin(), hashLanguages.end(), name) != hashLanguages.end()) {
        return hashStyle;
    }
    return name == "Lua"                                      ? luaStyle
           : name == "Haskell" || name == "Elm"               ? haskellStyle
           : name == "SQL" || name == "Ada" || name == "VHDL" ? dashStyle
           : name == "Fortran"                                ? fortranStyle
           : name == "Pascal"                                 ? pascalStyle
                                                              : cStyle;
}

/// Walks through the text and blanks as it goes.
class Masker {
public:
    Masker(std::string_view text, const CommentSyntax& syntax) : mText(text), mSyntax(syntax) {
        for (const std::string_view mark :
             {syntax.BlockBegin, syntax.Line, syntax.OtherLine, std::string_view("\""),
              std::string_view("'"), std::string_view("`")}) {
            if (!mark.empty()) {
                mMayBegin[static_cast<unsigned char>(mark[0])] = true;
            }
        }
    }

    std::string Run() {
        mResult.assign(mText);
        while (mAt < mText.size()) {
            if (mMayBegin[static_cast<unsigned char>(mText[mAt])]) {
                Step();
            } else {
                ++mAt;
            }
        }
        return std::move(mResult);
    }

private:
    bool StartsWith(std::string_view mark) const {
        return !mark.empty() && mText.substr(mAt, mark.size()) == mark;
    }

    void BlankTo(std::size_t end) {
        for (end = std::min(end, mText.size()); mAt < end; ++mAt) {
            if (mResult[mAt] != '\n' && mResult[mAt] != '\r') {
                mResult[mAt] = ' ';
            }
        }
    }

    std::size_t After(std::string_view mark, std::size_t from) const {
        const std::size_t found = mText.find(mark, from);
        return found == std::string_view::npos ? mText.size() : found + mark.size();
    }

    void Step() {
        const char c = mText[mAt];
        if (StartsWith(mSyntax.BlockBegin)) {
            BlankTo(After(mSyntax.BlockEnd, mAt + mSyntax.BlockBegin.size()));
        } else if (StartsWith(mSyntax.Line) ||
                   (StartsWith(mSyntax.OtherLine) && mText.substr(mAt, 2) != "#[")) {
            BlankTo(mText.find_first_of("\r\n", mAt));
        } else if (mText.substr(mAt, 3) == "\"\"\"" || mText.substr(mAt, 3) == "'''") {
            const std::size_t end = After(mText.substr(mAt, 3), mAt + 3);
            ++mAt;
            BlankTo(end - 1);
            mAt = end;
        } else if (c == '"' || c == '`' || (c == '\'' && IsQuote())) {
            String(c);
        } else {
            ++mAt;
        }
    }

    // 1'000'000 and Rust's lifetimes have an apostrophe too
    bool IsQuote() const {
        if (!mSyntax.HasCharacterQuotes) {
            return true;
        }
        const bool isAfterDigit =
            mAt > 0 && std::isalnum(static_cast<unsigned char>(mText[mAt - 1]));
        return !isAfterDigit &&
               (mText.substr(mAt + 1, 1) == "\\" ||
                mText.substr(mAt + 1, 8).find('\'') != std::string_view::npos) &&
               !(std::isalpha(static_cast<unsigned char>(mText.substr(mAt + 1, 1)[0])) &&
                 mText.substr(mAt + 2, 1) != "'");
    }

    void String(char quote) {
        std::size_t end = mAt + 1;
        while (end < mText.size() && mText[end] != quote && (mText[end] != '\n' || quote == '`')) {
            end += mText[end] == '\\' ? 2 : 1;
        }
        ++mAt;
        BlankTo(end);
        mAt = std::min(end + 1, mText.size());
    }

    std::string_view mText;
    const CommentSyntax& mSyntax;
    std::array<bool, 256> mMayBegin = {}; ///< the first characters of all that is blanked
    std::string mResult;
    std::size_t mAt = 0;
};

} // namespace

const CommentSyntax& CommentSyntax::Of(SourceLanguage language, std::string_view languageName) {
    switch (language) {
    case SourceLanguage::Python:
        return hashStyle;
    case SourceLanguage::Rust:
        return rustStyle;
    case SourceLanguage::Ruby:
        return rubyStyle;
    case SourceLanguage::Php:
        return phpStyle;
    case SourceLanguage::JavaScript:
    case SourceLanguage::TypeScript:
        return scriptStyle;
    case SourceLanguage::Other:
        return OfOther(languageName);
    default:
        return cStyle;
    }
}

std::string MaskComments(std::string_view text, const CommentSyntax& syntax) {
    return Masker(text, syntax).Run();
}

std::size_t ClosingBracket(std::string_view masked, std::size_t open) {
    constexpr std::size_t furthest = 1 << 20;
    if (open >= masked.size()) {
        return std::string_view::npos;
    }
    const char first = masked[open];
    const std::string_view opening = first == '<' ? "<(" : "([{";
    const std::string_view closing = first == '<' ? ">)" : ")]}";
    int depth = 0;
    const std::size_t end = std::min(masked.size(), open + furthest);
    for (std::size_t i = open; i < end; ++i) {
        if (opening.find(masked[i]) != std::string_view::npos) {
            ++depth;
        } else if (closing.find(masked[i]) != std::string_view::npos &&
                   !(i > 0 && masked[i] == '>' && masked[i - 1] == '=')) {
            if (--depth == 0) {
                return i;
            }
        } else if (first == '<' && masked[i] == ';') {
            return std::string_view::npos;
        }
    }
    return std::string_view::npos;
}

} // namespace paperkite
