#include "model/MergeEntry.h"

#include "model/XmlTreeMerge.h"

#include <algorithm>
#include <iterator>

namespace paperkite {

namespace {

using Nodes = std::vector<XmlElement>;

/// The place of known attributes; others stand behind them.
std::size_t RankOf(const std::string& attribute) {
    static const std::vector<std::string> kOrder{"item", "tag", "id", "qualifier", "xmltag"};
    return static_cast<std::size_t>(std::find(kOrder.begin(), kOrder.end(), attribute) -
                                    kOrder.begin());
}

bool IsSame(const XmlElement& left, const XmlElement& right);

bool IsSame(const Nodes& left, const Nodes& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const auto& one, const auto& other) { return IsSame(one, other); });
}

bool IsSame(const XmlElement& left, const XmlElement& right) {
    return left.Kind == right.Kind && left.Name == right.Name && left.Text == right.Text &&
           left.Attributes == right.Attributes && IsSame(left.Children, right.Children);
}

std::string BytesOf(Nodes nodes) {
    if (nodes.empty()) return {};
    XmlElement list = XmlElement::Named("list");
    list.Children = std::move(nodes);
    return XmlTreeMerge::BytesOf(list);
}

} // namespace

MergeEntry::MergeEntry(XmlElement comment, Nodes before)
    : Comment(std::move(comment)), Before(std::move(before)), Item(Comment.AttributeText("item")),
      Tag(Comment.AttributeText("tag")), Id(Comment.AttributeText("id")) {}

bool MergeEntry::Says(const MergeEntry& other) const {
    // Most comments of two versions are the same to the byte.
    if (IsSame(Comment, other.Comment) && IsSame(Before, other.Before)) return true;
    auto attributes = Comment.Attributes;
    auto others = other.Comment.Attributes;
    std::sort(attributes.begin(), attributes.end());
    std::sort(others.begin(), others.end());
    return attributes == others && Comment.ContentText() == other.Comment.ContentText() &&
           BytesOf(UnknownChildren()) == BytesOf(other.UnknownChildren()) &&
           BytesOf(Before) == BytesOf(other.Before);
}

Nodes MergeEntry::UnknownChildren() const {
    Nodes nodes;
    std::copy_if(Comment.Children.begin(), Comment.Children.end(), std::back_inserter(nodes),
                 [](const XmlElement& node) {
                     return node.Kind != XmlElement::NodeKind::Text &&
                            node.Kind != XmlElement::NodeKind::CData;
                 });
    return nodes;
}

void MergeEntry::SetAttribute(const std::string& name, const std::string& value) {
    std::erase_if(Comment.Attributes, [&](const auto& entry) { return entry.first == name; });
    Comment.With(name, value);
    SortAttributes();
}

void MergeEntry::SetId(const std::string& value) {
    Id = value;
    SetAttribute("id", value);
}

void MergeEntry::SortAttributes() {
    std::stable_sort(Comment.Attributes.begin(), Comment.Attributes.end(),
                     [](const auto& left, const auto& right) {
                         return RankOf(left.first) < RankOf(right.first);
                     });
}

} // namespace paperkite
