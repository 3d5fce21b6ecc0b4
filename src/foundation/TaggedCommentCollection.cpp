#include "foundation/TaggedCommentCollection.h"

#include "foundation/MemberTable.h"

namespace paperkite {

namespace {

const MemberTable<TaggedCommentCollection>& Members() {
    using C = TaggedCommentCollection;
    static const MemberTable<C> members{
        {"Count", [](const C& c) { return Value(static_cast<std::int32_t>(c.Count())); }},
        {"UnDeletedCount",
         [](const C& c) { return Value(static_cast<std::int32_t>(c.UnDeletedCount())); }},
        {"UnDeletedTaggedComments", [](const C& c) { return Value(c.UnDeletedTaggedComments()); }},
        {"Consolidated", [](const C& c) { return Value(c.GetConsolidated()); }},
    };
    return members;
}

} // namespace

Value TaggedCommentCollection::Get(std::string_view member) const {
    const auto get = Members().FindGetter(member);
    return get ? get(*this) : Object::Get(member);
}

void TaggedCommentCollection::Enumerate(const std::function<bool(const Value&)>& visit) const {
    for (const auto& comment : mComments)
        if (!visit(Value(comment))) return;
}

std::size_t TaggedCommentCollection::UnDeletedCount() const {
    std::size_t count = 0;
    for (const auto& comment : mComments)
        if (comment->GetState() != kTaggedCommentTombstone) ++count;
    return count;
}

void TaggedCommentCollection::Add(const Ref<TaggedComment>& comment, const std::string& key) {
    if (!comment) RaiseError(ErrorNumber::ObjectNotSet);
    if (mComments.Count() == 0) BecomesUsed();
    mComments.Add(comment, key);
}

Ref<TaggedCommentCollection> TaggedCommentCollection::UnDeletedTaggedComments() const {
    auto result = MakeRef<TaggedCommentCollection>();
    for (const auto& comment : mComments)
        if (comment->GetState() != kTaggedCommentTombstone) result->Add(comment, comment->GetId());
    return result;
}

} // namespace paperkite
