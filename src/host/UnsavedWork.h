#pragma once

#include "host/CommentSnapshot.h"
#include "host/Workspace.h"
#include "model/CommentJournal.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace paperkite {

/// Keeps what an author wrote and has not saved in a journal, also the text that is being typed.
/// The components know nothing of it: the host says which items were shown and changed, and calls
/// Keep every few seconds.
class UnsavedWork {
public:
    UnsavedWork(std::string journalFolder, const std::string& project);

    /// The workspace to look at; it may be exchanged for another one on the same project, with
    /// nothing between them.
    void SetWorkspace(Workspace* workspace) { mWorkspace = workspace; }

    /// Before the author can change an item: remembers what is stored of it.
    void ItemShown(const std::string& qualifiedName);
    void ItemChanged(const std::string& qualifiedName);
    /// What was recovered is unsaved as well.
    void TakeOver(const std::vector<JournalEntry>& recovered);

    /// Writes down what changed since the last call. A journal that cannot be written is told once;
    /// when it could be written again in between, once more.
    std::optional<FileProblem> Keep();
    /// Everything is saved, or given up on purpose: the journal goes.
    void Settle();

    /// What would be lost now.
    std::vector<JournalEntry> Entries() const;
    const std::string& GetJournalPath() const { return mJournal.GetPath(); }

private:
    void AddEntries(const std::string& item, std::vector<JournalEntry>& entries) const;
    std::optional<std::string> TextBeingTyped(const std::string& id) const;
    std::string CurrentItem() const;

    Workspace* mWorkspace = nullptr;
    std::map<std::string, CommentSnapshot> mStored;
    std::set<std::string> mChanged;
    CommentJournal mJournal;
    bool mTold = false;
};

} // namespace paperkite
