#include "model/ContentFileReader.h"

#include "model/ContentFileIndex.h"
#include "model/ContentFileWriter.h"
#include "model/SafeFile.h"
#include "model/StoredComment.h"

#include <algorithm>
#include <array>
#include <vector>

namespace paperkite {

namespace {

struct ReadComment {
    std::string Item;
    Ref<TaggedComment> Comment;
    std::shared_ptr<CommentStore::KeptContent> Kept;
};

bool IsKnownAttribute(const std::string& name) {
    static constexpr std::array<std::string_view, 5> kKnown{"item", "tag", "id", "qualifier",
                                                            "xmltag"};
    return std::find(kKnown.begin(), kKnown.end(), name) != kKnown.end();
}

std::shared_ptr<CommentStore::KeptContent> KeptOf(const XmlElement& element,
                                                  std::vector<XmlElement>& before) {
    CommentStore::KeptContent kept;
    kept.Before.swap(before);
    for (const auto& attribute : element.Attributes)
        if (!IsKnownAttribute(attribute.first)) kept.Attributes.push_back(attribute);
    for (const XmlElement& child : element.Children)
        if (child.IsElement() || child.Kind == XmlElement::NodeKind::Markup)
            kept.Children.push_back(child);
    if (kept.Before.empty() && kept.Attributes.empty() && kept.Children.empty()) return {};
    return std::make_shared<CommentStore::KeptContent>(std::move(kept));
}

/// Takes the root's children apart: comments into `comments`, all else stays in `file.Kept`.
void ReadRoot(ContentFile& file, XmlElement root, std::vector<ReadComment>& comments) {
    std::vector<XmlElement> before;
    std::vector<XmlElement> kept;
    for (XmlElement& child : root.Children) {
        const bool isText =
            child.Kind == XmlElement::NodeKind::Text || child.Kind == XmlElement::NodeKind::CData;
        if (isText) continue;
        if (child.Kind == XmlElement::NodeKind::Markup) {
            before.push_back(std::move(child));
        } else if (child.Name == "comment") {
            auto keptContent = KeptOf(child, before);
            comments.push_back(
                {child.AttributeText("item"), StoredComment::FromElement(child), keptContent});
        } else if (child.Name == "property" && child.AttributeText("name") == "RelatedProject") {
            file.RelatedProject = child.ContentText();
        } else {
            std::move(before.begin(), before.end(), std::back_inserter(kept));
            before.clear();
            kept.push_back(std::move(child));
        }
    }
    std::move(before.begin(), before.end(), std::back_inserter(kept));
    root.Children = std::move(kept);
    file.Kept.Root = std::move(root);
}

constexpr std::size_t kFirstRuns = 64;

/// Leaves the comments as bytes where the file allows it.
bool ReadQuickly(const Ref<ContentFile>& file, const SharedText& bytes, CommentStore& store) {
    std::vector<std::pair<std::string, CommentStore::Run>> runs;
    std::string relatedProject;
    const bool isUsual =
        ContentFileIndex::Scan(bytes, relatedProject, [&](const ContentFileIndex::Run& run) {
            // After the first ones it shows how many there will be.
            if (runs.size() == kFirstRuns)
                runs.reserve(kFirstRuns + kFirstRuns * bytes.size() / run.Offset);
            runs.emplace_back(run.Item,
                              CommentStore::Run{file, bytes, run.Offset, run.Length, run.Count});
        });
    if (!isUsual) return false;
    store.Expect(runs.size());
    for (auto& [item, run] : runs)
        store.LoadRun(std::move(item), std::move(run));
    file->RelatedProject = relatedProject;
    file->CanonicalBytes = bytes;
    return true;
}

std::optional<FileProblem> ReadWhole(const Ref<ContentFile>& file, const std::string& bytes,
                                     CommentStore& store) {
    const XmlReader reader(file->Path, bytes);
    XmlFile xml;
    if (auto problem = reader.Read(xml)) return problem;
    if (auto problem =
            reader.CheckRoot(xml.Root, "contentfile", kContentFileVersion, "a Content File"))
        return problem;
    std::vector<ReadComment> comments;
    file->Kept.Prolog = std::move(xml.Prolog);
    file->Kept.Epilog = std::move(xml.Epilog);
    if (auto problem = ContentFileReader::CheckContent(reader, xml.Root)) return problem;
    ReadRoot(*file, std::move(xml.Root), comments);
    for (ReadComment& read : comments)
        store.Load(read.Item, read.Comment, {file, std::move(read.Kept)});
    file->CanonicalBytes = ContentFileWriter::Canonical(*file, store);
    return {};
}

} // namespace

std::optional<FileProblem> ContentFileReader::CheckContent(const XmlReader& reader,
                                                           const XmlElement& root) {
    for (const XmlElement& child : root.Children) {
        if (child.Kind == XmlElement::NodeKind::Text || child.Kind == XmlElement::NodeKind::CData) {
            const std::size_t start = child.Text.find_first_not_of(" \t\r\n");
            if (start == std::string::npos) continue;
            XmlElement place = child;
            place.Offset += start;
            return reader.ProblemAt(place, "Text stands here that belongs to no comment.",
                                    "Move it into a <comment>, or remove it.");
        }
        if (!child.IsElement() || child.Name != "comment") continue;
        for (const char* name : {"item", "tag"}) {
            const std::string* value = child.FindAttribute(name);
            if (value && !value->empty()) continue;
            return reader.ProblemAt(child,
                                    std::string("This comment does not say its ") + name + ".",
                                    std::string("Add ") + name + "=\"…\" to it, or remove it.");
        }
    }
    return {};
}

std::optional<FileProblem> ContentFileReader::Read(const Ref<ContentFile>& file,
                                                   CommentStore& store) {
    std::string bytes;
    if (auto problem = SafeFile::Read(file->Path, bytes)) {
        if (problem->Reason == FileProblem::ReasonCode::Missing) {
            problem->What = "This Content File of the project is missing.";
            problem->Remedy = "Put it back, or remove it from the project's list of Content Files.";
        }
        return problem;
    }
    return ReadBytes(file, std::move(bytes), store);
}

std::optional<FileProblem> ContentFileReader::ReadBytes(const Ref<ContentFile>& file,
                                                        std::string bytes, CommentStore& store) {
    const SharedText shared(std::move(bytes));
    if (!ReadQuickly(file, shared, store))
        if (auto problem = ReadWhole(file, shared, store)) return problem;
    file->Bytes = shared;
    file->ExistsOnDisk = true;
    return {};
}

} // namespace paperkite
