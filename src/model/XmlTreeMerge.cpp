#include "model/XmlTreeMerge.h"

#include "model/MergeOrder.h"

#include <algorithm>
#include <unordered_map>

namespace paperkite {

namespace {

using Nodes = std::vector<XmlElement>;

bool IsText(const XmlElement& node) {
    return node.Kind == XmlElement::NodeKind::Text || node.Kind == XmlElement::NodeKind::CData;
}

/// The known name and key of a node, or all that it is.
std::string ShortKey(const XmlElement& node, const XmlVocabulary& vocabulary) {
    const XmlVocabulary* known = vocabulary.Find(node);
    if (!known) return "?" + XmlTreeMerge::BytesOf(node);
    if (known->Key.empty()) return "<" + node.Name;
    return "<" + node.Name + " " +
           (known->Key == "." ? node.ContentText() : node.AttributeText(known->Key));
}

/// A list of nodes by keys that each of them has for itself.
class KeyedNodes {
public:
    using Count = std::unordered_map<std::string, int>;

    static Count CountKeys(const Nodes* nodes, const XmlVocabulary& vocabulary) {
        Count count;
        if (nodes)
            for (const XmlElement& node : *nodes)
                ++count[ShortKey(node, vocabulary)];
        return count;
    }

    /// Where a key of the vocabulary does not tell nodes apart, all that they are does.
    KeyedNodes(const Nodes* nodes, const XmlVocabulary& vocabulary,
               const std::vector<Count>& counts, MergeKeys& keys) {
        if (!nodes) return;
        Count seen;
        for (const XmlElement& node : *nodes) {
            if (IsText(node)) continue;
            std::string key = ShortKey(node, vocabulary);
            const bool isShared =
                std::any_of(counts.begin(), counts.end(), [&key](const Count& count) {
                    const auto found = count.find(key);
                    return found != count.end() && found->second > 1;
                });
            if (isShared) key = "?" + XmlTreeMerge::BytesOf(node);
            key += "#" + std::to_string(++seen[key]);
            mKeys.push_back(keys.NumberOf(std::move(key)));
            mNodes.emplace(mKeys.back(), &node);
        }
    }

    const std::vector<std::size_t>& Keys() const { return mKeys; }
    const XmlElement* Find(std::size_t key) const {
        const auto found = mNodes.find(key);
        return found == mNodes.end() ? nullptr : found->second;
    }

private:
    std::vector<std::size_t> mKeys;
    std::unordered_map<std::size_t, const XmlElement*> mNodes;
};

bool Same(const XmlElement& left, const XmlElement& right) {
    return XmlTreeMerge::BytesOf(left) == XmlTreeMerge::BytesOf(right);
}

/// One side deleted what the other did not touch.
bool IsDeleted(const ThreeVersions<XmlElement>& versions) {
    if (!versions.Base) return false;
    if (!versions.Ours) return !versions.Theirs || Same(*versions.Base, *versions.Theirs);
    return !versions.Theirs && Same(*versions.Base, *versions.Ours);
}

const std::string* ValueOf(const XmlElement* element, const std::string& name) {
    return element ? element->FindAttribute(name) : nullptr;
}

XmlElement ConflictOf(const char* side) {
    XmlElement element = XmlElement::Named(kConflictElement);
    element.With(kConflictSide, side);
    return element;
}

/// Without the children that are merged one by one.
XmlElement ShellOf(const XmlElement& element, bool withText) {
    XmlElement shell = XmlElement::Named(element.Name);
    shell.Attributes = element.Attributes;
    if (withText) shell.SetContent(element.ContentText());
    return shell;
}

} // namespace

std::string XmlTreeMerge::BytesOf(const XmlElement& element) {
    XmlFile file;
    file.Root = element;
    return WriteXml(file);
}

bool XmlTreeMerge::MergeAttributes(const ThreeVersions<XmlElement>& versions, XmlElement& result) {
    using Held = std::optional<std::string>;
    const auto held = [](const std::string* value) { return value ? Held(*value) : Held(); };
    bool isClean = true;
    std::vector<std::string> names;
    for (const XmlElement* side : {versions.Ours, versions.Theirs})
        for (const auto& [name, value] : side->Attributes)
            if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    for (const std::string& name : names) {
        const Held ours = held(ValueOf(versions.Ours, name));
        const auto chosen =
            Choose(held(ValueOf(versions.Base, name)), ours, held(ValueOf(versions.Theirs, name)));
        isClean = isClean && chosen.has_value();
        const Held& value = chosen ? *chosen : ours;
        if (value) result.Attributes.emplace_back(name, *value);
    }
    return isClean;
}

XmlElement XmlTreeMerge::Merge(const ThreeVersions<XmlElement>& versions,
                               const XmlVocabulary& vocabulary, std::vector<XmlElement>& behind) {
    const XmlElement& ours = *versions.Ours;
    const XmlElement& theirs = *versions.Theirs;
    XmlElement result = XmlElement::Named(ours.Name);
    bool isClean = MergeAttributes(versions, result);
    const bool isLeaf = vocabulary.Children.empty();
    if (isLeaf) {
        const std::string base = versions.Base ? versions.Base->ContentText() : std::string();
        const auto text = Choose(base, ours.ContentText(), theirs.ContentText());
        isClean = isClean && text.has_value();
        result.SetContent(isClean ? *text : ours.ContentText());
        if (!isClean) result.Attributes = ours.Attributes;
    }
    if (!isClean) {
        ++mConflicts;
        XmlElement conflict = ConflictOf("theirs");
        conflict.Add(ShellOf(theirs, isLeaf));
        behind.push_back(std::move(conflict));
    }
    const std::vector<XmlElement>* base = versions.Base ? &versions.Base->Children : nullptr;
    for (XmlElement& child : MergeNodes({base, &ours.Children, &theirs.Children}, vocabulary))
        result.Children.push_back(std::move(child));
    return result;
}

std::vector<XmlElement> XmlTreeMerge::MergeNodes(const ThreeVersions<Nodes>& versions,
                                                 const XmlVocabulary& vocabulary) {
    const std::vector<KeyedNodes::Count> counts{KeyedNodes::CountKeys(versions.Base, vocabulary),
                                                KeyedNodes::CountKeys(versions.Ours, vocabulary),
                                                KeyedNodes::CountKeys(versions.Theirs, vocabulary)};
    MergeKeys keys;
    const KeyedNodes base(versions.Base, vocabulary, counts, keys);
    const KeyedNodes ours(versions.Ours, vocabulary, counts, keys);
    const KeyedNodes theirs(versions.Theirs, vocabulary, counts, keys);
    const auto find = [&](std::size_t key) {
        return ThreeVersions<XmlElement>{base.Find(key), ours.Find(key), theirs.Find(key)};
    };
    std::vector<XmlElement> result;
    const auto order = MergeOrder(keys, base.Keys(), ours.Keys(), theirs.Keys(),
                                  [&](std::size_t key) { return !IsDeleted(find(key)); });
    for (const std::size_t key : order) {
        const ThreeVersions<XmlElement> versionsOfNode = find(key);
        const XmlElement* present =
            versionsOfNode.Ours ? versionsOfNode.Ours : versionsOfNode.Theirs;
        const XmlVocabulary* known = vocabulary.Find(*present);
        if (versionsOfNode.Ours && versionsOfNode.Theirs && known) {
            std::vector<XmlElement> behind;
            result.push_back(Merge(versionsOfNode, *known, behind));
            std::move(behind.begin(), behind.end(), std::back_inserter(result));
            continue;
        }
        result.push_back(*present);
        const bool isDeletedElsewhere =
            versionsOfNode.Base && !(versionsOfNode.Ours && versionsOfNode.Theirs);
        if (!isDeletedElsewhere) continue;
        ++mConflicts;
        XmlElement mark = ConflictOf(versionsOfNode.Ours ? "theirs" : "ours");
        mark.With(kConflictDeleted, "true");
        result.push_back(std::move(mark));
    }
    return result;
}

std::vector<XmlElement> XmlTreeMerge::MergeUnknown(const ThreeVersions<Nodes>& versions) {
    static const XmlVocabulary nothing{};
    return XmlTreeMerge().MergeNodes(versions, nothing);
}

} // namespace paperkite
