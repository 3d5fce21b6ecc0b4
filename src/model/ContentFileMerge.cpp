#include "model/ContentFileMerge.h"

#include "model/AddedOnBothSides.h"
#include "model/MergeOrder.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <tuple>
#include <unordered_map>

namespace paperkite {

namespace {

using Nodes = std::vector<XmlElement>;

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

const XmlVocabulary& RestVocabulary() {
    static const XmlVocabulary vocabulary{
        "contentfile", {"version"}, "", {{"property", {"name"}, "name", {}}}};
    return vocabulary;
}

bool IsText(const XmlElement& node) {
    return node.Kind == XmlElement::NodeKind::Text || node.Kind == XmlElement::NodeKind::CData;
}

/// Comments without an Id are known by what they say.
std::string KeyOf(const MergeEntry& entry) {
    std::string key = entry.Item + '\n' + entry.Id;
    if (entry.Id.empty()) key += entry.Tag + '\n' + entry.Comment.ContentText();
    return key + '\n';
}

} // namespace

/// One version of the file, its comments by keys of their own.
class ContentFileMerge::Side {
public:
    Side(XmlFile& file, MergeKeys& keys) {
        mEntries.reserve(file.Root.Children.size());
        Nodes before;
        for (XmlElement& node : file.Root.Children) {
            if (node.Kind == XmlElement::NodeKind::Markup) {
                before.push_back(std::move(node));
            } else if (node.IsElement() && node.Name == "comment") {
                Add({std::move(node), std::move(before)}, keys);
                before.clear();
            } else {
                std::move(before.begin(), before.end(), std::back_inserter(Rest));
                before.clear();
                if (!IsText(node)) Rest.push_back(std::move(node));
            }
        }
        std::move(before.begin(), before.end(), std::back_inserter(Rest));
        file.Root.Children.clear();
    }

    MergeEntry* Find(std::size_t key) { return HasKey(key) ? &mEntries[mPlaces[key]] : nullptr; }
    const MergeEntry* Find(std::size_t key) const {
        return HasKey(key) ? &mEntries[mPlaces[key]] : nullptr;
    }

    /// Gives comments that went to another item the keys that they have in the base.
    void FollowMoves(const Side& base) {
        const auto gone = OnlyOnes(base, *this);
        if (gone.empty()) return;
        for (const auto& [id, newKey] : OnlyOnes(*this, base)) {
            const auto old = gone.find(id);
            if (old == gone.end() || newKey == kNone || old->second == kNone) continue;
            const std::size_t place = std::exchange(mPlaces[newKey], kNone);
            Keys[place] = old->second;
            SetPlace(old->second, place);
        }
    }

    /// The keys of the comments, in the order of the file.
    std::vector<std::size_t> Keys;
    Nodes Rest;

private:
    bool HasKey(std::size_t key) const { return key < mPlaces.size() && mPlaces[key] != kNone; }

    void SetPlace(std::size_t key, std::size_t place) {
        if (key >= mPlaces.size()) mPlaces.resize(std::max(key + 1, 2 * mPlaces.size()), kNone);
        mPlaces[key] = place;
    }

    void Add(MergeEntry entry, MergeKeys& keys) {
        const std::string text = KeyOf(entry);
        std::size_t key = keys.NumberOf(text + "1");
        if (HasKey(key)) key = keys.NumberOf(text + std::to_string(++mTwins[key] + 1));
        SetPlace(key, mEntries.size());
        Keys.push_back(key);
        mEntries.push_back(std::move(entry));
    }

    /// Ids of comments that the other version does not have under their keys, with the key; none
    /// where more than one has the Id.
    static std::unordered_map<std::string_view, std::size_t> OnlyOnes(const Side& side,
                                                                      const Side& other) {
        std::unordered_map<std::string_view, std::size_t> result;
        for (std::size_t place = 0; place < side.mEntries.size(); ++place) {
            const std::string& id = side.mEntries[place].Id;
            if (id.empty() || other.HasKey(side.Keys[place])) continue;
            const auto [found, isNew] = result.emplace(id, side.Keys[place]);
            if (!isNew) found->second = kNone;
        }
        return result;
    }

    std::vector<MergeEntry> mEntries;
    /// Where the entries of keys are.
    std::vector<std::size_t> mPlaces;
    std::unordered_map<std::size_t, int> mTwins;
};

std::optional<MergeEntry> ContentFileMerge::MergeFields(const MergeEntry* base,
                                                        const MergeEntry& ours,
                                                        const MergeEntry& theirs) {
    static const MergeEntry nothing(XmlElement::Named("comment"), {});
    const MergeEntry& before = base ? *base : nothing;
    XmlElement comment = XmlElement::Named("comment");
    if (!XmlTreeMerge::MergeAttributes({&before.Comment, &ours.Comment, &theirs.Comment}, comment))
        return {};
    const auto text = XmlTreeMerge::Choose(before.Comment.ContentText(), ours.Comment.ContentText(),
                                           theirs.Comment.ContentText());
    if (!text) return {};
    comment.SetContentLines(*text);
    const Nodes baseNodes = before.UnknownChildren();
    const Nodes ourNodes = ours.UnknownChildren();
    const Nodes theirNodes = theirs.UnknownChildren();
    for (XmlElement& node : XmlTreeMerge::MergeUnknown({&baseNodes, &ourNodes, &theirNodes}))
        comment.Children.push_back(std::move(node));
    MergeEntry result(std::move(comment),
                      XmlTreeMerge::MergeUnknown({&before.Before, &ours.Before, &theirs.Before}));
    result.SortAttributes();
    return result;
}

void ContentFileMerge::KeepBoth(const Versions& versions, Entries& result) {
    ++mConflicts;
    const std::string id = versions.Ours ? versions.Ours->Id : versions.Theirs->Id;
    const auto keep = [&](MergeEntry& entry, const char* side, const std::string& ownId) {
        entry.SetId(ownId);
        entry.SetAttribute(kConflictAttribute, side);
        entry.SetAttribute(kConflictIdAttribute, id);
        if (versions.Base)
            entry.SetAttribute(kConflictBaseAttribute, versions.Base->Comment.ContentText());
        result.push_back(std::move(entry));
    };
    if (versions.Ours) keep(*versions.Ours, "ours", id);
    if (versions.Theirs) keep(*versions.Theirs, "theirs", versions.Ours ? id + kTheirsSuffix : id);
}

void ContentFileMerge::MergeComment(const Versions& versions, Entries& result) {
    if (versions.Ours && versions.Theirs) {
        if (versions.Ours->Says(*versions.Theirs))
            result.push_back(std::move(*versions.Ours));
        else if (auto merged = MergeFields(versions.Base, *versions.Ours, *versions.Theirs))
            result.push_back(std::move(*merged));
        else
            KeepBoth(versions, result);
        return;
    }
    MergeEntry* kept = versions.Ours ? versions.Ours : versions.Theirs;
    if (!kept) return;
    if (!versions.Base) {
        kept->AddedBy = versions.Ours ? MergeEntry::Side::Ours : MergeEntry::Side::Theirs;
        result.push_back(std::move(*kept));
    } else if (!kept->Says(*versions.Base)) {
        // One side deleted what the other changed: the change is kept, and told.
        KeepBoth(versions, result);
    }
}

namespace {

/// What a Content File says besides its comments.
XmlElement RootOf(const ThreeVersions<XmlFile>& versions, const ThreeVersions<Nodes>& rest,
                  std::size_t& conflicts) {
    const auto shell = [](const XmlElement& root, const Nodes& nodes) {
        XmlElement result = XmlElement::Named(root.Name);
        result.Attributes = root.Attributes;
        result.Children = nodes;
        return result;
    };
    const XmlElement base = shell(versions.Base->Root, *rest.Base);
    const XmlElement ours = shell(versions.Ours->Root, *rest.Ours);
    const XmlElement theirs = shell(versions.Theirs->Root, *rest.Theirs);
    XmlTreeMerge merge;
    std::vector<XmlElement> behind;
    XmlElement root = merge.Merge({&base, &ours, &theirs}, RestVocabulary(), behind);
    std::move(behind.begin(), behind.end(), std::back_inserter(root.Children));
    conflicts += merge.GetConflicts();
    return root;
}

/// The order of the file: items, their tags, and within them that of the merge.
void Sort(std::vector<MergeEntry>& entries) {
    const auto isBefore = [](const MergeEntry& left, const MergeEntry& right) {
        return std::tie(left.Item, left.Tag) < std::tie(right.Item, right.Tag);
    };
    if (!std::is_sorted(entries.begin(), entries.end(), isBefore))
        std::stable_sort(entries.begin(), entries.end(), isBefore);
}

/// Puts the comments between what stands before and behind them.
void AddComments(XmlElement& root, std::vector<MergeEntry>& entries) {
    Nodes rest;
    rest.swap(root.Children);
    root.Children.reserve(rest.size() + entries.size());
    // The writer's place for what the file was made for is before the comments.
    const auto isProperty = [](const XmlElement& node) {
        return node.IsElement() && node.Name == "property" &&
               node.AttributeText("name") == "RelatedProject";
    };
    const auto property = std::find_if(rest.begin(), rest.end(), isProperty);
    if (property != rest.end()) {
        root.Children.push_back(std::move(*property));
        rest.erase(property);
    }
    for (MergeEntry& entry : entries) {
        std::move(entry.Before.begin(), entry.Before.end(), std::back_inserter(root.Children));
        root.Children.push_back(std::move(entry.Comment));
    }
    std::move(rest.begin(), rest.end(), std::back_inserter(root.Children));
}

} // namespace

ContentFileMerge::Entries ContentFileMerge::MergeComments(const Side& base, Side& ours,
                                                          Side& theirs, const MergeKeys& keys) {
    Entries entries;
    entries.reserve(std::max(ours.Keys.size(), theirs.Keys.size()));
    const auto order =
        MergeOrder(keys, base.Keys, ours.Keys, theirs.Keys, [](std::size_t) { return true; });
    for (const std::size_t key : order)
        MergeComment({base.Find(key), ours.Find(key), theirs.Find(key)}, entries);
    Sort(entries);
    AddedOnBothSides added;
    added.Settle(entries);
    mConflicts += added.GetConflicts();
    return entries;
}

XmlFile ContentFileMerge::Merge(XmlFile base, XmlFile ours, XmlFile theirs) {
    MergeKeys keys;
    keys.Expect(base.Root.Children.size() + ours.Root.Children.size() / 8);
    const Side baseSide(base, keys);
    Side ourSide(ours, keys);
    Side theirSide(theirs, keys);
    ourSide.FollowMoves(baseSide);
    theirSide.FollowMoves(baseSide);
    Entries entries = MergeComments(baseSide, ourSide, theirSide, keys);

    XmlFile merged;
    merged.Prolog = XmlTreeMerge::MergeUnknown({&base.Prolog, &ours.Prolog, &theirs.Prolog});
    merged.Epilog = XmlTreeMerge::MergeUnknown({&base.Epilog, &ours.Epilog, &theirs.Epilog});
    merged.Root = RootOf({&base, &ours, &theirs}, {&baseSide.Rest, &ourSide.Rest, &theirSide.Rest},
                         mConflicts);
    AddComments(merged.Root, entries);
    return merged;
}

} // namespace paperkite
