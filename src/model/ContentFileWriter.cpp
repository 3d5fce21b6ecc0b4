#include "model/ContentFileWriter.h"

#include "model/ContentFileReader.h"
#include "model/StoredComment.h"
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
    XmlElement element = StoredComment::ToElement(item, comment);
    if (!kept) return element;
    for (const auto& attribute : kept->Attributes)
        element.Attributes.push_back(attribute);
    for (const XmlElement& child : kept->Children)
        element.Children.push_back(child);
    return element;
}

void AppendComment(std::string& out, const std::string& item, const TaggedComment& comment,
                   const CommentStore::Origin& origin) {
    if (!origin.Stored.empty() && StoredComment::SaysTheSame(origin.Stored, comment)) {
        out.append(origin.Stored);
        return;
    }
    if (origin.Kept)
        for (const XmlElement& markup : origin.Kept->Before)
            AppendXml(out, markup, 1);
    AppendXml(out, ElementOf(item, comment, origin.Kept.get()), 1);
}

void AppendComments(std::string& out, const std::string& item, const CommentStore& store,
                    const ContentFileWriter::BelongsTest& belongs) {
    if (const CommentStore::Run* run = store.SoleRunOf(item)) {
        if (belongs({run->File, {}})) out.append(run->Bytes());
        return;
    }
    const Ref<TaggedCommentCollection> comments = store.Find(item);
    for (const auto& comment : InStoredOrder(*comments)) {
        const CommentStore::Origin origin = store.OriginOf(item, *comment);
        if (belongs(origin)) AppendComment(out, item, *comment, origin);
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
    XmlElement root = XmlElement::Named("contentfile");
    root.Attributes = file.Kept.Root.Attributes;
    SetVersion(root);
    std::string out;
    out.reserve(file.Bytes.size() + file.Bytes.size() / 64 + 4096);
    out += kXmlDeclaration;
    for (const XmlElement& node : file.Kept.Prolog)
        AppendXml(out, node, 0);
    out.append("\n<").append(root.Name);
    AppendAttributes(out, root);
    const std::size_t rootEnd = out.size();
    out += '>';
    if (!file.RelatedProject.empty())
        AppendXml(
            out,
            XmlElement::WithText("property", file.RelatedProject).With("name", "RelatedProject"),
            1);
    for (const std::string& item : store.QualifiedNames())
        AppendComments(out, item, store, belongs ? belongs : own);
    for (const XmlElement& kept : file.Kept.Root.Children)
        AppendXml(out, kept, 1);
    if (out.size() == rootEnd + 1)
        out.replace(rootEnd, 1, "/>");
    else
        out.append("\n</").append(root.Name).append(">");
    for (const XmlElement& node : file.Kept.Epilog)
        AppendXml(out, node, 0);
    out += '\n';
    return out;
}

std::string ContentFileWriter::Bytes(const ContentFile& file, const CommentStore& store,
                                     const BelongsTest& belongs) {
    std::string canonical = Canonical(file, store, belongs);
    return canonical == file.CanonicalBytes.Get() ? file.Bytes.Get() : canonical;
}

} // namespace paperkite
