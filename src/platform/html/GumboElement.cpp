#include "platform/html/GumboElement.h"

#include "foundation/Error.h"
#include "foundation/Text.h"
#include "platform/html/GumboDocument.h"
#include "platform/html/GumboParser.h"
#include "platform/html/HtmlNames.h"
#include "platform/html/HtmlSerialiser.h"

#include <algorithm>

namespace paperkite {

namespace {

std::shared_ptr<HtmlNode> Shared(GumboElement& element) {
    return std::static_pointer_cast<GumboElement>(element.shared_from_this());
}

Ref<HTMLElement> ElementRef(HtmlNode* node) {
    GumboElement* element = node ? node->AsElement() : nullptr;
    if (!element) return {};
    return Ref<HTMLElement>(std::static_pointer_cast<HTMLElement>(element->shared_from_this()));
}

void RequireAttributeName(const std::string& name) {
    if (name.empty() || name.find_first_of(" \t\r\n\f\"'<>/=") != std::string::npos ||
        name.find('\0') != std::string::npos)
        RaiseError(ErrorNumber::InvalidCall,
                   "\"" + name +
                       "\" is no name of an attribute: it must not be empty, nor hold blanks, "
                       "quotation marks, \"<\", \">\", \"/\" or \"=\".");
}

} // namespace

std::string GumboElement::GetTagName() const {
    return Space == HtmlNamespace::Html ? UpperCase(Name) : Name;
}

Ref<HTMLElement> GumboElement::GetParentElement() const {
    return ElementRef(Parent);
}

Ref<HTMLDocument> GumboElement::GetDocument() const {
    return mTie->Document ? Ref<HTMLDocument>(RefTo(*mTie->Document)) : Ref<HTMLDocument>();
}

const std::string* GumboElement::FindAttribute(std::string_view name) const {
    for (const HtmlAttribute& attribute : Attributes)
        if (EqualIgnoringCase(attribute.Name, name)) return &attribute.Value;
    return nullptr;
}

std::optional<std::string> GumboElement::GetAttribute(const std::string& name) const {
    const std::string* value = FindAttribute(name);
    return value ? std::optional(*value) : std::nullopt;
}

void GumboElement::SetAttribute(const std::string& name, const std::string& value) {
    RequireAttributeName(name);
    const std::string* present = FindAttribute(name);
    if (present && *present == value) return;
    GumboDocument* document = mTie->Document;
    const bool isInside = document && document->Holds(*this);
    if (isInside) document->Forget(*this);
    const auto found =
        std::find_if(Attributes.begin(), Attributes.end(), [&](const HtmlAttribute& attribute) {
            return EqualIgnoringCase(attribute.Name, name);
        });
    if (found != Attributes.end())
        found->Value = value;
    else
        Attributes.push_back({Space == HtmlNamespace::Html ? LowerCase(name) : name, value});
    if (isInside) document->Learn(*this);
    TellChanged(this);
}

void GumboElement::RemoveAttribute(const std::string& name) {
    if (!FindAttribute(name)) return;
    GumboDocument* document = mTie->Document;
    const bool isInside = document && document->Holds(*this);
    if (isInside) document->Forget(*this);
    std::erase_if(Attributes, [&](const HtmlAttribute& attribute) {
        return EqualIgnoringCase(attribute.Name, name);
    });
    if (isInside) document->Learn(*this);
    TellChanged(this);
}

std::string GumboElement::GetInnerHTML() const {
    return SerialiseChildren(*this);
}

std::string GumboElement::GetOuterHTML() const {
    return SerialiseNode(*this);
}

std::string GumboElement::GetInnerText() const {
    std::string text;
    auto* self = const_cast<GumboElement*>(this);
    for (HtmlNode* node = self->NextBelow(*this); node;) {
        const GumboElement* element = node->AsElement();
        const bool isUnseen = element && (element->Name == "script" || element->Name == "style");
        if (node->What == Kind::Text) text += static_cast<HtmlTextNode*>(node)->Text;
        node = node->NextBelow(*this, isUnseen);
    }
    return text;
}

std::unique_ptr<HtmlParent> GumboElement::Parsed(const HtmlParent& context,
                                                 const std::string& html) const {
    const auto* element =
        context.What == Kind::Element ? static_cast<const GumboElement*>(&context) : nullptr;
    return ParseFragment(html, element ? element->Name : "body",
                         element ? element->Space : HtmlNamespace::Html, mTie)
        .Nodes;
}

void GumboElement::RequireContents() const {
    if (Space == HtmlNamespace::Html && IsVoidElement(Name))
        RaiseError(ErrorNumber::InvalidCall,
                   "The element " + GetTagName() +
                       " has no contents. Put the text in front of it or behind it.");
}

void GumboElement::RequireInside() const {
    if (mTie->Document && mTie->Document->IsRoot(*this))
        RaiseError(ErrorNumber::InvalidCall,
                   "The root of a document cannot be replaced, and has nothing beside it. "
                   "Change what is inside of it.");
}

void GumboElement::SetInnerHTML(const std::string& html) {
    if (html.empty() && !First) return;
    RequireContents();
    const auto nodes = Parsed(*this, html);
    for (HtmlNode* node = First.get(); node; node = node->Next.get())
        Forget(*node);
    RemoveAll();
    Learn(*nodes);
    TakeChildren(*nodes);
    TellChanged(this);
}

void GumboElement::SetOuterHTML(const std::string& html) {
    RequireInside();
    if (!Parent) return;
    HtmlParent& parent = *Parent;
    const auto keep = Shared(*this);
    const auto nodes = Parsed(parent, html);
    Forget(*this);
    HtmlNode* before = Next.get();
    parent.Remove(*this);
    HtmlNode* first = nodes->First.get();
    parent.TakeChildren(*nodes, before);
    for (HtmlNode* node = first; node && node != before; node = node->Next.get())
        if (mTie->Document && mTie->Document->Holds(parent)) mTie->Document->Learn(*node);
    TellChanged(&parent);
}

std::optional<GumboElement::Place> GumboElement::PlaceAt(InsertPosition where) {
    switch (where) {
    case InsertPosition::AfterBegin:
        return Place{this, First.get()};
    case InsertPosition::BeforeEnd:
        return Place{this, nullptr};
    default:
        break;
    }
    RequireInside();
    if (!Parent) return std::nullopt;
    return Place{Parent, where == InsertPosition::BeforeBegin ? this : Next.get()};
}

void GumboElement::InsertAdjacentHTML(InsertPosition where, const std::string& html) {
    const auto place = PlaceAt(where);
    if (!place || html.empty()) return;
    if (place->Parent == this) RequireContents();
    const auto nodes = Parsed(*place->Parent, html);
    HtmlNode* first = nodes->First.get();
    place->Parent->TakeChildren(*nodes, place->Before);
    if (mTie->Document && mTie->Document->Holds(*place->Parent))
        for (HtmlNode* node = first; node && node != place->Before; node = node->Next.get())
            mTie->Document->Learn(*node);
    TellChanged(place->Parent);
}

void GumboElement::InsertAdjacentElement(InsertPosition where, const Ref<HTMLElement>& element) {
    const auto moved = std::dynamic_pointer_cast<GumboElement>(element->shared_from_this());
    if (!moved)
        RaiseError(ErrorNumber::InvalidCall, "The element is one of another kind of document. "
                                             "Insert its text instead.");
    for (const HtmlNode* node = this; node; node = node->Parent)
        if (node == moved.get() &&
            !(node == this && Parent && where != InsertPosition::AfterBegin &&
              where != InsertPosition::BeforeEnd))
            RaiseError(ErrorNumber::InvalidCall,
                       "An element cannot be moved into itself. Choose a place outside of it.");
    auto place = PlaceAt(where);
    if (!place || moved.get() == this) return;
    if (place->Parent == this) RequireContents();
    moved->RequireInside();
    if (place->Before == moved.get()) place->Before = moved->Next.get();
    HtmlParent* from = moved->Parent;
    if (from) {
        moved->Forget(*moved);
        const auto held = from->Remove(*moved);
        if (from != place->Parent) moved->TellChanged(from);
    }
    TakeAsOwn(*moved);
    place->Parent->Insert(moved, place->Before);
    if (mTie->Document && mTie->Document->Holds(*place->Parent))
        mTie->Document->Learn(static_cast<HtmlNode&>(*moved));
    TellChanged(place->Parent);
}

/// The element and what is below belong to this one's document from now on.
void GumboElement::TakeAsOwn(GumboElement& element) const {
    if (element.mTie == mTie) return;
    for (HtmlNode* node = &element; node; node = node->NextBelow(element))
        if (GumboElement* below = node->AsElement()) below->mTie = mTie;
}

void GumboElement::RemoveKeepingContents() {
    RequireInside();
    if (!Parent) return;
    HtmlParent& parent = *Parent;
    const auto keep = Shared(*this);
    GumboDocument* document = mTie->Document;
    if (document && document->Holds(*this)) document->Forget(*this);
    HtmlNode* before = Next.get();
    parent.Remove(*this);
    parent.TakeChildren(*this, before);
    TellChanged(&parent);
}

std::vector<Ref<HTMLElement>> GumboElement::Tags(const std::string& tag) const {
    return ElementsBelow(*this, tag);
}

std::vector<Ref<HTMLElement>> ElementsBelow(const HtmlParent& top, const std::string& tag) {
    std::vector<Ref<HTMLElement>> found;
    auto& start = const_cast<HtmlParent&>(top);
    for (HtmlNode* node = start.NextBelow(top); node; node = node->NextBelow(top)) {
        const GumboElement* element = node->AsElement();
        if (element && (tag == "*" || EqualIgnoringCase(element->Name, tag)))
            found.push_back(ElementRef(node));
    }
    return found;
}

/// For nodes that are about to come below this element.
void GumboElement::Learn(HtmlParent& nodes) const {
    GumboDocument* document = mTie->Document;
    if (!document || !document->Holds(*this)) return;
    for (HtmlNode* node = nodes.First.get(); node; node = node->Next.get())
        document->Learn(*node);
}

void GumboElement::Forget(HtmlNode& node) const {
    GumboDocument* document = mTie->Document;
    if (document && document->Holds(node)) document->Forget(node);
}

void GumboElement::TellChanged(HtmlParent* below) const {
    GumboDocument* document = mTie->Document;
    if (!document || !document->Events.Changed.HasHandlers() || !document->Holds(*below)) return;
    const Ref<HTMLDocument> keep = GetDocument();
    document->Events.Changed.Raise(ElementRef(below));
}

} // namespace paperkite
