#include "model/HomelessComments.h"

#include "foundation/EditDistance.h"
#include "foundation/GlobalConfig.h"
#include "foundation/Text.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <unordered_map>

namespace paperkite {

namespace {

using Entry = HomelessComments::Entry;
using Home = HomelessComments::Home;

constexpr std::size_t kMostHomes = 3;
constexpr std::size_t kItemsBetweenQuestions = 4096;
constexpr int kLeastLikeness = 35;
// What speaks for an item, of a hundred.
constexpr int kSameName = 45;
constexpr int kSimilarName = 30; // at most
constexpr int kSameMembers = 40;
constexpr int kSamePlace = 25;
constexpr int kSimilarPlace = 12;
constexpr int kSameSignature = 10;
constexpr int kFreeOfComments = 10;
constexpr int kSiblingsThere = 20; // at most
constexpr int kWrongKind = -40;

/// A qualified name taken apart.
struct Name {
    explicit Name(std::string_view whole) {
        const std::size_t cut = whole.rfind('~');
        Place = cut == std::string_view::npos ? std::string_view() : whole.substr(0, cut);
        const std::string_view step = cut == std::string_view::npos ? whole : whole.substr(cut + 1);
        const std::size_t end = step.find_first_of("([", 1);
        Bare = step.substr(0, end);
        if (end != std::string_view::npos && step[end] == '(') Types = step.substr(end);
    }

    std::string_view PlaceStep() const {
        const std::size_t cut = Place.rfind('~');
        return cut == std::string_view::npos ? Place : Place.substr(cut + 1);
    }

    std::string_view Place; ///< the name of the item around it
    std::string_view Bare;  ///< without parameters and kind
    std::string_view Types; ///< "(int,const Slice&)" where overloads are told apart
};

std::size_t ParameterCount(std::string_view types) {
    if (types.find_first_not_of("() ") == std::string_view::npos) return 0;
    return 1 + static_cast<std::size_t>(std::count(types.begin(), types.end(), ','));
}

/// Which levels all the tags of an item's comments apply to; empty where nothing is known.
class Levels {
public:
    explicit Levels(const TaggedCommentCollection& comments) {
        for (const auto& comment : comments)
            if (const auto definition = comment->GetTaggedCommentDef())
                if (!definition->Namespaces.empty())
                    mLists.push_back(Split(definition->Namespaces, ","));
    }
    bool Permit(const std::string& level) const {
        return std::all_of(mLists.begin(), mLists.end(), [&](const auto& levels) {
            return std::any_of(levels.begin(), levels.end(), [&](const std::string& entry) {
                return EqualIgnoringCase(entry, level);
            });
        });
    }

private:
    std::vector<std::vector<std::string>> mLists;
};

/// Looks for the homes of all that are homeless in two or three walks over the items.
class Search {
public:
    Search(const CommentStore& store, const CoverageSource& source, const ItemDirectory& items,
           const HomelessComments::GoOn& goOn)
        : mStore(store), mItems(items), mGoOn(goOn) {
        for (std::string& name : HomelessComments::Names(store, source))
            mEntries.push_back({std::move(name), 0, {}});
        for (std::size_t at = 0; at < mEntries.size(); ++at)
            Note(at);
    }

    std::vector<Entry> Run() {
        if (mEntries.empty()) return {};
        Walk([this](const ItemPlace& item) { Count(item); });
        NoteSameMembers();
        Walk([this](const ItemPlace& item) { Offer(item); });
        FollowPlaces();
        if (!mByNewPlace.empty()) Walk([this](const ItemPlace& item) { OfferInNewPlace(item); });
        if (mIsEnded) return {};
        return std::move(mEntries);
    }

private:
    template <class Look>
    void Walk(const Look& look) {
        mItems.ForEachItem([&](const ItemPlace& item) {
            if (!MayGoOn()) return;
            look(item);
            // Few parts are homeless, so that those of few items need be looked at.
            if (MayHoldWanted(item)) mItems.ForEachPart(item.QualifiedName, look);
        });
    }

    static bool IsPart(const Name& name) { return name.Bare.starts_with(':'); }

    /// Whether the item may be what a homeless part belonged to.
    bool MayHoldWanted(const ItemPlace& item) const {
        if (mPartOwners.empty()) return false;
        return mPartOwners.contains(std::string(Name(item.QualifiedName).Bare)) ||
               mByNewPlace.contains(item.QualifiedName);
    }

    bool MayGoOn() {
        if (!mIsEnded && mGoOn && ++mSeen % kItemsBetweenQuestions == 0) mIsEnded = !mGoOn();
        return !mIsEnded;
    }

    void Note(std::size_t at) {
        Entry& entry = mEntries[at];
        const Name name(entry.QualifiedName);
        entry.Comments = mStore.CountOf(entry.QualifiedName);
        mByBare[std::string(name.Bare)].push_back(at);
        mByPlace[std::string(name.Place)].push_back(at);
        mByName[entry.QualifiedName] = at;
        if (IsPart(name)) mPartOwners.insert(std::string(Name(name.Place).Bare));
        mLevels.emplace_back(*mStore.Find(entry.QualifiedName));
    }

    /// How many of the homeless of one place have a namesake in another place: the type that they
    /// belonged to may have been renamed.
    void Count(const ItemPlace& item) {
        const Name name(item.QualifiedName);
        const auto namesakes = mByBare.find(std::string(name.Bare));
        if (namesakes == mByBare.end()) return;
        for (const std::size_t at : namesakes->second) {
            const std::string_view gone = Name(mEntries[at].QualifiedName).Place;
            if (gone != name.Place) mTogether[Pair(gone, name.Place)].insert(at);
        }
    }

    static std::string Pair(std::string_view gone, std::string_view place) {
        return std::string(gone).append("\n").append(place);
    }

    double ShareOfSiblings(std::string_view gone, std::string_view place) const {
        const auto together = mTogether.find(Pair(gone, place));
        if (together == mTogether.end()) return 0;
        const auto all = mByPlace.find(std::string(gone));
        // One alone proves nothing.
        if (all == mByPlace.end() || together->second.size() < 2) return 0;
        return static_cast<double>(together->second.size()) /
               static_cast<double>(all->second.size());
    }

    /// Most of what stood below an item is below another one: it may have been renamed itself.
    void NoteSameMembers() {
        for (const auto& [pair, members] : mTogether) {
            const std::size_t cut = pair.find('\n');
            const std::string place = pair.substr(cut + 1);
            const auto gone = mByName.find(pair.substr(0, cut));
            if (gone != mByName.end() && ShareOfSiblings(gone->first, place) > 0.5)
                mBySameMembers[place].insert(gone->second);
        }
    }

    bool HasSameMembers(std::size_t at, const std::string& item) const {
        const auto found = mBySameMembers.find(item);
        return found != mBySameMembers.end() && found->second.contains(at);
    }

    void Offer(const ItemPlace& item) {
        const Name name(item.QualifiedName);
        const auto byBare = mByBare.find(std::string(name.Bare));
        if (byBare != mByBare.end())
            for (const std::size_t at : byBare->second)
                Weigh(at, item, name);
        const auto byPlace = mByPlace.find(std::string(name.Place));
        if (byPlace != mByPlace.end())
            for (const std::size_t at : byPlace->second)
                if (Name(mEntries[at].QualifiedName).Bare != name.Bare) Weigh(at, item, name);
        const auto byMembers = mBySameMembers.find(item.QualifiedName);
        if (byMembers == mBySameMembers.end()) return;
        for (const std::size_t at : byMembers->second) {
            const Name gone(mEntries[at].QualifiedName);
            if (gone.Bare != name.Bare && gone.Place != name.Place) Weigh(at, item, name);
        }
    }

    /// What the place of a homeless item has likely become: the home of the type itself, or the
    /// place where most of its members have namesakes.
    std::string NewPlaceOf(const std::string& gone) const {
        const auto itself = std::lower_bound(
            mEntries.begin(), mEntries.end(), gone,
            [](const Entry& entry, const std::string& name) { return entry.QualifiedName < name; });
        if (itself != mEntries.end() && itself->QualifiedName == gone && !itself->Homes.empty())
            return itself->Homes.front().QualifiedName;
        const auto best = mBestTogether.find(gone);
        return best == mBestTogether.end() ? std::string() : best->second.second;
    }

    /// An item that was renamed together with its type has neither name nor place any more.
    void FollowPlaces() {
        for (const auto& [pair, members] : mTogether) {
            const std::size_t cut = pair.find('\n');
            auto& best = mBestTogether[pair.substr(0, cut)];
            const std::string place = pair.substr(cut + 1);
            if (members.size() > best.first ||
                (members.size() == best.first && place < best.second))
                best = {members.size(), place};
        }
        for (const auto& [place, members] : mByPlace) {
            const std::string now = NewPlaceOf(place);
            if (now.empty()) continue;
            for (const std::size_t at : members)
                if (!HasHomeIn(mEntries[at], now)) mByNewPlace[now].push_back(at);
        }
    }

    static bool HasHomeIn(const Entry& entry, const std::string& place) {
        return std::any_of(entry.Homes.begin(), entry.Homes.end(), [&](const Home& home) {
            return Name(home.QualifiedName).Place == place;
        });
    }

    void OfferInNewPlace(const ItemPlace& item) {
        const Name name(item.QualifiedName);
        const auto found = mByNewPlace.find(std::string(name.Place));
        if (found == mByNewPlace.end()) return;
        for (const std::size_t at : found->second)
            Weigh(at, item, name, true);
    }

    void Weigh(std::size_t at, const ItemPlace& item, const Name& name, bool isNewPlace = false) {
        Entry& entry = mEntries[at];
        const Name gone(entry.QualifiedName);
        Home home{item.QualifiedName, item.Kind, {}, 0};
        const bool isSamePlace = gone.Place == name.Place || isNewPlace;
        const bool hasMembers = HasSameMembers(at, item.QualifiedName);
        // A parameter becomes no class, and nothing but a parameter becomes one.
        if (IsPart(gone) != IsPart(name)) return;
        const int alike = gone.Bare == name.Bare ? kSameName
                          : hasMembers           ? kSameMembers
                                                 : SimilarityOf(gone.Bare, name.Bare);
        if (alike == 0) return;
        home.Likeness = alike + SignatureScore(gone, name, item);
        home.Likeness += isNewPlace ? kSimilarPlace : PlaceScore(gone, name);
        const double siblings = ShareOfSiblings(gone.Place, name.Place);
        home.Likeness += static_cast<int>(siblings * kSiblingsThere);
        if (!mStore.IsDocumented(item.QualifiedName)) home.Likeness += kFreeOfComments;
        if (!IsPart(name) && !mLevels[at].Permit(item.Namespace)) home.Likeness += kWrongKind;
        home.Likeness = std::min(home.Likeness, 100);
        if (home.Likeness < kLeastLikeness) return;
        home.Reason = isNewPlace ? "similar name, in what its place seems to be now"
                      : alike == kSameMembers
                          ? "most of what stood below it is there"
                          : ReasonFor(alike == kSameName, isSamePlace, siblings > 0.5);
        Keep(entry.Homes, std::move(home));
    }

    /// 0 for names that have little in common.
    static int SimilarityOf(std::string_view left, std::string_view right) {
        const std::string a = LowerCase(left);
        const std::string b = LowerCase(right);
        const std::size_t longer = std::max(a.size(), b.size());
        const std::size_t limit = longer / 2;
        const std::size_t distance = EditDistance(a, b, limit);
        if (distance > limit || longer == 0) return 0;
        return kSimilarName - static_cast<int>(distance * kSimilarName / (longer + 1));
    }

    static int PlaceScore(const Name& gone, const Name& name) {
        if (gone.Place == name.Place) return kSamePlace;
        return gone.PlaceStep() == name.PlaceStep() ? kSimilarPlace : 0;
    }

    static int SignatureScore(const Name& gone, const Name& name, const ItemPlace& item) {
        if (gone.Types.empty()) return item.Signature.empty() ? kSameSignature / 2 : 0;
        if (gone.Types == name.Types) return kSameSignature;
        return ParameterCount(gone.Types) == ParameterCount(item.Signature) ? kSameSignature / 2
                                                                            : 0;
    }

    static std::string ReasonFor(bool isSameName, bool isSamePlace, bool hasSiblings) {
        if (isSameName && isSamePlace) return "same name and place, another signature";
        if (isSamePlace) return "same place, similar name";
        return hasSiblings ? "same name, and its neighbours are there too"
                           : "same name in another place";
    }

    static void Keep(std::vector<Home>& homes, Home home) {
        const auto place = std::find_if(homes.begin(), homes.end(), [&](const Home& other) {
            return other.Likeness < home.Likeness;
        });
        homes.insert(place, std::move(home));
        if (homes.size() > kMostHomes) homes.pop_back();
    }

    const CommentStore& mStore;
    const ItemDirectory& mItems;
    const HomelessComments::GoOn& mGoOn;
    std::size_t mSeen = 0;
    bool mIsEnded = false;
    std::vector<Entry> mEntries;
    std::vector<Levels> mLevels;
    std::unordered_map<std::string, std::vector<std::size_t>> mByBare;
    std::unordered_map<std::string, std::vector<std::size_t>> mByPlace;
    std::unordered_map<std::string, std::size_t> mByName;
    /// What the items around homeless parts are called.
    std::set<std::string> mPartOwners;
    std::unordered_map<std::string, std::set<std::size_t>> mTogether;
    std::unordered_map<std::string, std::pair<std::size_t, std::string>> mBestTogether;
    std::unordered_map<std::string, std::vector<std::size_t>> mByNewPlace;
    std::unordered_map<std::string, std::set<std::size_t>> mBySameMembers;
};

} // namespace

std::vector<std::string> HomelessComments::Names(const CommentStore& store,
                                                 const CoverageSource& source) {
    std::vector<std::string> names = store.QualifiedNames();
    std::erase_if(names, [&](const std::string& name) { return source.Exists(name); });
    return names;
}

std::vector<Entry> HomelessComments::Find(const CommentStore& store, const CoverageSource& source,
                                          const ItemDirectory& items, const GoOn& goOn) {
    return Search(store, source, items, goOn).Run();
}

HomelessComments::Moves HomelessComments::Plan(const CommentStore& store,
                                               const CoverageSource& source,
                                               const std::string& gone, const std::string& home) {
    Moves moves;
    if (store.CountOf(gone) > 0) moves.emplace_back(gone, home);
    for (const std::string& name : store.QualifiedNames()) {
        if (!name.starts_with(gone + "~") || source.Exists(name)) continue;
        const std::string to = home + name.substr(gone.size());
        if (source.Exists(to)) moves.emplace_back(name, to);
    }
    return moves;
}

HomelessComments::Moves HomelessComments::Adopt(CommentStore& store, const CoverageSource& source,
                                                const std::string& gone, const std::string& home) {
    const Moves moves = Plan(store, source, gone, home);
    for (const auto& [from, to] : moves)
        store.Move(from, to);
    return moves;
}

} // namespace paperkite
