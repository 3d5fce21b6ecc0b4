#include "platform/html/HtmlNode.h"

#include "platform/html/GumboElement.h"

#include <vector>

namespace paperkite {

HtmlParent* HtmlNode::AsParent() {
    return What == Kind::Element || What == Kind::Fragment ? static_cast<HtmlParent*>(this)
                                                           : nullptr;
}

GumboElement* HtmlNode::AsElement() {
    return What == Kind::Element ? static_cast<GumboElement*>(this) : nullptr;
}

HtmlNode* HtmlNode::NextBelow(const HtmlParent& top, bool skipChildren) {
    HtmlParent* parent = skipChildren ? nullptr : AsParent();
    if (parent && parent->First) return parent->First.get();
    for (HtmlNode* node = this; node && node != &top; node = node->Parent)
        if (node->Next) return node->Next.get();
    return nullptr;
}

void HtmlParent::Insert(const std::shared_ptr<HtmlNode>& node, HtmlNode* before) {
    node->Parent = this;
    node->Previous = before ? before->Previous : Last;
    std::shared_ptr<HtmlNode>& place = node->Previous ? node->Previous->Next : First;
    node->Next = std::move(place);
    place = node;
    (before ? before->Previous : Last) = node.get();
}

std::shared_ptr<HtmlNode> HtmlParent::Remove(HtmlNode& child) {
    std::shared_ptr<HtmlNode>& place = child.Previous ? child.Previous->Next : First;
    const std::shared_ptr<HtmlNode> removed = std::move(place);
    place = std::move(child.Next);
    (place ? place->Previous : Last) = child.Previous;
    child.Parent = nullptr;
    child.Previous = nullptr;
    return removed;
}

void HtmlParent::TakeChildren(HtmlParent& from, HtmlNode* before) {
    while (from.First)
        Insert(from.Remove(*from.First), before);
}

void HtmlParent::RemoveAll() {
    std::vector<std::shared_ptr<HtmlNode>> waiting;
    const auto takeChildren = [&waiting](HtmlParent& parent) {
        while (parent.First)
            waiting.push_back(parent.Remove(*parent.First));
    };
    takeChildren(*this);
    while (!waiting.empty()) {
        const std::shared_ptr<HtmlNode> node = std::move(waiting.back());
        waiting.pop_back();
        // Nobody else holds it, so that it goes here: its children first.
        HtmlParent* parent = node.use_count() == 1 ? node->AsParent() : nullptr;
        if (parent) takeChildren(*parent);
    }
}

} // namespace paperkite
