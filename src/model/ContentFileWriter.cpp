#include "model/ContentFileWriter.h"

#include "model/ContentFileReader.h"
#include "model/XmlWriter.h"

#include <algorithm>

namespace paperkite {

namespace {

std::vector<Ref<TaggedComment>> InStoredOrder(const TaggedCommentCollection& comments) {
    std::vector<Ref<TaggedComment>> result;
    for (const auto& comment : comments)
        if (comment->GetState() != kTaggedCommentTombstone) result.push_back(comment);
    std::stable_sort(result.begin(), result.end(), [](const auto& left, const auto& right) {
        return left->GetTagIdentifier() < right->GetTagIdentifier();
    });
    return result;
}

XmlElement ElementOf(const std::string& item, const TaggedComment& comment,
                     const CommentStore::KeptContent* kept) {
    XmlElement element = XmlElement::Named("comment");
    element.With("item", item).With("tag", comment.GetTagIdentifier()).With("id", comment.GetId());
    if (!comment.GetQualifier().empty()) element.With("qualifier", comment.GetQualifier());
    if (!comment.GetXMLCommentType().empty()) element.With("xmltag", comment.GetXMLCommentType());
    element.SetContentLines(comment.GetText());
    if (!kept) return element;
    for (const auto& attribute : kept->Attributes)
        element.Attributes.push_back(attribute);
    for (const XmlElement& child : kept->Children)
        element.Children.push_back(child);
    return element;
}

void AddComments(XmlElement& root, const std::string& item, const CommentStore& store,
                 const ContentFileWriter::BelongsTest& belongs) {
    const Ref<TaggedCommentCollection> comments = store.Find(item);
    for (const auto& comment : InStoredOrder(*comments)) {
        const CommentStore::Origin origin = store.OriginOf(item, *comment);
        if (!belongs(origin)) continue;
        if (origin.Kept)
            for (const XmlElement& markup : origin.Kept->Before)
                root.Children.push_back(markup);
        root.Children.push_back(ElementOf(item, *comment, origin.Kept.get()));
    }
}

void SetVersion(XmlElement& root) {
    std::erase_if(root.Attributes, [](const auto& entry) { return entry.first == "version"; });
    root.Attributes.insert(root.Attributes.begin(),
                           {"version", std::to_string(kContentFileVersion)});
}

} // namespace

std::string ContentFileWriter::Canonical(const ContentFile& file, const CommentStore& store,
                                         const BelongsTest& belongs) {
    const BelongsTest own = [&file](const CommentStore::Origin& origin) {
        return origin.File.get() == &file;
    };
    XmlFile xml = file.Kept;
    xml.Root.Name = "contentfile";
    SetVersion(xml.Root);
    std::vector<XmlElement> kept;
    kept.swap(xml.Root.Children);
    if (!file.RelatedProject.empty())
        xml.Root.Add(XmlElement::WithText("property", file.RelatedProject))
            .With("name", "RelatedProject");
    for (const std::string& item : store.QualifiedNames())
        AddComments(xml.Root, item, store, belongs ? belongs : own);
    std::move(kept.begin(), kept.end(), std::back_inserter(xml.Root.Children));
    return WriteXml(xml);
}

std::string ContentFileWriter::Bytes(const ContentFile& file, const CommentStore& store,
                                     const BelongsTest& belongs) {
    std::string canonical = Canonical(file, store, belongs);
    return canonical == file.CanonicalBytes ? file.Bytes : canonical;
}

} // namespace paperkite
