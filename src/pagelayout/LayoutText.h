#pragma once

#include <string>
#include <string_view>

namespace paperkite {

// Steps on the text of a layout; each is one pass.

/// Whether a tag element behind this literal text stands where no span may: between cells or rows
/// of a table.
bool EndsBetweenCells(std::string_view text);
bool BeginsBody(std::string_view text);

/// Takes away the empty titles that writing a document adds, with their indentation of eight blanks
/// and their line.
std::string WithoutAddedTitles(const std::string& html);

/// Takes away the blanks around the equals sign of each attribute `xmlns:mshelp` that names the
/// help vocabulary's namespace.
std::string WithTightHelpNamespace(const std::string& html);

} // namespace paperkite
