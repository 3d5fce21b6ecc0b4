#pragma once

#include "host/CommentSnapshot.h"
#include "host/Workspace.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace paperkite {

/// Undo and redo of every change of comments in an open project, across its items.
///
/// The components know nothing of it: the host says which items can be changed now, and which one
/// was. What is typed into one comment without a pause is one step. So is whatever is done between
/// BeginStep and EndStep.
class CommentHistory {
public:
    explicit CommentHistory(Workspace& workspace) : mWorkspace(workspace) {}

    /// The items that can be changed from now on, as they are: those before can be no longer.
    void ItemsShown(const std::vector<std::string>& names);
    /// As ItemsShown, for further items.
    void ItemShown(const std::string& name);
    /// After a change of an item that was shown.
    void ItemChanged(const std::string& name);
    /// Ends what is typed: what comes next is a step of its own.
    void Pause() { mTyping.reset(); }

    /// Takes changes together until EndStep. The caption says what is done: "Replacing \"old\"".
    /// Steps inside another one belong to it.
    void BeginStep(const std::string& caption);
    void EndStep();

    bool CanUndo() const { return mNext > 0; }
    bool CanRedo() const { return mNext < mSteps.size(); }
    /// What would be taken back, or done again: "Writing on Bark"; empty for nothing.
    std::string UndoCaption() const;
    std::string RedoCaption() const;

    /// Commits what is being edited, takes the last step back, and brings the tree and the open
    /// item up to date. Gives the items that changed; none when there is nothing to take back.
    std::vector<std::string> Undo();
    std::vector<std::string> Redo();
    void Clear();

    /// The clock in milliseconds that tells a pause from typing; the system's own otherwise.
    std::function<long long()> Clock;

private:
    struct Change {
        std::string Item;
        CommentSnapshot Before;
        CommentSnapshot After;
    };
    struct Step {
        std::string Caption;
        std::vector<Change> Changes;
    };
    /// What is being typed: which comment, and when the last key came.
    struct Typing {
        std::string Item;
        std::string Comment;
        long long Time = 0;
    };

    long long Now() const;
    void Note(Change change);
    bool ContinuesTyping(const Change& change);
    std::optional<std::string> OnlyTextChanged(const Change& change) const;
    void Push(Step step);
    std::string CaptionOf(const Change& change) const;
    std::vector<std::string> Apply(const Step& step, bool isUndo);

    Workspace& mWorkspace;
    std::map<std::string, CommentSnapshot> mKnown;
    std::deque<Step> mSteps;
    /// The steps before this one are done, the others taken back.
    std::size_t mNext = 0;
    std::optional<Step> mOpen;
    int mDepth = 0;
    std::optional<Typing> mTyping;
    bool mApplying = false;
};

} // namespace paperkite
