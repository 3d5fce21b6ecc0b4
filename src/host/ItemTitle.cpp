#include "host/ItemTitle.h"

#include "foundation/Unicode.h"

namespace paperkite {

namespace {

constexpr std::string_view kEllipsis = "…";

} // namespace

std::string ItemCaption(const Object& item) {
    return item.Get("Name").ToText() + item.Get("Overload").ToText();
}

std::string ItemScope(const Object& item) {
    std::string scope;
    for (auto around = item.Get("Parent").ToObject(); around;
         around = around->Get("Parent").ToObject())
        scope = ItemCaption(*around) + (scope.empty() ? "" : " ~ ") + scope;
    return scope;
}

std::string ItemPath(const Object& item) {
    const std::string scope = ItemScope(item);
    return (scope.empty() ? "" : scope + " ~ ") + ItemCaption(item);
}

std::string ShortenedInMiddle(std::string_view text, std::size_t most) {
    if (text.size() <= most) return std::string(text);
    std::size_t head = (most - kEllipsis.size() + 1) / 2;
    std::size_t tail = text.size() - (most - kEllipsis.size()) / 2;
    while (head > 0 && IsContinuation(text[head]))
        --head;
    while (tail < text.size() && IsContinuation(text[tail]))
        ++tail;
    return std::string(text.substr(0, head)) + std::string(kEllipsis) +
           std::string(text.substr(tail));
}

} // namespace paperkite
