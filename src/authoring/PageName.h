#pragma once

#include <string>
#include <string_view>

/// What the names of pages say. The page of an item is called by its qualified name, or by that and
/// a suffix that begins with "_" and says which of its pages it is, and ends in ".html".
namespace paperkite::PageName {

/// The name of the page that an address leads to: what stands behind the last "/", without its
/// last five characters.
std::string OfAddress(std::string_view address);

/// The name that an address means. A page's engine encodes what no address can hold as it stands:
/// blanks, quotes, brackets, "#", "?", letters beyond ASCII. That is undone, and nothing else,
/// since qualified names hold "%3A", "%2F" and "%25" themselves. An engine also writes "%7E" as
/// "~"; where no step can begin, that is undone too.
std::string Decoded(std::string_view address);

/// Takes the layout suffix, from the last "_" of the last step on, off a page name. A suffix that
/// belongs to the name, "_namespace", stays on it; then, and where there is none, gives nothing.
std::string CutLayoutSuffix(std::string& page);

} // namespace paperkite::PageName
