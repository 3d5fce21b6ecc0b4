#include "model/XmlWriter.h"

#include <algorithm>

namespace paperkite {

namespace {

void AppendEscaped(std::string& out, std::string_view text, bool inAttribute) {
    for (const char character : text) {
        switch (character) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '\r':
            out += "&#13;";
            break;
        case '"':
            out += inAttribute ? "&quot;" : "\"";
            break;
        case '\n':
            out += inAttribute ? "&#10;" : "\n";
            break;
        case '\t':
            out += inAttribute ? "&#9;" : "\t";
            break;
        default:
            out += character;
        }
    }
}

bool IsText(const XmlElement& node) {
    return node.Kind == XmlElement::NodeKind::Text || node.Kind == XmlElement::NodeKind::CData;
}

bool StandsInLine(const XmlElement& element) {
    return std::any_of(element.Children.begin(), element.Children.end(), IsText);
}

void Append(std::string& out, const XmlElement& node, std::size_t level, bool inLine);

void AppendElement(std::string& out, const XmlElement& element, std::size_t level, bool inLine) {
    out += '<' + element.Name;
    AppendAttributes(out, element);
    if (element.Children.empty()) {
        out += "/>";
        return;
    }
    out += '>';
    const bool childrenInLine = inLine || StandsInLine(element);
    for (const XmlElement& child : element.Children)
        Append(out, child, level + 1, childrenInLine);
    if (!childrenInLine) out += '\n' + std::string(2 * level, ' ');
    out += "</" + element.Name + '>';
}

void Append(std::string& out, const XmlElement& node, std::size_t level, bool inLine) {
    if (!inLine) out += '\n' + std::string(2 * level, ' ');
    switch (node.Kind) {
    case XmlElement::NodeKind::Element:
        AppendElement(out, node, level, inLine);
        break;
    case XmlElement::NodeKind::Text:
        AppendEscaped(out, node.Text, false);
        break;
    case XmlElement::NodeKind::CData:
        out += "<![CDATA[" + node.Text + "]]>";
        break;
    case XmlElement::NodeKind::Markup:
        out += node.Text;
        break;
    }
}

std::string KeyOf(const XmlElement& element, const XmlVocabulary& vocabulary) {
    if (vocabulary.Key.empty()) return {};
    return vocabulary.Key == "." ? element.ContentText() : element.AttributeText(vocabulary.Key);
}

std::size_t FindCounterpart(const XmlElement& fresh, const XmlElement& child,
                            const XmlVocabulary& vocabulary) {
    const std::string key = KeyOf(child, vocabulary);
    const auto found = std::find_if(
        fresh.Children.begin(), fresh.Children.end(), [&](const XmlElement& candidate) {
            return candidate.IsElement() && candidate.Name == child.Name &&
                   KeyOf(candidate, vocabulary) == key;
        });
    return static_cast<std::size_t>(found - fresh.Children.begin());
}

void KeepUnknownAttributes(XmlElement& fresh, const XmlElement& old,
                           const XmlVocabulary& vocabulary) {
    for (const auto& attribute : old.Attributes)
        if (!vocabulary.Attributes.contains(attribute.first)) fresh.Attributes.push_back(attribute);
}

} // namespace

void AppendAttributes(std::string& out, const XmlElement& element) {
    for (const auto& [name, value] : element.Attributes) {
        out += ' ' + name + "=\"";
        AppendEscaped(out, value, true);
        out += '"';
    }
}

void AppendXml(std::string& out, const XmlElement& node, std::size_t level) {
    Append(out, node, level, false);
}

std::string WriteXml(const XmlFile& file) {
    std::string out = kXmlDeclaration;
    for (const XmlElement& node : file.Prolog)
        Append(out, node, 0, false);
    Append(out, file.Root, 0, false);
    for (const XmlElement& node : file.Epilog)
        Append(out, node, 0, false);
    return out + '\n';
}

const XmlVocabulary* XmlVocabulary::Find(const XmlElement& child) const {
    if (!child.IsElement()) return nullptr;
    for (const XmlVocabulary& known : Children)
        if (known.Name == child.Name)
            return known.Understands && !known.Understands(child) ? nullptr : &known;
    return nullptr;
}

void KeepUnknown(XmlElement& fresh, const XmlElement& old, const XmlVocabulary& vocabulary) {
    KeepUnknownAttributes(fresh, old, vocabulary);
    std::size_t place = 0;
    const auto insert = [&fresh, &place](XmlElement child) {
        fresh.Children.insert(fresh.Children.begin() + static_cast<std::ptrdiff_t>(place++),
                              std::move(child));
    };
    for (const XmlElement& child : old.Children) {
        if (IsText(child)) continue;
        const XmlVocabulary* known = vocabulary.Find(child);
        if (!known) {
            insert(child);
            continue;
        }
        const std::size_t counterpart = FindCounterpart(fresh, child, *known);
        if (counterpart < fresh.Children.size()) {
            KeepUnknown(fresh.Children[counterpart], child, *known);
            place = counterpart + 1;
        } else if (known->Key.empty()) {
            // What stands in a list that is not needed any more is still not understood.
            XmlElement shell = XmlElement::Named(child.Name);
            KeepUnknown(shell, child, *known);
            if (!shell.Attributes.empty() || !shell.Children.empty()) insert(std::move(shell));
        }
    }
}

} // namespace paperkite
