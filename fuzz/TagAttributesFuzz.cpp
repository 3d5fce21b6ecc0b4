#include "fuzz/FuzzTarget.h"
#include "model/TemplateAttributes.h"
#include "model/TemplateParser.h"

namespace paperkite::fuzz {
namespace {

constexpr std::string_view kStart = "<!--KITEMETADATA start";
constexpr std::string_view kEnd = "<!--KITEMETADATA end-->";

std::string Tag(std::string_view attributes) {
    return std::string(kStart) + " " + std::string(attributes) + "-->text" + std::string(kEnd);
}

/// The one element of a layout; nothing where it has none or more.
Ref<ParserElement> ElementOf(const Ref<TemplateParser>& parser, const std::string& layout) {
    parser->SetPageLayoutTags();
    parser->SetMetaDocumentMode(true);
    parser->LoadText(layout);
    Ref<ParserElement> element;
    for (const auto& piece : parser->GetSections()->Item(std::size_t{1})->Elements)
        if (piece->ElementType == kParserTagElement) {
            if (element) return {};
            element = piece;
        }
    return element;
}

TemplateAttributes::List AttributesOf(const ParserElement& element) {
    TemplateAttributes::List list;
    for (const auto& attribute : element.Attributes)
        list.emplace_back(attribute->Name, attribute->Value);
    return list;
}

/// An element says the same once somebody has changed it and it was written anew.
void CheckElement(const std::string& layout) {
    const auto parser = MakeRef<TemplateParser>();
    const auto element = ElementOf(parser, layout);
    if (!element) return;
    Require(element->GetSourceText() == element->SourceText, "an untouched element was rewritten");
    element->Text += "more";
    const auto before = AttributesOf(*element);
    const auto again = MakeRef<TemplateParser>();
    const auto written = ElementOf(again, element->GetSourceText());
    Require(written && AttributesOf(*written) == before,
            "an element says something else once it was written: " + element->GetSourceText());
}

const FuzzTarget target("tagattributes", [](std::string_view input) {
    TemplateAttributes::List list;
    const auto mistake = TemplateAttributes::Read(input, list);
    Require(!mistake || (mistake->Offset <= input.size() && !mistake->What.empty()),
            "a mistake that stands nowhere or says nothing");
    const std::string written = TemplateAttributes::Write(list);
    for (const char* end : {"-->", "--!>"})
        Require(written.find(end) == std::string::npos, "a tag ends its comment: " + written);
    TemplateAttributes::List again;
    Require(!TemplateAttributes::Read(written, again), "what was written is a mistake: " + written);
    Require(again == list, "attributes say something else once they were written: " + written);
    CheckElement(Tag(input));
    CheckElement(Tag(written));
});

} // namespace
} // namespace paperkite::fuzz
