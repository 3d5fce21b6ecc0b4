#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Pieces of HTML.
namespace paperkite::PageHtml {

/// Plain text for the content of an element or for an attribute in double quotes.
std::string Escaped(std::string_view text);

/// Source code as it stands, its keywords, texts, comments and numbers in SPANs of the classes k,
/// s, c and n, what speaks to a preprocessor in d. The name of the file says in which language.
std::string Code(std::string_view code, const std::string& fileName);

/// Comment lines of a source file as paragraphs, each a P, indented lines as they stand.
std::string Paragraphs(const std::vector<std::string>& lines);

/// The first sentence of comment lines, escaped; empty where they are no description, such as the
/// notice of a licence.
std::string FirstSentence(const std::vector<std::string>& lines);

/// The name of a page as a relative address. "%" stays, as pages are called by qualified names.
std::string Address(std::string_view fileName);

/// Author's HTML without the addresses of links that lead to other pages of the documentation;
/// what is linked stays as text.
std::string WithoutPageLinks(const std::string& html);

} // namespace paperkite::PageHtml
