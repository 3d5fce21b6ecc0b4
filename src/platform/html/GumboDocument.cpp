#include "platform/html/GumboDocument.h"

#include "foundation/Error.h"
#include "foundation/Text.h"
#include "platform/html/GumboParser.h"
#include "platform/html/HtmlSerialiser.h"

#include <algorithm>

namespace paperkite {

namespace {

GumboElement* FirstElement(const HtmlParent& parent) {
    for (HtmlNode* node = parent.First.get(); node; node = node->Next.get())
        if (GumboElement* element = node->AsElement()) return element;
    return nullptr;
}

Ref<HTMLElement> RefOf(GumboElement* element) {
    return element ? Ref<HTMLElement>(
                         std::static_pointer_cast<HTMLElement>(element->shared_from_this()))
                   : Ref<HTMLElement>();
}

bool IsLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

} // namespace

GumboDocument::GumboDocument(const std::string& html)
    : mTie(std::make_shared<DocumentTie>(DocumentTie{this})),
      mTree(ParseDocument(html, mTie).Nodes) {}

GumboDocument::~GumboDocument() {
    mTie->Document = nullptr;
}

Ref<HTMLElement> GumboDocument::GetDocumentElement() const {
    return RefOf(FirstElement(*mTree));
}

Ref<HTMLElement> GumboDocument::GetBody() const {
    const GumboElement* root = FirstElement(*mTree);
    for (HtmlNode* node = root->First.get(); node; node = node->Next.get()) {
        GumboElement* element = node->AsElement();
        if (element && (element->Name == "body" || element->Name == "frameset"))
            return RefOf(element);
    }
    return {};
}

std::vector<Ref<HTMLElement>> GumboDocument::Tags(const std::string& tag) const {
    return ElementsBelow(*mTree, tag);
}

Ref<HTMLElement> GumboDocument::All(const std::string& idOrName) const {
    if (idOrName.empty()) return {};
    MakeTables();
    GumboElement* found = FirstOf(mById, idOrName);
    return RefOf(found ? found : FirstOf(mByName, idOrName));
}

/// The first one in document order; the order of the table is that of coming.
GumboElement* GumboDocument::FirstOf(const Table& table, const std::string& key) const {
    const auto found = table.find(key);
    if (found == table.end() || found->second.empty()) return nullptr;
    const auto& elements = found->second;
    if (elements.size() == 1) return elements.front();
    for (HtmlNode* node = mTree->NextBelow(*mTree); node; node = node->NextBelow(*mTree))
        if (std::find(elements.begin(), elements.end(), node->AsElement()) != elements.end())
            return node->AsElement();
    return nullptr;
}

void GumboDocument::MakeTables() const {
    if (mHasTables) return;
    mHasTables = true;
    auto& self = const_cast<GumboDocument&>(*this);
    for (HtmlNode* node = mTree->First.get(); node; node = node->Next.get())
        self.Learn(*node);
}

void GumboDocument::Learn(GumboElement& element) {
    if (!mHasTables) return;
    if (const std::string* id = element.FindAttribute("id")) mById[*id].push_back(&element);
    if (const std::string* name = element.FindAttribute("name")) mByName[*name].push_back(&element);
}

void GumboDocument::Forget(GumboElement& element) {
    if (!mHasTables) return;
    const auto forget = [&element](Table& table, const std::string* key) {
        if (!key) return;
        const auto found = table.find(*key);
        if (found == table.end()) return;
        std::erase(found->second, &element);
        if (found->second.empty()) table.erase(found);
    };
    forget(mById, element.FindAttribute("id"));
    forget(mByName, element.FindAttribute("name"));
}

void GumboDocument::Learn(HtmlNode& subtree) {
    if (!mHasTables) return;
    HtmlParent* top = subtree.AsParent();
    if (!top) return;
    for (HtmlNode* node = &subtree; node; node = node->NextBelow(*top))
        if (GumboElement* element = node->AsElement()) Learn(*element);
}

void GumboDocument::Forget(HtmlNode& subtree) {
    if (!mHasTables) return;
    HtmlParent* top = subtree.AsParent();
    if (!top) return;
    for (HtmlNode* node = &subtree; node; node = node->NextBelow(*top))
        if (GumboElement* element = node->AsElement()) Forget(*element);
}

bool GumboDocument::Holds(const HtmlNode& node) const {
    const HtmlNode* top = &node;
    while (top->Parent)
        top = top->Parent;
    return top == mTree.get();
}

Ref<HTMLElement> GumboDocument::CreateElement(const std::string& tag) {
    if (tag.empty() || !IsLetter(tag[0]) || tag.find_first_of(" \t\r\n\f/>") != std::string::npos ||
        tag.find('\0') != std::string::npos)
        RaiseError(ErrorNumber::InvalidCall,
                   "\"" + tag +
                       "\" is no name of an element: it must begin with a letter, and hold no "
                       "blanks, \"/\" or \">\".");
    return Ref<HTMLElement>(std::static_pointer_cast<HTMLElement>(
        std::make_shared<GumboElement>(LowerCase(tag), HtmlNamespace::Html, mTie)));
}

std::string GumboDocument::Serialise() const {
    return SerialiseChildren(*mTree);
}

} // namespace paperkite
