#include "foundation/HtmlTokens.h"

#include "foundation/Text.h"

#include <algorithm>
#include <iterator>

namespace paperkite {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

/// Elements whose contents take no tags; entities count in the last two.
constexpr std::string_view kRawElements[] = {"script",   "style",     "xmp",   "iframe",  "noembed",
                                             "noframes", "plaintext", "title", "textarea"};

bool IsLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool IsBlank(char character) {
    return character == ' ' || character == '\n' || character == '\t' || character == '\r' ||
           character == '\f';
}

bool EndsName(char character) {
    return IsBlank(character) || character == '/' || character == '>';
}

std::string_view RawElement(std::string_view name) {
    if (name.size() < 3 || name.size() > 9) return {};
    for (const std::string_view raw : kRawElements)
        if (EqualIgnoringCase(raw, name)) return raw;
    return {};
}

} // namespace

bool HtmlTokens::Next(HtmlToken& token) {
    if (mAt >= mHtml.size()) return false;
    token = {};
    token.From = mAt;
    if (!mRawElement.empty() && TakeRawText(token)) return true;
    if (BeginsMarkup(mAt))
        TakeMarkup(token);
    else
        TakeText(token);
    mAt = token.To;
    return true;
}

/// The text up to the end tag of its element; false where there is none, not even a byte.
bool HtmlTokens::TakeRawText(HtmlToken& token) {
    const std::string_view element = mRawElement;
    mRawElement = {};
    std::size_t end = mAt;
    while (true) {
        end = element == "plaintext" ? kNone : mHtml.find("</", end);
        if (end == kNone) break;
        const std::size_t behind = end + 2 + element.size();
        if (EqualIgnoringCase(mHtml.substr(end + 2, element.size()), element) &&
            behind < mHtml.size() && EndsName(mHtml[behind]))
            break;
        end += 2;
    }
    token.To = std::min(end, mHtml.size());
    token.IsRaw = element != "title" && element != "textarea";
    mAt = token.To;
    return token.To > token.From;
}

/// Whether a "<" is more than that character.
bool HtmlTokens::BeginsMarkup(std::size_t at) const {
    if (mHtml[at] != '<' || at + 1 >= mHtml.size()) return false;
    const char next = mHtml[at + 1];
    if (next == '/') return at + 2 < mHtml.size();
    return IsLetter(next) || next == '!' || next == '?';
}

void HtmlTokens::TakeText(HtmlToken& token) {
    std::size_t end = mHtml.find('<', mAt + 1);
    while (end != kNone && !BeginsMarkup(end))
        end = mHtml.find('<', end + 1);
    token.To = std::min(end, mHtml.size());
}

void HtmlTokens::TakeMarkup(HtmlToken& token) {
    constexpr std::string_view kCData = "<![CDATA[";
    const char next = mHtml[mAt + 1];
    if (IsLetter(next) || (next == '/' && IsLetter(mHtml[mAt + 2]))) return TakeTag(token);
    token.What = HtmlToken::Kind::Comment;
    if (mForeignDepth > 0 && mHtml.substr(mAt, kCData.size()) == kCData) {
        token.What = HtmlToken::Kind::Text;
        token.IsRaw = true;
        const std::size_t end = mHtml.find("]]>", mAt);
        token.To = end == kNone ? mHtml.size() : end + 3;
    } else {
        token.To = CommentEnd(mAt);
    }
}

std::size_t HtmlTokens::CommentEnd(std::size_t from) const {
    if (mHtml.substr(from, 4) != "<!--") {
        const std::size_t end = mHtml.find('>', from);
        return end == kNone ? mHtml.size() : end + 1;
    }
    // "<!-->" and "<!--->" are comments too.
    std::size_t at = from + 4;
    if (mHtml.substr(at, 1) == ">") return at + 1;
    if (mHtml.substr(at, 2) == "->") return at + 2;
    while ((at = mHtml.find("--", at)) != kNone) {
        if (mHtml.substr(at + 2, 1) == ">") return at + 3;
        if (mHtml.substr(at + 2, 2) == "!>") return at + 4;
        ++at;
    }
    return mHtml.size();
}

void HtmlTokens::TakeTag(HtmlToken& token) {
    const bool isEnd = mHtml[mAt + 1] == '/';
    token.What = isEnd ? HtmlToken::Kind::EndTag : HtmlToken::Kind::StartTag;
    const std::size_t name = mAt + (isEnd ? 2 : 1);
    std::size_t end = name;
    while (end < mHtml.size() && !EndsName(mHtml[end]))
        ++end;
    token.Name = mHtml.substr(name, end - name);
    token.To = TagEnd(end, token.IsSelfClosing);
    FollowTag(token);
}

void HtmlTokens::FollowTag(const HtmlToken& token) {
    if (token.Name.size() < 3) return;
    const bool isForeign =
        EqualIgnoringCase(token.Name, "svg") || EqualIgnoringCase(token.Name, "math");
    if (token.What == HtmlToken::Kind::EndTag) {
        if (isForeign && mForeignDepth > 0) --mForeignDepth;
        return;
    }
    if (isForeign && !token.IsSelfClosing) ++mForeignDepth;
    if (mForeignDepth == 0) mRawElement = RawElement(token.Name);
}

/// Behind the ">" of the tag whose name ends at `from`, or at the end of the text.
std::size_t HtmlTokens::TagEnd(std::size_t from, bool& isSelfClosing) const {
    std::size_t at = from;
    while (at < mHtml.size()) {
        if (mHtml[at] == '>') {
            isSelfClosing = mHtml[at - 1] == '/';
            return at + 1;
        }
        if (IsBlank(mHtml[at]) || mHtml[at] == '/')
            ++at;
        else
            at = AttributeEnd(at);
    }
    return mHtml.size();
}

std::size_t HtmlTokens::AttributeEnd(std::size_t from) const {
    std::size_t at = from + 1;
    while (at < mHtml.size() && !EndsName(mHtml[at]) && mHtml[at] != '=')
        ++at;
    std::size_t sign = at;
    while (sign < mHtml.size() && IsBlank(mHtml[sign]))
        ++sign;
    if (sign >= mHtml.size() || mHtml[sign] != '=') return at;
    at = sign + 1;
    while (at < mHtml.size() && IsBlank(mHtml[at]))
        ++at;
    if (at >= mHtml.size()) return at;
    if (mHtml[at] == '"' || mHtml[at] == '\'') {
        const std::size_t end = mHtml.find(mHtml[at], at + 1);
        return end == kNone ? mHtml.size() : end + 1;
    }
    while (at < mHtml.size() && !IsBlank(mHtml[at]) && mHtml[at] != '>')
        ++at;
    return at;
}

} // namespace paperkite
