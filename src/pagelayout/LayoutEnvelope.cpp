#include "pagelayout/LayoutEnvelope.h"

#include "foundation/HtmlTokens.h"
#include "foundation/Text.h"
#include "pagelayout/ParsedLayout.h"

#include <algorithm>
#include <string_view>

namespace paperkite {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n\f") == std::string_view::npos;
}

/// A comment that is not closed would swallow whatever is put behind it.
bool IsClosed(std::string_view comment) {
    if (!comment.starts_with("<!--")) return comment.ends_with('>');
    return comment.ends_with("-->") || comment.ends_with("--!>");
}

/// Comments and white space show nothing and hold no tag.
bool ShowsNothing(const HtmlToken& token, std::string_view piece) {
    return token.What == HtmlToken::Kind::Comment
               ? IsClosed(piece)
               : token.What == HtmlToken::Kind::Text && IsBlank(piece);
}

/// How many bytes of literal text show nothing.
std::size_t LengthBeforeContent(std::string_view text) {
    HtmlTokens tokens(text);
    for (HtmlToken token; tokens.Next(token);)
        if (!ShowsNothing(token, text.substr(token.From, token.To - token.From))) return token.From;
    return text.size();
}

std::size_t LengthOfPrologue(const Collection<Ref<ParserElement>>& pieces) {
    std::size_t end = 0;
    for (const auto& piece : pieces) {
        if (piece->ElementType == kParserTagElement) {
            end += piece->SourceText.size();
            continue;
        }
        const std::size_t length = LengthBeforeContent(piece->Text);
        end += length;
        if (length < piece->Text.size()) break;
    }
    return end;
}

/// Where the end tag of the root ends if nothing but comments and elements is behind it, or the end
/// of the text.
std::size_t EndOfRoot(const Collection<Ref<ParserElement>>& pieces) {
    constexpr std::size_t kNone = std::string::npos;
    std::size_t end = kNone;
    std::size_t at = 0;
    for (const auto& piece : pieces) {
        if (piece->ElementType == kParserTagElement) {
            at += piece->SourceText.size();
            continue;
        }
        const std::string_view text = piece->Text;
        HtmlTokens tokens(text);
        for (HtmlToken token; tokens.Next(token);) {
            if (ShowsNothing(token, text.substr(token.From, token.To - token.From))) continue;
            const bool isEnd =
                token.What == HtmlToken::Kind::EndTag && EqualIgnoringCase(token.Name, "html");
            end = isEnd ? at + token.To : kNone;
        }
        at += text.size();
    }
    return std::min(end, at);
}

std::size_t BehindLineBreak(std::string_view text, std::size_t at) {
    if (text.substr(at).starts_with("\r\n")) return at + 2;
    return text.substr(at).starts_with('\n') ? at + 1 : at;
}

} // namespace

LayoutEnvelope::LayoutEnvelope(const std::string& html) {
    const std::size_t mark = html.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    const auto layout = ParsedLayout(html.substr(mark));
    const auto& pieces = layout->GetSections()->Item(std::size_t{1})->Elements;
    const std::size_t begin = mark + LengthOfPrologue(pieces);
    std::size_t end = BehindLineBreak(html, mark + EndOfRoot(pieces));
    if (end < begin || IsBlank(std::string_view(html).substr(end))) end = html.size();
    mPrologue = html.substr(0, begin);
    mRoot = html.substr(begin, end - begin);
    mEpilogue = html.substr(end);
}

std::string LayoutEnvelope::Around(const std::string& root) const {
    return root.empty() ? root : mPrologue + root + mEpilogue;
}

} // namespace paperkite
