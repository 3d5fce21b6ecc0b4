#include "model/CommentStore.h"

#include "model/StoredComment.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

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
    copy->SetText(comment.GetWrittenText());
    copy->SetXMLCommentType(comment.GetXMLCommentType());
    copy->SetState(comment.GetState());
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

/// Gives back what was put in a few turns before.
template <class T>
class Delay {
public:
    template <class Use>
    void Put(const T& value, const Use& use) {
        const T due = std::exchange(mWaiting[mNext], value);
        mNext = (mNext + 1) % mWaiting.size();
        if (mCount == mWaiting.size())
            use(due);
        else
            ++mCount;
    }
    /// Gives back the rest.
    template <class Use>
    void Empty(const Use& use) {
        for (std::size_t at = mNext + mWaiting.size() - mCount; mCount > 0; ++at, --mCount)
            use(mWaiting[at % mWaiting.size()]);
    }

private:
    std::array<T, 8> mWaiting{};
    std::size_t mNext = 0;
    std::size_t mCount = 0;
};

/// Shows comments some turns late, having told the processor which memory comes next: they lie
/// about, and waiting for each takes longer than reading it. An item's list tells where its
/// comments are, and a comment where its text is.
class LookAhead {
public:
    using Visit = std::function<void(const std::string&, const TaggedComment&)>;

    explicit LookAhead(const Visit& visit) : mVisit(visit) {}
    void Add(const std::string& name, const TaggedCommentCollection& comments) {
        Fetch(&comments, sizeof comments);
        mLists.Put({&name, &comments}, [this](const List& list) { AddComments(list); });
    }
    void Flush() {
        mLists.Empty([this](const List& list) { AddComments(list); });
        mComments.Empty([this](const Comment& comment) { AddText(comment); });
        mTexts.Empty([this](const Comment& comment) { Show(comment); });
    }

private:
    using List = std::pair<const std::string*, const TaggedCommentCollection*>;
    using Comment = std::pair<const std::string*, const TaggedComment*>;

    void AddComments(const List& list) {
        for (const auto& comment : *list.second) {
            Fetch(comment.get(), sizeof(TaggedComment));
            mComments.Put({list.first, comment.get()},
                          [this](const Comment& due) { AddText(due); });
        }
    }
    void AddText(const Comment& comment) {
        const std::string& text = comment.second->GetWrittenText();
        Fetch(text.data(), text.size());
        mTexts.Put(comment, [this](const Comment& due) { Show(due); });
    }
    void Show(const Comment& comment) const {
        const auto& [name, shown] = comment;
        if (shown->GetState() != kTaggedCommentTombstone) mVisit(*name, *shown);
    }
    static void Fetch(const void* from, std::size_t length) {
        constexpr std::size_t kLine = 64;
        for (std::size_t at = 0; at < std::min<std::size_t>(length, 512); at += kLine)
            __builtin_prefetch(static_cast<const char*>(from) + at);
    }

    const Visit& mVisit;
    Delay<List> mLists;
    Delay<Comment> mComments;
    Delay<Comment> mTexts;
};

} // namespace

// Every item that is shown asks for its comments, and most have none. What they get is known to the
// store while somebody holds it, and becomes a record when the first comment is added. The newest
// one serves the next item too when nobody has kept it.
class CommentStore::Pending : public TaggedCommentCollection {
public:
    Pending(Ref<CommentStore> store, std::string qualifiedName)
        : mStore(store), mPending(store->mPending), mQualifiedName(std::move(qualifiedName)) {}
    ~Pending() override { Forget(); }
    Pending(const Pending&) = delete;
    Pending& operator=(const Pending&) = delete;

    const std::string& GetQualifiedName() const { return mQualifiedName; }
    /// Makes it as good as new for another item.
    void SetQualifiedName(const std::string& value) {
        mQualifiedName = value;
        SetConsolidated(false);
    }
    /// It stands in a record from now on.
    void SetUsed() {
        Forget();
        mIsUsed = true;
    }
    /// Enters it under its name, by which it can be found from then on.
    void Register() { mPlace = mPending->emplace(mQualifiedName, this).first; }

protected:
    void BecomesUsed() override {
        if (mIsUsed) return;
        SetUsed();
        if (const Ref<CommentStore> store = mStore.Lock())
            store->Keep(mQualifiedName, RefTo(*this));
    }

private:
    void Forget() {
        if (mPlace) mPending->erase(*mPlace);
        mPlace.reset();
    }

    WeakRef<CommentStore> mStore;
    std::shared_ptr<PendingByName> mPending;
    std::string mQualifiedName;
    std::optional<PendingByName::iterator> mPlace;
    bool mIsUsed = false;
};

CommentStore::Record& CommentStore::RecordOf(const std::string& qualifiedName) {
    Record& record = mRecords.Make(qualifiedName);
    if (const Ref<Pending> held = record.Comments ? Ref<Pending>() : FindPending(qualifiedName)) {
        held->SetUsed();
        if (mNewest == held) mNewest = nullptr;
        record.Comments = held;
    }
    Parse(record);
    return record;
}

CommentStore::Record* CommentStore::FindRecord(const std::string& qualifiedName) const {
    return mRecords.Find(qualifiedName);
}

void CommentStore::Parse(Record& record) {
    if (!record.Comments) record.Comments = MakeRef<TaggedCommentCollection>();
    const auto runs = std::exchange(record.Runs, {});
    for (const Run& run : runs)
        for (const StoredComment::Parsed& parsed : StoredComment::ParseRun(run.Bytes()))
            AddTo(record, parsed.Comment, {run.File, {}, parsed.Bytes, run.Source});
}

void CommentStore::Keep(const std::string& qualifiedName,
                        const Ref<TaggedCommentCollection>& comments) {
    if (mNewest == comments) mNewest = nullptr;
    Record& record = mRecords.Make(qualifiedName);
    if (!record.Comments) record.Comments = comments;
}

Ref<CommentStore::Pending> CommentStore::FindPending(const std::string& qualifiedName) const {
    if (mNewest && mNewest->GetQualifiedName() == qualifiedName) return mNewest;
    if (mPending->empty()) return {};
    const auto found = mPending->find(qualifiedName);
    return found == mPending->end() ? Ref<Pending>() : RefTo(*found->second);
}

Ref<TaggedCommentCollection> CommentStore::PendingOf(const std::string& qualifiedName) {
    if (const Ref<Pending> found = FindPending(qualifiedName)) return found;
    // A store that nobody shares cannot be told later.
    if (weak_from_this().expired()) return RecordOf(qualifiedName).Comments;
    if (mNewest && mNewest.Pointer().use_count() == 1) {
        mNewest->SetQualifiedName(qualifiedName);
        return mNewest;
    }
    if (mNewest) mNewest->Register();
    mNewest = MakeRef<Pending>(RefTo(*this), qualifiedName);
    return mNewest;
}

Ref<TaggedCommentCollection> CommentStore::CommentsOf(const Ref<Object>& item,
                                                      const std::string& qualifiedName) {
    if (Record* const record = FindRecord(qualifiedName)) {
        Parse(*record);
        for (const auto& comment : *record->Comments)
            if (comment->GetItem() != item) comment->SetItem(item);
        return record->Comments;
    }
    return PendingOf(qualifiedName);
}

Ref<TaggedCommentCollection> CommentStore::Find(const std::string& qualifiedName) const {
    Record* const record = FindRecord(qualifiedName);
    if (!record) return {};
    Parse(*record);
    return record->Comments;
}

void CommentStore::SetComments(const std::string& qualifiedName,
                               const Ref<TaggedCommentCollection>& comments) {
    if (!comments) RaiseError(ErrorNumber::ObjectNotSet);
    RecordOf(qualifiedName).Comments = comments;
}

void CommentStore::Move(const std::string& from, const std::string& to) {
    if (from == to || !FindRecord(from)) return;
    // Making the one may move the other.
    RecordOf(to);
    Record& source = RecordOf(from);
    Record& target = RecordOf(to);
    std::vector<Ref<TaggedComment>> comments(source.Comments->begin(), source.Comments->end());
    for (const auto& comment : comments) {
        // What was deleted is nobody's any more, and must not come back under a fresh Id.
        if (comment->GetState() == kTaggedCommentTombstone) continue;
        const auto origin = FindOrigin(source.Origins, comment->GetId());
        Origin kept = origin == source.Origins.end() ? Origin() : origin->second;
        // Those bytes name the old item.
        kept.Stored = {};
        source.Comments->Remove(comment->GetId());
        comment->SetItem(nullptr);
        AddTo(target, comment, std::move(kept));
    }
    // Whoever holds the old collection may add to it.
    if (source.Comments.Pointer().use_count() == 1) mRecords.Erase(from);
}

std::size_t CommentStore::CountOf(const Record& record) {
    std::size_t count = record.Comments ? record.Comments->UnDeletedCount() : 0;
    for (const Run& run : record.Runs)
        count += run.Count;
    return count;
}

std::size_t CommentStore::CountOf(const std::string& qualifiedName) const {
    const Record* const record = FindRecord(qualifiedName);
    return record ? CountOf(*record) : 0;
}

std::size_t CommentStore::Count() const {
    std::size_t count = 0;
    mRecords.ForEach([&](const auto&, const Record& record) { count += CountOf(record); });
    return count;
}

std::vector<std::string> CommentStore::QualifiedNames() const {
    std::vector<std::string> names;
    mRecords.ForEach([&](const std::string& name, const Record& record) {
        if (CountOf(record) > 0) names.push_back(name);
    });
    std::sort(names.begin(), names.end());
    return names;
}

void CommentStore::ForEach(const std::function<void(const std::string& qualifiedName,
                                                    const TaggedComment& comment)>& visit) const {
    LookAhead ahead(visit);
    mRecords.ForEach([&](const std::string& name, Record& record) {
        Parse(record);
        ahead.Add(name, *record.Comments);
    });
    ahead.Flush();
}

void CommentStore::AddTo(Record& record, const Ref<TaggedComment>& comment, Origin origin) {
    const bool isTaken = record.Comments->Contains(comment->GetId());
    const Ref<TaggedComment> stored = isTaken ? CopyUnderFreshId(*comment) : comment;
    record.Comments->Add(stored, stored->GetId());
    record.Origins.emplace_back(stored->GetId(), std::move(origin));
}

void CommentStore::Load(const std::string& qualifiedName, const Ref<TaggedComment>& comment,
                        Origin origin) {
    AddTo(RecordOf(qualifiedName), comment, std::move(origin));
}

void CommentStore::LoadRun(std::string qualifiedName, Run run) {
    // Whoever holds the comments already sees these too.
    const bool isHeld = FindPending(qualifiedName) != nullptr;
    Record& record = isHeld ? RecordOf(qualifiedName) : mRecords.Make(std::move(qualifiedName));
    record.Runs.push_back(std::move(run));
    if (record.Comments) Parse(record);
}

const CommentStore::Run* CommentStore::SoleRunOf(const std::string& qualifiedName) const {
    const Record* const record = FindRecord(qualifiedName);
    const bool isSole = record && !record->Comments && record->Runs.size() == 1;
    return isSole ? &record->Runs.front() : nullptr;
}

CommentStore::Origin CommentStore::OriginOf(const std::string& qualifiedName,
                                            const TaggedComment& comment) const {
    const Record* const record = FindRecord(qualifiedName);
    if (!record) return {};
    const auto found = FindOrigin(record->Origins, comment.GetId());
    return found == record->Origins.end() ? Origin() : found->second;
}

void CommentStore::MarkStored(const Ref<ContentFile>& file,
                              const std::function<bool(const Origin&)>& belongs) {
    mRecords.ForEach([&](const auto&, Record& record) {
        // What nobody has looked at is stored already.
        if (!record.Comments) return;
        for (const auto& comment : *record.Comments) {
            if (comment->GetState() == kTaggedCommentTombstone) continue;
            const auto found = FindOrigin(record.Origins, comment->GetId());
            const bool isNew = found == record.Origins.end();
            if (!belongs(isNew ? Origin() : found->second)) continue;
            if (isNew)
                record.Origins.emplace_back(comment->GetId(), Origin{file, {}});
            else
                found->second.File = file;
            comment->SetState(0);
        }
    });
}

void CommentStore::DropTombstones() {
    mRecords.ForEach([](const auto&, Record& record) {
        if (!record.Comments) return;
        RemoveWhere(*record.Comments, [](const TaggedComment& comment) {
            return comment.GetState() == kTaggedCommentTombstone;
        });
        std::erase_if(record.Origins, [&comments = record.Comments](const auto& entry) {
            return !comments->Contains(entry.first);
        });
    });
}

void CommentStore::SwapComments(CommentStore& other) {
    mRecords.Swap(other.mRecords);
    HandToHolders();
    other.HandToHolders();
}

// Whoever holds an empty collection of an item gets the comments that there are now, also where
// they stand in another one already.
void CommentStore::HandToHolders() {
    std::vector<std::string> held;
    for (const auto& [name, pending] : *mPending)
        held.emplace_back(name);
    if (mNewest) held.push_back(mNewest->GetQualifiedName());
    for (const std::string& name : held) {
        Record* const record = FindRecord(name);
        if (!record) continue;
        const auto present = std::exchange(record->Comments, nullptr);
        const auto comments = RecordOf(name).Comments;
        if (!present) continue;
        comments->SetConsolidated(present->GetConsolidated());
        for (const auto& comment : *present)
            comments->Add(comment, comment->GetId());
    }
}

void CommentStore::DropFile(const Ref<ContentFile>& file) {
    mRecords.ForEach([&file](const auto&, Record& record) {
        std::erase_if(record.Runs, [&file](const Run& run) { return run.File == file; });
        if (!record.Comments) return;
        RemoveWhere(*record.Comments, [&origins = record.Origins, &file](const auto& comment) {
            const auto found = FindOrigin(origins, comment.GetId());
            return found != origins.end() && found->second.File == file;
        });
        std::erase_if(record.Origins,
                      [&file](const auto& entry) { return entry.second.File == file; });
    });
}

void CommentStore::Clear() {
    mRecords.Clear();
}

} // namespace paperkite
