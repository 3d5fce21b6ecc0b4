#include "model/XmlElement.h"

#include "foundation/Text.h"
#include "model/StoredText.h"

#include <algorithm>

namespace paperkite {

namespace {

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

bool NeedsCData(std::string_view text) {
    static constexpr std::string_view kBlanks = " \t\n";
    return text.find_first_of("<>&\n") != std::string_view::npos ||
           kBlanks.find(text.front()) != std::string_view::npos ||
           kBlanks.find(text.back()) != std::string_view::npos;
}

} // namespace

XmlElement XmlElement::Named(std::string name) {
    XmlElement element;
    element.Name = std::move(name);
    return element;
}

XmlElement XmlElement::WithText(std::string name, std::string_view text) {
    XmlElement element = Named(std::move(name));
    element.SetContent(text);
    return element;
}

XmlElement& XmlElement::With(std::string name, std::string_view value) {
    Attributes.emplace_back(std::move(name), StoredText::EncodeAttribute(value));
    return *this;
}

XmlElement& XmlElement::Add(XmlElement child) {
    Children.push_back(std::move(child));
    return Children.back();
}

void XmlElement::SetContent(std::string_view text) {
    if (text.empty()) return;
    XmlElement content;
    content.Text = StoredText::EncodeContent(text);
    content.Kind = NeedsCData(content.Text) ? NodeKind::CData : NodeKind::Text;
    Children.push_back(std::move(content));
}

const std::string* XmlElement::FindAttribute(std::string_view name) const {
    for (const Attribute& attribute : Attributes)
        if (attribute.first == name) return &attribute.second;
    return nullptr;
}

std::string XmlElement::AttributeText(std::string_view name) const {
    const std::string* value = FindAttribute(name);
    return value ? StoredText::Decode(*value) : std::string();
}

const XmlElement* XmlElement::FindChild(std::string_view name) const {
    for (const XmlElement& child : Children)
        if (child.IsElement() && child.Name == name) return &child;
    return nullptr;
}

std::string XmlElement::ContentText() const {
    const bool hasCData = std::any_of(Children.begin(), Children.end(), [](const auto& child) {
        return child.Kind == NodeKind::CData;
    });
    std::string content;
    for (const XmlElement& child : Children) {
        const bool isText = child.Kind == NodeKind::Text && !(hasCData && IsBlank(child.Text));
        if (child.Kind == NodeKind::CData || isText) content += child.Text;
    }
    return StoredText::DecodeContent(content);
}

void XmlElement::SetContentLines(std::string_view text) {
    if (text.empty()) return;
    XmlElement content;
    content.Kind = NodeKind::CData;
    content.Text = StoredText::EncodeContent(text);
    if (!content.Text.starts_with('\n')) content.Text = "\n" + content.Text + "\n";
    Children.push_back(std::move(content));
}

bool XmlElement::HasText() const {
    return std::any_of(Children.begin(), Children.end(), [](const XmlElement& child) {
        return child.Kind == NodeKind::CData ||
               (child.Kind == NodeKind::Text && !IsBlank(child.Text));
    });
}

} // namespace paperkite
