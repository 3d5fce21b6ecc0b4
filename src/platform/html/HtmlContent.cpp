#include "platform/html/HtmlContent.h"

#include "foundation/HtmlAttributes.h"
#include "foundation/HtmlEntities.h"
#include "foundation/HtmlTokens.h"
#include "foundation/Text.h"
#include "foundation/Unicode.h"
#include "platform/html/HtmlNames.h"

#include <algorithm>
#include <functional>

namespace paperkite {

namespace {

bool IsBlank(char32_t character) {
    return character == ' ' || character == '\n' || character == '\t' || character == '\r' ||
           character == '\f';
}

void Add(std::uint64_t& hash, char32_t character) {
    hash = (hash ^ character) * 1099511628211U;
}

} // namespace

/// Walks the text once.
class HtmlContent::Reader {
public:
    explicit Reader(HtmlContent& content) : mContent(content) {}

    void Read(std::string_view html) {
        HtmlTokens tokens(html);
        for (HtmlToken token; tokens.Next(token);) {
            const std::string_view source = html.substr(token.From, token.To - token.From);
            switch (token.What) {
            case HtmlToken::Kind::Text:
                ReadText(source, token.IsRaw);
                break;
            case HtmlToken::Kind::StartTag:
                ReadStart(token, source);
                break;
            case HtmlToken::Kind::EndTag:
                ReadEnd(LowerCase(token.Name));
                break;
            case HtmlToken::Kind::Comment:
                ReadComment(source);
                break;
            }
        }
    }

private:
    void ReadText(std::string_view source, bool isRaw) {
        // In front of and behind a script blanks mean nothing.
        if (isRaw) source = TrimmedBlanks(WithoutSection(source));
        const bool isExact = isRaw || mPreformatted > 0;
        for (std::size_t at = 0; at < source.size();) {
            const auto entity = source[at] == '&' && !isRaw ? ReadEntity(source, at) : std::nullopt;
            char32_t character;
            if (entity) {
                character = entity->Character;
                at += entity->Length;
            } else {
                character = NextCharacter(source, at);
            }
            if (character == '\r') continue;
            if (!isExact && IsBlank(character))
                mBlank = std::max(mBlank, ' ');
            else
                Write(character);
        }
    }

    static std::string_view WithoutSection(std::string_view text) {
        constexpr std::string_view kBegin = "<![CDATA[";
        if (!text.starts_with(kBegin)) return text;
        text.remove_prefix(kBegin.size());
        return text.ends_with("]]>") ? text.substr(0, text.size() - 3) : text;
    }

    static std::string_view TrimmedBlanks(std::string_view text) {
        const std::size_t first = std::min(text.find_first_not_of(" \t\r\n\f"), text.size());
        text.remove_prefix(first);
        return text.substr(0, text.find_last_not_of(" \t\r\n\f") + 1);
    }

    void ReadStart(const HtmlToken& token, std::string_view source) {
        const std::string name = LowerCase(token.Name);
        ++mContent.mElements[name];
        if (IsBlockElement(name)) mBlank = kBlockEdge;
        if (DropsFirstLineBreak(name)) ++mPreformatted;
        HtmlAttributes attributes(source);
        while (attributes.Next()) {
            const std::size_t value = std::hash<std::string>()(attributes.Value());
            ++mContent
                  .mAttributes[std::hash<std::string>()(LowerCase(attributes.Name())) * 31 + value];
        }
    }

    void ReadEnd(const std::string& name) {
        if (IsBlockElement(name)) mBlank = kBlockEdge;
        if (DropsFirstLineBreak(name) && mPreformatted > 0) --mPreformatted;
    }

    void ReadComment(std::string_view source) {
        // The document type is kept apart.
        if (EqualIgnoringCase(source.substr(0, 9), "<!doctype")) return;
        Add(mContent.mText, 0x110000);
        for (const char byte : source)
            if (byte != '\r') Add(mContent.mText, static_cast<unsigned char>(byte));
    }

    void Write(char32_t character) {
        if (mBlank != 0) Add(mContent.mText, static_cast<char32_t>(mBlank));
        mBlank = 0;
        Add(mContent.mText, character);
    }

    static constexpr char kBlockEdge = '~';

    HtmlContent& mContent;
    /// What stands between the last word and the next one: nothing, a blank, or the edge of a
    /// block, which is more.
    char mBlank = kBlockEdge;
    int mPreformatted = 0;
};

HtmlContent::HtmlContent(std::string_view html) {
    Reader(*this).Read(html);
}

bool HtmlContent::IsKeptBy(const HtmlContent& other) const {
    const auto isKept = [](const auto& mine, const auto& its) {
        return std::all_of(mine.begin(), mine.end(), [&its](const auto& entry) {
            const auto found = its.find(entry.first);
            return found != its.end() && found->second >= entry.second;
        });
    };
    return mText == other.mText && isKept(mElements, other.mElements) &&
           isKept(mAttributes, other.mAttributes);
}

std::size_t HtmlContent::CountOf(const std::string& element) const {
    const auto found = mElements.find(element);
    return found == mElements.end() ? 0 : found->second;
}

} // namespace paperkite
