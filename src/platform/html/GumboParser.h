#pragma once

#include "platform/html/GumboElement.h"

#include <memory>
#include <string>

namespace paperkite {

/// A tree that the parser made.
struct ParsedHtml {
    /// Its children are the nodes that were read.
    std::unique_ptr<HtmlParent> Nodes;
    /// The parser moved or doubled elements, so that reading the result may lead to another tree.
    bool IsRearranged = false;
};

/// A whole document: document type, comments and the "html" element. Error 5 for a text that nests
/// too deep.
ParsedHtml ParseDocument(const std::string& html, const std::shared_ptr<DocumentTie>& tie);

/// What stands inside an element of that name, read until it stays as it is.
ParsedHtml ParseFragment(const std::string& html, const std::string& context, HtmlNamespace space,
                         const std::shared_ptr<DocumentTie>& tie);

} // namespace paperkite
