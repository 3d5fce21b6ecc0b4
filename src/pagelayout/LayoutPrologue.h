#pragma once

#include <string>

namespace paperkite {

/// What stands in front of a layout's root element: the document type, comments, page-layout
/// elements, a byte order mark and the white space between them. The way back from a span document
/// gives the root alone; whoever edits a layout takes this off before the conversion and puts it
/// back afterwards, byte for byte:
///
///     const LayoutPrologue prologue(html);
///     std::string spans = edit.ConvertMetaDocumentToSpanDocument(prologue.GetRest());
///     …
///     html = prologue.Before(edit.ConvertSpanDocumentToMetaDocument(spans));
///
/// Needs the service CreateParserTemplate, error 429 without. Takes linear time.
class LayoutPrologue {
public:
    /// A text without a root element is cut at its first tag or at the first text that shows.
    explicit LayoutPrologue(const std::string& html);

    const std::string& GetPrologue() const { return mPrologue; }
    const std::string& GetRest() const { return mRest; }
    /// The prologue with a root behind it; nothing where there is no root.
    std::string Before(const std::string& root) const;

private:
    std::string mPrologue;
    std::string mRest;
};

} // namespace paperkite
