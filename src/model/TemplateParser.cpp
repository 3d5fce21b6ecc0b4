#include "model/TemplateParser.h"

#include "foundation/Utf8.h"

#include <algorithm>

namespace paperkite {

namespace {

constexpr std::size_t kMostErrors = 100;

/// Finds a text again and again, always further behind; a search that found nothing is not
/// repeated.
class Finder {
public:
    Finder(std::string_view text, std::string_view wanted) : mText(text), mWanted(wanted) {}
    std::size_t Next(std::size_t from) {
        if (mWanted.empty()) return std::string_view::npos;
        if (!mIsKnown || mAt < from) mAt = mText.find(mWanted, from);
        mIsKnown = true;
        return mAt;
    }

private:
    std::string_view mText;
    std::string_view mWanted;
    bool mIsKnown = false;
    std::size_t mAt = 0;
};

TemplateAttributes::List ListOf(const ParserElement& element) {
    TemplateAttributes::List list;
    for (const auto& attribute : element.Attributes)
        list.emplace_back(attribute->Name, attribute->Value);
    return list;
}

/// Of attributes of one name the first.
Collection<Ref<ElementAttribute>> CollectionOf(const TemplateAttributes::List& list) {
    Collection<Ref<ElementAttribute>> collection{KeyComparison::IgnoringCase};
    for (const auto& [name, value] : list) {
        if (collection.Contains(name)) continue;
        auto attribute = MakeRef<ElementAttribute>();
        attribute->Name = name;
        attribute->Value = value;
        collection.Add(attribute, name);
    }
    return collection;
}

bool SayTheSame(const Collection<Ref<ElementAttribute>>& left,
                const Collection<Ref<ElementAttribute>>& right) {
    return std::equal(
        left.begin(), left.end(), right.begin(), right.end(),
        [](const auto& a, const auto& b) { return a->Name == b->Name && a->Value == b->Value; });
}

/// The first byte that begins no character, or npos.
std::size_t FirstBadByte(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length =
            static_cast<unsigned char>(text[at]) < 0x80 ? 1 : Utf8CharacterLength(text.substr(at));
        if (length == 0) return at;
        at += length;
    }
    return std::string_view::npos;
}

std::string HexadecimalOf(char byte) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto value = static_cast<unsigned char>(byte);
    return {digits[value >> 4], digits[value & 15]};
}

} // namespace

TemplateParser::TemplateParser() {
    LoadText({});
}

void TemplateParser::SetPageLayoutTags() {
    mStartTagPrefix = "<!--KITEMETADATA start";
    mStartTagSuffix = "-->";
    mEndTagPrefix = "<!--KITEMETADATA end";
    mEndTagSuffix = "-->";
}

void TemplateParser::LoadText(const std::string& text) {
    mTags.clear();
    mMistakes.clear();
    mSections = MakeRef<ParserSections>();
    auto section = MakeRef<ParserSection>();
    if (const auto self = std::static_pointer_cast<ParserTemplate>(weak_from_this().lock()))
        section->Template = Ref<ParserTemplate>(self);
    mSections->Add(section);
    CheckEncoding(text);
    FindTags(text);
    MatchTags();
    MakeElements(text);
    TellMistakes(text);
    mTags = {};
    mMistakes = {};
}

void TemplateParser::CheckEncoding(std::string_view text) {
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
        AddMistake(0, "This text is UTF-16. Save it as UTF-8.");
        return;
    }
    const std::size_t bad = FirstBadByte(text);
    if (bad != std::string_view::npos)
        AddMistake(bad, "The byte " + HexadecimalOf(text[bad]) +
                            " is not UTF-8. Save the text as UTF-8, or mend that character.");
    // HTML has no such character, and whoever reads it puts another one in its place.
    const std::size_t zero = text.find('\0');
    if (zero != std::string_view::npos)
        AddMistake(zero, "The byte 00 is no character of a text. Take it away.");
}

void TemplateParser::FindTags(std::string_view text) {
    Finder starts(text, mStartTagPrefix);
    Finder ends(text, mEndTagPrefix);
    Finder startSuffixes(text, mStartTagSuffix);
    Finder endSuffixes(text, mEndTagSuffix);
    std::size_t at = 0;
    while (true) {
        const std::size_t start = starts.Next(at);
        const std::size_t end = ends.Next(at);
        const std::size_t from = std::min(start, end);
        if (from == std::string_view::npos) return;
        // Where one prefix begins the other one, the longer is meant.
        const bool isStart =
            start != end ? start < end : mStartTagPrefix.size() > mEndTagPrefix.size();
        at = from + (isStart ? mStartTagPrefix : mEndTagPrefix).size();
        const std::size_t suffix = (isStart ? startSuffixes : endSuffixes).Next(at);
        const std::size_t next = std::min(starts.Next(at), ends.Next(at));
        if (suffix == std::string_view::npos || next < suffix) {
            AddMistake(from, "This tag is not ended. Put \"" +
                                 (isStart ? mStartTagSuffix : mEndTagSuffix) + "\" behind it.");
            continue;
        }
        const std::size_t to = suffix + (isStart ? mStartTagSuffix : mEndTagSuffix).size();
        mTags.push_back({isStart, from, to, kNone});
        at = to;
    }
}

void TemplateParser::MatchTags() {
    std::vector<std::size_t> open;
    for (std::size_t at = 0; at < mTags.size(); ++at) {
        if (mTags[at].IsStart) {
            open.push_back(at);
        } else if (open.empty()) {
            AddMistake(mTags[at].From, "This end tag has no start tag before it. Remove it, or "
                                       "put the start tag where the element begins.");
        } else {
            mTags[at].Match = open.back();
            mTags[open.back()].Match = at;
            open.pop_back();
        }
    }
    for (const std::size_t at : open)
        AddMistake(mTags[at].From, "This element is not ended. Put \"" + mEndTagPrefix +
                                       mEndTagSuffix + "\" where it ends.");
}

void TemplateParser::MakeElements(std::string_view text) {
    std::size_t written = 0;
    for (std::size_t at = 0; at < mTags.size();) {
        const Tag& start = mTags[at];
        TemplateAttributes::List attributes;
        if (!start.IsStart || start.Match == kNone || !ReadAttributes(text, start, attributes)) {
            ++at;
            continue;
        }
        AddText(text.substr(written, start.From - written));
        const Tag& end = mTags[start.Match];
        AddElement(text, start, end, attributes);
        written = end.To;
        if (!mMetaDocumentMode) CheckNested(text, at + 1, start.Match);
        at = start.Match + 1;
    }
    AddText(text.substr(written));
}

void TemplateParser::CheckNested(std::string_view text, std::size_t from, std::size_t to) {
    for (std::size_t at = from; at < to; ++at) {
        TemplateAttributes::List ignored;
        if (mTags[at].IsStart && mTags[at].Match != kNone) ReadAttributes(text, mTags[at], ignored);
    }
}

/// False when the tag cannot be understood.
bool TemplateParser::ReadAttributes(std::string_view text, const Tag& tag,
                                    TemplateAttributes::List& list) {
    const std::size_t from = tag.From + mStartTagPrefix.size();
    const std::size_t to = tag.To - mStartTagSuffix.size();
    if (from < to && std::string_view(" \t\r\n\f").find(text[from]) == std::string_view::npos) {
        AddMistake(from, "A blank is missing here. Put one behind \"" + mStartTagPrefix + "\".");
        return false;
    }
    if (const auto mistake = TemplateAttributes::Read(text.substr(from, to - from), list)) {
        AddMistake(from + mistake->Offset, mistake->What);
        return false;
    }
    const auto named = CollectionOf(list);
    if (!named.Contains("type"))
        AddMistake(tag.From, "This tag does not say what it stands for. Add type=\"…\" to it.");
    if (mMetaDocumentMode && named.Count() < list.size()) {
        AddMistake(tag.From, "An attribute is given twice. Remove one of the two.");
        return false;
    }
    return true;
}

void TemplateParser::AddText(std::string_view text) {
    if (text.empty()) return;
    auto element = MakeRef<ParserElement>();
    element->Text = text;
    element->Section = mSections->Item(std::size_t{1});
    mSections->Item(std::size_t{1})->Elements.Add(element);
}

void TemplateParser::AddElement(std::string_view text, const Tag& start, const Tag& end,
                                const TemplateAttributes::List& attributes) {
    auto element = MakeRef<ParserElement>();
    element->ElementType = kParserTagElement;
    element->Attributes = CollectionOf(attributes);
    element->Text = text.substr(start.To, end.From - start.To);
    element->SourceText = text.substr(start.From, end.To - start.From);
    element->Section = mSections->Item(std::size_t{1});
    mSections->Item(std::size_t{1})->Elements.Add(element);
}

void TemplateParser::AddMistake(std::size_t offset, std::string what) {
    mMistakes.push_back({offset, std::move(what)});
}

void TemplateParser::TellMistakes(std::string_view text) {
    mParseErrors.clear();
    std::stable_sort(mMistakes.begin(), mMistakes.end(),
                     [](const auto& a, const auto& b) { return a.Offset < b.Offset; });
    std::size_t line = 1;
    std::size_t column = 1;
    std::size_t at = 0;
    const std::size_t shown = std::min(mMistakes.size(), kMostErrors);
    for (std::size_t mistake = 0; mistake < shown; ++mistake) {
        for (; at < mMistakes[mistake].Offset; ++at) {
            if (text[at] == '\n') {
                ++line;
                column = 1;
            } else if ((static_cast<unsigned char>(text[at]) & 0xC0) != 0x80) {
                ++column;
            }
        }
        if (!mParseErrors.empty()) mParseErrors += '\n';
        mParseErrors += "Line " + std::to_string(line) + ", column " + std::to_string(column) +
                        ": " + mMistakes[mistake].What;
    }
    if (shown < mMistakes.size())
        mParseErrors += "\nThere are " + std::to_string(mMistakes.size() - shown) + " more.";
}

std::string TemplateParser::StartTagOf(const ParserElement& element) const {
    return mStartTagPrefix + " " + TemplateAttributes::Write(ListOf(element)) + mStartTagSuffix;
}

std::string TemplateParser::SourceOf(const ParserElement& element) const {
    if (element.ElementType != kParserTagElement) return element.Text;
    const std::string_view source = element.SourceText;
    const std::size_t startEnd = source.find(mStartTagSuffix, mStartTagPrefix.size());
    const std::size_t end = source.rfind(mEndTagPrefix);
    if (source.empty() || startEnd == std::string_view::npos || end == std::string_view::npos)
        return StartTagOf(element) + element.Text + mEndTagPrefix + mEndTagSuffix;
    const std::size_t textFrom = startEnd + mStartTagSuffix.size();
    const std::string_view attributes =
        source.substr(mStartTagPrefix.size(), startEnd - mStartTagPrefix.size());
    TemplateAttributes::List list;
    const bool isReadable = !TemplateAttributes::Read(attributes, list);
    const bool isSameTag = isReadable && SayTheSame(CollectionOf(list), element.Attributes);
    if (isSameTag && source.substr(textFrom, end - textFrom) == element.Text)
        return element.SourceText;
    const std::string start =
        isSameTag ? std::string(source.substr(0, textFrom)) : StartTagOf(element);
    return start + element.Text + std::string(source.substr(end));
}

std::string TemplateParser::Parse() {
    std::string page;
    for (const auto& element : mSections->Item(std::size_t{1})->Elements) {
        if (element->ElementType != kParserTagElement) {
            page += element->Text;
            continue;
        }
        const std::string provided =
            mDataProvider ? mDataProvider->ProvideData(element, {}) : std::string();
        page += mDataProvider && mUseProvidedText ? provided : SourceOf(*element);
    }
    return page;
}

} // namespace paperkite
