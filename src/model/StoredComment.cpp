#include "model/StoredComment.h"

#include "foundation/Error.h"
#include "model/XmlReader.h"

namespace paperkite::StoredComment {

namespace {

constexpr std::string_view kRunBegin = "<run>";
constexpr std::string_view kRunEnd = "\n</run>";

} // namespace

Ref<TaggedComment> FromElement(const XmlElement& element) {
    auto comment = MakeRef<TaggedComment>(element.AttributeText("id"));
    comment->SetTagIdentifier(element.AttributeText("tag"));
    comment->SetQualifier(element.AttributeText("qualifier"));
    comment->SetXMLCommentType(element.AttributeText("xmltag"));
    comment->SetText(element.ContentText());
    return comment;
}

XmlElement ToElement(const std::string& item, const TaggedComment& comment) {
    XmlElement element = XmlElement::Named("comment");
    element.With("item", item).With("tag", comment.GetTagIdentifier()).With("id", comment.GetId());
    if (!comment.GetQualifier().empty()) element.With("qualifier", comment.GetQualifier());
    if (!comment.GetXMLCommentType().empty()) element.With("xmltag", comment.GetXMLCommentType());
    element.SetContentLines(comment.GetWrittenText());
    return element;
}

std::vector<Parsed> ParseRun(std::string_view bytes) {
    std::string whole(kRunBegin);
    whole.append(bytes).append(kRunEnd);
    XmlFile xml;
    if (const auto problem = XmlReader({}, std::move(whole)).Read(xml))
        RaiseError(ErrorNumber::InvalidCall, problem->Message());
    std::vector<const XmlElement*> elements;
    for (const XmlElement& child : xml.Root.Children)
        if (child.IsElement()) elements.push_back(&child);
    std::vector<Parsed> parsed;
    // An element is known by where its name begins; "\n  <" stands before it.
    const auto beginOf = [](const XmlElement& element) {
        return element.Offset - kRunBegin.size() - 4;
    };
    for (std::size_t at = 0; at < elements.size(); ++at) {
        const std::size_t begin = beginOf(*elements[at]);
        const std::size_t end =
            at + 1 < elements.size() ? beginOf(*elements[at + 1]) : bytes.size();
        parsed.push_back({FromElement(*elements[at]), bytes.substr(begin, end - begin)});
    }
    return parsed;
}

bool SaysTheSame(std::string_view bytes, const TaggedComment& comment) {
    const auto parsed = ParseRun(bytes);
    if (parsed.size() != 1) return false;
    const TaggedComment& stored = *parsed.front().Comment;
    return stored.GetId() == comment.GetId() &&
           stored.GetTagIdentifier() == comment.GetTagIdentifier() &&
           stored.GetQualifier() == comment.GetQualifier() &&
           stored.GetXMLCommentType() == comment.GetXMLCommentType() &&
           stored.GetText() == comment.GetWrittenText();
}

} // namespace paperkite::StoredComment
