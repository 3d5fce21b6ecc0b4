#pragma once

#include <string>

#include <pugixml.hpp>

namespace paperkite {

/// What the parser found, as the end of a sentence.
std::string WordsFor(const pugi::xml_parse_result& result);

} // namespace paperkite
