#pragma once

#include "foundation/Collection.h"
#include "foundation/Object.h"
#include "foundation/TaggedComment.h"

#include <cstddef>
#include <string>

namespace paperkite {

/// The comments of one code item, by their Id. Tombstones stay in it until the store drops them.
class TaggedCommentCollection : public Object {
public:
    std::string TypeName() const override { return "TaggedCommentCollection"; }
    Value Get(std::string_view member) const override;
    bool IsEnumerable() const override { return true; }
    void Enumerate(const std::function<bool(const Value&)>& visit) const override;

    /// All comments, tombstones included.
    std::size_t Count() const { return mComments.Count(); }
    std::size_t UnDeletedCount() const;

    /// An unknown key or position is an error.
    Ref<TaggedComment> Item(const std::string& key) const { return mComments.Item(key); }
    Ref<TaggedComment> Item(std::size_t position) const { return mComments.Item(position); }
    bool Contains(const std::string& key) const { return mComments.Contains(key); }

    /// A key that is there already is an error.
    void Add(const Ref<TaggedComment>& comment, const std::string& key);
    void Remove(const std::string& key) { mComments.Remove(key); }

    /// A collection of its own without the tombstones, in the same order.
    Ref<TaggedCommentCollection> UnDeletedTaggedComments() const;

    /// Whether the collection is in the form that a CommentPipe prepares for editing.
    bool GetConsolidated() const { return mConsolidated; }
    void SetConsolidated(bool value) { mConsolidated = value; }
    auto begin() const { return mComments.begin(); }
    auto end() const { return mComments.end(); }

protected:
    /// The first comment is about to be added.
    virtual void BecomesUsed() {}

private:
    Collection<Ref<TaggedComment>> mComments;
    bool mConsolidated = false;
};

} // namespace paperkite
