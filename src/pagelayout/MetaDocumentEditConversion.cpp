#include "pagelayout/MetaDocumentEdit.h"

#include "foundation/Services.h"
#include "foundation/Text.h"
#include "pagelayout/KeptElements.h"
#include "pagelayout/LayoutText.h"
#include "pagelayout/ParsedLayout.h"

#include <algorithm>
#include <charconv>
#include <set>

// From a layout to the document that an author edits, and back.

namespace paperkite {

namespace {

constexpr const char* kMakersAddress = "https://www.brindlewick.example/";
constexpr std::string_view kSpanStart = "metaspanstart";
constexpr std::string_view kSpanTag = "<span id=\"metaspanstart";
constexpr std::string_view kSpanFamily = "metaspan";
constexpr const char* kScratchId = "kitetempspan";

/// A position in a collection, read the lenient way.
std::size_t PositionOf(const std::string& text) {
    const std::int32_t number = Value(LeadingNumber(text)).ToInteger();
    return number < 1 ? 0 : static_cast<std::size_t>(number);
}

/// The last place of a tag from a position on, or npos. Scripts and examples hold it too.
std::size_t LastTag(const std::string& html, std::string_view start, std::size_t from) {
    for (std::size_t at = html.rfind('<'); at != std::string::npos && at >= from;
         at = html.rfind('<', at - 1)) {
        if (EqualIgnoringCase(std::string_view(html).substr(at, start.size()), start)) return at;
        if (at == 0) break;
    }
    return std::string::npos;
}

/// Where the body ends, or the document; npos where neither does.
std::size_t EndOfBody(const std::string& html, std::size_t from) {
    return std::min(LastTag(html, "</body", from), LastTag(html, "</html", from));
}

/// The whole text as a number; error 13 where it is none.
std::int32_t StrictInteger(const std::string& text) {
    const std::string number = TrimBlanks(text);
    const std::size_t digits = number.find_first_not_of("0123456789", number[0] == '-' ? 1 : 0);
    if (number.empty() || number == "-" || digits != std::string::npos)
        RaiseError(ErrorNumber::TypeMismatch,
                   "\"" + text + "\" is not the number of a span's element");
    return Value(LeadingNumber(number)).ToInteger();
}

/// Of those that stand in a text, whether a document takes them for spans or not.
std::set<std::size_t> NumbersOfSpans(const std::string& html) {
    std::set<std::size_t> numbers;
    for (std::size_t at = html.find(kSpanTag); at != std::string::npos;
         at = html.find(kSpanTag, at + 1)) {
        std::size_t number = 0;
        std::from_chars(html.data() + at + kSpanTag.size(), html.data() + html.size(), number);
        if (number >= 1) numbers.insert(number);
    }
    return numbers;
}

/// Of a span at a position that says whose it is and shows nothing; 0 for anything else.
std::size_t LengthOfEmptySpan(std::string_view html, std::size_t at, const std::string& span) {
    const std::string empty = span.substr(0, span.find('>') + 1) + "</span>";
    return html.substr(at).starts_with(empty) ? empty.size() : 0;
}

bool HoldsSpanBehindBody(const std::string& html) {
    return html.find(kSpanTag, EndOfBody(html, 0)) != std::string::npos;
}

// Behind the body a text area or a script is no place where spans are found, and what stands for
// an element there would be stored as a text.
void RaiseIfSpanIsText(const std::string& html) {
    for (const char* start : {"&lt;span id=\"metaspanstart", "&lt;span id=&quot;metaspanstart"})
        if (html.find(start) != std::string::npos)
            RaiseError(ErrorNumber::InvalidCall,
                       "An element behind the end of the body would be lost where it stands. Put "
                       "it into the body, and convert again.");
}

} // namespace

Ref<ParserTemplate> MetaDocumentEdit::CreateParserTemplate(const std::string& HTML) {
    return Procedure<Ref<ParserTemplate>>(
        *this, "CreateParserTemplate", [&](Ref<ParserTemplate>& result, Frame& frame) {
            Watch watchHTML(frame, "HTML", HTML);
            const Ref<ParserTemplate> t = ParsedLayout(HTML);
            Local watchTemplate(frame, "t", t);
            result = t;
            const std::string errors = t->GetParseErrors();
            if (errors.empty()) return;
            constexpr const char* kTitle = "Page Layout Errors";
            MessageBox& box = Required(CurrentServices().MessageBox);
            box.Show(
                "This page layout file contained one or more page layout tag formatting errors "
                "which are likely to cause malformed output. These errors must be corrected to "
                "prevent this message from appearing in future. Problem tag details follow.",
                kTitle, MessageIcon::Warning);
            box.Show(errors, kTitle, MessageIcon::Warning);
        });
}

std::string MetaDocumentEdit::ConvertMetaDocumentToSpanDocument(const std::string& HTML) {
    const SpanDocument made = MakeSpanDocument(HTML);
    if (!made.Parser) return {};
    if (mSpanProvider) mSpanProvider->Terminate();
    mParserTemplate = made.Parser;
    mSpanProvider = made.Provider;
    return made.Text;
}

MetaDocumentEdit::SpanDocument MetaDocumentEdit::MakeSpanDocument(const std::string& HTML,
                                                                  LayoutEnvelope* envelope) {
    return Procedure<SpanDocument>(*this, "ConvertMetaDocumentToSpanDocument",
                                   [&](SpanDocument& result, Frame& frame) {
                                       Watch watchHTML(frame, "HTML", HTML);
                                       // What is wrong is told by its place in the whole text.
                                       Ref<ParserTemplate> layout = CreateParserTemplate(HTML);
                                       if (!layout) return;
                                       if (envelope) {
                                           *envelope = LayoutEnvelope(HTML);
                                           layout = ParsedLayout(envelope->GetRoot());
                                       }
                                       const auto provider = MakeRef<SpanProvider>();
                                       FindExcludedElements(*layout, *provider);
                                       provider->OutputSpans = true;
                                       layout->SetDataProvider(provider);
                                       layout->SetUseProvidedText(true);
                                       const std::string spans = layout->Parse();
                                       result = {spans, layout, provider};
                                   });
}

/// A span would not be shown, or would be pushed elsewhere, in front of the body and between the
/// cells of a table.
void MetaDocumentEdit::FindExcludedElements(ParserTemplate& layout, SpanProvider& provider) {
    std::int32_t Index = 0;
    bool FoundBody = false;
    bool ExcludeNext = false;
    for (const auto& element : layout.GetSections()->Item(std::size_t{1})->Elements) {
        if (element->ElementType == kParserTagElement) {
            ++Index;
            if (ExcludeNext) provider.ExcludedElements.Add(1, std::to_string(Index));
        }
        if (element->ElementType != kParserLiteralText) continue;
        if (!FoundBody) FoundBody = BeginsBody(element->Text);
        ExcludeNext = !FoundBody || EndsBetweenCells(element->Text);
    }
}

std::string MetaDocumentEdit::ConvertSpanDocumentToMetaDocument(const std::string& HTML) {
    return Procedure<std::string>(
        *this, "ConvertSpanDocumentToMetaDocument", [&](std::string& result, Frame& frame) {
            Watch watchHTML(frame, "HTML", HTML);
            mSpanProvider->OutputSpans = false;
            mParserTemplate->SetUseProvidedText(false);
            // Elements in the head and between cells would not survive the document as they are.
            KeptElements kept;
            const std::string hidden =
                kept.Hide(ParsedLayout(HTML)->GetSections()->Item(std::size_t{1})->Elements);
            const std::string changed = KeepUntouchedSpans(hidden, kept);
            const auto document =
                Required(CurrentServices().HTMLDOMFactory).CreateFromString(changed, {});
            Local watchDocument(frame, "document", document);
            RaiseIfSpanIsMissed(changed, ReplaceSpans(*document, kept));
            NameGenerator(*document);
            const std::string text =
                Required(CurrentServices().HTMLTidy)
                    .TidyHTML(document->GetDocumentElement()->GetOuterHTML(), false);
            const std::string written =
                kept.Restore(WithTightHelpNamespace(WithoutAddedTitles(text)));
            if (HoldsSpanBehindBody(HTML)) RaiseIfSpanIsText(written);
            // Broken tags can hide a span from everybody who looks for one.
            RaiseIfSpanIsMissed(written, {});
            result = written;
        });
}

// Most spans are as they were made. Those need no document to be found in, and what stands for them
// is not moved where a span may not stand, as between the rows of a table.
std::string MetaDocumentEdit::KeepUntouchedSpans(const std::string& html,
                                                 KeptElements& kept) const {
    // Outside of the body a comment belongs to nothing that is written.
    const std::size_t body = FindIgnoringCase(html, "<body");
    const std::size_t end = EndOfBody(html, body);
    std::string text;
    std::size_t from = 0;
    for (std::size_t at = html.find(kSpanTag, body); at < end; at = html.find(kSpanTag, at + 1)) {
        std::size_t number = 0;
        std::from_chars(html.data() + at + kSpanTag.size(), html.data() + html.size(), number);
        if (number < 1 || number > mSpanProvider->Elements.Count()) continue;
        const ParserElement& element = *mSpanProvider->Elements.Item(number);
        const std::string span = ElementToSpan(element, number);
        // What its text holds of elements is hidden by now.
        std::size_t length = kept.LengthOf(html, at, span);
        if (length == 0) length = LengthOfEmptySpan(html, at, span);
        if (length == 0) continue;
        kept.Forget(std::string_view(html).substr(at, length));
        text.append(html, from, at - from).append(kept.KeepExpected(element.GetSourceText()));
        from = at + length;
    }
    return text.append(html, from);
}

std::set<std::size_t> MetaDocumentEdit::ReplaceSpans(HTMLDocument& document, KeptElements& kept) {
    std::set<std::size_t> replaced;
    for (const auto& span : document.Tags("SPAN")) {
        if (!span->GetId().starts_with(kSpanStart)) continue;
        replaced.insert(PositionOf(span->GetId().substr(kSpanStart.size())));
        ReplaceSpan(document, *span, kept);
    }
    return replaced;
}

// In a script or inside a tag a span is none.
void MetaDocumentEdit::RaiseIfSpanIsMissed(const std::string& html,
                                           const std::set<std::size_t>& replaced) const {
    for (const std::size_t number : NumbersOfSpans(html))
        if (number <= mSpanProvider->Elements.Count() && !replaced.contains(number))
            RaiseElementLost(mSpanProvider->Elements.Item(number)->GetSourceText());
}

void MetaDocumentEdit::ReplaceSpan(HTMLDocument& document, HTMLElement& span, KeptElements& kept) {
    const std::size_t position = PositionOf(span.GetId().substr(kSpanStart.size()));
    const std::string source = mSpanProvider->Elements.Item(position)->GetSourceText();
    // An engine may throw away a fragment that begins with a comment.
    span.InsertAdjacentHTML(InsertPosition::AfterEnd, "<span id=\"" + std::string(kScratchId) +
                                                          "\">$$</span>" + kept.Keep(source));
    // A span inside one that is gone already has nothing left to stand for.
    if (const auto scratch = document.All(kScratchId)) {
        scratch->SetOuterHTML("");
        kept.Forget(span.GetInnerHTML());
    }
    span.SetOuterHTML("");
}

/// A layout states the tool that wrote it.
void MetaDocumentEdit::NameGenerator(HTMLDocument& document) {
    for (const auto& meta : document.Tags("META")) {
        if (!EqualIgnoringCase(meta->GetAttribute("name").value_or(""), "generator")) continue;
        const auto& namespaces = GetTemplate()->Namespaces;
        if (namespaces.empty()) RaiseError(ErrorNumber::SubscriptOutOfRange);
        const bool isWeaver = EqualIgnoringCase(namespaces.front()->Moniker, "kite.weaverstudio");
        meta->SetAttribute("content", std::string(isWeaver ? "Brindlewick Weaverstudio"
                                                           : "Brindlewick Paperkite") +
                                          " (" + kMakersAddress + ")");
    }
}

std::int32_t MetaDocumentEdit::GetSpanIndex(const std::string& Id) {
    return Procedure<std::int32_t>(*this, "GetSpanIndex", [&](std::int32_t& result, Frame& frame) {
        Watch watchId(frame, "Id", Id);
        if (!ContainsIgnoringCase(Id, kSpanFamily)) return;
        const std::size_t start = ContainsIgnoringCase(Id, "start") ? 13 : 11;
        result = StrictInteger(Id.size() > start ? Id.substr(start) : std::string());
    });
}

bool MetaDocumentEdit::IsInsideMetaSpan(const Ref<HTMLElement>& Root, Ref<HTMLElement>* Span) {
    return Procedure<bool>(*this, "IsInsideMetaSpan", [&](bool& result, Frame& frame) {
        Watch watchRoot(frame, "Root", Root);
        const Ref<HTMLElement> nobody;
        Watch watchSpan(frame, "Span", Span ? *Span : nobody);
        for (Ref<HTMLElement> element = Root; element && !result;
             element = element->GetParentElement()) {
            if (!EqualIgnoringCase(element->GetTagName(), "span") ||
                !EqualIgnoringCase(element->GetId().substr(0, kSpanFamily.size()), kSpanFamily))
                continue;
            result = true;
            if (Span) *Span = element;
        }
    });
}

} // namespace paperkite
