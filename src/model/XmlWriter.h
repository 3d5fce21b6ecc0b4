#pragma once

#include "model/XmlElement.h"
#include "model/XmlReader.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace paperkite {

/// How every file begins.
inline constexpr const char* kXmlDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";

/// The bytes of an XML file in the one form that this program writes: UTF-8, line feeds, two blanks
/// a level, attributes in their order; elements that hold text exactly as they are.
std::string WriteXml(const XmlFile& file);

/// Appends a piece of it on a line of its own, at a level of indentation.
void AppendXml(std::string& out, const XmlElement& node, std::size_t level);
/// Appends the attributes of an element as they stand behind its name.
void AppendAttributes(std::string& out, const XmlElement& element);

/// What a reader understands of an element.
struct XmlVocabulary {
    std::string Name;
    std::set<std::string> Attributes;
    /// The attribute that tells elements of this name apart, "." for their text; empty: there is
    /// only one.
    std::string Key;
    std::vector<XmlVocabulary> Children;
    /// Which elements of this name are understood; left out: all.
    std::function<bool(const XmlElement&)> Understands = {};

    /// What is understood of a child; nullptr: nothing.
    const XmlVocabulary* Find(const XmlElement& child) const;
};

/// Takes over into an element that is about to be written what the one that was read held and the
/// vocabulary does not know: attributes, elements, comments. Each stays behind the same neighbour.
void KeepUnknown(XmlElement& fresh, const XmlElement& old, const XmlVocabulary& vocabulary);

} // namespace paperkite
