#include "pagelayout/LayoutPrologue.h"

#include "foundation/HtmlTokens.h"
#include "pagelayout/ParsedLayout.h"

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

/// How many bytes of literal text show nothing and hold no tag.
std::size_t LengthBeforeContent(std::string_view text) {
    HtmlTokens tokens(text);
    for (HtmlToken token; tokens.Next(token);) {
        const std::string_view piece = text.substr(token.From, token.To - token.From);
        if (token.What == HtmlToken::Kind::Comment && IsClosed(piece)) continue;
        if (token.What == HtmlToken::Kind::Text && IsBlank(piece)) continue;
        return token.From;
    }
    return text.size();
}

} // namespace

LayoutPrologue::LayoutPrologue(const std::string& html) {
    std::size_t end = html.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    const auto layout = ParsedLayout(html.substr(end));
    for (const auto& piece : layout->GetSections()->Item(std::size_t{1})->Elements) {
        if (piece->ElementType == kParserTagElement) {
            end += piece->SourceText.size();
            continue;
        }
        const std::size_t length = LengthBeforeContent(piece->Text);
        end += length;
        if (length < piece->Text.size()) break;
    }
    mPrologue = html.substr(0, end);
    mRest = html.substr(end);
}

std::string LayoutPrologue::Before(const std::string& root) const {
    return root.empty() ? root : mPrologue + root;
}

} // namespace paperkite
