#include "model/ContentFileMerge.h"

#include "model/MergeOrder.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>

namespace paperkite {

namespace {

using Nodes = std::vector<XmlElement>;

const XmlVocabulary& RestVocabulary() {
    static const XmlVocabulary vocabulary{
        "contentfile", {"version"}, "", {{"property", {"name"}, "name", {}}}};
    return vocabulary;
}

bool IsText(const XmlElement& node) {
    return node.Kind == XmlElement::NodeKind::Text || node.Kind == XmlElement::NodeKind::CData;
}

Nodes UnknownChildren(const XmlElement& comment) {
    Nodes nodes;
    std::copy_if(comment.Children.begin(), comment.Children.end(), std::back_inserter(nodes),
                 [](const XmlElement& node) { return !IsText(node); });
    return nodes;
}

/// The place of known attributes; others stand behind them.
std::size_t RankOf(const std::string& attribute) {
    static const std::vector<std::string> kOrder{"item", "tag", "id", "qualifier", "xmltag"};
    return static_cast<std::size_t>(std::find(kOrder.begin(), kOrder.end(), attribute) -
                                    kOrder.begin());
}

void SortAttributes(XmlElement& comment) {
    std::stable_sort(comment.Attributes.begin(), comment.Attributes.end(),
                     [](const auto& left, const auto& right) {
                         return RankOf(left.first) < RankOf(right.first);
                     });
}

void SetAttribute(XmlElement& element, const std::string& name, const std::string& value) {
    std::erase_if(element.Attributes, [&](const auto& entry) { return entry.first == name; });
    element.With(name, value);
}

} // namespace

struct ContentFileMerge::Entry {
    XmlElement Comment;
    /// The XML comments that stand before it and belong to it.
    Nodes Before;

    std::string Item() const { return Comment.AttributeText("item"); }
    std::string Tag() const { return Comment.AttributeText("tag"); }
    std::string Id() const { return Comment.AttributeText("id"); }

    /// Says the same, however it is written.
    bool Says(const Entry& other) const {
        auto attributes = Comment.Attributes;
        auto others = other.Comment.Attributes;
        std::sort(attributes.begin(), attributes.end());
        std::sort(others.begin(), others.end());
        return attributes == others && SaysBeyondAttributes(other);
    }
    bool SaysBeyondAttributes(const Entry& other) const {
        return Comment.ContentText() == other.Comment.ContentText() &&
               BytesOf(UnknownChildren(Comment)) == BytesOf(UnknownChildren(other.Comment)) &&
               BytesOf(Before) == BytesOf(other.Before);
    }

private:
    static std::string BytesOf(const Nodes& nodes) {
        if (nodes.empty()) return {};
        XmlElement list = XmlElement::Named("list");
        list.Children = nodes;
        return XmlTreeMerge::BytesOf(list);
    }
};

/// One version of the file, its comments by keys of their own.
class ContentFileMerge::Side {
public:
    explicit Side(const XmlFile& file) {
        Nodes before;
        for (const XmlElement& node : file.Root.Children) {
            if (node.Kind == XmlElement::NodeKind::Markup) {
                before.push_back(node);
            } else if (node.IsElement() && node.Name == "comment") {
                Add({node, std::move(before)});
                before.clear();
            } else {
                std::move(before.begin(), before.end(), std::back_inserter(Rest));
                before.clear();
                if (!IsText(node)) Rest.push_back(node);
            }
        }
        std::move(before.begin(), before.end(), std::back_inserter(Rest));
    }

    const Entry* Find(const std::string& key) const {
        const auto found = mEntries.find(key);
        return found == mEntries.end() ? nullptr : &found->second;
    }

    /// Gives comments that went to another item the keys that they have in the base.
    void FollowMoves(const Side& base) {
        const auto gone = OnlyOnes(base, *this);
        const auto come = OnlyOnes(*this, base);
        for (const auto& [id, newKey] : come) {
            const auto old = gone.find(id);
            if (old == gone.end() || newKey.empty() || old->second.empty()) continue;
            auto node = mEntries.extract(newKey);
            node.key() = old->second;
            mEntries.insert(std::move(node));
            mMoved.emplace(newKey, old->second);
        }
        for (std::string& key : Keys) {
            const auto moved = mMoved.find(key);
            if (moved != mMoved.end()) key = moved->second;
        }
    }

    std::vector<std::string> Keys;
    Nodes Rest;

private:
    void Add(Entry entry) {
        // Without an Id the text is the best that there is.
        const std::string id = entry.Id();
        std::string key = entry.Item() + '\n' + id;
        if (id.empty()) key += entry.Tag() + '\n' + entry.Comment.ContentText();
        key += '\n' + std::to_string(++mSeen[key]);
        Keys.push_back(key);
        mEntries.emplace(std::move(key), std::move(entry));
    }

    /// Ids of comments that the other version does not have under their keys, with the key; an
    /// empty one where more than one has the Id.
    static std::unordered_map<std::string, std::string> OnlyOnes(const Side& side,
                                                                 const Side& other) {
        std::unordered_map<std::string, std::string> result;
        for (const auto& [key, entry] : side.mEntries) {
            const std::string id = entry.Id();
            if (id.empty() || other.Find(key)) continue;
            const auto [place, isNew] = result.emplace(id, key);
            if (!isNew) place->second.clear();
        }
        return result;
    }

    std::unordered_map<std::string, Entry> mEntries;
    std::unordered_map<std::string, int> mSeen;
    std::unordered_map<std::string, std::string> mMoved;
};

bool ContentFileMerge::MergeFields(const ThreeVersions<Entry>& versions, Entry& result) const {
    const XmlElement nothing = XmlElement::Named("comment");
    const XmlElement& base = versions.Base ? versions.Base->Comment : nothing;
    const XmlElement& ours = versions.Ours->Comment;
    const XmlElement& theirs = versions.Theirs->Comment;
    result.Comment = XmlElement::Named("comment");
    if (!XmlTreeMerge::MergeAttributes({&base, &ours, &theirs}, result.Comment)) return false;
    SortAttributes(result.Comment);
    const auto text =
        XmlTreeMerge::Choose(base.ContentText(), ours.ContentText(), theirs.ContentText());
    if (!text) return false;
    result.Comment.SetContentLines(*text);
    const Nodes baseNodes = UnknownChildren(base);
    const Nodes ourNodes = UnknownChildren(ours);
    const Nodes theirNodes = UnknownChildren(theirs);
    for (XmlElement& node : XmlTreeMerge::MergeUnknown({&baseNodes, &ourNodes, &theirNodes}))
        result.Comment.Children.push_back(std::move(node));
    result.Before = XmlTreeMerge::MergeUnknown({versions.Base ? &versions.Base->Before : nullptr,
                                                &versions.Ours->Before, &versions.Theirs->Before});
    return true;
}

void ContentFileMerge::KeepBoth(const ThreeVersions<Entry>& versions, std::vector<Entry>& result) {
    ++mConflicts;
    const Entry& first = versions.Ours ? *versions.Ours : *versions.Theirs;
    const std::string id = first.Id();
    const auto keep = [&](const Entry& entry, const char* side, const std::string& ownId) {
        Entry kept = entry;
        SetAttribute(kept.Comment, "id", ownId);
        SetAttribute(kept.Comment, kConflictAttribute, side);
        SetAttribute(kept.Comment, kConflictIdAttribute, id);
        if (versions.Base)
            SetAttribute(kept.Comment, kConflictBaseAttribute,
                         versions.Base->Comment.ContentText());
        SortAttributes(kept.Comment);
        result.push_back(std::move(kept));
    };
    if (versions.Ours) keep(*versions.Ours, "ours", id);
    if (versions.Theirs) keep(*versions.Theirs, "theirs", versions.Ours ? id + "-theirs" : id);
}

void ContentFileMerge::MergeComment(const ThreeVersions<Entry>& versions,
                                    std::vector<Entry>& result) {
    if (versions.Ours && versions.Theirs) {
        Entry merged;
        if (versions.Ours->Says(*versions.Theirs))
            result.push_back(*versions.Ours);
        else if (MergeFields(versions, merged))
            result.push_back(std::move(merged));
        else
            KeepBoth(versions, result);
        return;
    }
    const Entry* kept = versions.Ours ? versions.Ours : versions.Theirs;
    if (!kept) return;
    if (!versions.Base)
        result.push_back(*kept);
    else if (!kept->Says(*versions.Base))
        // One side deleted what the other changed: the change is kept, and told.
        KeepBoth(versions, result);
}

namespace {

/// What a Content File says besides its comments.
XmlElement RootOf(const ThreeVersions<XmlFile>& versions, const ThreeVersions<Nodes>& rest,
                  std::size_t& conflicts) {
    const auto shell = [](const XmlElement& root, const Nodes* nodes) {
        XmlElement result = XmlElement::Named(root.Name);
        result.Attributes = root.Attributes;
        if (nodes) result.Children = *nodes;
        return result;
    };
    const XmlElement base = shell(versions.Base->Root, rest.Base);
    const XmlElement ours = shell(versions.Ours->Root, rest.Ours);
    const XmlElement theirs = shell(versions.Theirs->Root, rest.Theirs);
    XmlTreeMerge merge;
    std::vector<XmlElement> behind;
    XmlElement root = merge.Merge({&base, &ours, &theirs}, RestVocabulary(), behind);
    std::move(behind.begin(), behind.end(), std::back_inserter(root.Children));
    conflicts += merge.GetConflicts();
    return root;
}

} // namespace

XmlFile ContentFileMerge::Merge(const ThreeVersions<XmlFile>& versions) {
    const Side base(*versions.Base);
    Side ours(*versions.Ours);
    Side theirs(*versions.Theirs);
    ours.FollowMoves(base);
    theirs.FollowMoves(base);

    std::vector<Entry> entries;
    const auto order =
        MergeOrder(base.Keys, ours.Keys, theirs.Keys, [](const std::string&) { return true; });
    for (const std::string& key : order)
        MergeComment({base.Find(key), ours.Find(key), theirs.Find(key)}, entries);
    std::stable_sort(entries.begin(), entries.end(), [](const Entry& left, const Entry& right) {
        return std::pair(left.Item(), left.Tag()) < std::pair(right.Item(), right.Tag());
    });

    XmlFile merged;
    merged.Prolog = XmlTreeMerge::MergeUnknown(
        {&versions.Base->Prolog, &versions.Ours->Prolog, &versions.Theirs->Prolog});
    merged.Epilog = XmlTreeMerge::MergeUnknown(
        {&versions.Base->Epilog, &versions.Ours->Epilog, &versions.Theirs->Epilog});
    merged.Root = RootOf(versions, {&base.Rest, &ours.Rest, &theirs.Rest}, mConflicts);
    Nodes rest;
    rest.swap(merged.Root.Children);
    // The writer's place for what the file was made for is before the comments.
    const auto isProperty = [](const XmlElement& node) {
        return node.IsElement() && node.Name == "property" &&
               node.AttributeText("name") == "RelatedProject";
    };
    const auto property = std::find_if(rest.begin(), rest.end(), isProperty);
    if (property != rest.end()) {
        merged.Root.Children.push_back(std::move(*property));
        rest.erase(property);
    }
    for (Entry& entry : entries) {
        std::move(entry.Before.begin(), entry.Before.end(),
                  std::back_inserter(merged.Root.Children));
        merged.Root.Children.push_back(std::move(entry.Comment));
    }
    std::move(rest.begin(), rest.end(), std::back_inserter(merged.Root.Children));
    return merged;
}

} // namespace paperkite
