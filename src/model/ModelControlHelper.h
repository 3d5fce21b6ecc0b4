#pragma once

#include "foundation/ControlHelper.h"
#include "foundation/Event.h"
#include "model/CommentClipboard.h"

#include <functional>
#include <string>

namespace paperkite {

/// The helper operations on the model in memory. The host makes one for the process and gives it
/// what only a window system can do.
class ModelControlHelper : public ControlHelper {
public:
    /// What the author is asked when a topic is to be chosen.
    struct TopicRequest {
        /// Empty for any kind of item.
        std::string ItemType;
        std::string Topic;
        bool DotNetXMLFormat = false;
        std::string TipPrefix;
    };

    std::string GetTreePath(TreeControl& tree) override;
    void SetTreePath(TreeControl& tree, const std::string& path) override;
    void CopyComments(const Ref<Object>& item) override;
    void PasteComments(const Ref<Object>& item) override;
    bool GetClipboardHasComments() const override { return !mClipboard.IsEmpty(); }
    std::string GetClipboardItemType() const override { return mClipboard.GetItemType(); }
    std::string GetClipboardQualifiedName() const override { return mClipboard.GetQualifiedName(); }
    void SyncGeneralComment(const Ref<Object>& item, bool load) override;
    Ref<TaggedComment> FindTaggedComment(const Ref<TaggedCommentCollection>& comments,
                                         const std::string& tag) override;
    std::string MergeDescription(const std::string& value, const std::string& text,
                                 const std::string& format) override;
    void ResetParser() override { Events.ParserReset.Raise(); }
    std::string BuildTopic(const std::string& topic, bool dotNetXMLFormat,
                           const std::string& tipPrefix) override;
    std::string BuildTopicForType(const std::string& itemType, const std::string& topic,
                                  bool dotNetXMLFormat, const std::string& tipPrefix) override;
    /// The number of a ToolbarStyle; any other leaves the bars as they are.
    void ApplyToolbarStyle(DockHost& dock, int style) override;

    /// Gives copied comments to other programs as text; nothing where there is no clipboard.
    std::function<void(const std::string& text)> SetSystemClipboard;
    /// Shows the dialog and gives the topic, or an empty text; without it no topic is chosen.
    std::function<std::string(const TopicRequest&)> ChooseTopic;

    struct HelperEvents {
        /// Whoever keeps parsed templates forgets them.
        Event<> ParserReset;
    } Events;

private:
    CommentClipboard mClipboard;
};

} // namespace paperkite
