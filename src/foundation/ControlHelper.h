#pragma once

#include "foundation/Object.h"
#include "foundation/TaggedCommentCollection.h"

#include <string>

namespace paperkite {

class DockHost;
class TreeControl;

/// The helper operations around items, comments and trees that the model library brings along.
class ControlHelper {
public:
    virtual ~ControlHelper() = default;

    /// Which nodes are open and which is selected, as a text that survives a rebuild of the tree.
    virtual std::string GetTreePath(TreeControl& tree) = 0;
    /// Opens and selects again what is still there.
    virtual void SetTreePath(TreeControl& tree, const std::string& path) = 0;
    virtual void CopyComments(const Ref<Object>& item) = 0;
    /// Adds what was copied to the item's comments; nothing copied, nothing added.
    virtual void PasteComments(const Ref<Object>& item) = 0;
    virtual bool GetClipboardHasComments() const = 0;
    /// The run-time type name of the item that was copied from.
    virtual std::string GetClipboardItemType() const = 0;
    virtual std::string GetClipboardQualifiedName() const = 0;

    /// Whether an object is there and of that run-time type, letter case ignored.
    virtual bool IsType(const Ref<Object>& object, const std::string& name) {
        return paperkite::IsType(object, name);
    }

    /// Keeps an item's own description in step with its general comment: gives the comment's text
    /// to the item's TaggedDescription (or Description, where it has no such member). With `load`,
    /// the first time, an item without a general comment is left as it is: taking an item up never
    /// makes a comment. Without it, such an item's TaggedDescription becomes empty.
    virtual void SyncGeneralComment(const Ref<Object>& item, bool load) = 0;
    /// The first comment of a tag that is no tombstone, or nothing; letter case ignored.
    virtual Ref<TaggedComment> FindTaggedComment(const Ref<TaggedCommentCollection>& comments,
                                                 const std::string& tag) = 0;
    /// A description with a further text worked in by a format that says "%text%" for it.
    virtual std::string MergeDescription(const std::string& value, const std::string& text,
                                         const std::string& format) = 0;
    /// Forgets parsed templates.
    virtual void ResetParser() = 0;

    /// Lets the author choose a topic; empty when cancelled.
    virtual std::string BuildTopic(const std::string& topic, bool dotNetXMLFormat,
                                   const std::string& tipPrefix) = 0;
    virtual std::string BuildTopicForType(const std::string& itemType, const std::string& topic,
                                          bool dotNetXMLFormat, const std::string& tipPrefix) = 0;

    virtual void ApplyToolbarStyle(DockHost& dock, int style) = 0;
};

} // namespace paperkite
