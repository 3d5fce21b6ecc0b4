#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace paperkite {

class GumboElement;
class HtmlParent;

/// A node of a document. A parent owns its first child, each child the next one; whoever else holds
/// an element keeps it, with what is below, when its parent goes.
class HtmlNode {
public:
    enum class Kind : std::uint8_t { Element, Text, Comment, DocumentType, Fragment };

    explicit HtmlNode(Kind kind) : What(kind) {}
    virtual ~HtmlNode() = default;
    HtmlNode(const HtmlNode&) = delete;
    HtmlNode& operator=(const HtmlNode&) = delete;

    /// The node behind this one in document order that lies below `top`, or nullptr; without this
    /// one's children where they are to be skipped.
    HtmlNode* NextBelow(const HtmlParent& top, bool skipChildren = false);
    HtmlParent* AsParent();
    GumboElement* AsElement();

    const Kind What;
    HtmlParent* Parent = nullptr;
    HtmlNode* Previous = nullptr;
    std::shared_ptr<HtmlNode> Next;
};

/// Character data, a comment, or what stands between "<!DOCTYPE " and ">".
class HtmlTextNode : public HtmlNode {
public:
    HtmlTextNode(Kind kind, std::string text) : HtmlNode(kind), Text(std::move(text)) {}

    std::string Text;
};

/// A node that has children. It goes without recursion, however deep they nest.
class HtmlParent : public HtmlNode {
public:
    explicit HtmlParent(Kind kind) : HtmlNode(kind) {}
    ~HtmlParent() override { RemoveAll(); }

    /// Takes a node that has no parent, in front of a child, or at the end for nullptr.
    void Insert(const std::shared_ptr<HtmlNode>& node, HtmlNode* before = nullptr);
    /// Gives the child, which has no parent then.
    std::shared_ptr<HtmlNode> Remove(HtmlNode& child);
    /// Moves all children of another parent here, in front of a child, or to the end for nullptr.
    void TakeChildren(HtmlParent& from, HtmlNode* before = nullptr);
    void RemoveAll();

    std::shared_ptr<HtmlNode> First;
    HtmlNode* Last = nullptr;
};

} // namespace paperkite
