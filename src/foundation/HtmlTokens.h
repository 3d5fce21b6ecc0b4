#pragma once

#include <cstddef>
#include <string_view>

namespace paperkite {

/// A piece of HTML source: the bytes from From up to To.
struct HtmlToken {
    enum class Kind {
        Text,     ///< character data, entities not decoded
        StartTag, ///< "<p class='a'>"
        EndTag,   ///< "</p>"
        Comment   ///< comments, document types, processing instructions: whatever shows nothing
    };

    Kind What = Kind::Text;
    std::size_t From = 0;
    std::size_t To = 0;
    /// A tag's name as it is written.
    std::string_view Name;
    /// A start tag that ends in "/>".
    bool IsSelfClosing = false;
    /// Text in which "&" is an ordinary character: that of scripts, styles and CDATA sections.
    bool IsRaw = false;
};

/// Takes HTML source apart by the standard's rules, without building a document. Every byte belongs
/// to one token, in order; takes linear time. The text must outlive it.
///
///     HtmlTokens tokens(html);
///     for (HtmlToken token; tokens.Next(token);) …
class HtmlTokens {
public:
    explicit HtmlTokens(std::string_view html) : mHtml(html) {}

    /// The next token; false at the end.
    bool Next(HtmlToken& token);

private:
    bool TakeRawText(HtmlToken& token);
    void TakeText(HtmlToken& token);
    void TakeMarkup(HtmlToken& token);
    void TakeTag(HtmlToken& token);
    void FollowTag(const HtmlToken& token);
    std::size_t CommentEnd(std::size_t from) const;
    std::size_t TagEnd(std::size_t from, bool& isSelfClosing) const;
    std::size_t AttributeEnd(std::size_t from) const;
    bool BeginsMarkup(std::size_t at) const;

    std::string_view mHtml;
    std::size_t mAt = 0;
    /// The element whose text takes no tags, or nothing.
    std::string_view mRawElement;
    std::size_t mForeignDepth = 0;
};

} // namespace paperkite
