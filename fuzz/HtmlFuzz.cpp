#include "foundation/Unicode.h"
#include "fuzz/FuzzTarget.h"
#include "platform/html/HtmlContent.h"
#include "platform/html/HtmlServices.h"

namespace paperkite::fuzz {
namespace {

std::string Normalised(const std::string& html, const std::string& context) {
    const auto element = MakeHTMLDOMFactory()->CreateFromString("")->CreateElement(context);
    element->SetInnerHTML(html);
    return element->GetInnerHTML();
}

void RequireSettled(const std::string& once, const std::string& twice, const std::string& how) {
    Require(once == twice, how + " changes what it made:\n" + once + "\n---\n" + twice);
    Require(HoldsOnlyUtf8(once), how + " makes what is no UTF-8");
}

const FuzzTarget target("html", [](std::string_view input) {
    const std::string html(input);
    for (const char* context : {"span", "td", "pre"}) {
        const std::string once = Normalised(html, context);
        RequireSettled(once, Normalised(once, context), std::string("normalising in ") + context);
    }
    const std::string document = MakeHTMLDOMFactory()->CreateFromString(html)->Serialise();
    RequireSettled(document, MakeHTMLDOMFactory()->CreateFromString(document)->Serialise(),
                   "reading a document");
    const std::string tidied = MakeHTMLTidy()->TidyHTML(document, false);
    Require(HtmlContent(document).IsKeptBy(HtmlContent(tidied)), "tidying lost something");
});

} // namespace
} // namespace paperkite::fuzz
