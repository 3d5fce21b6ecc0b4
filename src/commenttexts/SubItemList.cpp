#include "commenttexts/SubItemList.h"

#include "commenttexts/PlainText.h"
#include "foundation/HtmlTokens.h"
#include "foundation/Text.h"

namespace paperkite {

namespace {

/// Takes the tokens of a definition list one by one; answers false at what does not belong there.
class SubItemReading {
public:
    explicit SubItemReading(std::string_view html) : mHtml(html) {}

    bool Take(const HtmlToken& token) {
        switch (token.What) {
        case HtmlToken::Kind::Text:
            return TakeText(mHtml.substr(token.From, token.To - token.From));
        case HtmlToken::Kind::StartTag:
            return Begin(token);
        case HtmlToken::Kind::EndTag:
            return End(token.Name);
        case HtmlToken::Kind::Comment:
            return false;
        }
        return false;
    }
    bool IsComplete() const { return mPlace == Place::Behind; }
    SubItemList GetList() && { return std::move(mList); }

private:
    enum class Place { Before, List, Name, Text, Behind };

    bool TakeText(std::string_view text) {
        if (mPlace == Place::Name)
            mList.Items.back().Name += PlainText::Decoded(text);
        else if (mPlace == Place::Text)
            mList.Items.back().Text += PlainText::Decoded(ReplaceAll(text, "\n", " "));
        else
            return TrimWhiteSpace(text).empty();
        return true;
    }
    bool Begin(const HtmlToken& token) {
        // An attribute would be lost.
        const std::size_t bare = token.Name.size() + (token.IsSelfClosing ? 3 : 2);
        const bool isBreak = EqualIgnoringCase(token.Name, "br") && mPlace == Place::Text;
        if (!isBreak && token.To - token.From != bare) return false;
        if (isBreak) {
            mList.Items.back().Text += "\n";
        } else if (EqualIgnoringCase(token.Name, "dl") && mPlace == Place::Before) {
            mPlace = Place::List;
        } else if (EqualIgnoringCase(token.Name, "dt") && mPlace == Place::List && !mHasName) {
            mList.Items.emplace_back();
            mHasName = true;
            mPlace = Place::Name;
        } else if (EqualIgnoringCase(token.Name, "dd") && mPlace == Place::List && mHasName) {
            mHasName = false;
            mPlace = Place::Text;
        } else {
            return false;
        }
        return true;
    }
    bool End(std::string_view name) {
        if (EqualIgnoringCase(name, "dt") && mPlace == Place::Name) {
            mPlace = Place::List;
        } else if (EqualIgnoringCase(name, "dd") && mPlace == Place::Text) {
            mPlace = Place::List;
        } else if (EqualIgnoringCase(name, "dl") && mPlace == Place::List && !mHasName) {
            mPlace = Place::Behind;
        } else {
            return false;
        }
        return true;
    }

    std::string_view mHtml;
    SubItemList mList;
    Place mPlace = Place::Before;
    /// A name was read whose text is still to come.
    bool mHasName = false;
};

} // namespace

std::optional<SubItemList> SubItemList::Read(std::string_view html) {
    if (TrimWhiteSpace(html).empty()) return SubItemList();
    SubItemReading reading(html);
    HtmlTokens tokens(html);
    for (HtmlToken token; tokens.Next(token);)
        if (!reading.Take(token)) return {};
    if (!reading.IsComplete()) return {};
    return std::move(reading).GetList();
}

std::string SubItemList::Write() const {
    if (Items.empty()) return {};
    std::string html = "<dl>\n";
    for (const SubItem& item : Items)
        html += "<dt>" + PlainText::Escaped(item.Name) + "</dt><dd>" +
                ReplaceAll(PlainText::Escaped(item.Text), "\n", "<br>") + "</dd>\n";
    return html + "</dl>";
}

} // namespace paperkite
