#include "pagelayout/SpanProvider.h"

#include "foundation/Text.h"
#include "foundation/Utilities.h"

#include <initializer_list>
#include <string_view>
#include <utility>

namespace paperkite {

namespace {

constexpr std::string_view kSpanTemplate =
    "<span id=\"metaspanstart%index%\" style=\"color: Highlight; background-color: "
    "InactiveCaptionText;\" contenteditable=\"false\"><b>{ %name% (</b>%description%<b>) "
    "}</b></span>";

/// What kind of element it is; empty for one that does not say.
std::string TypeOf(const ParserElement& element) {
    const Ref<ElementAttribute>* type = element.Attributes.Find("type");
    return type && *type ? (*type)->Value : std::string();
}

/// The template in one go, with values in which nothing is to be filled in.
std::string Filled(std::initializer_list<std::pair<std::string_view, std::string_view>> values) {
    std::string span;
    std::string_view rest = kSpanTemplate;
    for (std::size_t from = rest.find('%'); from != rest.npos; from = rest.find('%')) {
        const std::size_t to = rest.find('%', from + 1);
        const std::string_view wanted = rest.substr(from + 1, to - from - 1);
        span += rest.substr(0, from);
        for (const auto& [name, value] : values)
            if (name == wanted) span += value;
        rest.remove_prefix(to + 1);
    }
    return span += rest;
}

} // namespace

std::string ElementToSpan(const ParserElement& Element, std::size_t Index) {
    const std::string name = TypeOf(Element);
    const std::string& description = Element.Text;
    const std::string index = std::to_string(Index);
    if ((name + description).find('%') == std::string::npos)
        return Filled({{"index", index}, {"description", description}, {"name", name}});
    // What came in first is filled in as well.
    std::string span = ReplaceAllIgnoringCase(kSpanTemplate, "%index%", index);
    span = ReplaceAllIgnoringCase(span, "%description%", description);
    span = ReplaceAllIgnoringCase(span, "%name%", name);
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
