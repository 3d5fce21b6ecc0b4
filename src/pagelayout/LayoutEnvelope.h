#pragma once

#include <string>

namespace paperkite {

/// What stands around a layout's root element. In front of it: the document type, comments,
/// page-layout elements, a byte order mark and the white space between them. Behind it: comments,
/// page-layout elements and white space. The way back from a span document gives the root alone;
/// whoever edits a layout takes this off before the conversion and puts it back afterwards, byte
/// for byte:
///
///     const LayoutEnvelope envelope(html);
///     std::string spans = edit.ConvertMetaDocumentToSpanDocument(envelope.GetRoot());
///     …
///     html = envelope.Around(edit.ConvertSpanDocumentToMetaDocument(spans));
///
/// Needs the service CreateParserTemplate, error 429 without. Takes linear time.
class LayoutEnvelope {
public:
    /// Nothing around nothing.
    LayoutEnvelope() = default;
    /// A text without a root element is cut at its first tag or at the first text that shows.
    /// Nothing is cut off behind a root whose end tag is missing, or has text behind it; the line
    /// break behind the end tag, and white space alone, belong to the root.
    explicit LayoutEnvelope(const std::string& html);

    const std::string& GetPrologue() const { return mPrologue; }
    const std::string& GetRoot() const { return mRoot; }
    const std::string& GetEpilogue() const { return mEpilogue; }
    /// A root between prologue and epilogue; nothing where there is no root.
    std::string Around(const std::string& root) const;

private:
    std::string mPrologue;
    std::string mRoot;
    std::string mEpilogue;
};

} // namespace paperkite
