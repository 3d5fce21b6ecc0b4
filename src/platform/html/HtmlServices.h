#pragma once

#include "foundation/HTMLDocument.h"

#include <memory>

namespace paperkite {

/// Makes GumboDocuments. A file that is not there is error 53, one that cannot be read 75.
std::shared_ptr<HTMLDOMFactory> MakeHTMLDOMFactory();

/// Tidies with HTML Tidy: UTF-8, lines as long as they are, elements indented. A text that Tidy
/// refuses, or of whose words, comments, elements or attributes it would lose one, comes back as it
/// was.
std::shared_ptr<HTMLTidy> MakeHTMLTidy();

} // namespace paperkite
