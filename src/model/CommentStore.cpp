#include "model/CommentStore.h"

#include <algorithm>

namespace paperkite {

namespace {

template <class Origins>
auto FindOrigin(Origins& origins, const std::string& id) {
    return std::find_if(origins.begin(), origins.end(),
                        [&](const auto& entry) { return entry.first == id; });
}

Ref<TaggedComment> CopyUnderFreshId(const TaggedComment& comment) {
    auto copy = MakeRef<TaggedComment>();
    copy->SetTagIdentifier(comment.GetTagIdentifier());
    copy->SetQualifier(comment.GetQualifier());
    copy->SetText(comment.GetText());
    copy->SetXMLCommentType(comment.GetXMLCommentType());
    return copy;
}

template <class Condition>
void RemoveWhere(TaggedCommentCollection& comments, const Condition& condition) {
    std::vector<std::string> keys;
    for (const auto& comment : comments)
        if (condition(*comment)) keys.push_back(comment->GetId());
    for (const std::string& key : keys)
        comments.Remove(key);
}

} // namespace

CommentStore::Record& CommentStore::RecordOf(const std::string& qualifiedName) {
    const auto found = mRecords.find(qualifiedName);
    if (found != mRecords.end()) return found->second;
    if (mRecords.size() >= mSweepAt) SweepEmpty();
    Record& record = mRecords[qualifiedName];
    record.Comments = MakeRef<TaggedCommentCollection>();
    return record;
}

// Every item that is shown asks for its comments, and most have none.
void CommentStore::SweepEmpty() {
    std::erase_if(mRecords, [](const auto& entry) {
        const Record& record = entry.second;
        return record.Comments->Count() == 0 && record.Comments.Pointer().use_count() == 1;
    });
    mSweepAt = std::max<std::size_t>(4096, 2 * mRecords.size());
}

Ref<TaggedCommentCollection> CommentStore::CommentsOf(const Ref<Object>& item,
                                                      const std::string& qualifiedName) {
    const Ref<TaggedCommentCollection> comments = RecordOf(qualifiedName).Comments;
    for (const auto& comment : *comments)
        if (comment->GetItem() != item) comment->SetItem(item);
    return comments;
}

Ref<TaggedCommentCollection> CommentStore::Find(const std::string& qualifiedName) const {
    const auto found = mRecords.find(qualifiedName);
    return found == mRecords.end() ? Ref<TaggedCommentCollection>() : found->second.Comments;
}

void CommentStore::SetComments(const std::string& qualifiedName,
                               const Ref<TaggedCommentCollection>& comments) {
    if (!comments) RaiseError(ErrorNumber::ObjectNotSet);
    RecordOf(qualifiedName).Comments = comments;
}

std::size_t CommentStore::CountOf(const std::string& qualifiedName) const {
    const auto found = mRecords.find(qualifiedName);
    return found == mRecords.end() ? 0 : found->second.Comments->UnDeletedCount();
}

std::size_t CommentStore::Count() const {
    std::size_t count = 0;
    for (const auto& [name, record] : mRecords)
        count += record.Comments->UnDeletedCount();
    return count;
}

std::vector<std::string> CommentStore::QualifiedNames() const {
    std::vector<std::string> names;
    for (const auto& [name, record] : mRecords)
        if (record.Comments->UnDeletedCount() > 0) names.push_back(name);
    std::sort(names.begin(), names.end());
    return names;
}

void CommentStore::Load(const std::string& qualifiedName, const Ref<TaggedComment>& comment,
                        Origin origin) {
    Record& record = RecordOf(qualifiedName);
    const bool isTaken = record.Comments->Contains(comment->GetId());
    const Ref<TaggedComment> stored = isTaken ? CopyUnderFreshId(*comment) : comment;
    record.Comments->Add(stored, stored->GetId());
    record.Origins.emplace_back(stored->GetId(), std::move(origin));
}

CommentStore::Origin CommentStore::OriginOf(const std::string& qualifiedName,
                                            const TaggedComment& comment) const {
    const auto record = mRecords.find(qualifiedName);
    if (record == mRecords.end()) return {};
    const auto found = FindOrigin(record->second.Origins, comment.GetId());
    return found == record->second.Origins.end() ? Origin() : found->second;
}

void CommentStore::MarkStored(const std::string& qualifiedName, const TaggedComment& comment,
                              const Ref<ContentFile>& file) {
    Record& record = RecordOf(qualifiedName);
    const auto found = FindOrigin(record.Origins, comment.GetId());
    if (found == record.Origins.end())
        record.Origins.emplace_back(comment.GetId(), Origin{file, {}});
    else
        found->second.File = file;
    if (record.Comments->Contains(comment.GetId()))
        record.Comments->Item(comment.GetId())->SetState(0);
}

void CommentStore::DropTombstones() {
    for (auto& [name, record] : mRecords) {
        RemoveWhere(*record.Comments, [](const TaggedComment& comment) {
            return comment.GetState() == kTaggedCommentTombstone;
        });
        std::erase_if(record.Origins, [&comments = record.Comments](const auto& entry) {
            return !comments->Contains(entry.first);
        });
    }
}

void CommentStore::DropFile(const Ref<ContentFile>& file) {
    for (auto& [name, record] : mRecords) {
        RemoveWhere(*record.Comments, [&origins = record.Origins, &file](const auto& comment) {
            const auto found = FindOrigin(origins, comment.GetId());
            return found != origins.end() && found->second.File == file;
        });
        std::erase_if(record.Origins,
                      [&file](const auto& entry) { return entry.second.File == file; });
    }
}

void CommentStore::Clear() {
    mRecords.clear();
}

} // namespace paperkite
