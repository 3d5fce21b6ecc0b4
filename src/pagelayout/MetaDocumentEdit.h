#pragma once

#include "foundation/BulwarkSupport.h"
#include "foundation/HTMLDocument.h"
#include "foundation/PageTemplate.h"
#include "foundation/ParserTemplate.h"
#include "foundation/Procedure.h"
#include "pagelayout/SpanProvider.h"

#include <cstdint>
#include <string>

namespace paperkite {

class KeptElements;

/// Brings a page layout into the form in which an author edits it, and back.
///
/// A layout's variable places are comments, which no author can see or click. In the span document
/// each of them that may be edited is a small span instead. The spans hold nothing but numbers of
/// the last conversion's SpanProvider, so the way back belongs to the last way there:
///
///     MetaDocumentEdit layout;
///     layout.SetTemplate(pageTemplate);
///     std::string spans = layout.ConvertMetaDocumentToSpanDocument(html);
///     … // the author works on the spans
///     html = layout.ConvertSpanDocumentToMetaDocument(spans);
///
/// Needs the services CreateParserTemplate, HTMLDOMFactory, HTMLTidy and MessageBox. Both ways take
/// time in proportion to the length of the text.
class MetaDocumentEdit : public Shielded {
public:
    MetaDocumentEdit() = default;
    MetaDocumentEdit(const MetaDocumentEdit&) = delete;
    MetaDocumentEdit& operator=(const MetaDocumentEdit&) = delete;

    const char* ModuleName() const override { return "MetaDocumentEdit"; }
    void DumpVariables(VariableDump& dump) const override;

    /// The template that the layout belongs to, which says what tool wrote it. Somebody else owns
    /// it; nothing once it is gone.
    Ref<PageTemplate> GetTemplate() const { return pTemplate.GetObject(); }
    void SetTemplate(const Ref<PageTemplate>& value) { pTemplate.SetObject(value); }

    /// Mistakes in the tags are shown in two messages, and do not stop the conversion.
    std::string ConvertMetaDocumentToSpanDocument(const std::string& HTML);
    /// The root element of the document with each span replaced by its element, tidied. What stands
    /// in front of the root, such as the document type, is not in the result. A layout with a
    /// generator tag needs a Template. Empty after a failure, such as a span of another layout.
    std::string ConvertSpanDocumentToMetaDocument(const std::string& HTML);

    /// The number in the id of a span, 0 for an id of another kind.
    std::int32_t GetSpanIndex(const std::string& Id);
    /// Whether an element is a span of a layout's element or lies in one, which is given then.
    bool IsInsideMetaSpan(const Ref<HTMLElement>& Root, Ref<HTMLElement>* Span = nullptr);

    /// The provider of the present span document; nothing before the first conversion.
    const Ref<SpanProvider>& GetSpanProvider() const { return mSpanProvider; }

    // For hosts that were written when the tags could be chosen: these do nothing.

    std::string GetMetaDataProperty(std::int32_t /*Span*/, const std::string& /*Property*/,
                                    const std::string& /*DefaultValue*/ = {}) {
        return {};
    }
    std::int32_t MetaTagCount() const { return 0; }
    void ReloadDefaultTags() {}
    /// Returns or sets if the default Paperkite 4 meta tags should be automatically loaded
    bool GetUsePaperkite4MetaTags() const { return false; }
    void SetUsePaperkite4MetaTags(bool /*value*/) {}
    void AddMetaTag(const std::string& /*Name*/, const std::string& /*OpenTag*/,
                    const std::string& /*CloseTag*/, const std::string& /*SpanPrefix*/,
                    const std::string& /*SpanSuffix*/, const std::string& /*SpanNameFrom*/) {}
    void RemoveMetaTag(const std::string& /*Name*/) {}
    void CheckForMissing() {}

private:
    Ref<ParserTemplate> CreateParserTemplate(const std::string& HTML);
    void FindExcludedElements();
    std::string KeepUntouchedSpans(const std::string& html, KeptElements& kept) const;
    void ReplaceSpans(HTMLDocument& document, KeptElements& kept);
    void ReplaceSpan(HTMLDocument& document, HTMLElement& span, KeptElements& kept);
    void NameGenerator(HTMLDocument& document);

    InstanceCount mInstanceCount{"MetaDocumentEdit", ComponentType::Control};
    ObjectHolder<PageTemplate> pTemplate;
    Ref<ParserTemplate> mParserTemplate;
    Ref<SpanProvider> mSpanProvider;
};

} // namespace paperkite
