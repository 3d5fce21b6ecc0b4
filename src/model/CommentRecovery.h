#pragma once

#include "model/CommentJournal.h"
#include "model/CommentStore.h"
#include "model/MergeConflicts.h"

#include <optional>
#include <string>
#include <vector>

namespace paperkite {

/// An unsaved comment that a journal kept, beside the comment that is stored now.
struct RecoverableComment {
    JournalEntry Entry;
    /// The comment that is there now; nothing when there is none.
    Ref<TaggedComment> Present;
    /// The stored comment is another one than when the author changed it.
    bool ChangedMeanwhile = false;
    /// What a careful author would do.
    Keeping Suggested = Keeping::Ours;
};

/// Brings what journals kept back into a project.
class CommentRecovery {
public:
    /// What differs from the comments that are there now, the journals in their order.
    static std::vector<RecoverableComment>
    Compare(const std::vector<CommentJournal::Contents>& journals, const CommentStore& store);

    /// Takes up what was chosen, one choice a comment: ours is the unsaved one. With both, the
    /// unsaved one becomes a comment of its own. Gives the entries that are unsaved again.
    static std::vector<JournalEntry> Apply(const std::vector<RecoverableComment>& comments,
                                           const std::vector<Keeping>& choices,
                                           CommentStore& store);
};

} // namespace paperkite
