#pragma once

#include "foundation/ParserTemplate.h"

#include <string>

namespace paperkite {

/// The elements of a page layout and the text between them; mistakes are in its ParseErrors, and
/// are not shown. Needs the service CreateParserTemplate, error 429 without.
Ref<ParserTemplate> ParsedLayout(const std::string& html);

} // namespace paperkite
