#include "host/UnsavedWork.h"

namespace paperkite {

UnsavedWork::UnsavedWork(std::string journalFolder, const std::string& project)
    : mJournal(std::move(journalFolder), project) {}

UnsavedWork::StoredItem UnsavedWork::SnapshotOf(const std::string& item) const {
    StoredItem stored;
    const auto comments = mWorkspace->GetSession().GetProject()->GetComments()->Find(item);
    if (!comments) return stored;
    for (const auto& comment : *comments)
        if (comment->GetState() != kTaggedCommentTombstone)
            stored[comment->GetId()] = {comment->GetTagIdentifier(), comment->GetQualifier(),
                                        comment->GetXMLCommentType(), comment->GetWrittenText()};
    return stored;
}

void UnsavedWork::ItemShown(const std::string& qualifiedName) {
    if (mChanged.contains(qualifiedName) || mStored.contains(qualifiedName)) return;
    mStored.emplace(qualifiedName, SnapshotOf(qualifiedName));
}

void UnsavedWork::ItemChanged(const std::string& qualifiedName) {
    mChanged.insert(qualifiedName);
}

void UnsavedWork::TakeOver(const std::vector<JournalEntry>& recovered) {
    for (const JournalEntry& entry : recovered) {
        ItemShown(entry.Item);
        ItemChanged(entry.Item);
        StoredItem& stored = mStored[entry.Item];
        if (entry.Stored)
            stored[entry.Id] = {entry.Tag, entry.Qualifier, entry.XmlTag, *entry.Stored};
        else
            stored.erase(entry.Id);
    }
}

std::string UnsavedWork::CurrentItem() const {
    const auto item = mWorkspace->GetEditor().cEditor.GetCurrentCodeElement();
    return item ? item->Get("QualifiedName").ToText() : std::string();
}

std::optional<std::string> UnsavedWork::TextBeingTyped(const std::string& id) const {
    const PropertiesList& tags = *mWorkspace->GetEditor().cEditor.prpTags;
    const auto row = tags.GetSelectedItem();
    if (!tags.GetInEdit() || !row || row->GetKey() != id) return {};
    return tags.GetEditText();
}

void UnsavedWork::AddEntries(const std::string& item, std::vector<JournalEntry>& entries) const {
    const auto known = mStored.find(item);
    const auto storedOf = [&](const std::string& id) -> const StoredComment* {
        if (known == mStored.end()) return nullptr;
        const auto found = known->second.find(id);
        return found == known->second.end() ? nullptr : &found->second;
    };
    const bool isCurrent = item == CurrentItem();
    const auto comments = mWorkspace->GetSession().GetProject()->GetComments()->Find(item);
    std::set<std::string> present;
    if (comments) {
        for (const auto& comment : *comments) {
            const std::string& id = comment->GetId();
            const bool isDeleted = comment->GetState() == kTaggedCommentTombstone;
            const auto typed = isCurrent ? TextBeingTyped(id) : std::optional<std::string>();
            const StoredComment now{comment->GetTagIdentifier(), comment->GetQualifier(),
                                    comment->GetXMLCommentType(),
                                    typed ? *typed : comment->GetWrittenText()};
            const StoredComment* stored = storedOf(id);
            present.insert(id);
            if (!isDeleted && stored && *stored == now) continue;
            JournalEntry entry{item, id, now.Tag, now.Qualifier, now.XmlTag, now.Text, {}};
            if (isDeleted) entry.Text.reset();
            if (stored) entry.Stored = stored->Text;
            entries.push_back(std::move(entry));
        }
    }
    if (known == mStored.end()) return;
    for (const auto& [id, stored] : known->second)
        if (!present.contains(id))
            entries.push_back(
                {item, id, stored.Tag, stored.Qualifier, stored.XmlTag, {}, stored.Text});
}

std::vector<JournalEntry> UnsavedWork::Entries() const {
    std::vector<JournalEntry> entries;
    if (!mWorkspace) return entries;
    std::set<std::string> items = mChanged;
    if (mWorkspace->GetEditor().cEditor.prpTags->GetInEdit()) items.insert(CurrentItem());
    items.erase("");
    for (const std::string& item : items)
        AddEntries(item, entries);
    return entries;
}

std::optional<FileProblem> UnsavedWork::Keep() {
    const auto problem = mJournal.Write(Entries());
    const bool isNews = problem && !mTold;
    mTold = problem.has_value();
    return isNews ? problem : std::nullopt;
}

void UnsavedWork::Settle() {
    mStored.clear();
    mChanged.clear();
    mJournal.Remove();
    mTold = false;
    if (!mWorkspace) return;
    const std::string current = CurrentItem();
    if (!current.empty()) ItemShown(current);
}

} // namespace paperkite
