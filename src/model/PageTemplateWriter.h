#pragma once

#include "foundation/PageTemplate.h"
#include "model/XmlReader.h"

#include <string>

namespace paperkite {

/// Writes the description of a page template, "template.xml".
class PageTemplateWriter {
public:
    /// What the template looks like in its file, with what was in the file that it was read from
    /// and its reader did not understand.
    static std::string Canonical(const PageTemplate& source, const XmlFile& kept);
};

} // namespace paperkite
