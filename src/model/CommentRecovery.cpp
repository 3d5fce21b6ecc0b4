#include "model/CommentRecovery.h"

#include <map>

namespace paperkite {

namespace {

/// The comment that an entry is about. Comments without an Id of their own in the file get another
/// one each time that it is read: those are known by what was stored.
Ref<TaggedComment> FindPresent(const JournalEntry& entry, const CommentStore& store) {
    const auto comments = store.Find(entry.Item);
    if (!comments) return {};
    for (const auto& comment : *comments)
        if (comment->GetId() == entry.Id)
            return comment->GetState() == kTaggedCommentTombstone ? Ref<TaggedComment>() : comment;
    if (!entry.Stored || entry.Stored->empty()) return {};
    for (const auto& comment : *comments)
        if (comment->GetTagIdentifier() == entry.Tag && comment->GetWrittenText() == *entry.Stored)
            return comment;
    return {};
}

bool IsAsPresent(const JournalEntry& entry, const Ref<TaggedComment>& present) {
    if (!entry.Text) return !present;
    return present && present->GetWrittenText() == *entry.Text &&
           present->GetTagIdentifier() == entry.Tag && present->GetQualifier() == entry.Qualifier &&
           present->GetXMLCommentType() == entry.XmlTag;
}

bool IsAsStored(const JournalEntry& entry, const Ref<TaggedComment>& present) {
    if (!entry.Stored) return !present;
    return present && present->GetWrittenText() == *entry.Stored;
}

void Take(const JournalEntry& entry, TaggedComment& comment) {
    comment.SetTagIdentifier(entry.Tag);
    comment.SetQualifier(entry.Qualifier);
    comment.SetXMLCommentType(entry.XmlTag);
    comment.SetText(*entry.Text);
}

/// A comment of its own; its Id is the author's unless that is taken.
JournalEntry AddNew(JournalEntry entry, CommentStore& store) {
    const auto comments = store.CommentsOf({}, entry.Item);
    const bool isTaken = entry.Id.empty() || comments->Contains(entry.Id);
    const auto comment = MakeRef<TaggedComment>(isTaken ? std::string() : entry.Id);
    Take(entry, *comment);
    comment->SetState(kTaggedCommentNew);
    comments->Add(comment, comment->GetId());
    entry.Id = comment->GetId();
    entry.Stored.reset();
    return entry;
}

} // namespace

std::vector<RecoverableComment>
CommentRecovery::Compare(const std::vector<CommentJournal::Contents>& journals,
                         const CommentStore& store) {
    std::vector<RecoverableComment> result;
    std::map<std::pair<std::string, std::string>, std::size_t> earlier;
    for (const CommentJournal::Contents& journal : journals) {
        for (const JournalEntry& entry : journal.Entries) {
            RecoverableComment comment{entry, FindPresent(entry, store)};
            if (IsAsPresent(entry, comment.Present)) continue;
            comment.ChangedMeanwhile = !IsAsStored(entry, comment.Present);
            if (comment.ChangedMeanwhile && comment.Present) comment.Suggested = Keeping::Both;
            // Two programs left something on one comment: neither may push the other out.
            const auto [known, isNew] =
                earlier.emplace(std::pair(entry.Item, entry.Id), result.size());
            if (!isNew && result[known->second].Entry.Text) {
                result[known->second].Suggested = Keeping::Both;
                known->second = result.size();
            }
            result.push_back(std::move(comment));
        }
    }
    return result;
}

std::vector<JournalEntry> CommentRecovery::Apply(const std::vector<RecoverableComment>& comments,
                                                 const std::vector<Keeping>& choices,
                                                 CommentStore& store) {
    std::vector<JournalEntry> unsaved;
    for (std::size_t index = 0; index < comments.size() && index < choices.size(); ++index) {
        JournalEntry entry = comments[index].Entry;
        const Ref<TaggedComment>& present = comments[index].Present;
        const Keeping choice = choices[index];
        if (choice == Keeping::Theirs) continue;
        if (!entry.Text) {
            if (!present || choice == Keeping::Both) continue;
            entry.Id = present->GetId();
            entry.Stored = present->GetWrittenText();
            present->SetState(kTaggedCommentTombstone);
            unsaved.push_back(std::move(entry));
        } else if (!present || choice == Keeping::Both) {
            unsaved.push_back(AddNew(std::move(entry), store));
        } else {
            entry.Id = present->GetId();
            entry.Stored = present->GetWrittenText();
            Take(entry, *present);
            unsaved.push_back(std::move(entry));
        }
    }
    return unsaved;
}

} // namespace paperkite
