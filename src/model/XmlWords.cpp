#include "model/XmlWords.h"

#include "foundation/Text.h"

namespace paperkite {

std::string WordsFor(const pugi::xml_parse_result& result) {
    switch (result.status) {
    case pugi::status_end_element_mismatch:
        return "an element ends that did not begin here, or one before it was never ended";
    case pugi::status_no_document_element:
        return "no element was found";
    case pugi::status_unrecognized_tag:
        return "this is no tag; a \"<\" in text is written \"&lt;\"";
    case pugi::status_bad_attribute:
        return "an attribute is not written name=\"value\"";
    case pugi::status_bad_cdata:
        return "a CDATA section is not ended";
    case pugi::status_bad_comment:
        return "a comment is not ended";
    default:
        return LowerCase(std::string_view(result.description()).substr(0, 1)) +
               std::string(result.description()).substr(1);
    }
}

} // namespace paperkite
