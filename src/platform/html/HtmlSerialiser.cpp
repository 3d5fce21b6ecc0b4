#include "platform/html/HtmlSerialiser.h"

#include "platform/html/GumboElement.h"
#include "platform/html/HtmlNames.h"

#include <array>

namespace paperkite {

namespace {

constexpr char kNbspLead = '\xC2';
constexpr char kNbspTail = '\xA0';

/// The characters that one of the two ways of writing text looks at.
constexpr std::array<bool, 256> Special(std::string_view characters) {
    std::array<bool, 256> special{};
    for (const char character : characters)
        special[static_cast<unsigned char>(character)] = true;
    return special;
}

constexpr auto kInText = Special("&<>\xC2");
constexpr auto kInAttribute = Special("&\"\xC2");

std::string_view EntityOf(char character) {
    switch (character) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    default:
        return "&nbsp;";
    }
}

class Serialiser {
public:
    std::string Text;

    void Run(const HtmlNode& top) {
        const HtmlNode* node = &top;
        while (node) {
            Open(*node);
            node = ToNext(*node, top);
        }
    }

private:
    /// Steps to the next node in document order, and closes the elements that are left on the way.
    const HtmlNode* ToNext(const HtmlNode& from, const HtmlNode& top) {
        const HtmlNode* node = &from;
        const auto* parent = const_cast<HtmlNode*>(node)->AsParent();
        if (parent && parent->First && !IsVoid(from)) return parent->First.get();
        while (true) {
            Close(*node);
            if (node == &top) return nullptr;
            if (node->Next) return node->Next.get();
            node = node->Parent;
        }
    }

    static bool IsVoid(const HtmlNode& node) {
        if (node.What != HtmlNode::Kind::Element) return false;
        const auto& element = static_cast<const GumboElement&>(node);
        return element.Space == HtmlNamespace::Html && IsVoidElement(element.Name);
    }

    void Open(const HtmlNode& node) {
        switch (node.What) {
        case HtmlNode::Kind::Element:
            return OpenElement(static_cast<const GumboElement&>(node));
        case HtmlNode::Kind::Text:
            return WriteText(static_cast<const HtmlTextNode&>(node));
        case HtmlNode::Kind::Comment:
            Text.append("<!--").append(static_cast<const HtmlTextNode&>(node).Text).append("-->");
            return;
        case HtmlNode::Kind::DocumentType:
            Text.append("<!DOCTYPE ").append(static_cast<const HtmlTextNode&>(node).Text) += '>';
            return;
        case HtmlNode::Kind::Fragment:
            return;
        }
    }

    void OpenElement(const GumboElement& element) {
        Text.append("<").append(element.Name);
        for (const HtmlAttribute& attribute : element.Attributes) {
            Text.append(" ").append(attribute.Name).append("=\"");
            Escape(attribute.Value, kInAttribute);
            Text += '"';
        }
        Text += '>';
        if (element.Space != HtmlNamespace::Html || !DropsFirstLineBreak(element.Name)) return;
        const HtmlNode* first = element.First.get();
        if (first && first->What == HtmlNode::Kind::Text &&
            static_cast<const HtmlTextNode*>(first)->Text.starts_with('\n'))
            Text += '\n';
    }

    void Close(const HtmlNode& node) {
        if (node.What != HtmlNode::Kind::Element || IsVoid(node)) return;
        Text.append("</").append(static_cast<const GumboElement&>(node).Name) += '>';
    }

    void WriteText(const HtmlTextNode& node) {
        const auto* parent = node.Parent && node.Parent->What == HtmlNode::Kind::Element
                                 ? static_cast<const GumboElement*>(node.Parent)
                                 : nullptr;
        if (parent && parent->Space == HtmlNamespace::Html && HoldsRawText(parent->Name))
            Text.append(node.Text);
        else
            Escape(node.Text, kInText);
    }

    void Escape(const std::string& text, const std::array<bool, 256>& special) {
        std::size_t written = 0;
        for (std::size_t at = 0; at < text.size(); ++at) {
            if (!special[static_cast<unsigned char>(text[at])]) continue;
            if (text[at] == kNbspLead && (at + 1 == text.size() || text[at + 1] != kNbspTail))
                continue;
            Text.append(text, written, at - written).append(EntityOf(text[at]));
            if (text[at] == kNbspLead) ++at;
            written = at + 1;
        }
        Text.append(text, written, std::string::npos);
    }
};

} // namespace

std::string SerialiseNode(const HtmlNode& node) {
    Serialiser serialiser;
    serialiser.Run(node);
    return std::move(serialiser.Text);
}

std::string SerialiseChildren(const HtmlParent& parent) {
    Serialiser serialiser;
    for (const HtmlNode* node = parent.First.get(); node; node = node->Next.get())
        serialiser.Run(*node);
    return std::move(serialiser.Text);
}

} // namespace paperkite
