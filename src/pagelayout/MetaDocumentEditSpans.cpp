#include "pagelayout/MetaDocumentEdit.h"

#include "foundation/Services.h"
#include "foundation/Text.h"
#include "pagelayout/ParsedLayout.h"

#include <algorithm>
#include <charconv>
#include <map>

// What stands for elements in the page that an author writes on, and parts of other pages.

namespace paperkite {

namespace {

/// Begins what stands in the editor for an element that is not shown as a span; its number follows.
constexpr const char* kExcluded = "!--kiteelement";
/// Of a number; a longer one is none of ours.
constexpr std::size_t kMostDigits = 10;
constexpr std::string_view kSpanTag = "<span id=\"metaspanstart";
constexpr std::string_view kInner = " data-kite-inner=\"";
constexpr std::string_view kEmptyEnd = "></span>";

/// The elements of the part that was copied last, in any editor of the program.
struct CopiedPart {
    std::string Key;
    std::map<std::size_t, std::string> Sources;
};

CopiedPart& LastCopied() {
    static CopiedPart part;
    return part;
}

std::string AsAttribute(std::string_view text) {
    return ReplaceAll(ReplaceAll(text, "&", "&amp;"), "\"", "&quot;");
}

std::size_t NumberBehind(std::string_view text, std::size_t at) {
    std::size_t number = 0;
    std::from_chars(text.data() + at, text.data() + text.size(), number);
    return number;
}

/// Whether an id of a text is one that stands for an element.
bool HoldsSpanNumber(const std::string& text) {
    constexpr std::string_view kId = "metaspanstart";
    for (std::size_t at = FindIgnoringCase(text, kId); at != std::string::npos;
         at = FindIgnoringCase(text, kId, at + 1)) {
        const std::string_view before = std::string_view(text).substr(0, at);
        const bool isId =
            before.ends_with("id=\"") || before.ends_with("id='") || before.ends_with("id=");
        if (isId && NumberBehind(text, at + kId.size()) > 0) return true;
    }
    return false;
}

/// The span with what it shows in an attribute, since a parser may take it apart where it stands.
std::string WithInnerAside(const std::string& span) {
    const std::size_t tag = span.find('>');
    const std::string_view end = kEmptyEnd.substr(1);
    const std::string_view inner =
        std::string_view(span).substr(tag + 1, span.size() - tag - 1 - end.size());
    return span.substr(0, tag) + std::string(kInner) + AsAttribute(inner) + "\"" +
           std::string(kEmptyEnd);
}

Ref<ParserElement> ElementOf(const std::string& source, const Ref<ParserSection>& section) {
    const auto parsed = ParsedLayout(source);
    const auto& pieces = parsed->GetSections()->Item(std::size_t{1})->Elements;
    if (pieces.Count() == 0) return {};
    const Ref<ParserElement> element = pieces.Item(std::size_t{1});
    if (element->ElementType != kParserTagElement) return {};
    element->Section = section;
    return element;
}

} // namespace

std::string MetaDocumentEdit::zForEditor(const std::string& spans) {
    return zWithInnerAside(zHideExcluded(spans));
}

std::string MetaDocumentEdit::zFromEditor(const std::string& text) const {
    return mSpanProvider ? zShowExcluded(zWithInnerBack(text)) : text;
}

std::string MetaDocumentEdit::zWithInnerAside(const std::string& text) const {
    std::string result;
    std::size_t from = 0;
    for (std::size_t number = 1; number <= mSpanProvider->Elements.Count(); ++number) {
        const ParserElement& element = *mSpanProvider->Elements.Item(number);
        if (element.Text.find('<') == std::string::npos ||
            mSpanProvider->ExcludedElements.Contains(std::to_string(number)))
            continue;
        const std::string span = ElementToSpan(element, number);
        const std::size_t at = text.find(span, from);
        if (at == std::string::npos) return text;
        result.append(text, from, at - from).append(WithInnerAside(span));
        from = at + span.size();
    }
    return result.append(text, from);
}

std::string MetaDocumentEdit::zWithInnerBack(const std::string& text) const {
    std::string result;
    std::size_t from = 0;
    for (std::size_t at = text.find(kInner); at != std::string::npos;
         at = text.find(kInner, at + 1)) {
        const std::size_t begin = text.rfind(kSpanTag, at);
        const std::size_t end = text.find('"', at + kInner.size());
        if (begin == std::string::npos || begin < from || end == std::string::npos ||
            text.compare(end + 1, kEmptyEnd.size(), kEmptyEnd) != 0)
            continue;
        const std::size_t number = NumberBehind(text, begin + kSpanTag.size());
        if (number < 1 || number > mSpanProvider->Elements.Count()) continue;
        result.append(text, from, begin - from)
            .append(ElementToSpan(*mSpanProvider->Elements.Item(number), number));
        from = end + 1 + kEmptyEnd.size();
    }
    return result.append(text, from);
}

std::string MetaDocumentEdit::zHideExcluded(const std::string& spans) {
    mExcludedMark = kExcluded;
    // A layout may hold such a comment of its own.
    while (spans.find(mExcludedMark) != std::string::npos)
        mExcludedMark += 'x';
    if (!mSpanProvider || mSpanProvider->ExcludedElements.Count() == 0) return spans;
    std::vector<std::size_t> numbers;
    for (std::size_t number = 1; number <= mSpanProvider->Elements.Count(); ++number)
        if (mSpanProvider->ExcludedElements.Contains(std::to_string(number)))
            numbers.push_back(number);
    std::string text;
    std::size_t next = 0;
    const auto parsed = ParsedLayout(spans);
    for (const auto& piece : parsed->GetSections()->Item(std::size_t{1})->Elements) {
        if (piece->ElementType != kParserTagElement)
            text += piece->Text;
        else if (next < numbers.size())
            text += "<" + mExcludedMark + std::to_string(numbers[next++]) + "-->";
        else
            return spans;
    }
    return next == numbers.size() ? text : spans;
}

std::string MetaDocumentEdit::zShowExcluded(const std::string& text) const {
    std::string shown;
    std::size_t from = 0;
    if (mSpanProvider->ExcludedElements.Count() == 0) return text;
    for (std::size_t at = text.find(mExcludedMark); at != std::string::npos;
         at = text.find(mExcludedMark, at + 1)) {
        // In a title a comment is text.
        const bool isText = text.compare(at < 4 ? 0 : at - 4, 4, "&lt;") == 0;
        const std::string_view close = isText ? "--&gt;" : "-->";
        if (at == 0 || (!isText && text[at - 1] != '<')) continue;
        const std::size_t digits = at + mExcludedMark.size();
        const std::size_t end = text.find(close, digits);
        if (end == std::string::npos) break;
        const std::string number = text.substr(digits, std::min(end - digits, kMostDigits));
        if (!mSpanProvider->ExcludedElements.Contains(number)) continue;
        shown.append(text, from, at - (isText ? 4 : 1) - from)
            .append(mSpanProvider->Elements.Item(std::stoul(number))->GetSourceText());
        from = end + close.size();
    }
    return shown.append(text, from);
}

// A page that was written with such spans of its own could not be told from what the editor makes.
void MetaDocumentEdit::RaiseIfSpanIsForeign(ParserTemplate& layout) {
    for (const auto& piece : layout.GetSections()->Item(std::size_t{1})->Elements) {
        if (piece->ElementType == kParserTagElement || !HoldsSpanNumber(piece->Text)) continue;
        RaiseError(ErrorNumber::InvalidCall,
                   "The layout holds a tag whose id begins with \"metaspanstart\" and a number. "
                   "Such tags stand for elements in this editor: give it another id, and try "
                   "again.");
    }
}

void MetaDocumentEdit::dedDocument_PartCopied(const std::string& Key, const std::string& HTML) {
    Procedure(*this, "dedDocument_PartCopied", [&](Frame& frame) {
        Watch watchKey(frame, "Key", Key);
        Watch watchHTML(frame, "HTML", HTML);
        CopiedPart part{Key, {}};
        for (std::size_t at = HTML.find(kSpanTag); at != std::string::npos;
             at = HTML.find(kSpanTag, at + 1)) {
            const std::size_t number = NumberBehind(HTML, at + kSpanTag.size());
            if (number >= 1 && number <= mSpanProvider->Elements.Count())
                part.Sources[number] = mSpanProvider->Elements.Item(number)->GetSourceText();
        }
        LastCopied() = std::move(part);
    });
}

void MetaDocumentEdit::dedDocument_PartPasted(const std::string& Key, const std::string& HTML,
                                              bool& Handled) {
    Procedure(*this, "dedDocument_PartPasted", [&](Frame& frame) {
        Watch watchKey(frame, "Key", Key);
        Watch watchHTML(frame, "HTML", HTML);
        Handled = true;
        zForgetElementEdits();
        std::size_t lost = 0;
        dedDocument->SetSelectedHTML(zWithOwnSpans(Key, HTML, lost));
        Changed();
        if (lost == 0) return;
        Required(CurrentServices().MessageBox)
            .Show("What you pasted comes from another program, or something else was copied in the "
                  "meantime, so that its elements are not known here and were left out. Copy them "
                  "in the HTML view instead.",
                  "Page Layouts", MessageIcon::Information);
    });
}

std::string MetaDocumentEdit::zWithOwnSpans(const std::string& key, const std::string& html,
                                            std::size_t& lost) {
    const auto& section = mParserTemplate->GetSections()->Item(std::size_t{1});
    const CopiedPart& copied = LastCopied();
    std::string result;
    std::size_t from = 0;
    for (std::size_t at = html.find(kSpanTag); at != std::string::npos;
         at = html.find(kSpanTag, std::max(at + 1, from))) {
        const std::size_t end = html.find("</span>", at);
        if (end == std::string::npos) break;
        const auto source = copied.Sources.find(NumberBehind(html, at + kSpanTag.size()));
        const bool isKnown = copied.Key == key && source != copied.Sources.end();
        const Ref<ParserElement> element =
            isKnown ? ElementOf(source->second, section) : Ref<ParserElement>();
        result.append(html, from, at - from);
        from = end + std::string_view("</span>").size();
        if (!element) {
            ++lost;
            continue;
        }
        mSpanProvider->Elements.Add(element);
        result += WithInnerAside(ElementToSpan(*element, mSpanProvider->Elements.Count()));
    }
    return result.append(html, from);
}

} // namespace paperkite
