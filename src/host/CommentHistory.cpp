#include "host/CommentHistory.h"

#include "foundation/ScopeExit.h"

#include <algorithm>
#include <chrono>
#include <set>

namespace paperkite {

namespace {

constexpr std::size_t kMostSteps = 1000;
constexpr long long kTypingPause = 3000;

} // namespace

long long CommentHistory::Now() const {
    if (Clock) return Clock();
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

void CommentHistory::ItemsShown(const std::vector<std::string>& names) {
    mKnown.clear();
    Pause();
    for (const std::string& name : names)
        ItemShown(name);
}

void CommentHistory::ItemShown(const std::string& name) {
    if (!mKnown.contains(name))
        mKnown.emplace(name, CommentSnapshot::Of(mWorkspace.GetSession(), name));
}

void CommentHistory::ItemChanged(const std::string& name) {
    const auto known = mKnown.find(name);
    if (mApplying || known == mKnown.end()) return;
    auto now = CommentSnapshot::Of(mWorkspace.GetSession(), name);
    if (now == known->second) return;
    Note({name, std::exchange(known->second, now), now});
}

void CommentHistory::Note(Change change) {
    if (mOpen) {
        mOpen->Changes.push_back(std::move(change));
        return;
    }
    if (ContinuesTyping(change)) {
        mSteps[mNext - 1].Changes.back().After = std::move(change.After);
        return;
    }
    Step step;
    step.Caption = CaptionOf(change);
    step.Changes.push_back(std::move(change));
    Push(std::move(step));
}

void CommentHistory::Push(Step step) {
    mSteps.resize(mNext);
    mSteps.push_back(std::move(step));
    if (mSteps.size() > kMostSteps) mSteps.pop_front();
    mNext = mSteps.size();
}

bool CommentHistory::ContinuesTyping(const Change& change) {
    const auto comment = OnlyTextChanged(change);
    const auto before = std::exchange(mTyping, std::nullopt);
    const long long now = Now();
    if (comment) mTyping = Typing{change.Item, *comment, now};
    return comment && before && before->Item == change.Item && before->Comment == *comment &&
           now - before->Time < kTypingPause && mNext > 0 && mNext == mSteps.size();
}

/// The comment that alone has another text, or is alone new; typing goes on in it.
std::optional<std::string> CommentHistory::OnlyTextChanged(const Change& change) const {
    std::optional<std::string> found;
    for (const auto& comment : change.After.Comments()) {
        const auto* before = change.Before.Find(comment.Id);
        if (before && *before == comment) continue;
        if (found) return {};
        found = comment.Id;
    }
    const std::size_t most = change.Before.Comments().size() + 1;
    const bool isDeleted = change.After.Comments().size() < change.Before.Comments().size();
    return isDeleted || change.After.Comments().size() > most ? std::nullopt : found;
}

std::string CommentHistory::CaptionOf(const Change& change) const {
    const auto item = mWorkspace.GetSession().GetProvider()->GetItem(change.Item);
    const std::string name = item ? item->Get("Name").ToText() : change.Item;
    const std::size_t before = change.Before.Comments().size();
    const std::size_t after = change.After.Comments().size();
    if (after > before) return "Adding to " + name;
    if (after < before) return "Deleting from " + name;
    return "Writing on " + name;
}

void CommentHistory::BeginStep(const std::string& caption) {
    Pause();
    if (++mDepth > 1) return;
    mOpen.emplace();
    mOpen->Caption = caption;
}

void CommentHistory::EndStep() {
    if (mDepth == 0 || --mDepth > 0) return;
    auto step = std::exchange(mOpen, std::nullopt);
    Pause();
    if (step && !step->Changes.empty()) Push(std::move(*step));
}

std::string CommentHistory::UndoCaption() const {
    return CanUndo() ? mSteps[mNext - 1].Caption : std::string();
}

std::string CommentHistory::RedoCaption() const {
    return CanRedo() ? mSteps[mNext].Caption : std::string();
}

std::vector<std::string> CommentHistory::Undo() {
    mWorkspace.GetEditor().CommitEdit();
    Pause();
    if (mOpen || !CanUndo()) return {};
    --mNext;
    return Apply(mSteps[mNext], true);
}

std::vector<std::string> CommentHistory::Redo() {
    mWorkspace.GetEditor().CommitEdit();
    Pause();
    if (mOpen || !CanRedo()) return {};
    ++mNext;
    return Apply(mSteps[mNext - 1], false);
}

std::vector<std::string> CommentHistory::Apply(const Step& step, bool isUndo) {
    mApplying = true;
    const ScopeExit done([this] { mApplying = false; });
    std::vector<std::string> items;
    std::set<std::string> seen;
    const auto restore = [&](const Change& change) {
        const CommentSnapshot& wanted = isUndo ? change.Before : change.After;
        wanted.Restore(mWorkspace.GetSession(), change.Item);
        if (const auto known = mKnown.find(change.Item); known != mKnown.end())
            known->second = wanted;
        if (seen.insert(change.Item).second) items.push_back(change.Item);
    };
    if (isUndo)
        std::for_each(step.Changes.rbegin(), step.Changes.rend(), restore);
    else
        std::for_each(step.Changes.begin(), step.Changes.end(), restore);
    mWorkspace.GetSession().GetProject()->SetDirty(true);
    mWorkspace.ShowChanged(items);
    return items;
}

void CommentHistory::Clear() {
    mKnown.clear();
    mSteps.clear();
    mNext = 0;
    mOpen.reset();
    mDepth = 0;
    mTyping.reset();
}

} // namespace paperkite
