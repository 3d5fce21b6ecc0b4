#include "model/CommentClipboard.h"

#include "foundation/GlobalConfig.h"
#include "foundation/TaggedCommentCollection.h"
#include "foundation/Text.h"

#include <algorithm>

namespace paperkite {

namespace {

Ref<TaggedCommentCollection> CommentsOf(const Object& item) {
    const auto comments = item.Get("TaggedComments").ToObjectOf<TaggedCommentCollection>();
    if (!comments) RaiseError(ErrorNumber::ObjectNotSet);
    return comments;
}

bool HasTag(const TaggedCommentCollection& comments, const std::string& tag) {
    return std::any_of(comments.begin(), comments.end(), [&tag](const auto& comment) {
        return comment->GetState() != kTaggedCommentTombstone &&
               EqualIgnoringCase(comment->GetTagIdentifier(), tag);
    });
}

// An item has one general description, and a flag is set or not.
bool StandsOnce(const std::string& tag) {
    const Ref<TaggedCommentDef> definition = GlobalConfig().TaggedCommentDefs->Find(tag);
    return tag == "##" || (definition && (definition->IsGeneral || definition->TagType == "f"));
}

} // namespace

void CommentClipboard::Copy(const Ref<Object>& item) {
    if (!item) return;
    std::vector<Entry> entries;
    const Ref<TaggedCommentCollection> comments = CommentsOf(*item);
    for (const auto& comment : *comments) {
        if (comment->GetState() == kTaggedCommentTombstone) continue;
        entries.push_back({comment->GetTagIdentifier(), comment->GetQualifier(),
                           comment->GetWrittenText(), comment->GetXMLCommentType()});
    }
    mItemName = item->Get("Name").ToText();
    mQualifiedName = item->Get("QualifiedName").ToText();
    mItemType = item->TypeName();
    mEntries = std::move(entries);
}

std::size_t CommentClipboard::Paste(const Ref<Object>& item) const {
    if (!item || mEntries.empty()) return 0;
    const Ref<TaggedCommentCollection> comments = CommentsOf(*item);
    const std::string name = item->Get("Name").ToText();
    std::size_t added = 0;
    for (const Entry& entry : mEntries) {
        if (StandsOnce(entry.TagIdentifier) && HasTag(*comments, entry.TagIdentifier)) continue;
        auto comment = MakeRef<TaggedComment>();
        comment->SetTagIdentifier(entry.TagIdentifier);
        comment->SetQualifier(entry.Qualifier == mItemName ? name : entry.Qualifier);
        comment->SetText(entry.Text);
        comment->SetXMLCommentType(entry.XMLCommentType);
        comment->SetItem(item);
        comment->SetState(kTaggedCommentNew);
        comments->Add(comment, comment->GetId());
        ++added;
    }
    return added;
}

std::string CommentClipboard::AsText() const {
    std::string text;
    for (const Entry& entry : mEntries) {
        const auto definition = GlobalConfig().TaggedCommentDefs->Find(entry.TagIdentifier);
        text += definition ? definition->DisplayName : entry.TagIdentifier;
        if (!entry.Qualifier.empty()) text += " (" + entry.Qualifier + ")";
        text += entry.Text.empty() ? "\n" : ": " + entry.Text + "\n";
    }
    return text;
}

} // namespace paperkite
