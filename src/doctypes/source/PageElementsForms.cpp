#include "commenttexts/CommentForm.h"
#include "commenttexts/CommentsFromChain.h"
#include "commenttexts/ExampleNote.h"
#include "commenttexts/ExampleReference.h"
#include "commenttexts/KeywordList.h"
#include "commenttexts/MenuPath.h"
#include "commenttexts/PlainText.h"
#include "doctypes/source/PageElements.h"
#include "doctypes/source/PageHtml.h"
#include "foundation/PreviewLog.h"
#include "foundation/Text.h"
#include "model/SafeFile.h"

#include <filesystem>

namespace paperkite {

namespace {

using PageHtml::Escaped;

/// Comments of a form on an item, tombstones left out.
std::vector<Ref<TaggedComment>> OfForm(const SourceNamespaceProvider& provider,
                                       const std::string& qualifiedName, CommentForm form) {
    std::vector<Ref<TaggedComment>> found;
    const auto all = provider.GetComments()->Find(qualifiedName);
    if (!all) return found;
    for (const auto& comment : *all)
        if (comment->GetState() != kTaggedCommentTombstone &&
            FormOf(comment->GetTaggedCommentDef()) == form)
            found.push_back(comment);
    return found;
}

std::string MenuText(const TaggedComment& comment) {
    const auto path = MenuPath::Read(comment.GetText());
    if (!path) return comment.GetText();
    std::string out = "<p class=\"menupath\">" + Escaped(Join(path->Steps, " › "));
    if (!path->Keys.empty())
        out += (path->Steps.empty() ? "<kbd>" : " <kbd>") + Escaped(path->Keys) + "</kbd>";
    return out + "</p>";
}

} // namespace

/// What a page shows of a comment whose text is no HTML. A text that is not in its form goes out as
/// it is.
std::string PageElements::FormText(const TaggedComment& comment) const {
    const std::string& text = comment.GetText();
    switch (FormOf(comment.GetTaggedCommentDef())) {
    case CommentForm::IsNew: {
        const std::string version = PlainText::OneLine(text);
        return Escaped(version.empty() ? Phrase("New") : Phrase("New in") + " " + version);
    }
    case CommentForm::IsExample:
        return ExampleNoteText(comment);
    case CommentForm::ExampleSource:
        return ExampleText(comment);
    case CommentForm::MenuItem:
        return MenuText(comment);
    case CommentForm::Xml:
        return "<pre class=\"xml\"><code>" + Escaped(text) + "</code></pre>";
    case CommentForm::Html:
    case CommentForm::Keywords:
    case CommentForm::CommentsFrom:
    case CommentForm::SubItems:
        break;
    }
    return text;
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
    const auto project = mSettings.Project.Lock();
    if (!snippet.Problem.empty() && project && project->Log)
        project->Log->Messages.push_back("An example cannot be shown. " + snippet.Problem);
    std::string out;
    if (!reference->Caption.empty()) out += "<p>" + Escaped(reference->Caption) + "</p>\n";
    if (!snippet.Text.empty())
        out += "<pre class=\"example\"><code>" + Escaped(snippet.WithoutIndentation()) +
               "</code></pre>";
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

/// For the head of a page.
std::string PageElements::KeywordsOf(const std::string& qualifiedName) const {
    std::vector<std::string> all;
    for (const auto& comment : CommentsOf(qualifiedName, "##keywords")) {
        const auto list = KeywordList::Read(comment->GetText());
        if (!list) continue;
        for (const std::string& keyword : list->GetKeywords())
            all.push_back(Join(KeywordList::Levels(keyword), " "));
    }
    return Join(all, ", ");
}

/// The name of the item whose comments count for this one too, or an empty text.
std::string PageElements::TakenFrom(const std::string& qualifiedName) const {
    const auto found = OfForm(*mProvider, qualifiedName, CommentForm::CommentsFrom);
    return found.empty() ? std::string() : PlainText::OneLine(found.front()->GetText());
}

std::vector<std::string> PageElements::SourcesOf(const std::string& qualifiedName) const {
    return CommentsFromChain::Follow(qualifiedName, TakenFrom(qualifiedName),
                                     [this](const std::string& name) { return TakenFrom(name); })
        .Names;
}

} // namespace paperkite
