#include "commenttexts/CommentForm.h"
#include "commenttexts/ExampleNote.h"
#include "commenttexts/ExampleReference.h"
#include "doctypes/source/PageElements.h"
#include "doctypes/source/PageHtml.h"
#include "foundation/PreviewLog.h"
#include "foundation/Text.h"
#include "model/SafeFile.h"

#include <algorithm>
#include <filesystem>

namespace paperkite {

namespace {

using PageHtml::Escaped;

/// Lines of an example that are shown where its layout says nothing.
constexpr std::size_t kMostLines = 60;

struct NotedExample {
    std::string Item;
    std::string Title;
};

/// What says of itself that it shows how an item is used, in the order of the names.
std::vector<NotedExample> ExamplesOf(const CommentStore& comments, const std::string& item) {
    std::vector<NotedExample> found;
    comments.ForEach([&](const std::string& name, const TaggedComment& comment) {
        if (FormOf(comment.GetTaggedCommentDef()) != CommentForm::IsExample) return;
        const auto note = ExampleNote::Read(comment.GetText());
        if (note && std::find(note->Items.begin(), note->Items.end(), item) != note->Items.end())
            found.push_back({name, note->Title});
    });
    std::sort(found.begin(), found.end(),
              [](const auto& a, const auto& b) { return a.Item < b.Item; });
    return found;
}

} // namespace

void PageElements::Tell(const std::string& message) const {
    const auto project = mSettings.Project.Lock();
    if (project && project->Log) project->Log->Messages.push_back(message);
}

/// The lines as they stand in the file now. What is not there is told to whoever makes the pages,
/// not to their readers.
std::string PageElements::ExampleText(const TaggedComment& comment) const {
    const auto reference = ExampleReference::Read(comment.GetText());
    if (!reference || reference->File.empty()) return comment.GetText();
    const std::filesystem::path folder = mProvider->GetComments()->GetFolder();
    ExampleSnippet snippet;
    std::string source;
    if (folder.empty() && std::filesystem::path(reference->File).is_relative())
        snippet.Problem =
            "The project is in no file yet, so \"" + reference->File + "\" cannot be found.";
    else if (const auto problem = SafeFile::Read((folder / reference->File).string(), source))
        snippet.Problem = problem->Message();
    else
        snippet = TakeExample(*reference, source);
    if (!snippet.Problem.empty()) Tell("An example cannot be shown. " + snippet.Problem);
    std::string out;
    if (!reference->Caption.empty()) out += "<p>" + Escaped(reference->Caption) + "</p>\n";
    if (!snippet.Text.empty())
        out += PageHtml::Code(snippet.WithoutIndentation(), reference->File);
    else if (mSettings.ForEdit)
        out += "<p class=\"problem\">" + Escaped(snippet.Problem) + "</p>";
    return out;
}

std::string PageElements::ExampleNoteText(const TaggedComment& comment) const {
    const auto note = ExampleNote::Read(comment.GetText());
    if (!note) return comment.GetText();
    std::vector<std::string> names;
    for (const std::string& item : note->Items) {
        const auto found = mProvider->GetItem(item).As<SourceItem>();
        names.push_back(found ? ScopedName({mProvider, found->GetRoot(), found->GetEntity()})
                              : item);
    }
    std::string out = note->Title.empty() ? std::string() : "<p>" + Escaped(note->Title) + "</p>";
    if (!names.empty())
        out += "<p>" + Escaped(Phrase("Shows how to use")) + " " + Escaped(Join(names, ", ")) +
               ".</p>";
    return out.empty() ? "<p>" + Escaped(Phrase("This is an example")) + ".</p>" : out;
}

/// The lines of an item as they stand in its file now; empty where there are more than `most`.
std::string PageElements::CodeOf(const PageSubject& subject, std::size_t most) const {
    const SourcePlace place = subject.Index().Place(subject.Entity);
    if (place.File.empty() || place.EndLine - place.Line >= most) return {};
    ExampleReference lines;
    lines.Taken = ExampleReference::Part::Lines;
    lines.From = place.Line;
    lines.To = place.EndLine;
    const std::filesystem::path folder = subject.Provider->GetFolder(subject.Root);
    std::string source;
    ExampleSnippet snippet;
    if (const auto problem = SafeFile::Read((folder / place.File).string(), source))
        snippet.Problem = problem->Message();
    else
        snippet = TakeExample(lines, source);
    if (!snippet.Problem.empty()) Tell("An example cannot be shown. " + snippet.Problem);
    if (snippet.Text.empty()) return {};
    return PageHtml::Code(snippet.WithoutIndentation(), std::string(place.File));
}

std::string PageElements::WriteExamples(const ParserElement& element, const PageSubject& subject) {
    const std::size_t most = Number(element, "most", kMostLines);
    std::string body;
    for (const auto& [name, title] :
         ExamplesOf(*subject.Provider->GetComments(), subject.QualifiedName())) {
        const auto item = subject.Provider->GetItem(name).As<SourceItem>();
        if (!item) continue;
        const PageSubject example{subject.Provider, item->GetRoot(), item->GetEntity()};
        if (!mSettings.ForEdit && !HasPage(example)) continue;
        body += "<div class=\"shown\">\n<p>";
        if (!title.empty()) body += Escaped(title) + " – ";
        body += Link(example, "<code>" + Escaped(ScopedName(example)) + "</code>") + " <small>" +
                WritePlace(element, example) + "</small></p>\n" + CodeOf(example, most) +
                "</div>\n";
    }
    return InSection(element, "examples", "Examples", body);
}

} // namespace paperkite
