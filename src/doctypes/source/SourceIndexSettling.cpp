#include "doctypes/source/SourceIndexBuilder.h"

#include <algorithm>

namespace paperkite {

SourceIndexBuilder::SourceIndexBuilder(const SourceIndexBuilder& other, SourceIndex index)
    : mIndex(std::move(index)), mDrafts(other.mDrafts), mFirstOfName(other.mFirstOfName) {}

// An open file only passes by a group that has its name for itself: what it declares goes further
// down. Anything else there would have to share its name with the group that is coming.
bool SourceIndexBuilder::StaysBeside(Id entity) const {
    const SourceIndex::Entity& known = mIndex.mEntities[entity];
    return IsGroup(known.kind) && FirstOfName(known.parent, known.name) == entity &&
           mDrafts[entity].nextOfName == SourceIndex::Nothing &&
           mDrafts[entity].localFile == SourceIndex::Nothing;
}

// What an open file can change stands at its group or below, or bears the name of a step on the way
// there. Parents come before their children.
std::vector<bool> SourceIndexBuilder::Unsettled(const OpenGroups& open) const {
    const auto& entities = mIndex.mEntities;
    std::vector<bool> isUnsettled(entities.size(), false);
    std::vector<OpenGroups::Place> places(entities.size(), OpenGroups::Nothing);
    places[SourceIndex::Root] = OpenGroups::Root;
    for (Id id = 1; id < entities.size(); ++id) {
        const Id parent = entities[id].parent;
        if (isUnsettled[parent] || places[parent] == OpenGroups::Nothing) {
            isUnsettled[id] = isUnsettled[parent];
            continue;
        }
        const OpenGroups::Place place =
            open.Find(places[parent], mIndex.mStrings.View(entities[id].name));
        if (place != OpenGroups::Nothing && open.LeadsToOpen(place)) {
            places[id] = place;
            isUnsettled[id] = open.IsOpen(place) || !StaysBeside(id);
        }
    }
    return isUnsettled;
}

std::optional<SourceIndex> SourceIndexBuilder::Settled(const OpenGroups& open,
                                                       const KeepGoing& keepGoing) const {
    if (open.IsOpen(OpenGroups::Root)) { // names may come that stand beside all others
        return std::nullopt;
    }
    const std::vector<bool> isUnsettled = Unsettled(open);
    if (std::count(isUnsettled.begin(), isUnsettled.end(), false) == 1) {
        return std::nullopt;
    }
    SourceIndexBuilder part(*this, mIndex.Copy());
    for (Id id = 0; id < isUnsettled.size(); ++id) {
        part.mDrafts[id].isGone = isUnsettled[id];
    }
    return part.Finish(keepGoing);
}

} // namespace paperkite
