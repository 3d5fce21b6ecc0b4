#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace paperkite {

/// A piece of an XML file: an element with what it holds, a stretch of text, or a comment or
/// processing instruction as it stands.
struct XmlElement {
    enum class NodeKind { Element, Text, CData, Markup };
    using Attribute = std::pair<std::string, std::string>;

    static XmlElement Named(std::string name);
    /// An element with text in it, in the readable form of StoredText.
    static XmlElement WithText(std::string name, std::string_view text);

    /// Adds an attribute, escaped by StoredText.
    XmlElement& With(std::string name, std::string_view value);
    XmlElement& Add(XmlElement child);
    /// Puts the text in, in the readable form of StoredText; an empty one leaves nothing.
    void SetContent(std::string_view text);
    /// The same, always on lines of its own, so that changes of neighbours merge.
    void SetContentLines(std::string_view text);

    bool IsElement() const { return Kind == NodeKind::Element; }
    /// The value of an attribute as it stands in the file, or nullptr.
    const std::string* FindAttribute(std::string_view name) const;
    /// The value of an attribute, read by StoredText; empty when it is missing.
    std::string AttributeText(std::string_view name) const;
    /// The first element of that name, or nullptr.
    const XmlElement* FindChild(std::string_view name) const;
    /// The text in the element, read by StoredText. Where CDATA stands in it, blank text around is
    /// none.
    std::string ContentText() const;
    /// Whether text that is not blank stands directly in it.
    bool HasText() const;

    NodeKind Kind = NodeKind::Element;
    std::string Name;
    std::vector<Attribute> Attributes;
    /// Of text and CDATA its characters, of markup all of it.
    std::string Text;
    std::vector<XmlElement> Children;
    /// Where it begins in the bytes it was read from.
    std::size_t Offset = 0;
};

} // namespace paperkite
