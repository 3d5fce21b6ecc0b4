#pragma once

#include "model/XmlElement.h"

#include <optional>
#include <string>
#include <string_view>

namespace paperkite::JournalLine {

// One line of a journal: a checksum of 16 hexadecimal digits, a blank, and an XML element without
// line breaks.

std::string Write(const XmlElement& element);
/// The element, or nothing when the line is not as it was written.
std::optional<XmlElement> Read(std::string_view line);

/// A checksum of 64 bits (FNV-1a): it finds damage, not malice.
std::string ChecksumOf(std::string_view bytes);

} // namespace paperkite::JournalLine
