#pragma once

#include "foundation/Event.h"
#include "host/CommentHistory.h"
#include "host/UnsavedWork.h"
#include "host/Workspace.h"
#include "model/HomelessComments.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace paperkite {

/// What an author does with the comments of items that are gone, in an open project: look at them,
/// give them to another item, or delete them. The components and the journal are kept in step;
/// nothing is written before the next save.
class HomelessWork {
public:
    using Entry = HomelessComments::Entry;
    using Home = HomelessComments::Home;

    /// A comment for reading.
    struct Comment {
        /// The tag's name with what it qualifies: "Parameter key".
        std::string Tag;
        /// HTML, or a plain value.
        std::string Text;
    };

    /// Journal and history may be nothing; all outlive this.
    HomelessWork(Workspace& workspace, UnsavedWork* unsaved, CommentHistory* history = nullptr)
        : mWorkspace(workspace), mUnsaved(unsaved), mHistory(history) {}

    /// The items that are gone, sorted; quick also where there are a million items.
    std::vector<std::string> Names() const;
    std::size_t CountOf(const std::string& gone) const { return GetStore().CountOf(gone); }
    /// The same with their likeliest homes; see HomelessComments::Find.
    std::vector<Entry> Find(const HomelessComments::GoOn& goOn) const;
    std::vector<Comment> CommentsOf(const std::string& gone) const;
    /// Items with a text in their names, as the window's finder finds them.
    std::vector<Home> Search(const std::string& text, std::size_t most) const;

    /// Moves the comments with those below them; what is being edited is committed first. Gives who
    /// moved where; nothing when one of both is not what it should be.
    HomelessComments::Moves Adopt(const std::string& gone, const std::string& home);
    /// Deletes the comments of an item that is gone.
    void Delete(const std::string& gone);

    struct {
        /// An item got comments or lost them; raised when everything is in place.
        Event<const std::string&> Changed;
    } Events;

private:
    CommentStore& GetStore() const;
    const SourceNamespaceProvider& GetProvider() const;
    /// Does the work (see OutsideChange), and tells of it.
    void Change(const std::string& caption, const std::vector<std::string>& items,
                const std::function<void()>& work);

    Workspace& mWorkspace;
    UnsavedWork* mUnsaved;
    CommentHistory* mHistory;
};

} // namespace paperkite
