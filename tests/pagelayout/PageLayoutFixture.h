#pragma once

#include "foundation/Text.h"
#include "model/TemplateParser.h"
#include "pagelayout/MetaDocumentEdit.h"
#include "platform/html/HtmlServices.h"
#include "support/ModelServices.h"

#include <gtest/gtest.h>

namespace paperkite::test {

/// The tag of an element as it stands in a layout.
inline std::string Meta(const std::string& type, const std::string& text = {}) {
    return "<!--KITEMETADATA start type=\"" + type + "\"-->" + text + "<!--KITEMETADATA end-->";
}

/// Conversions on the real parser, documents and tidy.
class PageLayoutFixture : public testing::Test {
protected:
    PageLayoutFixture() {
        Services& services = CurrentServices();
        services.CreateParserTemplate = [] { return MakeRef<TemplateParser>(); };
        services.HTMLDOMFactory = MakeHTMLDOMFactory();
        services.HTMLTidy = MakeHTMLTidy();
        UseMoniker("kite.net");
        mEdit.SetTemplate(mTemplate);
    }

    void UseMoniker(const std::string& moniker) {
        auto space = MakeRef<TemplateNamespace>();
        space->Moniker = moniker;
        mTemplate->Namespaces = {space};
    }
    std::string ToSpan(const std::string& html) {
        return mEdit.ConvertMetaDocumentToSpanDocument(html);
    }
    std::string ToMeta(const std::string& html) {
        return mEdit.ConvertSpanDocumentToMetaDocument(html);
    }
    /// The numbers of the spans in a document, in order.
    static std::string Numbers(const std::string& html) {
        std::string numbers;
        const std::string start = "id=\"metaspanstart";
        for (std::size_t at = html.find(start); at != std::string::npos;
             at = html.find(start, at + 1))
            numbers += std::to_string(static_cast<int>(
                           LeadingNumber(std::string_view(html).substr(at + start.size())))) +
                       " ";
        return numbers;
    }
    /// The numbers of the spans that a layout of this body part gets.
    std::string NumbersOfBody(const std::string& text) {
        return Numbers(ToSpan("<html><body>" + text + "</body></html>"));
    }
    std::string Messages() { return Join(std::exchange(mServices.Messages->Shown, {}), "\n"); }

    ModelServices mServices;
    Ref<PageTemplate> mTemplate = MakeRef<PageTemplate>();
    MetaDocumentEdit mEdit;
};

} // namespace paperkite::test
