#include "fuzz/ProblemCheck.h"
#include "model/ContentFileReader.h"
#include "model/ContentFileWriter.h"

namespace paperkite::fuzz {
namespace {

/// Every comment with all that it holds, a line each.
std::string Listing(const CommentStore& store) {
    std::string text;
    for (const std::string& item : store.QualifiedNames()) {
        const auto comments = store.Find(item);
        for (const auto& comment : *comments)
            for (const std::string& part :
                 {item, comment->GetId(), comment->GetTagIdentifier(), comment->GetQualifier(),
                  comment->GetXMLCommentType(), comment->GetText()})
                text += std::to_string(part.size()) + ":" + part + "\n";
    }
    return text;
}

Ref<ContentFile> MakeFile() {
    auto file = MakeRef<ContentFile>();
    file->Path = "/content.ktc";
    return file;
}

std::size_t CommentElements(const std::string& bytes) {
    XmlFile xml;
    XmlReader("/content.ktc", bytes).Read(xml);
    return static_cast<std::size_t>(
        std::count_if(xml.Root.Children.begin(), xml.Root.Children.end(),
                      [](const XmlElement& child) { return child.Name == "comment"; }));
}

const FuzzTarget target("contentfile", [](std::string_view input) {
    const std::string bytes(input);
    const auto file = MakeFile();
    const auto store = MakeRef<CommentStore>();
    if (const auto problem = ContentFileReader::ReadBytes(file, bytes, *store)) {
        RequireClear(*problem, input);
        Require(store->Count() == 0, "a refused file left comments behind");
        return;
    }
    Require(store->Count() == CommentElements(bytes), "a comment was lost in reading");
    Require(ContentFileWriter::Bytes(*file, *store) == bytes, "an unchanged file is changed");

    const std::string written = ContentFileWriter::Canonical(*file, *store);
    const auto again = MakeFile();
    const auto readAgain = MakeRef<CommentStore>();
    const auto problem = ContentFileReader::ReadBytes(again, written, *readAgain);
    Require(!problem, "what was written is refused: " + (problem ? problem->Message() : ""));
    Require(ContentFileWriter::Canonical(*again, *readAgain) == written,
            "the second writing differs from the first:\n" + written + "\n---\n" +
                ContentFileWriter::Canonical(*again, *readAgain));
    // The writer orders comments of an item by tag; a second reading has that order.
    std::string before = Listing(*store);
    std::string after = Listing(*readAgain);
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    Require(before == after, "a comment changed:\n" + Listing(*store) + "---\n" +
                                 Listing(*readAgain) + "---\n" + written);
});

} // namespace
} // namespace paperkite::fuzz
