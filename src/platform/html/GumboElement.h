#pragma once

#include "foundation/HTMLDocument.h"
#include "platform/html/HtmlNode.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace paperkite {

class GumboDocument;

enum class HtmlNamespace : std::uint8_t { Html, Svg, MathML };

struct HtmlAttribute {
    /// In lower case in HTML; with its prefix ("xlink:href").
    std::string Name;
    std::string Value;
};

/// What an element knows of its document: nothing once that is gone.
struct DocumentTie {
    GumboDocument* Document = nullptr;
};

/// An element of a GumboDocument.
///
/// The contents of a "template" are its children here. A fragment that changes when it is read
/// again (misnested tags may) is read until it does not. What cannot be written down is error 5:
/// contents for an element that has none ("br"), names with characters that end them, an element
/// inside itself. In front of or behind an element outside of any other nothing is inserted.
class GumboElement : public HtmlParent, public HTMLElement {
public:
    GumboElement(std::string name, HtmlNamespace space, std::shared_ptr<DocumentTie> tie)
        : HtmlParent(Kind::Element), Name(std::move(name)), Space(space), mTie(std::move(tie)) {}

    std::string GetTagName() const override;
    Ref<HTMLElement> GetParentElement() const override;
    Ref<HTMLDocument> GetDocument() const override;

    std::optional<std::string> GetAttribute(const std::string& name) const override;
    void SetAttribute(const std::string& name, const std::string& value) override;
    void RemoveAttribute(const std::string& name) override;

    std::string GetInnerHTML() const override;
    void SetInnerHTML(const std::string& html) override;
    std::string GetOuterHTML() const override;
    void SetOuterHTML(const std::string& html) override;
    std::string GetInnerText() const override;

    void InsertAdjacentHTML(InsertPosition where, const std::string& html) override;
    void InsertAdjacentElement(InsertPosition where, const Ref<HTMLElement>& element) override;
    void RemoveKeepingContents() override;
    std::vector<Ref<HTMLElement>> Tags(const std::string& tag) const override;

    /// The value of an attribute, the name given in lower case; nullptr for none.
    const std::string* FindAttribute(std::string_view name) const;

    /// As the parser has it: lower case in HTML.
    const std::string Name;
    const HtmlNamespace Space;
    std::vector<HtmlAttribute> Attributes;

private:
    struct Place {
        HtmlParent* Parent = nullptr;
        HtmlNode* Before = nullptr;
    };

    std::optional<Place> PlaceAt(InsertPosition where);
    void RequireContents() const;
    void RequireInside() const;
    std::unique_ptr<HtmlParent> Parsed(const HtmlParent& context, const std::string& html) const;
    /// The tables of the document learn of nodes that come or go.
    void Learn(HtmlParent& nodes) const;
    void Forget(HtmlNode& node) const;
    void TellChanged(HtmlParent* below) const;
    void TakeAsOwn(GumboElement& element) const;

    std::shared_ptr<DocumentTie> mTie;
};

/// The elements below a node with that tag, in document order.
std::vector<Ref<HTMLElement>> ElementsBelow(const HtmlParent& top, const std::string& tag);

} // namespace paperkite
