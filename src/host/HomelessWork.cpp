#include "host/HomelessWork.h"

#include "host/OutsideChange.h"
#include "host/TagName.h"

namespace paperkite {

CommentStore& HomelessWork::GetStore() const {
    return *mWorkspace.GetSession().GetProject()->GetComments();
}

const SourceNamespaceProvider& HomelessWork::GetProvider() const {
    return *mWorkspace.GetSession().GetProvider();
}

std::vector<std::string> HomelessWork::Names() const {
    return HomelessComments::Names(GetStore(), GetProvider());
}

std::vector<HomelessWork::Entry> HomelessWork::Find(const HomelessComments::GoOn& goOn) const {
    return HomelessComments::Find(GetStore(), GetProvider(), GetProvider(), goOn);
}

std::vector<HomelessWork::Comment> HomelessWork::CommentsOf(const std::string& gone) const {
    std::vector<Comment> result;
    const auto comments = GetStore().Find(gone);
    if (!comments) return result;
    for (const auto& comment : *comments)
        if (comment->GetState() != kTaggedCommentTombstone)
            result.push_back({TagNameOf(*comment), comment->GetText()});
    return result;
}

std::vector<HomelessWork::Home> HomelessWork::Search(const std::string& text,
                                                     std::size_t most) const {
    std::vector<Home> homes;
    const ProjectSession& session = mWorkspace.GetSession();
    for (std::string& name : session.FindByName(text, most)) {
        const auto item = session.GetProvider()->GetItem(name);
        homes.push_back({std::move(name), item->Get("Kind").ToText(), {}, 0});
    }
    return homes;
}

HomelessComments::Moves HomelessWork::Adopt(const std::string& gone, const std::string& home) {
    if (GetProvider().Exists(gone) || !GetProvider().Exists(home)) return {};
    const auto moves = HomelessComments::Plan(GetStore(), GetProvider(), gone, home);
    std::vector<std::string> items;
    for (const auto& [from, to] : moves)
        items.insert(items.end(), {from, to});
    Change("Adopting Homeless Comments", items,
           [&] { HomelessComments::Adopt(GetStore(), GetProvider(), gone, home); });
    return moves;
}

void HomelessWork::Delete(const std::string& gone) {
    const auto comments = GetStore().Find(gone);
    if (!comments || GetProvider().Exists(gone)) return;
    Change("Deleting Homeless Comments", {gone}, [&] {
        const std::vector<Ref<TaggedComment>> all(comments->begin(), comments->end());
        for (const auto& comment : all)
            // What was never stored leaves nothing behind.
            if (comment->GetState() == kTaggedCommentNew)
                comments->Remove(comment->GetId());
            else
                comment->SetState(kTaggedCommentTombstone);
    });
}

void HomelessWork::Change(const std::string& caption, const std::vector<std::string>& items,
                          const std::function<void()>& work) {
    OutsideChange(mWorkspace, mUnsaved, mHistory).Run(caption, items, work);
    for (const std::string& item : items)
        Events.Changed.Raise(item);
}

} // namespace paperkite
