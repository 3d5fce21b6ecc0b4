#pragma once

#include "host/ProjectSession.h"

#include <string>
#include <vector>

namespace paperkite {

/// The comments of one item as they were at a moment, in their order, without those that were
/// deleted.
class CommentSnapshot {
public:
    struct Comment {
        std::string Id;
        std::string Tag;
        std::string Qualifier;
        std::string XmlTag;
        std::string Text;
        bool operator==(const Comment&) const = default;
    };

    static CommentSnapshot Of(const ProjectSession& session, const std::string& item);
    static Comment Of(const TaggedComment& comment);

    const std::vector<Comment>& Comments() const { return mComments; }
    /// Nothing where there was none.
    const Comment* Find(const std::string& id) const;
    /// In the place of the comment with that Id, or behind the others.
    void Put(Comment comment);
    void Remove(const std::string& id);
    bool operator==(const CommentSnapshot&) const = default;

    /// Makes the item's comments what they were. A comment that is still there stays the same
    /// object; one that was stored and is not in the snapshot is deleted as an author deletes it.
    void Restore(const ProjectSession& session, const std::string& item) const;

private:
    std::vector<Comment> mComments;
};

} // namespace paperkite
