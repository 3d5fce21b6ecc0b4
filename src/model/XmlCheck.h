#pragma once

#include "foundation/Services.h"

#include <optional>
#include <string>

namespace paperkite {

/// What keeps a text from being well-formed XML, with its place, or nothing. Pieces that may stand
/// inside a document count too: text, several elements. Entities are those of XML; others, such as
/// "&nbsp;", are known to HTML only.
std::optional<MarkupProblem> CheckXml(const std::string& text);

} // namespace paperkite
