#include "pagelayout/SpanProvider.h"

#include "foundation/Text.h"
#include "foundation/Utilities.h"

namespace paperkite {

namespace {

constexpr const char* kSpanTemplate =
    "<span id=\"metaspanstart%index%\" style=\"color: Highlight; background-color: "
    "InactiveCaptionText;\" contenteditable=\"false\"><b>{ %name% (</b>%description%<b>) "
    "}</b></span>";

/// What kind of element it is; empty for one that does not say.
std::string TypeOf(const ParserElement& element) {
    const Ref<ElementAttribute>* type = element.Attributes.Find("type");
    return type && *type ? (*type)->Value : std::string();
}

} // namespace

std::string ElementToSpan(const ParserElement& Element, std::size_t Index) {
    std::string span = ReplaceAllIgnoringCase(kSpanTemplate, "%index%", std::to_string(Index));
    span = ReplaceAllIgnoringCase(span, "%description%", Element.Text);
    span = ReplaceAllIgnoringCase(span, "%name%", TypeOf(Element));
    // The template holds no title; one in a description or a name goes.
    return ReplaceAllIgnoringCase(span, "%title%", "");
}

std::string SpanProvider::ProvideData(const Ref<ParserElement>& Element,
                                      const Ref<FileSystem>& FileSystemObject) {
    return Procedure<std::string>(*this, "ProvideData", [&](std::string& result, Frame& frame) {
        Watch watchElement(frame, "Element", Element);
        Watch watchFiles(frame, "FileSystemObject", FileSystemObject);
        const Ref<ParserTemplate> owner = Element->Section.Lock()->Template.Lock();
        if (!OutputSpans) {
            owner->SetUseProvidedText(true);
            result = Element->GetSourceText();
            return;
        }
        Elements.Add(Element);
        const std::string Index = std::to_string(Elements.Count());
        Local watchIndex(frame, "Index", Index);
        const bool isExcluded = Utilities::ContainsKey(ExcludedElements, Index);
        owner->SetUseProvidedText(!isExcluded);
        if (!isExcluded) result = ElementToSpan(*Element, Elements.Count());
    });
}

void SpanProvider::DumpVariables(VariableDump& dump) const {
    dump.Add("ExcludedElements", ExcludedElements)
        .Add("Elements", Elements)
        .Add("OutputSpans", OutputSpans);
}

} // namespace paperkite
