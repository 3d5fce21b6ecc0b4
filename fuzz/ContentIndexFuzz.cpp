#include "foundation/KeyGenerator.h"
#include "fuzz/FuzzTarget.h"
#include "model/ContentFileIndex.h"
#include "model/ContentFileReader.h"

namespace paperkite::fuzz {
namespace {

/// The Id, if it is from the file: a comment whose Id another one of its item has gets a new one.
std::string IdOf(const TaggedComment& comment, const std::string& bytes) {
    static const std::size_t newLength = KeyGenerator().Generate().size();
    const std::string& id = comment.GetId();
    return id.size() == newLength && bytes.find(id) == std::string::npos ? "new" : id;
}

/// Everything that a reader makes of a file, as text; nothing when it refuses the file.
std::string Meaning(const std::string& bytes) {
    const auto file = MakeRef<ContentFile>();
    file->Path = "/content.ktc";
    const auto store = MakeRef<CommentStore>();
    if (ContentFileReader::ReadBytes(file, bytes, *store)) return {};
    std::string meaning = "for " + file->RelatedProject + "\n";
    for (const std::string& item : store->QualifiedNames()) {
        const auto comments = store->Find(item);
        for (const auto& comment : *comments)
            for (const std::string& part :
                 {item, comment->GetTagIdentifier(), IdOf(*comment, bytes), comment->GetQualifier(),
                  comment->GetXMLCommentType(), comment->GetText()})
                meaning += std::to_string(part.size()) + ":" + part + "\n";
    }
    return meaning;
}

// What the index takes for the writer's work means the same to a reader that parses all of it.
const FuzzTarget target("contentindex", [](std::string_view input) {
    const std::string bytes(input);
    std::string relatedProject;
    std::string before;
    std::size_t end = 0;
    const bool isUsual =
        ContentFileIndex::Scan(bytes, relatedProject, [&](const ContentFileIndex::Run& run) {
            Require(run.Count > 0 && run.Length > 0, "a run of nothing");
            Require(run.Offset >= end && run.Length <= bytes.size() - run.Offset,
                    "a run stands in another, or behind the end");
            Require(before < run.Item, "runs out of order");
            end = run.Offset + run.Length;
            before = run.Item;
        });
    if (!isUsual) return;
    const std::string meaning = Meaning(bytes);
    // A line break before the root is a layout that the index refuses.
    std::string other = bytes;
    other.insert(other.find("<contentfile"), "\n");
    const std::string whole = Meaning(other);
    Require(!whole.empty(), "accepted, and refused by the one who reads all of it");
    Require(meaning == whole, "it means something else:\n" + meaning + "---\n" + whole);
});

} // namespace
} // namespace paperkite::fuzz
