#include "model/MergeConflicts.h"

#include "model/ContentFileMerge.h"
#include "model/XmlTreeMerge.h"
#include "model/XmlWriter.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>

namespace paperkite {

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

/// Where the two versions of a conflict stand among the children of an element.
struct Place {
    XmlElement* Parent = nullptr;
    std::size_t Ours = kNone;
    std::size_t Theirs = kNone;
    /// The element that holds the other version of a project's element.
    std::size_t Mark = kNone;
    MergeConflict Conflict;
};

std::string IdOf(const XmlElement& comment) {
    return comment.AttributeText("id");
}

std::string ConflictIdOf(const XmlElement& comment) {
    return comment.AttributeText(kConflictIdAttribute);
}

/// What joins the two versions of a comment. Items may have comments of the same Id, and an item
/// several of one Id, so that what agrees in more is joined first.
using JoinKey = std::string (*)(const XmlElement& comment);

std::string KeyInTag(const XmlElement& comment) {
    return ConflictIdOf(comment) + "\n" + comment.AttributeText("item") + "\n" +
           comment.AttributeText("tag");
}

std::string KeyInItem(const XmlElement& comment) {
    return ConflictIdOf(comment) + "\n" + comment.AttributeText("item");
}

/// Whether two versions of one conflict Id may belong together. A version that kept the Id stands
/// alone, unless the other one was added under an Id of its own.
bool MayBelong(const XmlElement& ours, const XmlElement& theirs) {
    const std::string id = ConflictIdOf(theirs);
    return id.empty() || IdOf(theirs) != id || IdOf(ours) != id;
}

void NoteVersion(Place& place, XmlElement& root, std::size_t index, bool isOurs) {
    const XmlElement& comment = root.Children[index];
    place.Parent = &root;
    (isOurs ? place.Ours : place.Theirs) = index;
    (isOurs ? place.Conflict.Ours : place.Conflict.Theirs) = comment.ContentText();
    if (place.Conflict.Item.empty() || isOurs) {
        place.Conflict.Item = comment.AttributeText("item");
        place.Conflict.Tag = comment.AttributeText("tag");
    }
    if (comment.FindAttribute(kConflictBaseAttribute))
        place.Conflict.Base = comment.AttributeText(kConflictBaseAttribute);
}

/// Joins versions of theirs with those of ours that stand alone and have the same key, where there
/// is one: with the nearest before it, as a merge writes them. Gives what is left.
std::vector<std::size_t> Join(XmlElement& root, const std::vector<std::size_t>& theirs, JoinKey key,
                              std::vector<Place>& places) {
    std::unordered_map<std::string, std::vector<std::size_t>> alone;
    for (std::size_t place = 0; place < places.size(); ++place)
        if (places[place].Theirs == kNone)
            alone[key(root.Children[places[place].Ours])].push_back(place);
    std::vector<std::size_t> left;
    for (const std::size_t index : theirs) {
        const XmlElement& comment = root.Children[index];
        auto& twins = alone[key(comment)];
        const auto behind = std::partition_point(
            twins.begin(), twins.end(), [&](auto place) { return places[place].Ours < index; });
        const auto isPartner = [&](std::size_t place) {
            return MayBelong(root.Children[places[place].Ours], comment);
        };
        const auto before = std::find_if(std::reverse_iterator(behind), twins.rend(), isPartner);
        const auto partner = before != twins.rend() ? std::prev(before.base())
                                                    : std::find_if(behind, twins.end(), isPartner);
        if (partner == twins.end()) {
            left.push_back(index);
            continue;
        }
        NoteVersion(places[*partner], root, index, false);
        twins.erase(partner);
    }
    return left;
}

void FindComments(XmlElement& root, std::vector<Place>& places) {
    std::vector<std::size_t> theirs;
    for (std::size_t index = 0; index < root.Children.size(); ++index) {
        const XmlElement& comment = root.Children[index];
        if (!comment.IsElement() || comment.Name != "comment") continue;
        const std::string side = comment.AttributeText(kConflictAttribute);
        if (side == "theirs") theirs.push_back(index);
        if (side == "ours") NoteVersion(places.emplace_back(), root, index, true);
    }
    for (const JoinKey key : {&KeyInTag, &KeyInItem, &ConflictIdOf})
        theirs = Join(root, theirs, key, places);
    for (const std::size_t index : theirs)
        NoteVersion(places.emplace_back(), root, index, false);
    std::stable_sort(places.begin(), places.end(), [](const Place& left, const Place& right) {
        return std::min(left.Ours, left.Theirs) < std::min(right.Ours, right.Theirs);
    });
}

/// What an element of a project says, in one text.
std::string TextOf(const XmlElement& element) {
    std::string text = element.ContentText();
    for (const auto& [name, value] : element.Attributes)
        text += (text.empty() ? "" : "\n") + name + ": " + element.AttributeText(name);
    return text;
}

void FindElements(XmlElement& parent, std::vector<Place>& places) {
    for (std::size_t index = 0; index < parent.Children.size(); ++index) {
        XmlElement& child = parent.Children[index];
        if (!child.IsElement()) continue;
        const std::string side = child.AttributeText(kConflictSide);
        const bool isMark = child.Name == kConflictElement && !side.empty();
        if (!isMark) {
            FindElements(child, places);
            continue;
        }
        Place place;
        place.Parent = &parent;
        place.Mark = index;
        place.Conflict.MayKeepBoth = false;
        const bool isDeleted = child.AttributeText(kConflictDeleted) == "true";
        const XmlElement* other = child.Children.empty() ? nullptr : &child.Children.front();
        const bool isOfRoot = other && other->Name == parent.Name;
        const XmlElement* before = isOfRoot ? &parent : nullptr;
        for (std::size_t at = index; !before && at-- > 0;)
            if (parent.Children[at].IsElement()) before = &parent.Children[at];
        if (!before) continue;
        (side == "ours" ? place.Conflict.Theirs : place.Conflict.Ours) = TextOf(*before);
        if (!isDeleted && other)
            (side == "ours" ? place.Conflict.Ours : place.Conflict.Theirs) = TextOf(*other);
        place.Conflict.Item = before->Name;
        for (const char* key : {"name", "path", "root"})
            if (place.Conflict.Tag.empty()) place.Conflict.Tag = before->AttributeText(key);
        if (!isOfRoot) place.Ours = static_cast<std::size_t>(before - parent.Children.data());
        places.push_back(std::move(place));
    }
}

std::vector<Place> PlacesIn(XmlFile& file) {
    std::vector<Place> places;
    FindComments(file.Root, places);
    FindElements(file.Root, places);
    return places;
}

void TakeMarksOff(XmlElement& comment) {
    std::erase_if(comment.Attributes, [](const auto& attribute) {
        return attribute.first == kConflictAttribute || attribute.first == kConflictIdAttribute ||
               attribute.first == kConflictBaseAttribute;
    });
}

/// Children that go are emptied first, so that the places of the others stay.
void Drop(XmlElement& child) {
    child = XmlElement();
    child.Kind = XmlElement::NodeKind::Text;
}

void ResolveComment(Place& place, Keeping keeping) {
    auto& children = place.Parent->Children;
    const bool hasBoth = place.Ours != kNone && place.Theirs != kNone;
    if (hasBoth && keeping == Keeping::Theirs) {
        // A comment that both sides have keeps the Id that they know it by.
        XmlElement& theirs = children[place.Theirs];
        const std::string* known = theirs.FindAttribute(kConflictIdAttribute);
        for (auto& [name, value] : theirs.Attributes)
            if (known && name == "id" && value == *known + kTheirsSuffix)
                value = std::string(*known);
    }
    const auto settle = [&](std::size_t index, bool isKept) {
        if (index == kNone) return;
        if (isKept)
            TakeMarksOff(children[index]);
        else
            Drop(children[index]);
    };
    settle(place.Ours, keeping != Keeping::Theirs);
    settle(place.Theirs, keeping != Keeping::Ours);
}

void ResolveElement(Place& place, Keeping keeping) {
    auto& children = place.Parent->Children;
    XmlElement mark = std::move(children[place.Mark]);
    const bool markIsOurs = mark.AttributeText(kConflictSide) == "ours";
    Drop(children[place.Mark]);
    const bool takesMark = keeping != Keeping::Both && (keeping == Keeping::Ours) == markIsOurs;
    if (!takesMark) return;
    XmlElement* present = place.Ours == kNone ? place.Parent : &children[place.Ours];
    if (mark.Children.empty()) {
        Drop(*present);
        return;
    }
    XmlElement& other = mark.Children.front();
    present->Attributes = other.Attributes;
    if (place.Ours == kNone) return;
    std::erase_if(present->Children, [](const XmlElement& node) {
        return node.Kind == XmlElement::NodeKind::Text || node.Kind == XmlElement::NodeKind::CData;
    });
    std::move(other.Children.begin(), other.Children.end(),
              std::inserter(present->Children, present->Children.begin()));
}

void Sweep(XmlElement& parent) {
    std::erase_if(parent.Children, [](const XmlElement& child) {
        return child.Kind == XmlElement::NodeKind::Text && child.Text.empty();
    });
}

} // namespace

bool MergeConflicts::MayBeIn(const std::string& bytes) {
    return bytes.find("conflict=") != std::string::npos ||
           bytes.find("<conflict") != std::string::npos;
}

std::vector<MergeConflict> MergeConflicts::Find(const std::string& bytes) {
    std::vector<MergeConflict> conflicts;
    XmlFile file;
    if (!MayBeIn(bytes) || XmlReader({}, bytes).Read(file)) return conflicts;
    for (Place& place : PlacesIn(file))
        conflicts.push_back(std::move(place.Conflict));
    return conflicts;
}

std::string MergeConflicts::Resolve(const std::string& bytes, const std::vector<Keeping>& choices) {
    XmlFile file;
    if (choices.empty() || XmlReader({}, bytes).Read(file)) return bytes;
    std::vector<Place> places = PlacesIn(file);
    for (std::size_t index = 0; index < places.size() && index < choices.size(); ++index) {
        if (places[index].Mark == kNone)
            ResolveComment(places[index], choices[index]);
        else
            ResolveElement(places[index], choices[index]);
    }
    for (Place& place : places)
        Sweep(*place.Parent);
    return WriteXml(file);
}

} // namespace paperkite
