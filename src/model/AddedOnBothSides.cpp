#include "model/AddedOnBothSides.h"

#include "foundation/GlobalConfig.h"
#include "foundation/Text.h"
#include "model/ContentFileMerge.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace paperkite {

namespace {

using Side = MergeEntry::Side;
using Comments = std::vector<MergeEntry*>;
using Saying = std::pair<std::string, std::string>;

Saying SayingOf(const MergeEntry& entry) {
    return {entry.Comment.AttributeText("qualifier"), entry.Comment.ContentText()};
}

/// What both sides say, under the smaller Id; nothing where the rest of them does not fit together.
std::optional<MergeEntry> Joined(const MergeEntry& left, const MergeEntry& right) {
    const bool isOrdered = right.Id.empty() || (!left.Id.empty() && left.Id <= right.Id);
    const MergeEntry& first = isOrdered ? left : right;
    MergeEntry second = isOrdered ? right : left;
    if (!first.Id.empty()) second.SetId(first.Id);
    return ContentFileMerge::MergeFields(nullptr, first, second);
}

Comments AddedBy(MergeEntry* begin, MergeEntry* end, Side side) {
    Comments comments;
    for (MergeEntry* entry = begin; entry != end; ++entry)
        if (entry->AddedBy == side) comments.push_back(entry);
    return comments;
}

/// Joins what says the same, each with one of the other side; whether there was any.
bool JoinSame(const Comments& ours, const Comments& theirs) {
    std::map<Saying, Comments> others;
    for (auto entry = theirs.rbegin(); entry != theirs.rend(); ++entry)
        others[SayingOf(**entry)].push_back(*entry);
    bool hasJoined = false;
    for (MergeEntry* entry : ours) {
        const auto same = others.find(SayingOf(*entry));
        if (same == others.end() || same->second.empty()) continue;
        MergeEntry* const other = same->second.back();
        auto joined = Joined(*entry, *other);
        if (!joined) continue;
        same->second.pop_back();
        // Both sides have it now, where the first of the two stood.
        *std::min(entry, other) = std::move(*joined);
        std::max(entry, other)->IsNeedless = true;
        hasJoined = true;
    }
    return hasJoined;
}

void Mark(MergeEntry& entry, const char* side, const std::string& id) {
    entry.SetAttribute(kConflictAttribute, side);
    entry.SetAttribute(kConflictIdAttribute, id);
}

} // namespace

AddedOnBothSides::AddedOnBothSides() : mGeneralTags{"##"} {
    if (!GlobalConfig().TaggedCommentDefs) return;
    for (const auto& definition : *GlobalConfig().TaggedCommentDefs)
        if (definition->IsGeneral) mGeneralTags.insert(LowerCase(definition->TagIdentifier));
}

bool AddedOnBothSides::IsGeneral(const std::string& tag) const {
    return mGeneralTags.contains(LowerCase(tag));
}

void AddedOnBothSides::Settle(std::vector<MergeEntry>& entries) {
    MergeEntry* const end = entries.data() + entries.size();
    for (MergeEntry* begin = entries.data(); begin != end;) {
        MergeEntry* const next = std::find_if(begin + 1, end, [begin](const MergeEntry& entry) {
            return entry.Item != begin->Item || entry.Tag != begin->Tag;
        });
        if (next - begin > 1) SettleRun(begin, next);
        begin = next;
    }
    std::erase_if(entries, [](const MergeEntry& entry) { return entry.IsNeedless; });
}

void AddedOnBothSides::SettleRun(MergeEntry* begin, MergeEntry* end) {
    const Comments ours = AddedBy(begin, end, Side::Ours);
    const Comments theirs = AddedBy(begin, end, Side::Theirs);
    if (ours.empty() || theirs.empty()) return;
    const bool isAllOwn = ours.size() + theirs.size() == static_cast<std::size_t>(end - begin);
    if (JoinSame(ours, theirs) || !isAllOwn || !IsGeneral(begin->Tag)) return;
    for (std::size_t place = 0; place < std::min(ours.size(), theirs.size()); ++place) {
        const std::string id = std::min(ours[place]->Id, theirs[place]->Id);
        Mark(*ours[place], "ours", id);
        Mark(*theirs[place], "theirs", id);
        ++mConflicts;
    }
}

} // namespace paperkite
