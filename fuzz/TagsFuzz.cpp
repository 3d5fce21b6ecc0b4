#include "doctypes/source/CodeSurvey.h"
#include "doctypes/source/CommentExtractor.h"
#include "doctypes/source/CtagsTagReader.h"
#include "doctypes/source/LanguageRefiner.h"
#include "doctypes/source/SourceIndexBuilder.h"
#include "fuzz/FuzzTarget.h"

#include <algorithm>

namespace paperkite::fuzz {
namespace {

constexpr std::string_view kCut = "\n====\n";

/// The file's tags, all of the language of the first one, as a scan has them.
TaggedFile ReadTags(std::string_view lines) {
    CtagsTagReader reader;
    TaggedFile file;
    while (!lines.empty()) {
        const std::size_t end = std::min(lines.find('\n'), lines.size());
        CtagsTag tag;
        if (reader.Read(lines.substr(0, end), tag) == CtagsTagReader::Result::Tag) {
            if (file.Path.empty()) file.Path = tag.Path;
            if (tag.Path == file.Path) file.Tags.push_back(std::move(tag));
        }
        lines.remove_prefix(std::min(end + 1, lines.size()));
    }
    return file;
}

void CheckEntity(const SourceIndex& index, SourceIndex::Id entity, const SourceText& text) {
    const std::string name = index.QualifiedName(entity);
    Require(index.Find(name) == entity, "not found under its own name: " + name);
    for (const char character : index.Step(entity))
        Require(character != '~' && static_cast<unsigned char>(character) >= 0x20,
                "a step that cuts qualified names: " + name);
    const SourcePlace place = index.Place(entity);
    Require(place.EndLine >= place.Line, "a place ends before it begins: " + name);
    if (entity != SourceIndex::Root)
        Require(index.Parent(entity) < index.Size(), "an entity without a parent: " + name);
    if (place.Line > 0)
        CommentExtractor::At(text, place.Line, index.Kind(entity), index.Language(entity),
                             index.LanguageName(entity));
}

const FuzzTarget target("tags", [](std::string_view input) {
    const std::size_t cut = input.find(kCut);
    const TaggedFile file = ReadTags(input.substr(0, cut));
    const SourceText text(std::string(
        cut == std::string_view::npos ? std::string_view() : input.substr(cut + kCut.size())));
    CodeSurvey survey;
    survey.Look("a.h", text.Text());
    survey.Definitions();
    CommentExtractor::CleanedLines(text.Text());
    if (file.Tags.empty()) return;

    SourceIndexBuilder builder("root");
    const std::uint32_t number = builder.AddFile(file.Path);
    const auto language = LanguageOfName(file.Tags[0].Language);
    for (SourceDeclaration& declaration : LanguageRefiner::For(language).Refine(file, text)) {
        declaration.File = number;
        builder.Add(declaration);
    }
    const SourceIndex index = *builder.Finish();
    std::size_t children = 0;
    for (SourceIndex::Id entity = 0; entity < index.Size(); ++entity) {
        CheckEntity(index, entity, text);
        children += index.Children(entity).size();
    }
    Require(children + 1 == index.Size(), "an entity is in no place of the tree, or in two");
});

} // namespace
} // namespace paperkite::fuzz
