#include "model/ModelControlHelper.h"

#include "foundation/TaggedCommentDef.h"
#include "foundation/Text.h"
#include "model/TreePath.h"
#include "widgets/DockHost.h"

namespace paperkite {

namespace {

bool IsGeneral(const TaggedComment& comment) {
    if (comment.GetState() == kTaggedCommentTombstone) return false;
    if (comment.GetTagIdentifier() == "##") return true;
    const Ref<TaggedCommentDef> definition = comment.GetTaggedCommentDef();
    return definition && definition->IsGeneral;
}

Ref<TaggedComment> FindGeneralComment(const TaggedCommentCollection& comments) {
    for (const auto& comment : comments)
        if (IsGeneral(*comment)) return comment;
    return {};
}

} // namespace

std::string ModelControlHelper::GetTreePath(TreeControl& tree) {
    return TreePath::Of(tree).ToText();
}

void ModelControlHelper::SetTreePath(TreeControl& tree, const std::string& path) {
    TreePath::FromText(path).Apply(tree);
}

void ModelControlHelper::CopyComments(const Ref<Object>& item) {
    mClipboard.Copy(item);
    if (item && SetSystemClipboard && !mClipboard.IsEmpty())
        SetSystemClipboard(mClipboard.AsText());
}

void ModelControlHelper::PasteComments(const Ref<Object>& item) {
    mClipboard.Paste(item);
}

void ModelControlHelper::SyncGeneralComment(const Ref<Object>& item, bool load) {
    const auto comments = item->Get("TaggedComments").ToObjectOf<TaggedCommentCollection>();
    const Ref<TaggedComment> general = FindGeneralComment(*comments);
    if (!general && load) return;
    const std::string text = general ? general->GetText() : std::string();
    if (Ignoring([&] { item->Set("TaggedDescription", Value(text)); })) return;
    // What the source says must not be lost for a comment that is not there.
    if (general) Ignoring([&] { item->Set("Description", Value(text)); });
}

Ref<TaggedComment>
ModelControlHelper::FindTaggedComment(const Ref<TaggedCommentCollection>& comments,
                                      const std::string& tag) {
    for (const auto& comment : *comments)
        if (comment->GetState() != kTaggedCommentTombstone &&
            EqualIgnoringCase(comment->GetTagIdentifier(), tag))
            return comment;
    return {};
}

std::string ModelControlHelper::MergeDescription(const std::string& value, const std::string& text,
                                                 const std::string& format) {
    if (text.empty()) return value;
    if (format.empty()) return value + text;
    return value + ReplaceAllIgnoringCase(format, "%text%", text);
}

std::string ModelControlHelper::BuildTopic(const std::string& topic, bool dotNetXMLFormat,
                                           const std::string& tipPrefix) {
    return BuildTopicForType({}, topic, dotNetXMLFormat, tipPrefix);
}

std::string ModelControlHelper::BuildTopicForType(const std::string& itemType,
                                                  const std::string& topic, bool dotNetXMLFormat,
                                                  const std::string& tipPrefix) {
    return ChooseTopic ? ChooseTopic({itemType, topic, dotNetXMLFormat, tipPrefix}) : std::string();
}

void ModelControlHelper::ApplyToolbarStyle(DockHost& dock, int style) {
    if (style < static_cast<int>(ToolbarStyle::IconsOnly) ||
        style > static_cast<int>(ToolbarStyle::TextBesideIcons))
        return;
    dock.SetToolbarStyle(static_cast<ToolbarStyle>(style));
}

} // namespace paperkite
